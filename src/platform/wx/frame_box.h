#pragma once

#include <wx/statbox.h>

namespace tamarind::platform {

/// A frame with a caption, as large as its sizer wants it. The toolkit's own never wants to be smaller than what stands
/// in it is just now, so that a window around it could not be made smaller again.
class FrameBox : public wxStaticBox {
public:
    using wxStaticBox::wxStaticBox;

protected:
    [[nodiscard]] wxSize DoGetBestSize() const override {
        return GetTextExtent(GetLabelText()) + wxSize(2 * GetCharWidth(), 0);
    }
};

} // namespace tamarind::platform
