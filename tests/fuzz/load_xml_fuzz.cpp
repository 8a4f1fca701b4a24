// The loader on any bytes, and the writer on what it accepts.
#include "document/clsXMLParse.h"
#include "document/xml_writer.h"
#include "text/runtime_error.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace tamarind;

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

void CheckTree(const document::Document& loaded) {
    Require(loaded.Root().ChildNodes.Count() == 1);
    document::NodeKey key = 0;
    document::Walk walk(loaded.Top());
    while (const document::clsNode* const node = walk.Next()) {
        Require(node->Key == ++key);
        Require(!node->NodeName.empty());
        Require(&node->ParentNode->ChildNodes.Item(node->NodeKeyText()) == node);
        Require(document::FindChildByKey(loaded.Root(), key) == node);
    }
}

void CheckWriting(const document::Document& loaded) {
    std::size_t bytes = 0;
    try {
        document::WriteXml(loaded, [&](std::string_view piece) { bytes += piece.size(); });
        Require(bytes > 0);
    } catch (const text::RuntimeError& error) {
        Require(error.Code() == text::ErrorNumber::Overflow && bytes == 0);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const document::Document loaded = document::ParseXml({reinterpret_cast<const char*>(data), size});
        CheckTree(loaded);
        CheckWriting(loaded);
    } catch (const document::XmlError& error) {
        Require(error.Line() > 0 && error.Column() > 0);
    }
    return 0;
}
