#include "document/clsNode.h"
#include "text/runtime_error.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace tamarind::document {
namespace {

using text::RuntimeError;

template <typename Action> int ErrorOf(Action action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return 0;
}

/// top (nod1) with the children a (nod2), b (nod3), c (nod4).
class ThreeChildren : public testing::Test {
protected:
    Document document;
    clsNode& top = document.AddNode(document.Root(), "top", "", 1);
    clsNode& a = document.AddNode(top, "a", "text of a", 2);
    clsNode& b = document.AddNode(top, "b", "", 3);
    clsNode& c = document.AddNode(top, "c", "", 4);
};

TEST(KeyText, IsNodAndTheNumber) {
    EXPECT_EQ(KeyText(1), "nod1");
    EXPECT_EQ(KeyText(4294967295u), "nod4294967295");
}

TEST(ParseKey, IgnoresLetterCase) {
    EXPECT_EQ(ParseKey("nod3"), 3u);
    EXPECT_EQ(ParseKey("NOD3"), 3u);
    EXPECT_EQ(ParseKey("nOd4294967295"), 4294967295u);
}

TEST(ParseKey, IsZeroForWhatIsNoKey) {
    for (const char* text : {"", "nod", "nod0", "nod03", "nod-1", "nod+1", "nod 1", "nod1 ", "node1", "1", "mod1",
                             "nod4294967296", "nod99999999999999999999"}) {
        EXPECT_EQ(ParseKey(text), 0u) << text;
    }
}

TEST(NewDocument, HasADocumentNodeWithoutAnything) {
    const Document document;
    EXPECT_TRUE(document.IsEmpty());
    EXPECT_EQ(document.Root().ChildNodes.Count(), 0u);
    EXPECT_EQ(document.Root().NodeAttributes.Count(), 0u);
    EXPECT_EQ(document.Root().NodeName, "");
    EXPECT_EQ(document.Root().NodeCharacters, "");
    EXPECT_EQ(document.Root().ParentNode, nullptr);
}

TEST(NewDocument, HasNoTopElement) {
    const Document document;
    EXPECT_EQ(ErrorOf([&] { (void)document.Top(); }), 5);
}

TEST_F(ThreeChildren, AddedNodeHasTheGivenProperties) {
    EXPECT_EQ(a.NodeName, "a");
    EXPECT_EQ(a.NodeCharacters, "text of a");
    EXPECT_EQ(a.Key, 2u);
    EXPECT_EQ(a.NodeKeyText(), "nod2");
    EXPECT_EQ(a.ParentNode, &top);
    EXPECT_EQ(a.ChildNodes.Count(), 0u);
    EXPECT_EQ(a.NodeAttributes.Count(), 0u);
}

TEST_F(ThreeChildren, TopIsItemOneOfTheDocumentNode) {
    EXPECT_EQ(&document.Top(), &top);
    EXPECT_EQ(top.ParentNode, &document.Root());
    EXPECT_FALSE(document.IsEmpty());
}

TEST_F(ThreeChildren, PositionsCountFromOne) {
    EXPECT_EQ(top.ChildNodes.Count(), 3u);
    EXPECT_EQ(&top.ChildNodes.Item(1), &a);
    EXPECT_EQ(&top.ChildNodes.Item(3), &c);
}

TEST_F(ThreeChildren, PositionOutsideIsAnInvalidCall) {
    EXPECT_EQ(ErrorOf([&] { (void)top.ChildNodes.Item(0); }), 5);
    EXPECT_EQ(ErrorOf([&] { (void)top.ChildNodes.Item(4); }), 5);
    EXPECT_EQ(ErrorOf([&] { top.ChildNodes.Remove(0); }), 5);
    EXPECT_EQ(ErrorOf([&] { top.ChildNodes.Remove(4); }), 5);
    EXPECT_EQ(top.ChildNodes.Count(), 3u);
}

TEST_F(ThreeChildren, KeyFindsTheChildWithoutRegardToLetterCase) {
    EXPECT_EQ(&top.ChildNodes.Item("nod3"), &b);
    EXPECT_EQ(&top.ChildNodes.Item("NOD3"), &b);
}

TEST_F(ThreeChildren, UnknownKeyIsAnInvalidCall) {
    for (const char* key : {"nod1", "nod5", "nod", "", "a"}) {
        EXPECT_EQ(ErrorOf([&] { (void)top.ChildNodes.Item(key); }), 5) << key;
        EXPECT_EQ(ErrorOf([&] { top.ChildNodes.Remove(key); }), 5) << key;
    }
    EXPECT_EQ(ErrorOf([&] { (void)a.ChildNodes.Item("nod1"); }), 5);
}

TEST_F(ThreeChildren, KeyInTheSameCollectionTwiceIsRefused) {
    EXPECT_EQ(ErrorOf([&] { document.AddNode(top, "d", "", 3); }), 457);
    EXPECT_EQ(ErrorOf([&] { document.AddNode(top, "d", "", 4); }), 457);
    EXPECT_EQ(top.ChildNodes.Count(), 3u);
}

TEST_F(ThreeChildren, KeyOfAnotherCollectionIsAllowed) { EXPECT_EQ(document.AddNode(a, "d", "", 3).Key, 3u); }

TEST_F(ThreeChildren, KeysInAnyOrderAreFoundAndRefused) {
    clsNode& ten = document.AddNode(top, "ten", "", 10);
    clsNode& five = document.AddNode(top, "five", "", 5);
    clsNode& twenty = document.AddNode(top, "twenty", "", 20);
    EXPECT_EQ(&top.ChildNodes.Item("nod10"), &ten);
    EXPECT_EQ(&top.ChildNodes.Item("nod5"), &five);
    EXPECT_EQ(&top.ChildNodes.Item("nod20"), &twenty);
    EXPECT_EQ(&top.ChildNodes.Item("nod2"), &a);
    EXPECT_EQ(ErrorOf([&] { document.AddNode(top, "d", "", 5); }), 457);
    EXPECT_EQ(ErrorOf([&] { document.AddNode(top, "d", "", 20); }), 457);
    EXPECT_EQ(ErrorOf([&] { (void)top.ChildNodes.Item("nod19"); }), 5);
}

TEST_F(ThreeChildren, RemovingByPositionMovesLaterOnesDown) {
    top.ChildNodes.Remove(1);
    ASSERT_EQ(top.ChildNodes.Count(), 2u);
    EXPECT_EQ(&top.ChildNodes.Item(1), &b);
    EXPECT_EQ(&top.ChildNodes.Item(2), &c);
    EXPECT_EQ(ErrorOf([&] { (void)top.ChildNodes.Item("nod2"); }), 5);
    EXPECT_EQ(&top.ChildNodes.Item("nod4"), &c);
}

TEST_F(ThreeChildren, RemovingByKeyFreesTheKey) {
    top.ChildNodes.Remove("NOD3");
    ASSERT_EQ(top.ChildNodes.Count(), 2u);
    EXPECT_EQ(&top.ChildNodes.Item(2), &c);
    EXPECT_EQ(document.AddNode(top, "again", "", 3).NodeName, "again");
}

TEST_F(ThreeChildren, RemovedNodeStaysReadable) {
    top.ChildNodes.Remove(1);
    EXPECT_EQ(a.NodeName, "a");
    EXPECT_EQ(a.NodeCharacters, "text of a");
}

TEST_F(ThreeChildren, ChildrenAreWalkedInOrder) {
    std::string names;
    for (const clsNode* node : top.ChildNodes) {
        names += node->NodeName;
    }
    EXPECT_EQ(names, "abc");
}

TEST_F(ThreeChildren, AttributesKeepTheirOrderAndMayRepeatAName) {
    document.AddAttribute(a, "d:id", "1");
    document.AddAttribute(a, "x", "2");
    document.AddAttribute(a, "x", "3");
    ASSERT_EQ(a.NodeAttributes.Count(), 3u);
    EXPECT_EQ(a.NodeAttributes.Item(1).AttribName, "d:id");
    EXPECT_EQ(a.NodeAttributes.Item(2).AttribValue, "2");
    EXPECT_EQ(a.NodeAttributes.Item(3).AttribValue, "3");
}

TEST_F(ThreeChildren, RemovingAnAttributeMovesLaterOnesDown) {
    document.ReserveAttributes(a, 2);
    for (const char* name : {"one", "two", "three", "four"}) {
        document.AddAttribute(a, name, name);
    }
    a.NodeAttributes.Remove(2);
    ASSERT_EQ(a.NodeAttributes.Count(), 3u);
    EXPECT_EQ(a.NodeAttributes.Item(1).AttribName, "one");
    EXPECT_EQ(a.NodeAttributes.Item(2).AttribName, "three");
    EXPECT_EQ(a.NodeAttributes.Item(3).AttribValue, "four");
}

TEST_F(ThreeChildren, AttributePositionOutsideIsAnInvalidCall) {
    EXPECT_EQ(ErrorOf([&] { (void)a.NodeAttributes.Item(1); }), 5);
    document.AddAttribute(a, "one", "1");
    const clsNode& constant = a;
    EXPECT_EQ(ErrorOf([&] { (void)constant.NodeAttributes.Item(0); }), 5);
    EXPECT_EQ(ErrorOf([&] { (void)constant.NodeAttributes.Item(2); }), 5);
    EXPECT_EQ(ErrorOf([&] { a.NodeAttributes.Remove(2); }), 5);
    EXPECT_EQ(constant.NodeAttributes.Item(1).AttribValue, "1");
}

TEST_F(ThreeChildren, TextsAreChangedThroughTheDocument) {
    clsNodeAttribute& attribute = document.AddAttribute(a, "name", "value");
    document.SetName(a, "renamed");
    document.SetCharacters(a, "a longer text than before");
    document.SetAttributeName(attribute, "n");
    document.SetAttributeValue(attribute, "");
    EXPECT_EQ(a.NodeName, "renamed");
    EXPECT_EQ(a.NodeCharacters, "a longer text than before");
    EXPECT_EQ(a.NodeAttributes.Item(1).AttribName, "n");
    EXPECT_EQ(a.NodeAttributes.Item(1).AttribValue, "");
}

TEST_F(ThreeChildren, NamesOfOtherNodesStayWhenOneIsChanged) {
    clsNode& namesake = document.AddNode(top, "a", "", 5);
    document.SetName(a, "z");
    EXPECT_EQ(namesake.NodeName, "a");
}

TEST_F(ThreeChildren, TextMayBeReplacedByAPartOfItself) {
    document.SetCharacters(a, a.NodeCharacters.substr(5));
    EXPECT_EQ(a.NodeCharacters, "of a");
    document.SetCharacters(a, a.NodeCharacters.substr(1));
    EXPECT_EQ(a.NodeCharacters, "f a");
}

TEST_F(ThreeChildren, ChangedAttributesKeepTheirTextsWhenOneBeforeThemIsRemoved) {
    for (const char* name : {"one", "two", "three"}) {
        document.AddAttribute(a, name, "");
    }
    document.SetAttributeValue(a.NodeAttributes.Item(2), "second");
    document.SetAttributeValue(a.NodeAttributes.Item(3), "third");
    a.NodeAttributes.Remove(1);
    document.SetAttributeValue(a.NodeAttributes.Item(1), "changed again");
    EXPECT_EQ(a.NodeAttributes.Item(1).AttribValue, "changed again");
    EXPECT_EQ(a.NodeAttributes.Item(2).AttribValue, "third");
}

TEST(ChangedTexts, DoNotPileUp) {
    // Room that was given back is used again, so that few places serve many changes.
    Document document;
    clsNode& top = document.AddNode(document.Root(), "top", "", 1);
    const std::string text(100'000, 'x');
    std::set<const char*> places;
    for (int change = 0; change < 20'000; ++change) {
        document.SetCharacters(top, text);
        places.insert(top.NodeCharacters.data());
    }
    EXPECT_EQ(top.NodeCharacters, text);
    EXPECT_LT(places.size(), 10'000u);
}

TEST(Names, AreKeptApartHoweverMany) {
    Document document;
    clsNode& top = document.AddNode(document.Root(), "top", "", 1);
    for (NodeKey key = 2; key < 20'002; ++key) {
        document.AddNode(top, "name" + std::to_string(key), "", key);
    }
    for (NodeKey key = 2; key < 20'002; ++key) {
        ASSERT_EQ(top.ChildNodes.Item(key - 1).NodeName, "name" + std::to_string(key));
    }
}

TEST(Texts, MayBeLongerThanAnyStepOfTheStorage) {
    Document document;
    const std::string text(5'000'000, 't');
    clsNode& top = document.AddNode(document.Root(), "top", text, 1);
    document.AddNode(top, "child", "after", 2);
    EXPECT_EQ(top.NodeCharacters, text);
    EXPECT_EQ(top.ChildNodes.Item(1).NodeCharacters, "after");
}

TEST(MovedDocument, KeepsItsNodes) {
    Document first;
    clsNode& top = first.AddNode(first.Root(), "top", "text", 1);
    Document second(std::move(first));
    EXPECT_EQ(&second.Top(), &top);
    first = std::move(second);
    EXPECT_EQ(&first.Top(), &top);
    EXPECT_EQ(first.AddNode(top, "child", "", 2).NodeName, "child");
}

TEST_F(ThreeChildren, WalkGoesInDocumentOrderWithLevels) {
    document.AddNode(a, "a1", "", 5);
    document.AddNode(document.AddNode(c, "c1", "", 6), "c11", "", 7);
    Walk walk(top);
    std::string seen;
    while (const clsNode* node = walk.Next()) {
        seen += std::string(node->NodeName) + std::to_string(walk.Level()) + " ";
    }
    EXPECT_EQ(seen, "top1 a2 a13 b2 c2 c13 c114 ");
    EXPECT_EQ(walk.Next(), nullptr);
    EXPECT_EQ(CountElements(top), 7u);
    EXPECT_EQ(CountElements(c), 3u);
    EXPECT_EQ(CountElements(b), 1u);
}

TEST_F(ThreeChildren, KeyIsFoundAnywhereBelowTheDocumentNode) {
    EXPECT_EQ(FindChildByKey(document.Root(), 1), &top);
    EXPECT_EQ(FindChildByKey(document.Root(), 3), &b);
    EXPECT_EQ(FindChildByKey(document.Root(), 5), nullptr);
    EXPECT_EQ(FindChildByKey(document.Root(), 0), nullptr);
}

TEST_F(ThreeChildren, KeyIsFoundAlsoOutOfDocumentOrder) {
    clsNode& late = document.AddNode(a, "late", "", 50);
    clsNode& early = document.AddNode(c, "early", "", 7);
    clsNode& unsorted = document.AddNode(c, "unsorted", "", 6);
    EXPECT_EQ(FindChildByKey(document.Root(), 50), &late);
    EXPECT_EQ(FindChildByKey(document.Root(), 7), &early);
    EXPECT_EQ(FindChildByKey(document.Root(), 6), &unsorted);
    EXPECT_EQ(FindChildByKey(document.Root(), 51), nullptr);
}

TEST_F(ThreeChildren, CopyHasEverythingBelowInOrderWithNewKeys) {
    document.AddAttribute(c, "x", "1");
    document.AddAttribute(c, "y", "2");
    document.AddNode(c, "c1", "first", 5);
    clsNode& second = document.AddNode(c, "c2", "second", 6);
    document.AddNode(second, "c21", "", 7);
    NodeKey counter = 7;
    clsNode& copy = CopyNode(c, document, a, counter);
    EXPECT_EQ(&a.ChildNodes.Item(1), &copy);
    EXPECT_EQ(copy.ParentNode, &a);
    EXPECT_EQ(counter, 11u);
    ASSERT_EQ(copy.NodeAttributes.Count(), 2u);
    EXPECT_EQ(copy.NodeAttributes.Item(1).AttribName, "x");
    EXPECT_EQ(copy.NodeAttributes.Item(2).AttribValue, "2");
    Walk walk(copy);
    std::string seen;
    while (const clsNode* node = walk.Next()) {
        seen += node->NodeKeyText() + std::string(node->NodeName) + "=" + std::string(node->NodeCharacters) + " ";
    }
    EXPECT_EQ(seen, "nod8c= nod9c1=first nod10c2=second nod11c21= ");
    EXPECT_EQ(copy.ChildNodes.Item(2).ChildNodes.Item(1).ParentNode, &copy.ChildNodes.Item(2));
}

TEST_F(ThreeChildren, CopyInAnotherDocumentOutlivesTheSource) {
    Document other;
    NodeKey counter = 0;
    {
        Document source;
        source.AddAttribute(source.AddNode(source.Root(), "gone", "text", 1), "name", "value");
        CopyNode(source.Top(), other, other.Root(), counter);
    }
    EXPECT_EQ(other.Top().NodeName, "gone");
    EXPECT_EQ(other.Top().NodeCharacters, "text");
    EXPECT_EQ(other.Top().NodeAttributes.Item(1).AttribName, "name");
    EXPECT_EQ(other.Top().NodeAttributes.Item(1).AttribValue, "value");
    EXPECT_EQ(other.Top().Key, 1u);
}

TEST_F(ThreeChildren, CopyIntoItselfHoldsTheFormerTree) {
    NodeKey counter = 4;
    clsNode& copy = CopyNode(top, document, b, counter);
    EXPECT_EQ(counter, 8u);
    EXPECT_EQ(CountElements(copy), 4u);
    EXPECT_EQ(CountElements(top), 8u);
    EXPECT_EQ(&b.ChildNodes.Item(1), &copy);
    EXPECT_EQ(copy.ChildNodes.Item(2).ChildNodes.Count(), 0u);
}

std::string NamesOf(const clsNode& parent) {
    std::string names;
    for (const clsNode* const child : parent.ChildNodes)
        names += child->NodeName;
    return names;
}

TEST(PutBack, PutsANodeWhereItWas) {
    for (std::size_t position = 1; position <= 3; ++position) {
        Document document;
        clsNode& top = document.AddNode(document.Root(), "top", "", 1);
        for (const char* const name : {"a", "b", "c"})
            document.AddNode(top, name, "", static_cast<NodeKey>(name[0]));
        clsNode& node = top.ChildNodes.Item(position);
        top.ChildNodes.Remove(position);
        document.PutBack(top, node, position);
        EXPECT_EQ(NamesOf(top), "abc") << position;
        EXPECT_EQ(&top.ChildNodes.Item(node.NodeKeyText()), &node) << position;
        EXPECT_EQ(top.ChildNodes.PositionOf(node.Key), position);
    }
}

TEST(PutBack, FindsEveryKeyAlsoOutOfOrder) {
    Document document;
    clsNode& top = document.AddNode(document.Root(), "top", "", 1);
    clsNode& a = document.AddNode(top, "a", "", 2);
    document.AddNode(top, "b", "", 3);
    top.ChildNodes.Remove("nod2");
    document.PutBack(top, a, 2);
    EXPECT_EQ(NamesOf(top), "ba");
    EXPECT_EQ(top.ChildNodes.PositionOf(2), 2U);
    EXPECT_EQ(top.ChildNodes.PositionOf(3), 1U);
    EXPECT_EQ(top.ChildNodes.PositionOf(4), 0U);
}

TEST(PutBack, RefusesAPositionBeyondTheEndAndAKeyThatIsThere) {
    Document document;
    clsNode& top = document.AddNode(document.Root(), "top", "", 1);
    clsNode& a = document.AddNode(top, "a", "", 2);
    EXPECT_THROW(document.PutBack(top, a, 1), text::RuntimeError);
    top.ChildNodes.Remove("nod2");
    EXPECT_THROW(document.PutBack(top, a, 2), text::RuntimeError);
    EXPECT_THROW(document.PutBack(top, a, 0), text::RuntimeError);
}

TEST(InsertAttribute, PutsItBeforeTheOneAtThatPosition) {
    Document document;
    clsNode& top = document.AddNode(document.Root(), "top", "", 1);
    document.AddAttribute(top, "b", "2");
    document.InsertAttribute(top, 1, "a", "1");
    document.InsertAttribute(top, 3, "c", "3");
    std::string all;
    for (const clsNodeAttribute& attribute : top.NodeAttributes)
        all.append(attribute.AttribName).append(attribute.AttribValue);
    EXPECT_EQ(all, "a1b2c3");
    EXPECT_THROW(document.InsertAttribute(top, 5, "d", ""), text::RuntimeError);
}

TEST(AMillionLevels, AreBuiltWalkedCopiedAndFreed) {
    constexpr NodeKey kLevels = 1'000'000;
    Document document;
    clsNode* node = &document.Root();
    for (NodeKey key = 1; key <= kLevels; ++key) {
        node = &document.AddNode(*node, "n", "", key);
    }
    Walk walk(document.Top());
    std::size_t deepest = 0;
    while (walk.Next() != nullptr) {
        deepest = std::max(deepest, walk.Level());
    }
    EXPECT_EQ(deepest, kLevels);
    EXPECT_EQ(FindChildByKey(document.Root(), kLevels), node);
    NodeKey counter = kLevels;
    Document copies;
    clsNode& copy = CopyNode(document.Top(), copies, copies.Root(), counter);
    document = Document();
    EXPECT_EQ(counter, 2 * kLevels);
    EXPECT_EQ(CountElements(copy), kLevels);
    EXPECT_TRUE(document.IsEmpty());
}

} // namespace
} // namespace tamarind::document
