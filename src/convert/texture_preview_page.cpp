#include "convert/texture_preview_page.h"

#include "platform/wx/bordered_panel.h"
#include "platform/wx/wx_text.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/dcbuffer.h>
#include <wx/image.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tamarind::convert {

using platform::ToWx;

namespace {

constexpr int kGap = 6;
const wxSize kSmallestCanvas(120, 80);

PixelSize SizeOf(const Picture& picture) { return {picture.width, picture.height}; }

} // namespace

PictureCanvas::PictureCanvas(wxWindow* parent, std::function<void()> onZoom)
    : wxScrolledCanvas(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE | wxWANTS_CHARS),
      onZoom_(std::move(onZoom)) {
    SetName("PreviewPicture");
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetMinSize(FromDIP(kSmallestCanvas));
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { OnPaint(); });
    Bind(wxEVT_MOUSEWHEEL, &PictureCanvas::OnWheel, this);
    for (const auto& type : {wxEVT_LEFT_DOWN, wxEVT_LEFT_UP, wxEVT_MOTION})
        Bind(type, &PictureCanvas::OnMouse, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, [this](wxMouseCaptureLostEvent&) { dragStart_.reset(); });
    Bind(wxEVT_KEY_DOWN, &PictureCanvas::OnKey, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        FitScrollBars();
        onZoom_();
        event.Skip();
    });
}

void PictureCanvas::ShowPicture(std::optional<Picture> picture) {
    picture_ = std::move(picture);
    FitScrollBars();
    onZoom_();
}

void PictureCanvas::FitPicture() {
    chosenScale_.reset();
    FitScrollBars();
    onZoom_();
}

void PictureCanvas::SetScale(double scale) { ZoomAt(scale, wxPoint(GetClientSize().x / 2, GetClientSize().y / 2)); }

double PictureCanvas::Scale() const {
    if (chosenScale_ || !picture_) return chosenScale_.value_or(1);
    const wxSize room = GetSize();
    return FitScale(SizeOf(*picture_), {std::max(room.x, 1), std::max(room.y, 1)});
}

void PictureCanvas::FitScrollBars() {
    const PixelSize size = picture_ && chosenScale_ ? ScaledSize(*picture_, Scale()) : PixelSize{};
    SetScrollRate(1, 1);
    SetVirtualSize(size.width, size.height);
    Refresh();
}

// A picture smaller than the window stands in its middle.
wxPoint PictureCanvas::Corner() const {
    const PixelSize size = ScaledSize(*picture_, Scale());
    const wxSize room = GetClientSize();
    const wxPoint scrolled = GetViewStart();
    return {size.width < room.x ? (room.x - size.width) / 2 : -scrolled.x,
            size.height < room.y ? (room.y - size.height) / 2 : -scrolled.y};
}

void PictureCanvas::OnPaint() {
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(wxBrush(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE)));
    dc.Clear();
    if (!picture_) return;
    const PixelSize size = ScaledSize(*picture_, Scale());
    const wxPoint corner = Corner();
    const wxRect seen = wxRect(GetClientSize()).Intersect({corner, wxSize(size.width, size.height)});
    if (seen.IsEmpty()) return;
    auto rgb = RenderRgb(*picture_, Scale(), {seen.x - corner.x, seen.y - corner.y, seen.width, seen.height});
    const wxImage image(seen.width, seen.height, rgb.data(), true);
    dc.DrawBitmap(wxBitmap(image), seen.GetTopLeft());
}

void PictureCanvas::ZoomAt(double scale, const wxPoint& anchor) {
    if (!picture_) return;
    const double growth = scale / Scale();
    const wxPoint corner = Corner();
    chosenScale_ = scale;
    FitScrollBars();
    const auto moved = [growth](int at, int start) {
        return static_cast<int>(std::lround((at - start) * growth)) - at;
    };
    Scroll(std::max(0, moved(anchor.x, corner.x)), std::max(0, moved(anchor.y, corner.y)));
    onZoom_();
}

void PictureCanvas::OnWheel(wxMouseEvent& event) {
    if (event.GetWheelAxis() != wxMOUSE_WHEEL_VERTICAL || event.GetWheelRotation() == 0) return;
    ZoomAt(NextScale(Scale(), event.GetWheelRotation() > 0), event.GetPosition());
}

void PictureCanvas::OnMouse(wxMouseEvent& event) {
    event.Skip();
    if (event.LeftDown()) {
        dragStart_ = event.GetPosition() + GetViewStart();
        if (!HasCapture()) CaptureMouse();
        SetFocus();
    } else if (event.LeftUp()) {
        dragStart_.reset();
        if (HasCapture()) ReleaseMouse();
    } else if (dragStart_) {
        Scroll(*dragStart_ - event.GetPosition());
    }
}

void PictureCanvas::OnKey(wxKeyEvent& event) {
    switch (event.GetUnicodeKey() != WXK_NONE ? event.GetUnicodeKey() : event.GetKeyCode()) {
    case '+':
    case '=':
    case WXK_NUMPAD_ADD: SetScale(NextScale(Scale(), true)); break;
    case '-':
    case WXK_NUMPAD_SUBTRACT: SetScale(NextScale(Scale(), false)); break;
    case '0':
    case WXK_NUMPAD0: FitPicture(); break;
    case '1':
    case WXK_NUMPAD1: SetScale(1); break;
    case WXK_TAB: HandleAsNavigationKey(event); break;
    default: event.Skip();
    }
}

TexturePreviewPage::TexturePreviewPage(wxWindow* parent, std::function<std::string_view()> text,
                                       std::function<void()> onClose)
    : wxPanel(parent), text_(std::move(text)) {
    SetName("TexturePreview");
    auto* const border = new platform::BorderedPanel(this);
    canvas_ = new PictureCanvas(border, [this] { ShowScale(); });
    border->Hold(canvas_);
    const int gap = FromDIP(kGap);
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(MakeHeading(std::move(onClose)), wxSizerFlags().Expand().Border(wxLEFT | wxBOTTOM, gap));
    outer->Add(border, wxSizerFlags(1).Expand().Border(wxLEFT, gap));
    outer->Add(MakeZoomRow(), wxSizerFlags().Expand().Border(wxLEFT | wxTOP, gap));
    SetSizer(outer);
}

wxSizer* TexturePreviewPage::MakeHeading(std::function<void()> onClose) {
    info_ =
        new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
    info_->SetName("PreviewInfo");
    auto* const close = new wxButton(this, wxID_ANY, "Close");
    close->SetName("PreviewClose");
    close->Bind(wxEVT_BUTTON, [onClose = std::move(onClose)](wxCommandEvent&) { onClose(); });
    auto* const levelLabel = new wxStaticText(this, wxID_ANY, "Level:");
    level_ = new wxChoice(this, wxID_ANY);
    level_->SetName("PreviewLevel");
    level_->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) { ShowLevel(static_cast<std::size_t>(event.GetInt())); });
    const int gap = FromDIP(kGap);
    auto* const top = new wxBoxSizer(wxHORIZONTAL);
    top->Add(info_, wxSizerFlags(1).CenterVertical().Border(wxRIGHT, gap));
    top->Add(close, wxSizerFlags().CenterVertical());
    auto* const levels = new wxBoxSizer(wxHORIZONTAL);
    levels->Add(levelLabel, wxSizerFlags().CenterVertical().Border(wxRIGHT, gap));
    levels->Add(level_, wxSizerFlags(1).CenterVertical());
    auto* const heading = new wxBoxSizer(wxVERTICAL);
    heading->Add(top, wxSizerFlags().Expand().Border(wxBOTTOM, gap));
    heading->Add(levels, wxSizerFlags().Expand());
    return heading;
}

wxSizer* TexturePreviewPage::MakeZoomRow() {
    fit_ = new wxButton(this, wxID_ANY, "Fit");
    fit_->SetName("PreviewFit");
    fit_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { canvas_->FitPicture(); });
    full_ = new wxButton(this, wxID_ANY, "100 %");
    full_->SetName("PreviewFull");
    full_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { canvas_->SetScale(1); });
    // As wide as the widest that it will show.
    scale_ = new wxStaticText(this, wxID_ANY, "3200 %", wxDefaultPosition, wxDefaultSize,
                              wxALIGN_RIGHT | wxST_NO_AUTORESIZE);
    scale_->SetName("PreviewScale");
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(fit_, wxSizerFlags().CenterVertical().Border(wxRIGHT, FromDIP(kGap)));
    row->Add(full_, wxSizerFlags().CenterVertical());
    row->AddStretchSpacer();
    row->Add(scale_, wxSizerFlags().CenterVertical());
    return row;
}

void TexturePreviewPage::ShowTexture() {
    level_->Clear();
    canvas_->FitPicture();
    ShowLevel(0);
}

void TexturePreviewPage::ShowLevel(std::size_t level) {
    DecodedTexture decoded = DecodeTexture(text_(), level);
    if (decoded.picture && level_->IsEmpty()) OfferLevels(*decoded.picture);
    level_->Enable(!level_->IsEmpty());
    fit_->Enable(decoded.picture.has_value());
    full_->Enable(decoded.picture.has_value());
    const std::string info = decoded.picture ? fmt::format("{} x {} pixels, {}", decoded.picture->width,
                                                           decoded.picture->height, decoded.picture->label)
                                             : decoded.problem;
    info_->SetLabel(ToWx(info));
    info_->SetToolTip(ToWx(info));
    canvas_->ShowPicture(std::move(decoded.picture));
    Layout();
}

void TexturePreviewPage::OfferLevels(const Picture& largest) {
    for (std::size_t level = 0; level < largest.levels; ++level) {
        level_->Append(ToWx(fmt::format("{} of {} ({} x {})", level, largest.levels,
                                        std::max(largest.width >> level, 1), std::max(largest.height >> level, 1))));
    }
    level_->SetSelection(0);
}

void TexturePreviewPage::ShowScale() {
    if (scale_ != nullptr) scale_->SetLabel(ToWx(fmt::format("{:.0f} %", canvas_->Scale() * 100)));
}

} // namespace tamarind::convert
