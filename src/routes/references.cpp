#include "routes/references.h"

#include "platform/paths.h"
#include "routes/lines.h"
#include "text/code_page.h"
#include "text/search.h"

#include <array>
#include <optional>

namespace tamarind::routes {

using text::FindNoCase;
using text::FoldedKey;

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr FoldedKey kProvider("<Provider");
constexpr FoldedKey kProduct("<Product");
constexpr FoldedKey kGeometryId("<GeometryID");
constexpr FoldedKey kBlob("<d:blob");
constexpr FoldedKey kTexturesStart("<TextureByName");
constexpr FoldedKey kTexturesEnd("</TextureByName");
constexpr FoldedKey kTexture("<e");
constexpr FoldedKey kBlueprintId("<BlueprintID d:type");

/// The text between the first ">" and the following "<"; nothing where one of them is missing.
std::optional<std::string_view> Content(std::string_view text) {
    const std::size_t start = text.find('>');
    const std::size_t end = start == kNone ? kNone : text.find('<', start);
    if (end == kNone) return std::nullopt;
    return text.substr(start + 1, end - start - 1);
}

std::string ContentOrNothing(std::string_view text) { return std::string(Content(text).value_or("")); }

std::string_view WithoutFirst(std::string_view text, int characters) {
    for (; characters > 0 && !text.empty(); --characters) {
        static_cast<void>(text::TakeCodePoint(text));
    }
    return text;
}

/// Without the four characters that begin at the first "[".
std::string WithoutBracket(std::string_view name) {
    constexpr int kCharacters = 4;
    const std::size_t bracket = name.find('[');
    if (bracket == kNone) return std::string(name);
    return std::string(name.substr(0, bracket)).append(WithoutFirst(name.substr(bracket), kCharacters));
}

/// Reads what follows the provider; nothing where the text ends before.
std::optional<BlueprintReference> ReadReference(Lines& lines, std::string_view provider) {
    std::array<std::string_view, 4> following; // the product, two lines of no interest, the path
    for (std::string_view& line : following) {
        const auto next = lines.Next();
        if (!next) return std::nullopt;
        line = *next;
    }
    const std::string path = ContentOrNothing(following[3]);
    return BlueprintReference{std::string(provider), ContentOrNothing(following[0]),
                              path.empty() ? path : WithBinaryEnding(path)};
}

/// Reads the references up to the closing tag; false where the text ends before.
bool ReadTextures(Lines& lines, std::vector<std::string>& textures) {
    while (const auto line = lines.Next()) {
        if (FindNoCase(*line, kTexturesEnd) != 0) return true;
        if (FindNoCase(*line, kTexture) == 0) continue;
        if (const auto reference = Content(*line)) textures.push_back(WithoutBracket(*reference));
    }
    return false;
}

/// Looks for the last provider in front of growing positions, and its product, without reading anything twice.
class StockSets {
public:
    explicit StockSets(std::string_view text) : text_(text), next_(FindNoCase(text, kProvider)) {}

    /// Provider and product for a reference at `position`, joined by "\".
    const std::string& For(std::size_t position) {
        while (next_ != 0 && next_ < position) {
            last_ = next_;
            next_ = FindNoCase(text_, kProvider, next_ + 1);
        }
        if (last_ != read_) Read();
        return joined_;
    }

private:
    void Read() {
        read_ = last_;
        // The products of providers that follow each other may be one and the same.
        if (product_ < last_ && (product_ != 0 || !isProductSought_)) {
            product_ = FindNoCase(text_, kProduct, last_);
            isProductSought_ = true;
        }
        joined_ = ContentOrNothing(text_.substr(last_ - 1)) + "\\";
        if (product_ != 0) joined_ += ContentOrNothing(text_.substr(product_ - 1));
    }

    std::string_view text_;
    std::size_t next_;
    std::size_t last_ = 0;
    std::size_t read_ = 0;
    std::size_t product_ = 0;
    bool isProductSought_ = false;
    std::string joined_ = "\\";
};

} // namespace

TileScan ScanTile(std::string_view text) {
    TileScan scan;
    std::size_t position = 1;
    while (const std::size_t hit = FindNoCase(text, kProvider, position)) {
        Lines lines(text, hit - 1);
        const std::string_view provider = Content(lines.Next().value_or("")).value_or("");
        if (!provider.empty()) {
            auto reference = ReadReference(lines, provider);
            if (!reference) {
                scan.isCutOff = true;
                break;
            }
            if (!reference->path.empty()) scan.references.push_back(std::move(*reference));
        }
        position = lines.Offset() + 1;
    }
    return scan;
}

std::vector<std::string> ScanGeometryIds(std::string_view text) {
    std::vector<std::string> names;
    std::size_t position = 1;
    while (const std::size_t hit = FindNoCase(text, kGeometryId, position)) {
        Lines lines(text, LineStart(text, hit - 1, position - 1));
        const std::string_view name = Content(lines.Next().value_or("")).value_or("");
        if (name.find('[') != kNone) names.push_back(WithoutBracket(name));
        position = lines.Offset() + 1;
    }
    return names;
}

ShapeScan ScanShape(std::string_view text) {
    ShapeScan scan;
    std::size_t position = 1;
    while (const std::size_t hit = FindNoCase(text, kTexturesStart, position)) {
        Lines lines(text, LineStart(text, hit - 1, position - 1));
        const bool isBlob = FindNoCase(lines.Next().value_or(""), kBlob) != 0;
        if (!isBlob && !ReadTextures(lines, scan.textures)) {
            scan.isCutOff = true;
            break;
        }
        position = lines.Offset() + 1;
    }
    return scan;
}

std::vector<std::string> ScanStock(std::string_view text) {
    std::vector<std::string> entries;
    StockSets sets(text);
    std::size_t position = 1;
    while (const std::size_t hit = FindNoCase(text, kBlueprintId, position)) {
        entries.push_back(sets.For(hit) + "\\" + ContentOrNothing(text.substr(hit - 1)));
        position = hit + 1;
    }
    return entries;
}

void CountUpLevels(std::string_view path, int& levels) {
    constexpr std::string_view kUp = "..\\";
    constexpr int kMost = 5;
    int count = 0;
    while (count < kMost && path.starts_with(kUp)) {
        path.remove_prefix(kUp.size());
        ++count;
    }
    if (count > 0) levels = count;
}

bool DecodeEntities(std::string& text) {
    const bool hasAny = FindNoCase(text, "&apos;") != 0 || FindNoCase(text, "&amp;") != 0;
    if (hasAny) text = text::ReplaceAllNoCase(text::ReplaceAllNoCase(text, "&apos;", "'"), "&amp;", "&");
    return hasAny;
}

std::vector<std::string> RemoveDuplicates(const std::vector<std::string>& sorted) {
    std::vector<std::string> kept;
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        if (i == 0 || !text::EqualNoCase(sorted[i], sorted[i - 1])) kept.push_back(sorted[i]);
    }
    return kept;
}

std::string TextureFile(const std::string& gameFolder, const std::string& shapeFile, const std::string& reference) {
    constexpr std::size_t kUpLength = 3;
    int levels = 0;
    CountUpLevels(reference, levels);
    if (levels == 0 && !text::StartsWithNoCase(reference, "text")) {
        return gameFolder + "\\Assets\\" + reference + ".TgPcDx";
    }
    std::string folder = platform::FolderOf(shapeFile);
    for (int level = 0; level < levels; ++level) {
        folder = platform::FolderOf(folder);
    }
    return folder + "\\" + reference.substr(kUpLength * static_cast<std::size_t>(levels)) + ".TgPcDx";
}

std::string WithBinaryEnding(std::string_view path) {
    constexpr int kDropped = 3;
    std::size_t length = path.size();
    for (int count = 0; count < kDropped && length > 0; ++count) {
        do {
            --length;
        } while (length > 0 && (static_cast<unsigned char>(path[length]) & 0xC0U) == 0x80U);
    }
    return std::string(path.substr(0, length)) + "bin";
}

} // namespace tamarind::routes
