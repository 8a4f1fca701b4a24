#include "editors/page_state.h"

#include <gtest/gtest.h>

namespace tamarind::editors {
namespace {

using session::Session;
using session::SessionEditor;

PageState StateWith(bool xmlEditorDefault, SessionEditor chosen) {
    Session session;
    session.XmlEditorDefault = xmlEditorDefault;
    session.SessionEditor = chosen;
    return StateOfPages(session);
}

TEST(PageState, WarnsOnTheTreePageWhileTheTextEditorIsInUse) {
    const PageState state = StateWith(false, SessionEditor::Default);
    EXPECT_EQ(state.textCaption, "Tamarind Editor");
    EXPECT_FALSE(state.textWarns);
    EXPECT_EQ(state.treeCaption,
              "Warning: You are using Tamarind editor, any changes you make on this page will not be saved");
    EXPECT_TRUE(state.treeWarns);
    EXPECT_TRUE(state.textFilesMenu);
}

TEST(PageState, WarnsOnTheTextPageWhileTheTreeEditorIsInUse) {
    const PageState state = StateWith(true, SessionEditor::Default);
    EXPECT_EQ(state.textCaption,
              "Warning: You are using XML editor, any changes you make on this page will not be saved");
    EXPECT_TRUE(state.textWarns);
    EXPECT_EQ(state.treeCaption, "XML Editor");
    EXPECT_FALSE(state.treeWarns);
    EXPECT_FALSE(state.textFilesMenu);
}

TEST(PageState, FollowsTheChoiceForThisSessionBeforeTheDefault) {
    EXPECT_TRUE(StateWith(true, SessionEditor::Text).textFilesMenu);
    EXPECT_FALSE(StateWith(false, SessionEditor::Tree).textFilesMenu);
}

} // namespace
} // namespace tamarind::editors
