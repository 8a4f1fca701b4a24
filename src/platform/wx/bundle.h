#pragma once

#include <wx/bitmap.h>
#include <wx/bmpbndl.h>

#include <cstddef>

namespace tamarind::platform {

/// A PNG file in memory as a bitmap. The toolkit's own reader is not part of every build of it.
[[nodiscard]] wxBitmap BitmapFromPng(const unsigned char* png, std::size_t size);

/// One picture in several sizes, from PNG files in memory; the screen's scale chooses among them.
template <std::size_t... sizes> [[nodiscard]] wxBitmapBundle BundleOf(const unsigned char (&... pictures)[sizes]) {
    wxVector<wxBitmap> bitmaps;
    (bitmaps.push_back(BitmapFromPng(pictures, sizes)), ...);
    return wxBitmapBundle::FromBitmaps(bitmaps);
}

} // namespace tamarind::platform
