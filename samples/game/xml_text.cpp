#include "game/xml_text.h"

#include <cstddef>
#include <initializer_list>
#include <utility>

namespace tamarind::samples {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kNamespace = R"(xmlns:d="urn:tamarind:sample-game" d:version="1.0")";

std::string Escaped(std::string_view text) {
    std::string result;
    for (const char character : text) {
        switch (character) {
        case '&': result += "&amp;"; break;
        case '<': result += "&lt;"; break;
        case '>': result += "&gt;"; break;
        case '\'': result += "&apos;"; break;
        default: result += character;
        }
    }
    return result;
}

std::string Joined(std::initializer_list<std::string_view> parts) {
    std::string text;
    for (const std::string_view part : parts) {
        text += part;
    }
    return text;
}

/// Eight bytes a group, four groups a line, a blank between groups.
std::string HexLines(std::string_view bytes) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    constexpr std::size_t kGroup = 8;
    constexpr std::size_t kLine = 32;
    std::string result;
    for (std::size_t index = 0; index < bytes.size(); ++index) {
        if (index % kLine == 0) {
            result += kLineEnd;
        } else if (index % kGroup == 0) {
            result += ' ';
        }
        const auto byte = static_cast<unsigned char>(bytes[index]);
        result += kDigits[byte >> 4U];
        result += kDigits[byte & 0xFU];
    }
    return result;
}

} // namespace

XmlText::XmlText(std::string_view root) {
    text_ = R"(<?xml version="1.0" encoding="utf-8"?>)";
    text_ += kLineEnd;
    Open(root, Joined({kNamespace, R"( d:id="1")"}));
}

void XmlText::Line(std::string_view content) {
    text_.append(open_.size(), '\t');
    text_ += content;
    text_ += kLineEnd;
}

XmlText& XmlText::Open(std::string_view name, std::string_view attributes) {
    Line(Joined({"<", name, attributes.empty() ? "" : " ", attributes, ">"}));
    open_.emplace_back(name);
    return *this;
}

XmlText& XmlText::OpenRecord(std::string_view name) {
    ++lastId_;
    return Open(name, Joined({"d:id=\"", std::to_string(lastId_), "\""}));
}

XmlText& XmlText::Leaf(std::string_view name, std::string_view type, std::string_view text) {
    return Value(name, type, Escaped(text));
}

XmlText& XmlText::Value(std::string_view name, std::string_view type, std::string_view value) {
    Line(Joined({"<", name, " d:type=\"", type, "\">", value, "</", name, ">"}));
    return *this;
}

XmlText& XmlText::Close() {
    const std::string name = std::move(open_.back());
    open_.pop_back();
    Line(Joined({"</", name, ">"}));
    return *this;
}

XmlText& XmlText::Localised(std::string_view name, const LocalisedText& text) {
    Open(name).OpenRecord("Localisation");
    Leaf("English", "text", text.english).Leaf("French", "text", text.french).Leaf("Italian", "text", text.italian);
    Leaf("German", "text", text.german).Leaf("Spanish", "text", text.spanish);
    return Close().Close();
}

XmlText& XmlText::Reference(std::string_view name, const BlueprintReference& reference) {
    Open(name).OpenRecord("AssetSet").Open("Library");
    Leaf("Provider", "text", reference.provider).Leaf("Product", "text", reference.product);
    Close().Close();
    return Leaf("BlueprintID", "text", reference.path).Close();
}

XmlText& XmlText::Blob(std::string_view bytes) {
    Line(Joined({"<d:blob d:size=\"", std::to_string(bytes.size()), "\">", HexLines(bytes), "</d:blob>"}));
    return *this;
}

std::string XmlText::Finish() {
    while (!open_.empty()) {
        Close();
    }
    return std::move(text_);
}

} // namespace tamarind::samples
