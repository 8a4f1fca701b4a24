#pragma once

#include <wx/bitmap.h>
#include <wx/bmpbndl.h>

#include <cstddef>

namespace tamarind::platform {

/// One picture in several sizes, from PNG files in memory; the screen's scale chooses among them.
template <std::size_t... sizes> [[nodiscard]] wxBitmapBundle BundleOf(const unsigned char (&... pictures)[sizes]) {
    wxVector<wxBitmap> bitmaps;
    (bitmaps.push_back(wxBitmap::NewFromPNGData(pictures, sizes)), ...);
    return wxBitmapBundle::FromBitmaps(bitmaps);
}

} // namespace tamarind::platform
