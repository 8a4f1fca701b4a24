#include "shell/options.h"

#include "convert/recovered.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/processes.h"
#include "shell/start_up.h"
#include "text/runtime_error.h"

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

/// Runs `program` with the .dds file that was exported last of the open texture; without a program it shows `advice`.
void OpenDdsFile(EditorContext& context, const std::string& program, const char* advice) {
    if (program.empty()) {
        context.ui.Show({.text = advice});
        return;
    }
    const std::string dds = context.session.TempFiles() + "\\" + context.session.FileBaseName + "dds";
    platform::ProcessStart start;
    start.commandLine = "\"" + program + "\" \"" + dds + "\"";
    start.folder = context.session.ProgramFolder;
    start.style = platform::WindowStyle::NormalFocus;
    platform::ShellWait(context.platform.processes, context.ui, start, true);
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

void SelectTextureEditor(EditorContext& context) {
    context.session.TextureEditorPath =
        context.ui.AskForFile({.title = "Select your Graphics Editor", .filter = "Graphics Editor (*.exe)|*.exe"});
}

void SelectViewer(EditorContext& context) {
    context.session.ViewerPath =
        context.ui.AskForFile({.title = "Select your Graphics Viewer", .filter = "Viewer (*.exe)|*.exe"});
}

void ViewDdsFile(EditorContext& context) {
    OpenDdsFile(context, context.session.ViewerPath,
                "To view DDS files you need to install a suitable Texture viewer (e.g. IrfanView) on your PC \r\n"
                "and select the path from the Options menu.");
}

void EditDdsFile(EditorContext& context) {
    OpenDdsFile(context, context.session.TextureEditorPath,
                "To edit DDS files you need to install a suitable paint program (e.g. PSP with .dds plugin) on your "
                "PC \r\nand select the path from the Options menu.");
}

void ClearScreen(EditorContext& context) {
    try {
        const std::string kept = convert::KeepUnsavedText(context);
        if (!kept.empty())
            context.ui.ShowStatus("The text that was not saved is kept in " + platform::ForDisplay(kept));
    } catch (const text::RuntimeError& error) {
        // Then it stays on the screen.
        context.ui.Show({.text = "The text that was not saved could not be kept: " + error.Description()});
        return;
    }
    auto& files = context.platform.files;
    // Both are whole paths, so that there is no such file; it is looked for all the same.
    const std::string path = context.session.TempFiles() + "\\" + context.session.TempBase;
    if (platform::FileExists(files, path)) files.Remove(path);
    context.view.SetEditorText("");
    context.view.ShowFilePath("");
}

void ClearTempFiles(EditorContext& context) {
    auto& files = context.platform.files;
    const std::string folder = context.session.TempFiles();
    platform::DelAll(files, folder);
    context.ui.ProcessEvents();
    try {
        if (!platform::FolderExists(files, folder)) files.CreateFolder(folder);
    } catch (const text::RuntimeError& error) {
        context.ui.Show({.text = error.Description() + "\r\n" + platform::ForDisplay(folder)});
    }
}

void MakeGameFilesWritable(EditorContext& context) {
    if (context.session.RailSimPath.empty()) {
        // Else it would be done to the whole drive.
        context.ui.Show({.text = "Please select the RS path from the Options menu first."});
        return;
    }
    {
        const platform::BusyPointer busy(context.ui);
        const std::string folder = context.session.TempFiles();
        const std::string line = "ATTRIB -R \"" + context.session.RailSimPath + "\\*.*\" /s /d\r\n";
        if (!platform::WriteUniFile(context.platform.files, context.ui, folder + "\\do_read.bat", line)) return;
        platform::ProcessStart start;
        start.commandLine = "do_read.bat";
        start.folder = folder;
        start.searchFolders = {folder};
        start.style = platform::WindowStyle::NormalFocus;
        platform::ShellWait(context.platform.processes, context.ui, start, true);
    }
    context.ui.Show({.text = "All files are now Read/Write"});
}

void ShowContents(EditorContext& context) {
    const std::string file = context.session.ProgramFolder + "\\Tamarind.chm";
    if (context.view.ShowHelp(file)) return;
    const bool isThere = platform::FileExists(context.platform.files, file);
    context.ui.Show({.text = (isThere ? "The help file cannot be shown:\r\n" : "The help file was not found:\r\n") +
                             platform::ForDisplay(file)});
}

void ShowAbout(EditorContext& context) { context.view.ShowAbout(); }

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
