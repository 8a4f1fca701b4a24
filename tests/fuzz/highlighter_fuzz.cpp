// Runs of any text: in order, inside the text, never touching one of their colour, and the same for the text in two
// halves at a line end as for the whole.
#include "editors/highlighter.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

using tamarind::editors::ColourRun;

namespace {

void Check(bool holds) {
    if (!holds) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto runs = tamarind::editors::HighlightXml(text);
    std::size_t end = 0;
    const ColourRun* before = nullptr;
    for (const ColourRun& run : runs) {
        Check(run.length > 0 && run.start >= end && run.start + run.length <= size);
        Check(before == nullptr || before->colour != run.colour || run.start > end);
        end = run.start + run.length;
        before = &run;
    }
    Check(runs.empty() == (text.find('<') == std::string_view::npos));
    const std::size_t cut = text.find('\n', size / 2);
    if (runs.empty() || cut == std::string_view::npos) return 0;
    const auto first = tamarind::editors::HighlightLines(text.substr(0, cut + 1));
    const auto second = tamarind::editors::HighlightLines(text.substr(cut + 1));
    Check(first.size() + second.size() == runs.size());
    for (std::size_t i = 0; i < runs.size(); ++i) {
        ColourRun part = i < first.size() ? first[i] : second[i - first.size()];
        if (i >= first.size()) part.start += cut + 1;
        Check(part == runs[i]);
    }
    return 0;
}
