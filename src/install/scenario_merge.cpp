#include "install/scenario_merge.h"

#include "install/record_insert.h"
#include "text/code_page.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <unordered_map>
#include <vector>

namespace tamarind::install {
namespace {

constexpr std::size_t kStartLength = 8;

/// Whether all occurrences of an entry are found in one reading of the index: it is long enough, and as it holds no
/// bracket it lies wholly inside or wholly outside of a record.
bool IsPlainEntry(std::string_view entry) {
    return entry.size() >= kStartLength && text::IsAscii(entry) &&
           entry.find_first_of("<>\r\n") == std::string_view::npos;
}

char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

std::string Folded(std::string_view text) {
    std::string folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), AsciiLower);
    return folded;
}

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

/// Where plain entries occur in a text, found in one reading.
class Occurrences {
public:
    Occurrences(std::string_view text, std::span<const std::string> entries) : filter_(kFilterSize) {
        for (const std::string& entry : entries)
            if (IsPlainEntry(entry)) Add(Folded(entry));
        if (!found_.empty()) Read(Folded(text));
    }

    /// The places of the entry from the last one asked for on, ascending, from 0.
    struct Places {
        std::vector<std::size_t> at;
        std::size_t next = 0;
    };
    Places& Of(std::string_view entry) { return found_.find(Folded(entry))->second; }

private:
    static constexpr unsigned kFilterBits = 16;
    static constexpr std::size_t kFilterSize = std::size_t{1} << kFilterBits;

    static std::size_t FilterPlace(std::uint64_t start) {
        constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15;
        return static_cast<std::size_t>(start * kSpread >> (64 - kFilterBits));
    }

    static std::uint64_t Append(std::uint64_t start, char c) { return start << 8 | static_cast<unsigned char>(c); }

    void Add(std::string&& entry) {
        std::uint64_t start = 0;
        for (std::size_t i = 0; i < kStartLength; ++i)
            start = Append(start, entry[i]);
        std::vector<std::size_t>& lengths = lengths_[start];
        if (std::find(lengths.begin(), lengths.end(), entry.size()) == lengths.end()) lengths.push_back(entry.size());
        filter_[FilterPlace(start)] = true;
        found_.try_emplace(std::move(entry));
    }

    void Read(const std::string& folded) {
        const std::string_view text = folded;
        std::uint64_t start = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            start = Append(start, text[i]);
            if (i + 1 < kStartLength || !filter_[FilterPlace(start)]) continue;
            const auto lengths = lengths_.find(start);
            if (lengths == lengths_.end()) continue;
            const std::size_t at = i + 1 - kStartLength;
            for (const std::size_t length : lengths->second) {
                const auto entry = found_.find(text.substr(at, length));
                if (entry != found_.end()) entry->second.at.push_back(at);
            }
        }
    }

    std::vector<bool> filter_;
    std::unordered_map<std::uint64_t, std::vector<std::size_t>> lengths_; ///< of the entries that begin so
    std::unordered_map<std::string, Places, TextHash, std::equal_to<>> found_;
};

/// Where every `key` begins, ascending, from 0.
std::vector<std::size_t> PlacesOf(std::string_view text, std::string_view key) {
    const text::FoldedKey folded(key);
    std::vector<std::size_t> places;
    for (std::size_t at = text::FindNoCase(text, folded); at != 0; at = text::FindNoCase(text, folded, at + 1))
        places.push_back(at - 1);
    return places;
}

/// A text from which parts are taken out, none of which cuts through an entry or a tag.
class Remainder {
public:
    explicit Remainder(std::string_view text)
        : text_(text), opens_(PlacesOf(text, kScenarioOpenTag)), closes_(PlacesOf(text, kScenarioCloseTag)) {}

    [[nodiscard]] bool Holds(std::size_t place) const { return RemovedAt(place) == removed_.end(); }

    struct Part {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    /// The record round a place: from the last opening tag that ends no later to the end of the next closing tag.
    [[nodiscard]] std::optional<Part> RecordAt(std::size_t place) const {
        std::size_t open = static_cast<std::size_t>(
            std::upper_bound(opens_.begin(), opens_.end(), place,
                             [](std::size_t at, std::size_t tag) { return at + 1 < tag + kScenarioOpenTag.size(); }) -
            opens_.begin());
        while (open > 0 && !Holds(opens_[open - 1]))
            --open;
        auto close = std::lower_bound(closes_.begin(), closes_.end(), place);
        while (close != closes_.end() && !Holds(*close))
            ++close;
        if (open == 0 || close == closes_.end()) return std::nullopt;
        return Part{opens_[open - 1], *close + kScenarioCloseTag.size()};
    }

    void Remove(Part part) {
        while (true) { // parts taken out before may lie inside
            const auto inside = removed_.lower_bound(part.begin);
            if (inside == removed_.end() || inside->first >= part.end) break;
            part.end = std::max(part.end, inside->second);
            removed_.erase(inside);
        }
        removed_[part.begin] = part.end;
    }

    /// Whether nothing new can be read across the gap that a removed part leaves: no tag, and no plain entry.
    [[nodiscard]] bool IsCleanGap(Part part) const {
        constexpr std::string_view kBlanks = " \t\r\n";
        for (auto before = RemovedAt(part.begin - 1); part.begin > 0 && before != removed_.end();
             before = RemovedAt(part.begin - 1)) {
            part.begin = before->first;
        }
        for (auto after = RemovedAt(part.end); after != removed_.end(); after = RemovedAt(part.end))
            part.end = after->second;
        if (part.begin == 0 || part.end >= text_.size() || text_[part.begin - 1] == '>') return true;
        return kBlanks.find(text_[part.begin - 1]) != std::string_view::npos &&
               std::string_view("<\r\n").find(text_[part.end]) != std::string_view::npos;
    }

    [[nodiscard]] std::string Text() const {
        std::string left;
        left.reserve(text_.size());
        std::size_t at = 0;
        for (const auto& [begin, end] : removed_) {
            left.append(text_.substr(at, begin - at));
            at = end;
        }
        return left.append(text_.substr(at));
    }

private:
    using Parts = std::map<std::size_t, std::size_t>;

    [[nodiscard]] Parts::const_iterator RemovedAt(std::size_t place) const {
        auto part = removed_.upper_bound(place);
        if (part == removed_.begin()) return removed_.end();
        --part;
        return place < part->second ? part : removed_.end();
    }

    std::string_view text_;
    std::vector<std::size_t> opens_;
    std::vector<std::size_t> closes_;
    Parts removed_; ///< begin and end
};

/// Removes the records of the plain entries at the front of `entries`; returns how many entries were done. It ends
/// early where the text has to be read anew.
std::size_t RemovePlainEntries(std::string& index, std::span<const std::string> entries) {
    Occurrences occurrences(index, entries);
    Remainder remainder(index);
    std::size_t done = 0;
    bool isClean = true;
    while (isClean && done < entries.size() && IsPlainEntry(entries[done])) {
        Occurrences::Places& places = occurrences.Of(entries[done++]);
        while (places.next < places.at.size() && !remainder.Holds(places.at[places.next]))
            ++places.next;
        if (places.next == places.at.size()) continue;
        const auto record = remainder.RecordAt(places.at[places.next]);
        if (!record) continue;
        remainder.Remove(*record);
        isClean = remainder.IsCleanGap(*record);
    }
    index = remainder.Text();
    return done;
}

/// The rule for one entry, whatever it holds.
void RemoveEntry(std::string& index, std::string_view entry) {
    const std::size_t found = entry.empty() ? 0 : text::FindNoCase(index, entry);
    const std::size_t start = text::FindLastNoCase(index, kScenarioOpenTag, found);
    const std::size_t end = found == 0 ? 0 : text::FindNoCase(index, kScenarioCloseTag, found);
    if (start > 0 && end > 0) index.erase(start - 1, end - start + kScenarioCloseTag.size());
}

} // namespace

std::string RemoveScenarios(std::string_view index, std::span<const std::string> entries) {
    std::string left(index);
    while (!entries.empty()) {
        std::size_t done = 0;
        if (IsPlainEntry(entries.front())) {
            done = RemovePlainEntries(left, entries);
        } else {
            RemoveEntry(left, entries.front());
            done = 1;
        }
        entries = entries.subspan(done);
    }
    return left;
}

std::string MergeScenarios(std::string_view index, std::span<const std::string> entries, std::string_view records) {
    if (!HoldsWholeRecords(records, kScenarioOpenTag, kScenarioCloseTag)) {
        throw text::RuntimeError(text::ErrorNumber::InvalidProcedureCall);
    }
    return InsertRecords(RemoveScenarios(index, entries), records);
}

} // namespace tamarind::install
