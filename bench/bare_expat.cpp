// One bare pass of the XML reader over a file: bare_expat FILE [handlers]. With "handlers" it calls empty handlers for
// tags and text, without it none at all.
#include "measure.h"

#include <cstdio>
#include <cstring>
#include <expat.h>

namespace {

constexpr int kPiece = 1 << 17;

void XMLCALL StartElement(void*, const XML_Char*, const XML_Char**) {}
void XMLCALL EndElement(void*, const XML_Char*) {}
void XMLCALL Characters(void*, const XML_Char*, int) {}

} // namespace

int main(int argc, char** argv) {
    const tamarind::bench::Measure measure;
    std::FILE* const file = argc >= 2 ? std::fopen(argv[1], "rb") : nullptr;
    if (file == nullptr) {
        std::fputs("bare_expat FILE [handlers]\n", stderr);
        return 2;
    }
    XML_Parser const parser = XML_ParserCreate(nullptr);
    if (argc == 3 && std::strcmp(argv[2], "handlers") == 0) {
        XML_SetElementHandler(parser, StartElement, EndElement);
        XML_SetCharacterDataHandler(parser, Characters);
    }
    std::size_t length = 0;
    do {
        length = std::fread(XML_GetBuffer(parser, kPiece), 1, kPiece, file);
        if (XML_ParseBuffer(parser, static_cast<int>(length), length == 0) != XML_STATUS_OK) {
            std::fprintf(stderr, "%s\n", XML_ErrorString(XML_GetErrorCode(parser)));
            return 1;
        }
    } while (length > 0);
    measure.Print();
    XML_ParserFree(parser);
    std::fclose(file);
}
