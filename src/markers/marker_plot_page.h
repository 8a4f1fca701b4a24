#pragma once

#include "markers/marker_list.h"

#include <wx/bitmap.h>
#include <wx/window.h>

namespace tamarind::markers {

/// The picture of a list's markers, as large as the window. It is drawn like a sheet of paper, in the dark appearance
/// too.
class MarkerPlotPage : public wxWindow {
public:
    /// `list` must live as long as this.
    MarkerPlotPage(wxWindow* parent, const MarkerList& list);

    /// Smaller, the picture would be cut off.
    [[nodiscard]] wxSize SmallestSize() const;

private:
    void OnPaint();
    /// Pixels of the window to one of the plot's: the picture grows with the system's letters.
    [[nodiscard]] double Scale() const;
    [[nodiscard]] wxBitmap Draw() const;

    const MarkerList& list_;
    wxBitmap picture_; ///< of the window's size; drawn anew when that has changed
};

} // namespace tamarind::markers
