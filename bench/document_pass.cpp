// Tamarind's own loader and writer as a whole program: document_pass FILE [write]. With "write" the document is also
// written into one string.
#include "document/clsXMLParse.h"
#include "document/xml_writer.h"
#include "measure.h"
#include "platform/paths.h"
#include "platform/platform.h"

#include <cstdio>
#include <cstring>
#include <exception>

int main(int argc, char** argv) {
    using namespace tamarind;
    const bench::Measure measure;
    if (argc < 2) {
        std::fputs("document_pass FILE [write]\n", stderr);
        return 2;
    }
    try {
        const document::Document loaded = document::LoadXml(*platform::MakeFiles(), platform::FromNative(argv[1]));
        std::string out;
        if (argc == 3 && std::strcmp(argv[2], "write") == 0) {
            document::WriteXml(loaded, [&](std::string_view bytes) { out += bytes; });
        }
        measure.Print();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
