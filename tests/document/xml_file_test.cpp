#include "document/clsXMLParse.h"
#include "document/xml_writer.h"
#include "support/fault_runs.h"
#include "support/temp_folder.h"
#include "support/tree_text.h"
#include "text/runtime_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// Loading and writing on the real disk.
namespace tamarind::document {
namespace {

using testing::ElementsAre;
using tests::TempFolder;
using tests::TreeText;

constexpr const char* kNewContent = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<a>new</a>\r\n";

TEST(XmlFile, IsWrittenAndLoadedAgain) {
    const TempFolder folder;
    const Document first = ParseXml("<a x='1'><b>text</b><c/>\n\t</a>");
    WriteXmlFile(first, folder.Disk(), folder / "\xC3\xA9t\xC3\xA9.xml");
    const Document second = LoadXml(folder.Disk(), folder / "\xC3\xA9t\xC3\xA9.xml");
    EXPECT_EQ(TreeText(second.Top()), "1:a[x=1]{\n}(2:b{text}()3:c())");
    EXPECT_THAT(folder.Names(), ElementsAre("\xC3\xA9t\xC3\xA9.xml"));
}

TEST(XmlFile, OfSeveralPiecesIsLoadedWhole) {
    std::string text = "<a>";
    for (int element = 0; element < 100'000; ++element) {
        text += "<b c='d'/>";
    }
    const TempFolder folder;
    const Document loaded = LoadXml(folder.Disk(), folder.Write("a.xml", text + "</a>"));
    EXPECT_EQ(CountElements(loaded.Top()), 100'001u);
    EXPECT_EQ(loaded.Top().ChildNodes.Item("nod100001").NodeAttributes.Item(1).AttribValue, "d");
}

TEST(XmlFile, ExternalEntityIsNotFetchedFromTheDisk) {
    const TempFolder folder;
    folder.Write("secret.txt", "secret");
    const std::string path =
        folder.Write("a.xml", "<!DOCTYPE a SYSTEM 'a.dtd' [<!ENTITY s SYSTEM 'secret.txt'>]><a>[&s;]</a>");
    EXPECT_EQ(TreeText(LoadXml(folder.Disk(), path).Top()), "1:a{[]}()");
}

TEST(XmlFile, SurvivesEveryFaultOfWriting) {
    const Document document = ParseXml("<a>new</a>");
    const int points = tests::TryEveryFault([&](tests::FaultRun& run) {
        const TempFolder folder;
        folder.Write("a.xml", "the old content");
        tests::FaultyFiles files(folder.Disk(), run.fault);
        bool failed = false;
        try {
            WriteXmlFile(document, files, folder / "a.xml");
        } catch (const text::RuntimeError&) {
            failed = true;
        }
        run.struck = files.HasStruck();
        run.changes = files.Changes();
        EXPECT_EQ(failed, run.struck) << run.Name();
        EXPECT_EQ(folder.Read("a.xml"), failed ? "the old content" : kNewContent) << run.Name();
        if (!run.fault.forever) {
            EXPECT_THAT(folder.Names(), ElementsAre("a.xml")) << run.Name();
        }
    });
    // Create, CopyAttributes, Write, Flush, Close and Replace; four kinds of fault, once and for ever.
    EXPECT_EQ(points, 6 * 8);
}

} // namespace
} // namespace tamarind::document
