#include "shell/options.h"

#include "platform/paths.h"
#include "shell/start_up.h"

namespace tamarind::shell {

using platform::Answer;
using platform::Buttons;
using session::EditorContext;
using session::Page;
using session::SessionEditor;

namespace {

bool Ask(EditorContext& context, const char* question) {
    return context.ui.Show({.text = question, .buttons = Buttons::YesNo}) == Answer::Yes;
}

} // namespace

void SelectRailSimPath(EditorContext& context) {
    if (!Ask(context, "Use this option to select your Rail Simulator\r\npath.")) return;
    context.session.RailSimPath =
        context.ui.AskForFile({.title = "Select your RailSim.exe File", .filter = "RailSim Files (*.exe)|*.exe"});
    if (context.session.RailSimPath.empty()) return;
    context.session.RailSimPath = platform::FolderOf(context.session.RailSimPath);
    context.view.SetCaption(context.view.Caption() + VersionCaption(context.session));
}

void SelectDefaultEditor(EditorContext& context) {
    context.session.XmlEditorDefault = Ask(context, "Do you wish to use the .XML editor as your Default Editor?");
    context.view.ShowPage(context.session.XmlEditorDefault ? Page::Tree : Page::Text);
}

void UseTamarindEditor(EditorContext& context) {
    context.session.SessionEditor = SessionEditor::Text;
    context.view.ShowPage(Page::Text);
}

void UseXmlEditor(EditorContext& context) {
    context.session.SessionEditor = SessionEditor::Tree;
    context.view.ShowPage(Page::Tree);
    context.ui.ProcessEvents();
}

} // namespace tamarind::shell
