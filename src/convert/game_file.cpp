#include "convert/game_file.h"

#include "convert/recovered.h"
#include "convert/working_files.h"
#include "editors/document_commands.h"
#include "platform/converter.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/safe_write.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <string>

namespace tamarind::convert {

using platform::BusyPointer;
using platform::FileDialog;
using session::EditorContext;
using text::ErrorNumber;
using text::RuntimeError;

namespace {

FileDialog GameFileDialog(const EditorContext& context) {
    return {.title = "Open RailSim file",
            .filter = "RS Files(*.bin;*.XSec;*.GeoPcDx)|*.bin;*.XSec*;*.GeoPcDx",
            .startFolder = context.session.RailSimPath};
}

FileDialog TextureDialog(const EditorContext& context) {
    return {.title = "Open RS Texture files",
            .filter = "RS Files (*.TgPcDx)|*.TgPcDx",
            .startFolder = context.session.RailSimPath};
}

/// Takes the file named beforehand, or asks for one; false when the dialog was cancelled.
bool ChooseFile(EditorContext& context, const FileDialog& dialog) {
    if (context.session.UseCommandFile) return true;
    const std::string chosen = context.ui.AskForFile(dialog);
    if (chosen.empty()) return false;
    context.session.CommandFile = chosen;
    return true;
}

void ShowChosenFile(EditorContext& context) {
    context.view.ShowFilePath(context.session.CommandFile);
    context.session.UseCommandFile = false;
    context.ui.ProcessEvents();
}

/// The file's text in the editor; no text for a missing file.
void ShowTextOf(EditorContext& context, const std::string& path) {
    KeepUnsaved(context, KeepUnsavedText, "The text");
    const auto& files = context.platform.files;
    const auto stamp = files.Stamp(path);
    context.view.FillEditorText(stamp ? static_cast<std::size_t>(stamp->size) : 0,
                                [&](const session::TextSink& take) { platform::ReadUniFile(files, path, take); });
}

/// Loads an XML file over the document without a question.
void ReplaceDocument(EditorContext& context, const std::string& path) {
    KeepUnsaved(context, KeepUnsavedDocument, "The XML document");
    if (!path.empty()) context.document.path = path;
    editors::LoadXmlFile(context);
}

/// Which game file a command works on. A copy: while the converter runs, another file may be opened.
struct Target {
    std::string original;
    std::string tempBase;
    std::string extension;
};

std::string TempBaseOf(const EditorContext& context, const std::string& file) {
    return context.session.TempFiles() + "\\" + platform::BaseNameWithDot(platform::NameOf(file));
}

/// Copies the chosen game file to TempFiles and converts it there; false when the converter wrote nothing.
bool ConvertChosenFile(EditorContext& context, bool takeExtension) {
    auto& session = context.session;
    auto& files = context.platform.files;
    const std::string name = platform::NameOf(session.CommandFile);
    session.FileBaseName = platform::BaseNameWithDot(name);
    session.TempBase = TempBaseOf(context, name);
    if (takeExtension) session.RSFileExt = platform::ExtensionOf(name);
    session.RSFileLoaded = true;
    const Converting converting(session, session.TempBase);
    const std::string binary = session.TempBase + "bin";
    const std::string xml = session.TempBase + "xml";
    MakeTempFiles(context); // somebody may have deleted it since the start
    platform::CopyFile(files, session.CommandFile, binary);
    context.ui.ProcessEvents();

    const auto before = files.Stamp(xml);
    platform::ConvertToXml(context.platform.processes, context.ui, context.ConverterFolders(), binary, xml);
    context.ui.ProcessEvents();
    const auto after = files.Stamp(xml);
    const bool written = after && after != before;
    if (!written) {
        context.ui.ShowStatus(after ? "The converter wrote nothing: the text shown is from an earlier conversion."
                                    : "The converter wrote nothing: there is no text to show.");
    }
    return written;
}

bool ChooseGameFile(EditorContext& context, const FileDialog& dialog) {
    if (!ChooseFile(context, dialog)) return false;
    const std::string& file = context.session.CommandFile;
    return MayConvert(context, TempBaseOf(context, file), file);
}

bool OpenIntoTextEditor(EditorContext& context, const FileDialog& dialog, bool takeExtension) {
    if (!ChooseGameFile(context, dialog)) return false;
    const BusyPointer busy(context.ui);
    ShowChosenFile(context);
    const bool converted = ConvertChosenFile(context, takeExtension);
    ShowTextOf(context, context.session.TempBase + "xml");
    context.view.UpdateCommands();
    return converted;
}

/// The converted file under the game file's own extension. Throws FileNotFound when the converter wrote nothing.
std::string TakeConverted(EditorContext& context, const Target& target) {
    auto& files = context.platform.files;
    const std::string converted = target.tempBase + "bin";
    if (!platform::FileExists(files, converted)) {
        context.ui.ShowStatus("The converter wrote nothing: the game file is unchanged.");
        throw RuntimeError(ErrorNumber::FileNotFound, "The converter did not write " + platform::ForDisplay(converted) +
                                                          ". The game file is unchanged.");
    }
    if (text::EqualNoCase(target.extension, "bin")) return converted;
    const std::string renamed = target.tempBase + target.extension;
    if (files.EntryExists(renamed)) files.Remove(renamed);
    files.Rename(converted, renamed);
    context.ui.ProcessEvents();
    return renamed;
}

/// The open game file: Text1 names it.
Target OpenTarget(const EditorContext& context) {
    return {context.view.FilePath(), context.session.TempBase, context.session.RSFileExt};
}

/// From the target's XML in TempFiles to the game file itself; returns the backup.
std::string ConvertBackAndReplace(EditorContext& context, const Target& target) {
    auto& files = context.platform.files;
    const std::string binary = target.tempBase + "bin";
    if (files.EntryExists(binary)) files.Remove(binary);
    platform::ConvertToBinary(context.platform.processes, context.ui, context.ConverterFolders(),
                              target.tempBase + "xml", binary);
    context.ui.ProcessEvents();
    const std::string converted = TakeConverted(context, target);
    context.ui.ProcessEvents();
    const std::string backup = platform::ReplaceGameFile(files, target.original, converted);
    const std::string kept = backup.empty() ? "" : ", old content in " + platform::ForDisplay(backup);
    context.ui.ShowStatus("Saved " + platform::ForDisplay(target.original) + kept);
    return backup;
}

bool IsGameFileOpen(EditorContext& context) {
    if (context.session.RSFileLoaded) return true;
    context.ui.Show({.text = "Please open a game file first: there is none to save to."});
    return false;
}

void SaveTextThrough(EditorContext& context, const FileDialog& dialog) {
    const std::string path = context.ui.AskForFile(dialog);
    if (path.empty()) return;
    if (platform::WriteUniFile(context.platform.files, context.ui, path, context.view.EditorText())) {
        context.view.SetEditorTextSaved();
        context.ui.ShowStatus("Saved " + platform::ForDisplay(path));
    }
}

} // namespace

bool OpenRailSimFile(EditorContext& context) { return OpenIntoTextEditor(context, GameFileDialog(context), true); }

// A texture leaves RSFileExt as the game file before it set it.
bool OpenTextureFile(EditorContext& context) { return OpenIntoTextEditor(context, TextureDialog(context), false); }

bool OpenXmlFile(EditorContext& context) {
    auto& session = context.session;
    if (!ChooseFile(context, {.title = "Open .xml file",
                              .filter = "XML Files (*.xml;*.cost;*.tgt)|*.xml;*.cost;*.tgt",
                              .startFolder = session.RailSimPath})) {
        return false;
    }
    const BusyPointer busy(context.ui);
    ShowChosenFile(context);
    const std::string path = session.CommandFile;
    ShowTextOf(context, path);
    // The text of a large file is on screen before its tree is made.
    context.view.PaintEditorText();
    ReplaceDocument(context, path);
    return true;
}

Saved SaveRailSimFile(EditorContext& context) {
    if (!IsGameFileOpen(context)) return {};
    const Target target = OpenTarget(context);
    if (!MayConvert(context, target.tempBase, target.original)) return {};
    const BusyPointer busy(context.ui);
    const Converting converting(context.session, target.tempBase);
    const std::string text = context.view.EditorText();
    if (!platform::WriteUniFile(context.platform.files, context.ui, target.tempBase + "xml", text)) return {};
    context.ui.ProcessEvents();
    const std::string backup = ConvertBackAndReplace(context, target);
    // The text may have changed while the converter ran.
    if (context.view.EditorText() == text) context.view.SetEditorTextSaved();
    return {true, backup};
}

void SaveXmlText(EditorContext& context) {
    SaveTextThrough(context, {.save = true,
                              .title = "Save .xml format files",
                              .filter = "xml Files (*.xml;*.cost;*.tgt)|*.xml;*.cost;*.tgt",
                              .startFolder = context.session.TempFiles(),
                              .confirmsOverwriting = true});
}

void SaveXmlTextAs(EditorContext& context) {
    SaveTextThrough(context, {.save = true,
                              .title = "Save KRS format files",
                              .filter = "KRS Files (*.*)|*.*",
                              .startFolder = context.session.TempFiles(),
                              .confirmsOverwriting = true});
}

bool OpenRailSimFileInTree(EditorContext& context) {
    if (!ChooseGameFile(context, GameFileDialog(context))) return false;
    // Asked before anything is converted: the answer Yes writes to TempFiles, where the new file may bear the same
    // name.
    if (!editors::MayDropChanges(context)) return false;
    const BusyPointer busy(context.ui);
    ShowChosenFile(context);
    const bool converted = ConvertChosenFile(context, true);
    const std::string xml = context.session.TempBase + "xml";
    // Asks again when the document was edited while the converter ran.
    if (editors::NewDocument(context, xml) && platform::FileExists(context.platform.files, xml)) {
        editors::LoadXmlFile(context);
    }
    ShowTextOf(context, xml);
    context.view.UpdateCommands();
    return converted;
}

bool OpenXmlFileInTree(EditorContext& context) {
    auto& session = context.session;
    if (!session.UseCommandFile) {
        const std::string chosen = context.ui.AskForFile(
            {.title = "Select file to load", .filter = "XML Files (*.xml)|*.xml", .defaultExtension = "xml"});
        if (chosen.empty() || !editors::NewDocument(context, chosen)) return false;
    }
    const BusyPointer busy(context.ui);
    // The file of the last open command, where there was one, takes the place of the dialog's choice.
    ReplaceDocument(context, session.CommandFile);
    ShowTextOf(context, context.document.path);
    return true;
}

Saved SaveRailSimFileFromTree(EditorContext& context) {
    const bool hasGameFile = context.session.RSFileLoaded;
    const Target target = OpenTarget(context);
    if (hasGameFile && !MayConvert(context, target.tempBase, target.original)) return {};
    const BusyPointer busy(context.ui);
    const Converting converting(context.session, target.tempBase);
    if (!editors::SaveXmlFile(context)) return {};
    context.ui.ProcessEvents();
    // An XML file that was opened as such has no game file behind it: writing it was all there is to do.
    return {true, hasGameFile ? ConvertBackAndReplace(context, target) : ""};
}

void SaveXmlFromTree(EditorContext& context) {
    if (editors::SaveXmlFile(context)) context.ui.ShowStatus("Saved " + platform::ForDisplay(context.document.path));
}

void SaveXmlFromTreeAs(EditorContext& context) {
    const std::string path = context.ui.AskForFile({.save = true,
                                                    .title = "Select Filename to Save As...",
                                                    .filter = "XML Files (*.xml)|*.xml",
                                                    .defaultExtension = "xml"});
    if (path.empty()) return;
    if (platform::FileExists(context.platform.files, path) &&
        context.ui.Show({.text = "A file by that name already exists. Do you wish\r\nto overwrite the file?",
                         .icon = platform::Icon::Question,
                         .title = "File Already Exists",
                         .buttons = platform::Buttons::YesNo}) != platform::Answer::Yes) {
        return;
    }
    context.document.path = path;
    context.document.hasFileName = true;
    editors::SaveXmlFile(context);
}

} // namespace tamarind::convert
