#include "shell/start_up.h"

#include "convert/game_file.h"
#include "convert/working_files.h"
#include "editors/document_commands.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "shell/options.h"
#include "shell/preferences.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <functional>

namespace tamarind::shell {

using session::EditorContext;
using session::Page;

namespace {

constexpr const char* kDefaultExecutable = "c:\\program files\\rail simulator\\railsim.exe";
constexpr const char* kInstallationKey = "Software\\Rail Simulator\\Packager Manager\\Installation";

/// Start-up survives every step's failure.
void Step(EditorContext& context, const std::function<void()>& step) {
    try {
        step();
    } catch (const text::RuntimeError& error) {
        const std::string details = error.Details().empty() ? "" : "\r\n" + platform::ForDisplay(error.Details());
        context.ui.Show({.text = error.Description() + details});
    }
}

void StartEmptyDocument(EditorContext& context) {
    editors::NewDocument(context, context.session.ProgramFolder + "\\undefined.xml");
    context.document.hasFileName = false;
    context.document.canSaveAs = false;
    context.view.UpdateCommands();
}

void AskForGameFolder(EditorContext& context) {
    if (!context.session.RailSimPath.empty()) return;
    // The default place is only tested, never stored.
    if (platform::FileExists(context.platform.files, kDefaultExecutable)) return;
    SelectRailSimPath(context);
}

void RunOpenCommand(EditorContext& context, OpenCommand command) {
    switch (command) {
    case OpenCommand::None: break;
    case OpenCommand::RailSimFile: convert::OpenRailSimFile(context); break;
    case OpenCommand::Texture: convert::OpenTextureFile(context); break;
    case OpenCommand::Xml: convert::OpenXmlFile(context); break;
    case OpenCommand::RailSimFileInTree: convert::OpenRailSimFileInTree(context); break;
    case OpenCommand::TextureOnTextPage:
        context.view.ShowPage(Page::Text);
        convert::OpenTextureFile(context);
        break;
    case OpenCommand::XmlInTree: convert::OpenXmlFileInTree(context); break;
    }
}

} // namespace

std::string VersionCaption(const session::Session& session) {
    return "  Version " TAMARIND_VERSION "   Rail Simulator path in use is - " +
           platform::ForDisplay(session.RailSimPath);
}

OpenCommand CommandForFile(const std::string& path, bool xmlEditorDefault) {
    const auto endsWith = [&path](const char* ending) { return text::EndsWithNoCase(path, ending); };
    if (endsWith("BIN") || endsWith("XSec")) {
        return xmlEditorDefault ? OpenCommand::RailSimFileInTree : OpenCommand::RailSimFile;
    }
    // The tree editor does not open shapes this way.
    if (endsWith("GeoPcDx")) return xmlEditorDefault ? OpenCommand::None : OpenCommand::RailSimFile;
    if (endsWith("TgPcDx")) return xmlEditorDefault ? OpenCommand::TextureOnTextPage : OpenCommand::Texture;
    if (endsWith("xml") || endsWith("cost") || endsWith("tgt")) {
        return xmlEditorDefault ? OpenCommand::XmlInTree : OpenCommand::Xml;
    }
    return OpenCommand::None;
}

void OpenFile(EditorContext& context, const std::string& path) {
    const OpenCommand command = CommandForFile(path, context.session.UsesTreeEditor());
    if (command == OpenCommand::None) {
        context.ui.Show({.text = "There is no command that opens " + platform::ForDisplay(path)});
        return;
    }
    context.session.CommandFile = path;
    context.session.UseCommandFile = true;
    RunOpenCommand(context, command);
}

std::string WithoutQuotes(std::string commandLine) {
    if (commandLine.starts_with('"')) commandLine.erase(0, 1);
    if (commandLine.ends_with('"')) commandLine.pop_back();
    return commandLine;
}

void ReadSettings(EditorContext& context) {
    const std::string path = PreferencesPath(context.session);
    if (!platform::FileExists(context.platform.files, path)) return;
    try {
        const Preferences preferences = ParsePreferences(platform::ReadBytes(context.platform.files, path));
        context.view.SetGeometry(preferences.window);
        ApplyTo(context.session, preferences);
    } catch (const text::RuntimeError& error) {
        context.session.preferencesUnreadable = true;
        throw error.With("The settings in " + platform::ForDisplay(path) + " are not used; the file is kept.");
    }
}

void FindGameFolder(EditorContext& context) {
    if (!context.session.RailSimPath.empty()) return;
    const auto value =
        platform::GetRegistryValue(context.platform.registry, platform::RootKey::LocalMachine, kInstallationKey, "");
    if (const auto* folder = std::get_if<std::string>(&value)) context.session.RailSimPath = *folder;
}

void StartUp(EditorContext& context, const std::string& commandLine) {
    StartEmptyDocument(context);
    Step(context, [&] { ReadSettings(context); });
    context.view.ShowPage(context.session.XmlEditorDefault ? Page::Tree : Page::Text);
    context.ui.ProcessEvents();
    Step(context, [&] { convert::MakeTempFiles(context); });
    Step(context, [&] { FindGameFolder(context); });
    Step(context, [&] { AskForGameFolder(context); });
    context.ui.ProcessEvents();
    context.view.SetCaption(kDesignCaption + VersionCaption(context.session));
    context.view.ShowWindow();
    if (!commandLine.empty()) {
        context.session.CommandFile = WithoutQuotes(commandLine);
        context.session.UseCommandFile = true;
    }
    if (!context.session.CommandFile.empty()) {
        const OpenCommand command = CommandForFile(context.session.CommandFile, context.session.XmlEditorDefault);
        Step(context, [&] { RunOpenCommand(context, command); });
    }
}

} // namespace tamarind::shell
