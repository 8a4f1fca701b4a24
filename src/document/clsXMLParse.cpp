#include "document/clsXMLParse.h"

#include "text/code_page.h"
#include "text/search.h"

#include <algorithm>
#include <exception>
#include <expat.h>
#include <memory>
#include <new>
#include <span>
#include <utility>

namespace tamarind::document {

namespace {

constexpr int kPiece = 1 << 17;

/// Entities that name one another are expanded one within the other on the reader's stack; its own protection counts
/// their text, not their depth.
constexpr int kMostEntities = 2000;

std::string_view LocalName(const char* qualifiedName) {
    const std::string_view name = qualifiedName;
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos || colon + 1 == name.size() ? name : name.substr(colon + 1);
}

/// Expat knows no code page of its own.
int XMLCALL DescribeEncoding(void*, const XML_Char* name, XML_Encoding* encoding) {
    if (!text::EqualNoCase(name, "windows-1252")) {
        return XML_STATUS_ERROR;
    }
    for (int byte = 0; byte < 256; ++byte) {
        encoding->map[byte] = static_cast<int>(text::CodePageToUnicode(static_cast<std::uint8_t>(byte)));
    }
    encoding->data = nullptr;
    encoding->convert = nullptr;
    encoding->release = nullptr;
    return XML_STATUS_OK;
}

struct FreeParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

} // namespace

/// The reader's events as nodes. Nothing thrown passes through the reader: it is stopped, and the error goes on from
/// the call that fed it.
class clsXMLParse {
public:
    clsXMLParse() : parser_(XML_ParserCreate(nullptr)), current_(&document_.Root()) {
        if (!parser_) {
            throw std::bad_alloc();
        }
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), OnStartElement, OnEndElement);
        XML_SetCharacterDataHandler(parser_.get(), OnCharacters);
        XML_SetEntityDeclHandler(parser_.get(), OnEntityDeclaration);
        XML_SetUnknownEncodingHandler(parser_.get(), DescribeEncoding, nullptr);
    }

    /// Room for the next bytes of the file.
    [[nodiscard]] std::span<char> Buffer() {
        void* const buffer = XML_GetBuffer(parser_.get(), kPiece);
        if (buffer == nullptr) {
            Check(XML_STATUS_ERROR);
        }
        return {static_cast<char*>(buffer), static_cast<std::size_t>(kPiece)};
    }
    /// So many bytes were put into the room; 0 ends the file.
    void ReadBuffer(std::size_t length) {
        Check(XML_ParseBuffer(parser_.get(), static_cast<int>(length), length == 0));
    }
    /// The next bytes of a text in memory; none ends it.
    void Read(std::string_view bytes) {
        Check(XML_Parse(parser_.get(), bytes.data(), static_cast<int>(bytes.size()), bytes.empty()));
    }
    [[nodiscard]] Document TakeDocument() { return std::move(document_); }

private:
    void Check(XML_Status status) {
        if (failure_) {
            std::rethrow_exception(failure_);
        }
        if (status == XML_STATUS_ERROR) {
            throw ErrorHere(XML_ErrorString(XML_GetErrorCode(parser_.get())));
        }
    }
    [[nodiscard]] XmlError ErrorHere(const std::string& description) const {
        return {description, XML_GetCurrentLineNumber(parser_.get()), XML_GetCurrentColumnNumber(parser_.get()) + 1};
    }

    template <typename Action> static void Guard(void* self, Action action) noexcept {
        auto& parse = *static_cast<clsXMLParse*>(self);
        if (parse.failure_) {
            return;
        }
        try {
            action(parse);
        } catch (...) {
            parse.failure_ = std::current_exception();
            XML_StopParser(parse.parser_.get(), XML_FALSE);
        }
    }
    static void XMLCALL OnStartElement(void* self, const XML_Char* name, const XML_Char** attributes) {
        Guard(self, [&](clsXMLParse& parse) { parse.StartElement(name, attributes); });
    }
    static void XMLCALL OnEndElement(void* self, const XML_Char*) {
        Guard(self, [](clsXMLParse& parse) { parse.EndElement(); });
    }
    static void XMLCALL OnCharacters(void* self, const XML_Char* text, int length) {
        Guard(self, [&](clsXMLParse& parse) { parse.characters_.append(text, static_cast<std::size_t>(length)); });
    }
    static void XMLCALL OnEntityDeclaration(void* self, const XML_Char*, int, const XML_Char*, int, const XML_Char*,
                                            const XML_Char*, const XML_Char*, const XML_Char*) {
        Guard(self, [](clsXMLParse& parse) { parse.CountEntity(); });
    }

    void StartElement(const XML_Char* name, const XML_Char** attributes);
    void EndElement();
    void KeepCharacters();
    void CountEntity();

    std::unique_ptr<XML_ParserStruct, FreeParser> parser_;
    Document document_;
    clsNode* current_;
    NodeKey keyCounter_ = 1;
    std::string characters_; ///< since the last tag
    int entities_ = 0;
    std::exception_ptr failure_;
};

void clsXMLParse::StartElement(const XML_Char* name, const XML_Char** attributes) {
    KeepCharacters();
    current_ = &document_.AddNode(*current_, LocalName(name), {}, keyCounter_);
    ++keyCounter_;
    std::size_t texts = 0;
    while (attributes[texts] != nullptr) {
        ++texts;
    }
    document_.ReserveAttributes(*current_, texts / 2);
    for (const char** pair = attributes; pair[0] != nullptr && pair[1] != nullptr; pair += 2) {
        document_.AddAttribute(*current_, pair[0], pair[1]);
    }
}

void clsXMLParse::EndElement() {
    KeepCharacters();
    current_ = current_->ParentNode;
}

void clsXMLParse::KeepCharacters() {
    if (!characters_.empty()) {
        document_.LoadCharacters(*current_, characters_);
        characters_.clear();
    }
}

void clsXMLParse::CountEntity() {
    if (++entities_ > kMostEntities) {
        throw ErrorHere("the document declares more than 2,000 entities");
    }
}

XmlError::XmlError(const std::string& description, std::uint64_t line, std::uint64_t column)
    : std::runtime_error(description), line_(line), column_(column) {}

Document LoadXml(const platform::Files& files, const std::string& path, const std::function<void()>& betweenPieces) {
    const std::unique_ptr<platform::InputFile> file = files.Open(path);
    clsXMLParse parse;
    std::size_t length = 0;
    do {
        length = file->Read(parse.Buffer());
        parse.ReadBuffer(length);
        if (betweenPieces) betweenPieces();
    } while (length > 0);
    return parse.TakeDocument();
}

Document ParseXml(std::string_view bytes) {
    clsXMLParse parse;
    while (!bytes.empty()) {
        parse.Read(bytes.substr(0, kPiece));
        bytes.remove_prefix(std::min<std::size_t>(kPiece, bytes.size()));
    }
    parse.Read({});
    return parse.TakeDocument();
}

} // namespace tamarind::document
