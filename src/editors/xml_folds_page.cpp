#include "editors/xml_text_page.h"

#include <wx/stopwatch.h>

#include <algorithm>

// Which lines of the text fold away together. The levels of a large text are worked out between other events.
namespace tamarind::editors {

namespace {

constexpr long kSliceMilliseconds = 4;
constexpr int kQuietMilliseconds = 250;
constexpr int kLinesPerLook = 64;

// A line's level is kept with the state behind the line, in the bits that the control leaves free.
constexpr int kStateShift = 16;
constexpr int kDepthBits = 10;
constexpr int kInsideBits = 3;
static_assert(kDeepestFold < 1 << kDepthBits);

int Packed(const FoldState& state) {
    const int quote = state.quote == '"' ? 1 : state.quote == '\'' ? 2 : 0;
    return static_cast<int>(state.depth) | static_cast<int>(state.inside) << kDepthBits |
           quote << (kDepthBits + kInsideBits);
}

FoldState Unpacked(int bits) {
    const int quote = bits >> (kDepthBits + kInsideBits);
    return {.inside = static_cast<FoldState::Inside>(bits >> kDepthBits & ((1 << kInsideBits) - 1)),
            .quote = quote == 1   ? '"'
                     : quote == 2 ? '\''
                                  : '\0',
            .depth = static_cast<std::uint16_t>(bits & ((1 << kDepthBits) - 1))};
}

int LevelOf(const FoldState& before, const FoldState& after) {
    const int header = after.depth > before.depth ? wxSTC_FOLDLEVELHEADERFLAG : 0;
    return (wxSTC_FOLDLEVELBASE + before.depth) | header | Packed(after) << kStateShift;
}

} // namespace

void XmlText::ForgetFolds() {
    foldFrom_ = foldDirtyEnd_ = foldKnown_ = 0;
    WaitForQuiet();
}

// A key's picture is not to wait for folds, nor for the painting that they ask for.
void XmlText::WaitForQuiet() {
    if (foldFrom_ < GetLineCount()) quiet_.StartOnce(kQuietMilliseconds);
}

void XmlText::NoteFoldChange(int line, int lastLine, int addedLines) {
    // What was to be worked out anyway is not up to date either.
    if (foldFrom_ < foldKnown_) foldDirtyEnd_ = std::max(foldDirtyEnd_, foldFrom_ + 1);
    if (foldDirtyEnd_ > line) foldDirtyEnd_ = std::max(line, foldDirtyEnd_ + addedLines);
    if (foldKnown_ > line) foldKnown_ = std::max(line, foldKnown_ + addedLines);
    foldDirtyEnd_ = std::max(foldDirtyEnd_, lastLine + 1);
    foldFrom_ = std::min(foldFrom_, line);
}

void XmlText::OnIdle(wxIdleEvent& event) {
    event.Skip();
    // A change that is not on the screen yet starts the wait only then: a timer for each of many changes costs too
    // much.
    if (isMarkStale_ || quiet_.IsRunning()) return;
    const wxStopWatch watch;
    const int lines = GetLineCount();
    while (foldFrom_ < lines && watch.Time() < kSliceMilliseconds) {
        for (int i = 0; i < kLinesPerLook && foldFrom_ < lines; ++i)
            FoldOne();
    }
    if (foldFrom_ < lines) event.RequestMore();
}

void XmlText::FoldOne() {
    const int line = foldFrom_++;
    const FoldState before = line == 0 ? FoldState() : Unpacked(GetFoldLevel(line - 1) >> kStateShift);
    const FoldState after = editors::FoldLine(Range(PositionFromLine(line), PositionFromLine(line + 1)), before);
    const int level = LevelOf(before, after);
    const bool isSame = GetFoldLevel(line) == level;
    if (!isSame) SetFoldLevel(line, level);
    // A change reaches no further than to the first line that is as it was.
    if (isSame && foldFrom_ >= foldDirtyEnd_) foldFrom_ = std::max(foldFrom_, foldKnown_);
    foldKnown_ = std::max(foldKnown_, foldFrom_);
    if (foldFrom_ >= foldDirtyEnd_) foldDirtyEnd_ = 0;
}

void XmlText::FinishFolds() {
    while (foldFrom_ < GetLineCount())
        FoldOne();
}

void XmlText::FoldAll(bool folded) {
    FinishFolds();
    constexpr int kBelowTop = wxSTC_FOLDLEVELBASE + 1;
    for (int line = 0; line < GetLineCount(); ++line) {
        const int level = GetFoldLevel(line);
        const bool isHeader = (level & wxSTC_FOLDLEVELHEADERFLAG) != 0;
        if (!isHeader || (folded && (level & wxSTC_FOLDLEVELNUMBERMASK) != kBelowTop)) continue;
        if (GetFoldExpanded(line) == folded) ToggleFold(line);
    }
}

void XmlText::ToggleFoldAtCaret() {
    FinishFolds();
    int line = GetCurrentLine();
    if ((GetFoldLevel(line) & wxSTC_FOLDLEVELHEADERFLAG) == 0) line = GetFoldParent(line);
    if (line < 0) return;
    ToggleFold(line);
    GotoLine(line);
}

} // namespace tamarind::editors
