#pragma once

#include "markers/marker_list.h"

#include <wx/dialog.h>

class wxCheckBox;

namespace tamarind::markers {

class MarkerPlotPage;

/// What was read from a marker file, as a picture and as a list, before it is saved. Ends with wxID_SAVE or
/// wxID_CANCEL.
class dlgMarkers final : public wxDialog {
public:
    /// `list` must live as long as this.
    dlgMarkers(wxWindow* parent, const MarkerList& list);

    /// The person does not want to see this any more.
    [[nodiscard]] bool IsSkippedFromNowOn() const;

private:
    wxSizer* MakePanes(const MarkerList& list);
    wxSizer* MakeBottom();

    MarkerPlotPage* plot_ = nullptr;
    wxCheckBox* skip_ = nullptr;
};

} // namespace tamarind::markers
