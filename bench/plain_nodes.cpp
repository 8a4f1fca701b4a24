// The plainest program that keeps a document: nodes of strings, vectors and owned children, read with Expat and written
// into one string: plain_nodes FILE.
#include "measure.h"

#include <cstdio>
#include <expat.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int kPiece = 1 << 17;

struct Node {
    std::string name;
    std::string text;
    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<std::unique_ptr<Node>> children;
};

struct Reader {
    Node document;
    std::vector<Node*> open{&document};
};

void XMLCALL StartElement(void* data, const XML_Char* name, const XML_Char** attributes) {
    Reader& reader = *static_cast<Reader*>(data);
    auto node = std::make_unique<Node>();
    node->name = name;
    for (; *attributes != nullptr; attributes += 2) {
        node->attributes.emplace_back(attributes[0], attributes[1]);
    }
    Node* const added = node.get();
    reader.open.back()->children.push_back(std::move(node));
    reader.open.push_back(added);
}
void XMLCALL EndElement(void* data, const XML_Char*) { static_cast<Reader*>(data)->open.pop_back(); }
void XMLCALL Characters(void* data, const XML_Char* text, int length) {
    static_cast<Reader*>(data)->open.back()->text.append(text, static_cast<std::size_t>(length));
}

void Write(const Node& node, std::string& out) {
    out += '<';
    out += node.name;
    for (const auto& [name, value] : node.attributes) {
        out += ' ';
        out += name;
        out += "=\"";
        out += value;
        out += '"';
    }
    out += '>';
    out += node.text;
    for (const auto& child : node.children) {
        Write(*child, out);
    }
    out += "</";
    out += node.name;
    out += ">\r\n";
}

} // namespace

int main(int argc, char** argv) {
    const tamarind::bench::Measure measure;
    std::FILE* const file = argc == 2 ? std::fopen(argv[1], "rb") : nullptr;
    if (file == nullptr) {
        std::fputs("plain_nodes FILE\n", stderr);
        return 2;
    }
    Reader reader;
    XML_Parser const parser = XML_ParserCreate(nullptr);
    XML_SetUserData(parser, &reader);
    XML_SetElementHandler(parser, StartElement, EndElement);
    XML_SetCharacterDataHandler(parser, Characters);
    std::size_t length = 0;
    do {
        length = std::fread(XML_GetBuffer(parser, kPiece), 1, kPiece, file);
        if (XML_ParseBuffer(parser, static_cast<int>(length), length == 0) != XML_STATUS_OK) {
            std::fprintf(stderr, "%s\n", XML_ErrorString(XML_GetErrorCode(parser)));
            return 1;
        }
    } while (length > 0);
    XML_ParserFree(parser);
    std::fclose(file);
    std::string out;
    Write(*reader.document.children.front(), out);
    measure.Print();
}
