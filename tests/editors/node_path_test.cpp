#include "editors/node_path.h"

#include "document/clsXMLParse.h"

#include <gtest/gtest.h>

namespace tamarind::editors {
namespace {

TEST(PathOf, NamesEveryElementFromTheTopOne) {
    const document::Document document = document::ParseXml("<Line><Station><Platform/></Station></Line>");
    EXPECT_EQ(PathOf(document.Top()), "/Line");
    EXPECT_EQ(PathOf(document.Top().ChildNodes.Item(1).ChildNodes.Item(1)), "/Line/Station/Platform");
    EXPECT_EQ(PathOf(document.Root()), "");
}

TEST(PathOf, CountsAmongSiblingsOfTheSameName) {
    const document::Document document = document::ParseXml("<Line><Halt/><Stop/><Halt/></Line>");
    EXPECT_EQ(PathOf(document.Top().ChildNodes.Item(1)), "/Line/Halt[1]");
    EXPECT_EQ(PathOf(document.Top().ChildNodes.Item(2)), "/Line/Stop");
    EXPECT_EQ(PathOf(document.Top().ChildNodes.Item(3)), "/Line/Halt[2]");
}

} // namespace
} // namespace tamarind::editors
