#pragma once

#include "convert/picture_view.h"
#include "convert/texture_picture.h"

#include <wx/panel.h>
#include <wx/scrolwin.h>

#include <functional>
#include <optional>
#include <string_view>

class wxButton;
class wxChoice;
class wxStaticText;

namespace tamarind::convert {

/// A picture that can be scrolled by the bars, the keys and by dragging, and zoomed by the wheel and by + - 0 1.
class PictureCanvas : public wxScrolledCanvas {
public:
    PictureCanvas(wxWindow* parent, std::function<void()> onZoom);

    /// Nothing shows an empty ground. The scale stays as chosen.
    void ShowPicture(std::optional<Picture> picture);

    void FitPicture();
    void SetScale(double scale);
    [[nodiscard]] double Scale() const;

private:
    void OnPaint();
    void OnWheel(wxMouseEvent& event);
    void OnMouse(wxMouseEvent& event);
    void OnKey(wxKeyEvent& event);
    /// The picture's point under `anchor`, in pixels of the window, stays there.
    void ZoomAt(double scale, const wxPoint& anchor);
    void FitScrollBars();
    [[nodiscard]] wxPoint Corner() const;

    std::optional<Picture> picture_;
    std::optional<double> chosenScale_; ///< nothing: as large as fits
    std::optional<wxPoint> dragStart_;
    std::function<void()> onZoom_;
};

/// The pane beside the text of a texture: its picture, what it is, a chooser of its levels.
class TexturePreviewPage : public wxPanel {
public:
    /// `text` gives the texture's XML when it is needed; `onClose` is the Close button.
    TexturePreviewPage(wxWindow* parent, std::function<std::string_view()> text, std::function<void()> onClose);

    /// Shows the largest level, as large as fits.
    void ShowTexture();

private:
    wxSizer* MakeHeading(std::function<void()> onClose);
    wxSizer* MakeZoomRow();
    void ShowLevel(std::size_t level);
    void OfferLevels(const Picture& largest);
    void ShowScale();

    std::function<std::string_view()> text_;
    wxStaticText* info_ = nullptr;
    wxStaticText* scale_ = nullptr;
    wxChoice* level_ = nullptr;
    wxButton* fit_ = nullptr;
    wxButton* full_ = nullptr;
    PictureCanvas* canvas_ = nullptr;
};

} // namespace tamarind::convert
