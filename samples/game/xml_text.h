#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tamarind::samples {

/// A text in the five languages of the game, in the order in which a game file holds them.
struct LocalisedText {
    std::string_view english;
    std::string_view french;
    std::string_view italian;
    std::string_view german;
    std::string_view spanish;
};

/// Where a blueprint lies below the game's "Assets" folder; plain text, not XML.
struct BlueprintReference {
    std::string_view provider;
    std::string_view product;
    std::string_view path; ///< with "\", ending in ".xml"
};

/// Builds XML as the converter writes it: every element on a line of its own, indented by tabs, lines ended by CR LF.
class XmlText {
public:
    /// Opens the root element.
    explicit XmlText(std::string_view root);

    /// An element that holds others.
    XmlText& Open(std::string_view name, std::string_view attributes = {});
    /// The same, with the next number as its "d:id".
    XmlText& OpenRecord(std::string_view name);
    /// An element that holds text; `text` is written with "&", "<", ">" and "'" as entities.
    XmlText& Leaf(std::string_view name, std::string_view type, std::string_view text);
    /// An element that holds a number, a flag or a keyword, taken as it stands.
    XmlText& Value(std::string_view name, std::string_view type, std::string_view value);
    XmlText& Close();

    /// `name` round the five languages.
    XmlText& Localised(std::string_view name, const LocalisedText& text);
    /// A reference as every game file holds it: provider, product on the next line, the path three lines further.
    XmlText& Reference(std::string_view name, const BlueprintReference& reference);
    /// Binary data, in hexadecimal.
    XmlText& Blob(std::string_view bytes);

    /// Closes what is open and gives the whole text.
    [[nodiscard]] std::string Finish();

private:
    void Line(std::string_view content);

    std::string text_;
    std::vector<std::string> open_;
    int lastId_ = 1000;
};

} // namespace tamarind::samples
