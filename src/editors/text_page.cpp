#include "editors/text_page.h"

#include "platform/paths.h"
#include "platform/wx/bordered_panel.h"
#include "platform/wx/frame_caption.h"
#include "platform/wx/wx_text.h"

#include <wx/button.h>
#include <wx/evtloop.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/splitter.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/stc/stc.h>
#include <wx/stopwatch.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

namespace tamarind::editors {

using platform::FromWx;
using platform::ToWx;

namespace {

constexpr int kGap = 6;
constexpr int kSmallestPane = 160;
constexpr int kPanePercent = 45;
constexpr int kTabWidth = 4;
constexpr int kEverything = wxSTC_MODEVENTMASKALL;
constexpr std::size_t kSpareRoom = 65536;
constexpr std::size_t kLargestText = std::numeric_limits<int>::max();
constexpr long kPaintPatience = 500; // milliseconds

/// Changes of a text that was never typed: its undo and change events would cost more than the text itself.
class Untracked {
public:
    explicit Untracked(wxStyledTextCtrl& editor) : editor_(editor) {
        editor_.SetModEventMask(0);
        editor_.SetUndoCollection(false);
    }
    ~Untracked() {
        editor_.SetUndoCollection(true);
        editor_.EmptyUndoBuffer();
        editor_.SetSavePoint();
        editor_.SetModEventMask(kEverything);
    }
    Untracked(const Untracked&) = delete;
    Untracked& operator=(const Untracked&) = delete;

private:
    wxStyledTextCtrl& editor_;
};

} // namespace

TextPage::TextPage(wxWindow* parent) : wxPanel(parent) {
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    auto* const frame = new wxStaticBoxSizer(wxVERTICAL, this, "Tamarind Editor");
    frame1_ = frame->GetStaticBox();
    frame1_->SetName("Frame1");

    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    auto* const label1 = new wxStaticText(frame1_, wxID_ANY, "File Name:");
    label1->SetName("Label1");
    text1_ = new wxTextCtrl(frame1_, wxID_ANY);
    text1_->SetName("Text1");
    command1_ = new wxButton(frame1_, wxID_ANY, "Highlight XML");
    command1_->SetName("Command1");
    command1_->Disable();
    const int gap = FromDIP(kGap);
    row->Add(label1, wxSizerFlags().CenterVertical().Border(wxRIGHT, gap));
    row->Add(text1_, wxSizerFlags(1).CenterVertical().Border(wxRIGHT, gap));
    row->Add(command1_, wxSizerFlags().CenterVertical());
    frame->Add(row, wxSizerFlags().Expand().Border(wxALL, gap));

    splitter_ = new wxSplitterWindow(frame1_, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxSP_LIVE_UPDATE);
    splitter_->SetName("Panes");
    splitter_->SetMinimumPaneSize(FromDIP(kSmallestPane));
    // A window that grows gives its room to the text.
    splitter_->SetSashGravity(1.0);
    auto* const border = new platform::BorderedPanel(splitter_);
    textSide_ = border;
    richTextBox1_ = new wxStyledTextCtrl(border, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE);
    richTextBox1_->SetName("RichTextBox1");
    SetUpEditor();
    border->Hold(richTextBox1_);
    splitter_->Initialize(textSide_);
    frame->Add(splitter_, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));

    outer->Add(frame, wxSizerFlags(1).Expand().Border(wxALL, gap));
    SetSizer(outer);
}

void TextPage::SetUpEditor() {
    auto& editor = *richTextBox1_;
    const int size = GetFont().GetPointSize();
    editor.StyleSetFont(wxSTC_STYLE_DEFAULT, wxFont(wxFontInfo(size).Family(wxFONTFAMILY_TELETYPE)));
    editor.StyleSetForeground(wxSTC_STYLE_DEFAULT, wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
    editor.StyleSetBackground(wxSTC_STYLE_DEFAULT, wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
    editor.StyleClearAll();
    editor.SetCaretForeground(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
    for (int margin = 0; margin < wxSTC_MAX_MARGIN; ++margin)
        editor.SetMarginWidth(margin, 0);
    editor.SetMarginLeft(FromDIP(kGap));
    editor.SetTabWidth(kTabWidth);
    editor.SetScrollWidthTracking(true);
    editor.Bind(wxEVT_SIZE, [this, width = 0](wxSizeEvent& event) mutable {
        // What a long line has widened stays while only the scroll bar that it called changes the room.
        const bool isWidened = richTextBox1_->GetScrollWidth() != fittedWidth_;
        if (std::exchange(width, richTextBox1_->GetSize().x) != width || !isWidened) FitScrollWidth();
        event.Skip();
    });
    // The default lexer waits for somebody to style the text, for ever.
    editor.SetLexer(wxSTC_LEX_NULL);
    // Without this, going to the end of a long text styles all of it first.
    editor.SetIdleStyling(wxSTC_IDLESTYLING_ALL);
    editor.SetLayoutCache(wxSTC_CACHE_PAGE);
    editor.Bind(wxEVT_STC_PAINTED, [this](wxStyledTextEvent& event) {
        if (!std::exchange(isPainted_, true)) CallAfter([this] { MakeRoomAtStart(); });
        event.Skip();
    });
}

void TextPage::FillText(std::size_t size, const std::function<void(const session::TextSink& take)>& write) {
    auto& editor = *richTextBox1_;
    std::optional<Untracked> untracked;
    const auto begin = [&] {
        if (untracked) return;
        untracked.emplace(editor);
        editor.ClearAll();
        editor.Allocate(static_cast<int>(std::min(size + kSpareRoom, kLargestText)));
    };
    try {
        write([&](std::string_view piece) {
            begin();
            editor.AppendTextRaw(piece.data(), static_cast<int>(piece.size()));
        });
    } catch (...) {
        if (untracked) editor.ClearAll();
        throw;
    }
    begin(); // nothing handed over is an empty text
    untracked.reset();
    const int lineEnd = editor.GetLineEndPosition(0);
    const bool hasCrLf = editor.GetCharAt(lineEnd) == '\r' && editor.GetCharAt(lineEnd + 1) == '\n';
    editor.SetEOLMode(hasCrLf ? wxSTC_EOL_CRLF : wxSTC_EOL_LF);
    editor.GotoPos(0);
    if (editor.IsShownOnScreen()) editor.SetFocus();
    FitScrollWidth();
    isPainted_ = false;
}

// The control keeps its free room where the last change was, now the end, and the first key typed into a large text
// would wait for all of it to be moved to the caret.
void TextPage::MakeRoomAtStart() {
    auto& editor = *richTextBox1_;
    if (editor.GetModify() || editor.GetCurrentPos() != 0) return;
    const Untracked untracked(editor);
    editor.InsertText(0, " ");
    editor.DeleteRange(0, 1);
}

void TextPage::Paint() {
    wxEventLoopBase* const loop = wxEventLoopBase::GetActive();
    const wxStopWatch watch;
    while (loop != nullptr && !isPainted_ && richTextBox1_->IsShownOnScreen() && watch.Time() < kPaintPatience) {
        loop->YieldFor(wxEVT_CATEGORY_ALL);
        wxMilliSleep(1);
    }
}

// Grows by itself when a longer line is shown. GTK shades the edge of a view that is wider than what it scrolls.
void TextPage::FitScrollWidth() {
    const int margins = richTextBox1_->GetMarginLeft() + richTextBox1_->GetMarginRight();
    fittedWidth_ = std::max(1, richTextBox1_->GetClientSize().x - margins);
    richTextBox1_->SetScrollWidth(fittedWidth_);
}

std::string_view TextPage::TextView() const {
    return {richTextBox1_->GetCharacterPointer(), static_cast<std::size_t>(richTextBox1_->GetLength())};
}

std::string TextPage::Text() const { return std::string(TextView()); }

wxWindow* TextPage::ParentOfPanes() const { return splitter_; }

void TextPage::ShowBeside(wxWindow& pane) {
    if (splitter_->IsSplit()) return;
    // Never narrower than what it needs to show.
    splitter_->SetMinimumPaneSize(std::max(FromDIP(kSmallestPane), pane.GetBestSize().x));
    splitter_->SplitVertically(textSide_, &pane, -splitter_->GetClientSize().x * kPanePercent / 100);
    FitScrollWidth();
}

void TextPage::ShowTextAlone() {
    if (splitter_->IsSplit()) splitter_->Unsplit();
}

bool TextPage::IsModified() const { return richTextBox1_->GetModify(); }

void TextPage::SetSaved() { richTextBox1_->SetSavePoint(); }

void TextPage::SetFilePath(const std::string& path) { text1_->ChangeValue(ToWx(platform::ForDisplay(path))); }

std::string TextPage::FilePath() const {
    const std::string shown = FromWx(text1_->GetValue());
    return shown.empty() ? shown : platform::FromNative(shown);
}

void TextPage::ShowState(const PageState& state) {
    platform::ShowFrameCaption(*frame1_, state.textCaption, state.textWarns);
}

} // namespace tamarind::editors
