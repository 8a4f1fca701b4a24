#include "editors/xml_text_page.h"

#include "platform/wx/colours.h"
#include "platform/wx/wx_text.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/settings.h>
#include <wx/stopwatch.h>
#include <wx/utils.h>

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace tamarind::editors {

namespace {

constexpr int kGap = 6;
constexpr int kTabWidth = 4;
constexpr int kChanges = wxSTC_MOD_INSERTTEXT | wxSTC_MOD_DELETETEXT;
constexpr std::size_t kSpareRoom = 65536;
constexpr std::size_t kLargestText = std::numeric_limits<int>::max();
constexpr long kPaintPatience = 500; // milliseconds
/// A text that is being read is painted again after so long.
constexpr long kPaintMilliseconds = 50;

constexpr int kNumberMargin = 0;
constexpr int kFoldMargin = 1;
constexpr int kFoldWidth = 14;
constexpr int kFewestDigits = 3;

constexpr int kBlueStyle = 1;
constexpr int kRedStyle = 2;
/// Text is coloured in pieces of about this size, so that no second copy of a large one is needed.
constexpr int kColourPiece = 4'000'000;
/// A line longer than this is coloured only as a whole, not while somebody types in it.
constexpr int kLongLine = 1'000'000;

constexpr int kNewsMilliseconds = 60;
constexpr int kPairMark = 8;
/// How far away a tag's partner is looked for, in bytes.
constexpr int kPairReach = 1'000'000;

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
        editor_.SetModEventMask(kChanges);
    }
    Untracked(const Untracked&) = delete;
    Untracked& operator=(const Untracked&) = delete;

private:
    wxStyledTextCtrl& editor_;
};

} // namespace

XmlText::XmlText(wxWindow* parent)
    : wxStyledTextCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE) {
    SetName("RichTextBox1");
    SetUpMargins();
    SetUpMarks();
    ApplyAppearance();
    SetTabWidth(kTabWidth);
    SetScrollWidthTracking(true);
    // Colours are this control's own: the lexer only says which text has none yet.
    SetLexer(wxSTC_LEX_CONTAINER);
    // Without this, going to the end of a long text styles all of it first.
    SetIdleStyling(wxSTC_IDLESTYLING_ALL);
    SetLayoutCache(wxSTC_CACHE_PAGE);
    SetModEventMask(kChanges);
    UsePopUp(wxSTC_POPUP_NEVER);
    // Ctrl+L and Ctrl+T would change lines unexpectedly, Ctrl+D copies one.
    for (const int key : {int{'L'}, int{'T'}, int{'D'}})
        CmdKeyClear(key, wxSTC_KEYMOD_CTRL);
    BindEvents();
}

void XmlText::ApplyAppearance() {
    const wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
    const wxColour ink = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
    StyleSetFont(wxSTC_STYLE_DEFAULT,
                 wxFont(wxFontInfo(GetParent()->GetFont().GetPointSize()).Family(wxFONTFAMILY_TELETYPE)));
    StyleSetForeground(wxSTC_STYLE_DEFAULT, ink);
    StyleSetBackground(wxSTC_STYLE_DEFAULT, ground);
    StyleClearAll();
    StyleSetForeground(kBlueStyle, platform::BlueOn(ground));
    StyleSetForeground(kRedStyle, platform::RedOn(ground));
    SetCaretForeground(ink);
    SetSelBackground(true, wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT));
    SetSelForeground(true, wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT));
    const wxColour margin = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE);
    StyleSetBackground(wxSTC_STYLE_LINENUMBER, margin);
    StyleSetForeground(wxSTC_STYLE_LINENUMBER, wxSystemSettings::GetColour(wxSYS_COLOUR_BTNTEXT));
    SetFoldMarginColour(true, margin);
    SetFoldMarginHiColour(true, margin);
    for (int marker = wxSTC_MARKNUM_FOLDEREND; marker <= wxSTC_MARKNUM_FOLDEROPEN; ++marker) {
        MarkerSetForeground(marker, ground);
        MarkerSetBackground(marker, ink);
    }
    IndicatorSetForeground(kPairMark, platform::IsDark(ground) ? platform::BlueOn(ground) : wxColour(0, 0x80, 0));
    numberDigits_ = 0;
    FitLineNumbers();
}

void XmlText::SetUpMargins() {
    for (int margin = 0; margin < wxSTC_MAX_MARGIN; ++margin)
        SetMarginWidth(margin, 0);
    SetMarginType(kNumberMargin, wxSTC_MARGIN_NUMBER);
    SetMarginType(kFoldMargin, wxSTC_MARGIN_SYMBOL);
    SetMarginMask(kFoldMargin, static_cast<int>(wxSTC_MASK_FOLDERS));
    SetMarginWidth(kFoldMargin, FromDIP(kFoldWidth));
    SetMarginSensitive(kFoldMargin, true);
    SetMarginLeft(FromDIP(kGap));
    SetAutomaticFold(wxSTC_AUTOMATICFOLD_SHOW | wxSTC_AUTOMATICFOLD_CLICK | wxSTC_AUTOMATICFOLD_CHANGE);
    const std::pair<int, int> symbols[] = {{wxSTC_MARKNUM_FOLDER, wxSTC_MARK_BOXPLUS},
                                           {wxSTC_MARKNUM_FOLDEROPEN, wxSTC_MARK_BOXMINUS},
                                           {wxSTC_MARKNUM_FOLDERSUB, wxSTC_MARK_VLINE},
                                           {wxSTC_MARKNUM_FOLDERTAIL, wxSTC_MARK_LCORNER},
                                           {wxSTC_MARKNUM_FOLDEREND, wxSTC_MARK_BOXPLUSCONNECTED},
                                           {wxSTC_MARKNUM_FOLDEROPENMID, wxSTC_MARK_BOXMINUSCONNECTED},
                                           {wxSTC_MARKNUM_FOLDERMIDTAIL, wxSTC_MARK_TCORNER}};
    for (const auto& [marker, symbol] : symbols)
        MarkerDefine(marker, symbol);
    FitLineNumbers();
}

void XmlText::SetUpMarks() {
    IndicatorSetStyle(kPairMark, wxSTC_INDIC_ROUNDBOX);
    IndicatorSetUnder(kPairMark, true);
    SetIndicatorCurrent(kPairMark);
}

void XmlText::BindEvents() {
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        // What a long line has widened stays while only the scroll bar that it called changes the room.
        const bool isWidened = GetScrollWidth() != fittedWidth_;
        if (std::exchange(width_, GetSize().x) != width_ || !isWidened) FitScrollWidth();
        event.Skip();
    });
    Bind(wxEVT_STC_PAINTED, [this](wxStyledTextEvent& event) {
        if (!std::exchange(isPainted_, true)) CallAfter([this] { MakeRoomAtStart(); });
        event.Skip();
    });
    Bind(wxEVT_STC_MODIFIED, &XmlText::OnModified, this);
    Bind(wxEVT_STC_STYLENEEDED, [this](wxStyledTextEvent&) { OnStyleNeeded(); });
    Bind(wxEVT_STC_UPDATEUI, &XmlText::OnUpdateUi, this);
    Bind(wxEVT_STC_ZOOM, [this](wxStyledTextEvent&) {
        numberDigits_ = 0;
        FitLineNumbers();
    });
    Bind(wxEVT_IDLE, &XmlText::OnIdle, this);
    quiet_.Bind(wxEVT_TIMER, [](wxTimerEvent&) { wxWakeUpIdle(); });
    news_.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
        if (onChanged) onChanged();
    });
    Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
        ApplyAppearance();
        event.Skip();
    });
}

void XmlText::Fill(std::size_t size, const std::function<void(const session::TextSink& take)>& write) {
    std::optional<Untracked> untracked;
    wxStopWatch sincePaint;
    const auto begin = [&] {
        if (untracked) return;
        untracked.emplace(*this);
        marked_.reset();
        isHighlighted_ = false;
        dirtyEnd_ = 0;
        ClearAll();
        Allocate(static_cast<int>(std::min(size + kSpareRoom, kLargestText)));
    };
    try {
        write([&](std::string_view piece) {
            begin();
            AppendTextRaw(piece.data(), static_cast<int>(piece.size()));
            if (sincePaint.Time() < kPaintMilliseconds) return;
            ShowFilled();
            sincePaint.Start();
        });
    } catch (...) {
        if (untracked) ClearAll();
        ForgetFolds();
        throw;
    }
    begin(); // nothing handed over is an empty text
    untracked.reset();
    ForgetFolds();
    const int lineEnd = GetLineEndPosition(0);
    const bool hasCrLf = GetCharAt(lineEnd) == '\r' && GetCharAt(lineEnd + 1) == '\n';
    SetEOLMode(hasCrLf ? wxSTC_EOL_CRLF : wxSTC_EOL_LF);
    GotoPos(0);
    if (IsShownOnScreen()) SetFocus();
    FitLineNumbers();
    FitScrollWidth();
    isPainted_ = false;
    if (onChanged) onChanged();
}

// Painted without handling events: nobody can change, or replace, a text of which only a part is here.
void XmlText::ShowFilled() {
    FitLineNumbers();
    Refresh();
    Update();
}

// The control keeps its free room where the last change was, now the end, and the first key typed into a large text
// would wait for all of it to be moved to the caret.
void XmlText::MakeRoomAtStart() {
    if (GetModify() || GetCurrentPos() != 0) return;
    const Untracked untracked(*this);
    InsertText(0, " ");
    DeleteRange(0, 1);
}

void XmlText::WaitForPaint() {
    wxEventLoopBase* const loop = wxEventLoopBase::GetActive();
    const wxStopWatch watch;
    if (loop == nullptr) return;
    loop->YieldFor(wxEVT_CATEGORY_ALL);
    while (!isPainted_ && IsShownOnScreen() && watch.Time() < kPaintPatience) {
        wxMilliSleep(1);
        loop->YieldFor(wxEVT_CATEGORY_ALL);
    }
}

// Grows by itself when a longer line is shown. GTK shades the edge of a view that is wider than what it scrolls.
void XmlText::FitScrollWidth() {
    int margins = GetMarginLeft() + GetMarginRight();
    for (const int margin : {kNumberMargin, kFoldMargin})
        margins += GetMarginWidth(margin);
    fittedWidth_ = std::max(1, GetClientSize().x - margins);
    SetScrollWidth(fittedWidth_);
}

void XmlText::FitLineNumbers() {
    const int digits = std::max(kFewestDigits, static_cast<int>(std::to_string(GetLineCount()).size()));
    if (std::exchange(numberDigits_, digits) == digits) return;
    SetMarginWidth(kNumberMargin,
                   TextWidth(wxSTC_STYLE_LINENUMBER, wxString('9', static_cast<std::size_t>(digits))) + FromDIP(kGap));
}

std::string_view XmlText::View() const { return {GetCharacterPointer(), static_cast<std::size_t>(GetLength())}; }

// Moves no more of the text than lies between the control's free room and this range.
std::string_view XmlText::Range(int from, int to) const {
    if (to <= from) return {};
    return {GetRangePointer(from, to - from), static_cast<std::size_t>(to - from)};
}

// --- colours

void XmlText::ColourRange(int from, int to) {
    std::vector<char> styles(static_cast<std::size_t>(to - from), '\0');
    for (const ColourRun& run : HighlightLines(Range(from, to))) {
        const auto style = static_cast<char>(run.colour == editors::Colour::Blue ? kBlueStyle : kRedStyle);
        std::fill_n(styles.begin() + static_cast<std::ptrdiff_t>(run.start), run.length, style);
    }
    StartStyling(from);
    SetStyleBytes(to - from, styles.data());
}

bool XmlText::HasTag() const {
    const int length = GetLength();
    for (int from = 0; from < length; from += kColourPiece) {
        if (Range(from, std::min(length, from + kColourPiece)).find('<') != std::string_view::npos) return true;
    }
    return false;
}

void XmlText::Highlight() {
    const int length = GetLength();
    isHighlighted_ = HasTag();
    for (int from = 0; isHighlighted_ && from < length;) {
        // Whole lines.
        const int last = LineFromPosition(std::min(length, from + kColourPiece));
        const int to = last + 1 < GetLineCount() ? PositionFromLine(last + 1) : length;
        ColourRange(from, to);
        from = to;
    }
    StartStyling(length);
    dirtyEnd_ = 0;
    // One character in, as it has always been.
    GotoPos(PositionAfter(0));
}

void XmlText::OnStyleNeeded() {
    const int length = GetLength();
    if (isHighlighted_) {
        const int from = PositionFromLine(LineFromPosition(GetEndStyled()));
        const int line = LineFromPosition(std::min(dirtyEnd_, length));
        const int to = std::max(from, GetLineEndPosition(line));
        if (to - from <= kLongLine) ColourRange(from, to);
    }
    dirtyEnd_ = 0;
    // All the rest has its colours already.
    StartStyling(length);
}

// --- changes

void XmlText::OnModified(wxStyledTextEvent& event) {
    event.Skip();
    const int position = event.GetPosition();
    const int line = LineFromPosition(position);
    const bool isInsertion = (event.GetModificationType() & wxSTC_MOD_INSERTTEXT) != 0;
    const int length = event.GetLength();
    if (position < dirtyEnd_) dirtyEnd_ = std::max(position, dirtyEnd_ + (isInsertion ? length : -length));
    const int changeEnd = isInsertion ? position + length : position;
    dirtyEnd_ = std::max(dirtyEnd_, changeEnd);
    const int added = event.GetLinesAdded();
    NoteFoldChange(line, LineFromPosition(changeEnd), added);
    if (added != 0) FitLineNumbers();
    isMarkStale_ = true;
}

void XmlText::OnUpdateUi(wxStyledTextEvent& event) {
    event.Skip();
    if ((event.GetUpdated() & (wxSTC_UPDATE_CONTENT | wxSTC_UPDATE_SELECTION)) == 0) return;
    MarkTags();
    WaitForQuiet();
    // This comes amid painting, where nothing else may be painted; and what is painted at once would take the next
    // frame of the screen from the key's own picture.
    if (!news_.IsRunning()) news_.StartOnce(kNewsMilliseconds);
}

// --- tags that belong together

std::optional<TagPair> XmlText::TagsAtCaret() const {
    const int caret = GetCurrentPos();
    const int from = std::max(0, caret - kPairReach);
    const int to = std::min(GetLength(), caret + kPairReach);
    auto pair = FindTagPair(Range(from, to), static_cast<std::size_t>(caret - from));
    if (!pair) return pair;
    const auto move = [from](TagRange& range) {
        range.start += static_cast<std::size_t>(from);
        range.end += static_cast<std::size_t>(from);
    };
    move(pair->here);
    if (pair->partner) move(*pair->partner);
    return pair;
}

void XmlText::UnmarkTags() {
    SetIndicatorCurrent(kPairMark);
    IndicatorClearRange(0, GetLength());
}

void XmlText::MarkTags() {
    const auto pair = TagsAtCaret();
    if (pair == marked_ && !isMarkStale_) return;
    if (marked_) UnmarkTags();
    isMarkStale_ = false;
    marked_ = pair;
    if (!pair || !pair->partner) return;
    for (const TagRange& range : {pair->here, *pair->partner})
        IndicatorFillRange(static_cast<int>(range.start), static_cast<int>(range.end - range.start));
}

void XmlText::GoToPartner() {
    const auto pair = TagsAtCaret();
    if (!pair || !pair->partner) return;
    GotoPos(static_cast<int>(pair->partner->start) + 1);
}

// --- searching

bool XmlText::FindNext(const TextRequest& request) {
    const auto from = static_cast<std::size_t>(GetSelectionStart()) + 1;
    const auto match = FindInText(View(), request, std::min(from, static_cast<std::size_t>(GetLength())));
    if (!match) return false;
    const int start = static_cast<int>(match->start);
    const int end = start + static_cast<int>(match->length);
    EnsureVisibleEnforcePolicy(LineFromPosition(start));
    SetSelection(start, end);
    EnsureCaretVisible();
    return true;
}

void XmlText::ReplaceSelected(const std::string& replacement) {
    const int start = GetSelectionStart();
    TargetFromSelection();
    const int length = ReplaceTargetRaw(replacement.data(), static_cast<int>(replacement.size()));
    SetSelection(start, start + length);
}

std::size_t XmlText::ReplaceEvery(const TextRequest& request, const std::string& replacement) {
    const auto matches = FindAllInText(View(), request);
    if (matches.empty()) return 0;
    const int first = static_cast<int>(matches.front().start);
    BeginUndoAction();
    int moved = 0;
    for (const TextMatch& match : matches) {
        const int start = static_cast<int>(match.start) + moved;
        SetTargetStart(start);
        SetTargetEnd(start + static_cast<int>(match.length));
        moved += ReplaceTargetRaw(replacement.data(), static_cast<int>(replacement.size()));
        moved -= static_cast<int>(match.length);
    }
    EndUndoAction();
    GotoPos(first);
    return matches.size();
}

// --- getting about

void XmlText::GoToLine(int line) {
    const int index = std::clamp(line, 1, GetLineCount()) - 1;
    EnsureVisibleEnforcePolicy(index);
    GotoLine(index);
    VerticalCentreCaret();
}

void XmlText::ToggleWrap() {
    SetWrapMode(IsWrapped() ? wxSTC_WRAP_NONE : wxSTC_WRAP_WORD);
    FitScrollWidth();
}

void XmlText::ChangeZoom(int direction) {
    if (direction == 0) {
        SetZoom(0);
    } else if (direction > 0) {
        ZoomIn();
    } else {
        ZoomOut();
    }
}

} // namespace tamarind::editors
