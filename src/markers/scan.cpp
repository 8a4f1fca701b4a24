#include "markers/scan.h"

#include "text/code_page.h"

namespace tamarind::markers {
bool Scan::To(const text::FoldedKey& key) {
    if (IsLost()) return false;
    const std::size_t found = text::FindNoCase(text_, key, offset_ + 1);
    if (found == 0) {
        missing_ = key.Text();
        return false;
    }
    offset_ = found - 1;
    return true;
}

void Scan::Skip(std::size_t characters) {
    std::string_view rest = text_.substr(offset_);
    for (; characters > 0 && !rest.empty(); --characters)
        static_cast<void>(text::TakeCodePoint(rest));
    offset_ = text_.size() - rest.size();
}

std::string_view Scan::TextUpTo(char end) {
    if (IsLost()) return {};
    const std::size_t found = text_.find(end, offset_);
    if (found == std::string_view::npos) {
        missing_ = end;
        return {};
    }
    const std::string_view cut = text_.substr(offset_, found - offset_);
    offset_ = found;
    return cut;
}

} // namespace tamarind::markers
