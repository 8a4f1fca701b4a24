#include "editors/text_page.h"

#include "editors/dlgSearch.h"
#include "editors/text_menu_page.h"
#include "editors/xml_text_page.h"
#include "platform/paths.h"
#include "platform/wx/bordered_panel.h"
#include "platform/wx/frame_caption.h"
#include "platform/wx/line_height.h"
#include "platform/wx/wx_text.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/splitter.h>
#include <wx/statbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace tamarind::editors {

using platform::FromWx;
using platform::ToWx;
using session::EditorContext;

namespace {

constexpr int kGap = 6;
constexpr int kSmallestPane = 160;
constexpr int kPanePercent = 45;
/// Counting the columns of a longer line would be felt at every key.
constexpr int kLongLine = 1'000'000;

} // namespace

TextPage::TextPage(wxWindow* parent, session::CommandRunner run, std::function<void()> onState)
    : wxPanel(parent), run_(std::move(run)) {
    auto* const outer = new wxBoxSizer(wxVERTICAL);
    auto* const frame = new wxStaticBoxSizer(wxVERTICAL, this, "Tamarind Editor");
    frame1_ = frame->GetStaticBox();
    frame1_->SetName("Frame1");
    const int gap = FromDIP(kGap);
    frame->Add(MakeTopRow(), wxSizerFlags().Expand().Border(wxALL, gap));

    splitter_ = new wxSplitterWindow(frame1_, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxSP_LIVE_UPDATE);
    splitter_->SetName("Panes");
    splitter_->SetMinimumPaneSize(FromDIP(kSmallestPane));
    // A window that grows gives its room to the text.
    splitter_->SetSashGravity(1.0);
    auto* const border = new platform::BorderedPanel(splitter_);
    textSide_ = border;
    richTextBox1_ = new XmlText(border);
    richTextBox1_->onChanged = std::move(onState);
    border->Hold(richTextBox1_);
    splitter_->Initialize(textSide_);
    frame->Add(splitter_, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, gap));

    outer->Add(frame, wxSizerFlags(1).Expand().Border(wxALL, gap));
    SetSizer(outer);
    command1_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
        run_([](EditorContext& context) { context.view.HighlightEditorText(); });
        richTextBox1_->SetFocus();
    });
    richTextBox1_->Bind(wxEVT_CONTEXT_MENU, &TextPage::OnContextMenu, this);
    Bind(wxEVT_CHAR_HOOK, &TextPage::OnKey, this);
}

TextPage::~TextPage() = default;

wxSizer* TextPage::MakeTopRow() {
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    auto* const label1 = new wxStaticText(frame1_, wxID_ANY, "File Name:");
    label1->SetName("Label1");
    text1_ = new wxTextCtrl(frame1_, wxID_ANY);
    text1_->SetName("Text1");
    platform::GiveLineHeight(*text1_);
    command1_ = new wxButton(frame1_, wxID_ANY, "Highlight XML");
    command1_->SetName("Command1");
    const int gap = FromDIP(kGap);
    row->Add(label1, wxSizerFlags().CenterVertical().Border(wxRIGHT, gap));
    row->Add(text1_, wxSizerFlags(1).CenterVertical().Border(wxRIGHT, gap));
    row->Add(command1_, wxSizerFlags().CenterVertical());
    return row;
}

void TextPage::FillText(std::size_t size, const std::function<void(const session::TextSink& take)>& write) {
    richTextBox1_->Fill(size, write);
}

void TextPage::Paint() { richTextBox1_->WaitForPaint(); }

void TextPage::Highlight() { richTextBox1_->Highlight(); }

std::string_view TextPage::TextView() const { return richTextBox1_->View(); }

std::string TextPage::Text() const { return std::string(TextView()); }

wxWindow* TextPage::ParentOfPanes() const { return splitter_; }

void TextPage::ShowBeside(wxWindow& pane) {
    if (splitter_->IsSplit()) return;
    // Never narrower than what it needs to show.
    splitter_->SetMinimumPaneSize(std::max(FromDIP(kSmallestPane), pane.GetBestSize().x));
    splitter_->SplitVertically(textSide_, &pane, -splitter_->GetClientSize().x * kPanePercent / 100);
    richTextBox1_->FitScrollWidth();
}

void TextPage::ShowTextAlone() {
    if (splitter_->IsSplit()) splitter_->Unsplit();
}

bool TextPage::IsModified() const { return richTextBox1_->GetModify(); }

void TextPage::SetSaved() { richTextBox1_->SetSavePoint(); }

void TextPage::TakeFocus() { richTextBox1_->SetFocus(); }

void TextPage::SetFilePath(const std::string& path) { text1_->ChangeValue(ToWx(platform::ForDisplay(path))); }

std::string TextPage::FilePath() const {
    const std::string shown = FromWx(text1_->GetValue());
    return shown.empty() ? shown : platform::FromNative(shown);
}

void TextPage::ShowState(const PageState& state) {
    platform::ShowFrameCaption(*frame1_, state.textCaption, state.textWarns);
}

TextPage::StateText TextPage::State() const {
    const XmlText& editor = *richTextBox1_;
    const int caret = editor.GetCurrentPos();
    const int line = editor.LineFromPosition(caret);
    const bool isLong = editor.LineLength(line) > kLongLine;
    const int column = isLong ? caret - editor.PositionFromLine(line) : editor.GetColumn(caret);
    return {.caret = fmt::format("Line {}, Column {}", line + 1, column + 1),
            .lineEnds = editor.GetEOLMode() == wxSTC_EOL_CRLF ? "CR LF" : "LF",
            .encoding = "Windows-1252"};
}

// --- searching

void TextPage::ShowSearch() {
    if (!search_) {
        search_ = new dlgSearch(*this, *richTextBox1_, searched_);
        search_->Show();
    }
    search_->Raise();
    search_->TakeFocus();
}

void TextPage::FindNext() {
    if (searched_.text.empty()) {
        ShowSearch();
    } else if (!richTextBox1_->FindNext(searched_)) {
        run_([](EditorContext& context) { context.ui.ShowStatus("Not found"); });
    }
}

void TextPage::AskForLine() {
    const int lines = richTextBox1_->GetLineCount();
    const std::string current = std::to_string(richTextBox1_->GetCurrentLine() + 1);
    std::string entered;
    run_([&](EditorContext& context) {
        entered = context.ui.AskForText(fmt::format("Line number (1 to {}):", lines), "Go to Line", current);
    });
    long line = 0;
    if (ToWx(entered).Trim().Trim(false).ToLong(&line)) {
        richTextBox1_->GoToLine(static_cast<int>(std::clamp<long>(line, 1, lines)));
        richTextBox1_->SetFocus();
    }
}

// --- keys and the menu of the right pointer button

void TextPage::OnKey(wxKeyEvent& event) {
    const TextCommand command = TextCommandOf(event);
    if (command == TextCommand::None || (IsForText(command) && !richTextBox1_->HasFocus())) {
        event.Skip();
    } else {
        Do(command);
    }
}

void TextPage::OnContextMenu(wxContextMenuEvent& event) {
    const TextCommand command = AskForTextCommand(*richTextBox1_, event.GetPosition());
    if (command != TextCommand::None) Do(command);
}

void TextPage::Do(TextCommand command) {
    switch (command) {
    case TextCommand::None: break;
    case TextCommand::Find: ShowSearch(); break;
    case TextCommand::FindNext: FindNext(); break;
    case TextCommand::GoToLine: AskForLine(); break;
    default: DoInText(*richTextBox1_, command); break;
    }
}

} // namespace tamarind::editors
