#include "help/help_pages.h"

#include "shell/menus.h"
#include "text/search.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

namespace tamarind::tests {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Pair;
using testing::SizeIs;

constexpr std::size_t kLargestPicture = 100'000;

std::string WithoutMnemonic(std::string_view caption) { return text::ReplaceAll(std::string(caption), "&", ""); }

/// What menus and items are called, as the pages write it: "Options > Viewer Path".
std::set<std::string> MenuPaths() {
    std::set<std::string> paths;
    for (const auto& item : shell::MenuItems()) {
        for (const auto& menu : shell::Menus()) {
            if (menu.name == item.menu)
                paths.insert(WithoutMnemonic(menu.caption) + " > " + WithoutMnemonic(item.caption));
        }
    }
    return paths;
}

class HelpPages : public testing::Test {
protected:
    HelpPages() {
        for (const std::string& page : HelpFiles(".html"))
            pages[page] = ReadTags(ReadHelp(page));
    }

    std::map<std::string, std::vector<Tag>> pages;
};

TEST_F(HelpPages, AreThere) { EXPECT_GE(pages.size(), 18U); }

TEST_F(HelpPages, AreWellNested) {
    for (const auto& [page, tags] : pages)
        EXPECT_EQ(NestingFault(tags), "") << page;
}

TEST_F(HelpPages, LinkToPagesThatExist) {
    for (const auto& [page, tags] : pages) {
        for (const std::string& link : Values(tags, "a", "href"))
            EXPECT_TRUE(pages.contains(link)) << page << " links to " << link;
    }
}

TEST_F(HelpPages, ShowPicturesThatExistAndTellWhatTheyShow) {
    const std::vector<std::string> pictures = HelpFiles(".gif");
    for (const auto& [page, tags] : pages) {
        for (const Tag& tag : tags) {
            if (tag.name != "img") continue;
            EXPECT_THAT(pictures, Contains(tag.attributes.at("src"))) << page;
            EXPECT_NE(tag.attributes.at("alt"), "") << page;
        }
    }
}

TEST_F(HelpPages, ShowEveryPicture) {
    std::set<std::string> shown;
    for (const auto& [page, tags] : pages) {
        for (const std::string& picture : Values(tags, "img", "src"))
            shown.insert(picture);
    }
    const std::vector<std::string> pictures = HelpFiles(".gif");
    EXPECT_FALSE(pictures.empty());
    for (const std::string& picture : pictures)
        EXPECT_TRUE(shown.contains(picture)) << picture;
}

TEST_F(HelpPages, HaveSmallGifPictures) {
    for (const std::string& picture : HelpFiles(".gif")) {
        const std::string bytes = ReadHelp(picture);
        EXPECT_TRUE(bytes.starts_with("GIF8")) << picture;
        EXPECT_LT(bytes.size(), kLargestPicture) << picture;
    }
}

TEST_F(HelpPages, BearTheirTitleAsHeading) {
    for (const auto& [page, tags] : pages) {
        ASSERT_THAT(Contents(tags, "title"), SizeIs(1)) << page;
        EXPECT_EQ(Contents(tags, "h1"), Contents(tags, "title")) << page;
    }
}

TEST_F(HelpPages, StandInTheContentsOnceUnderTheirTitle) {
    std::multiset<std::string> listed;
    for (const auto& [name, page] : ReadEntries("Tamarind.hhc")) {
        if (page.empty()) continue; // a heading
        listed.insert(page);
        ASSERT_TRUE(pages.contains(page)) << page;
        EXPECT_EQ(Contents(pages[page], "title").at(0), name);
    }
    for (const auto& [page, tags] : pages)
        EXPECT_EQ(listed.count(page), 1U) << page;
}

TEST_F(HelpPages, StandInTheIndex) {
    const HelpEntries index = ReadEntries("Tamarind.hhk");
    for (const auto& [name, page] : index) {
        EXPECT_NE(name, "");
        EXPECT_TRUE(pages.contains(page)) << name << " leads to " << page;
    }
    for (const auto& [page, tags] : pages)
        EXPECT_THAT(index, Contains(Pair(testing::_, page)));
}

TEST_F(HelpPages, AreAllReachedFromTheFirst) {
    std::set<std::string> reached;
    std::vector<std::string> toVisit{"index.html"};
    while (!toVisit.empty()) {
        const std::string page = toVisit.back();
        toVisit.pop_back();
        if (!reached.insert(page).second) continue;
        std::ranges::copy(Values(pages[page], "a", "href"), std::back_inserter(toVisit));
    }
    for (const auto& [page, tags] : pages)
        EXPECT_TRUE(reached.contains(page)) << page;
}

TEST_F(HelpPages, NameMenuItemsThatExist) {
    const std::set<std::string> menuPaths = MenuPaths();
    std::size_t named = 0;
    for (const auto& [page, tags] : pages) {
        for (const std::string& bold : Contents(tags, "b")) {
            if (bold.find(" > ") == std::string::npos) continue;
            ++named;
            EXPECT_TRUE(menuPaths.contains(bold)) << page << " names " << bold;
        }
    }
    EXPECT_GT(named, 30U);
}

TEST_F(HelpPages, NameEveryMenuItem) {
    std::string text;
    for (const auto& [page, tags] : pages)
        text += ShownText(tags);
    for (const auto& item : shell::MenuItems()) {
        const std::string caption = WithoutMnemonic(item.caption);
        if (caption == "Exit") continue;
        EXPECT_THAT(text, HasSubstr(caption));
    }
}

} // namespace
} // namespace tamarind::tests
