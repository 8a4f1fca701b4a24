#include "install/installation.h"

#include "install/catalogue_merge.h"
#include "install/scenario_index.h"
#include "platform/batch_file.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "routes/folder_name.h"
#include "routes/package_layout.h"
#include "text/search.h"

#include <array>

namespace tamarind::install {

using platform::Answer;
using platform::Buttons;
using platform::Icon;
using text::ErrorNumber;
using text::RuntimeError;

namespace {

constexpr const char* kReadOnlyQuestion =
    "Some folders/files in your copy of Rail Simulator are Read Only and cannot be overwritten.\r\n"
    "Do you wish them to be changed to Read/Write. Once completed run this Setup again to finish\r\n"
    "installation.";

std::string Explain(const std::string& what, const RuntimeError& error) {
    const std::string details =
        error.Details().empty() ? "" : " (" + text::ReplaceAll(error.Details(), "\r\n", " ") + ")";
    return what + ": " + error.Description() + platform::ForDisplay(details);
}

const char* EndingOf(Ended how) {
    switch (how) {
    case Ended::Done: return "Everything was done.";
    case Ended::Incomplete: return "Not everything could be done.";
    case Ended::Refused: return "Nothing was installed.";
    case Ended::Declined: return "Ended by the answer No.";
    case Ended::Cancelled: return "Cancelled; run the installation again to finish it.";
    }
    return "";
}

} // namespace

Installation::Installation(Installer& installer)
    : installer_(installer), files_(installer.platform.files), ui_(installer.ui), game_(installer.RailSimPath),
      package_(installer.packageFolder) {
    log_.gameFolder = game_;
    log_.what = "assets";
}

Ended Installation::Run() {
    try {
        return RunSteps();
    } catch (const End& end) {
        if (hasBegun_) WriteLogFile(end.how);
        return end.how;
    }
}

Ended Installation::RunSteps() {
    if (installer_.InstallMode == InstallMode::Route) PrepareRoute();
    if (installer_.InstallMode == InstallMode::Scenario) PrepareScenarios();
    RequireGameFolder();
    hasBegun_ = true;
    if (installer_.InstallMode == InstallMode::Route) MergeIntoRoutes();
    if (installer_.InstallMode == InstallMode::Scenario) MergeIntoScenarios();
    CopyContent();
    RunHook();
    RemovePaks();
    const Ended how = isIncomplete_ ? Ended::Incomplete : Ended::Done;
    WriteLogFile(how);
    ui_.Show({.text = "Your package has been installed.", .icon = Icon::Information});
    if (!notes_.empty()) {
        std::string text;
        for (const std::string& note : notes_)
            text.append(text.empty() ? "" : "\r\n").append(note);
        ui_.Show({.text = text, .icon = Icon::Exclamation});
    }
    return how;
}

void Installation::Handle(const std::string& what, const RuntimeError& error) {
    isIncomplete_ = true;
    if (error.Code() != ErrorNumber::PermissionDenied) {
        Note(Explain(what, error));
        return;
    }
    log_.notes.push_back(Explain(what, error));
    if (ui_.Show({.text = kReadOnlyQuestion, .icon = Icon::Exclamation, .buttons = Buttons::YesNo}) != Answer::Yes) {
        throw End{Ended::Declined};
    }
    MakeWritable();
}

void Installation::MakeWritable() {
    platform::ProcessStart start;
    start.commandLine = "ATTRIB -h -r -s \"" + game_ + "\\*.*\" /s /d";
    start.style = platform::WindowStyle::NormalFocus;
    platform::ShellWait(installer_.platform.processes, ui_, start, true);
    // The ATTRIB of emulators does nothing when it is given several switches; elsewhere nothing is left to do.
    platform::RunBatchCommand(files_, platform::ClearAttributes{game_}, {});
    ui_.Show({.text = "All files are now Read/Write", .icon = Icon::Exclamation});
}

void Installation::Refuse(Icon icon, const std::string& text) {
    ui_.Show({.text = text, .icon = icon});
    throw End{Ended::Refused};
}

void Installation::Note(const std::string& sentence) {
    notes_.push_back(sentence);
    log_.notes.push_back(sentence);
    isIncomplete_ = true;
}

void Installation::NoteQuietly(const std::string& sentence) {
    ui_.ShowStatus(sentence);
    log_.notes.push_back(sentence);
}

void Installation::RequireGameFolder() {
    if (platform::FolderExists(files_, game_)) return;
    Refuse(Icon::Exclamation,
           "The game folder " + platform::ForDisplay(game_) + "\r\ndoes not exist, nothing was installed.");
}

void Installation::PrepareRoute() {
    const std::string index = game_ + "\\Content\\Routes.xml";
    if (!platform::FileExists(files_, index)) {
        Refuse(Icon::Critical,
               "The file " + platform::ForDisplay(index) + "\r\ncould not be found, please check your Content folder");
    }
    Try("The marker of the route", [&] { record_ = ReadOwnFile(files_, package_, routes::kRouteMarker); });
    const std::string name = EnglishNameOf(record_);
    log_.what = "route " + name;
    const std::string question =
        "You are about to install Route - " + name + "\r\nInto your Rail Simulator Routes folder - Please Confirm.";
    if (ui_.Show({.text = question, .icon = Icon::Exclamation, .buttons = Buttons::YesNo}) != Answer::Yes) {
        throw End{Ended::Declined};
    }
}

void Installation::MergeIntoRoutes() {
    const platform::BusyPointer pointer(ui_);
    const std::string index = game_ + "\\Content\\Routes.xml";
    const std::string failed = "The route could not be added to the index of routes. ";
    std::string catalogue;
    if (!Try("The index of routes", [&] { platform::ReadUniFile(files_, index, catalogue); })) return;
    try {
        catalogue = MergeRoute(catalogue, record_);
    } catch (const RuntimeError&) {
        Note(failed + "\"Route_Setup.xxx\" holds no whole record, or the index has no place for it.");
        return;
    }
    const std::string problem = ReplaceRoutes(index, catalogue);
    if (!problem.empty()) Note(failed + problem);
}

std::string Installation::ReplaceRoutes(const std::string& index, const std::string& text) {
    const std::string backup = index + ".bak";
    const std::string notKept = "The old index could not be kept.";
    const auto removeOld = [&] { files_.Remove(backup, true); };
    if (files_.EntryExists(backup) && !Try("The backup of the last installation", removeOld)) return notKept;
    bool isKept = false;
    try {
        // A second name, so that the index is there at every moment. A read-only file could then not be replaced.
        if (!files_.IsWriteProtected(index)) {
            files_.HardLink(index, backup);
            isKept = true;
        }
    } catch (const RuntimeError&) {
        isKept = false; // not every file system has second names
    }
    if (!isKept && !Try("The backup of the index of routes", [&] { files_.Rename(index, backup); })) return notKept;
    if (platform::WriteUniFile(files_, ui_, index, text)) {
        log_.indexes.push_back(index + ", the old one: " + backup);
        return {};
    }
    if (!platform::FileExists(files_, index)) {
        Try("The index of routes is kept as " + platform::ForDisplay(backup), [&] { files_.Rename(backup, index); });
    }
    return "It could not be written.";
}

void Installation::PrepareScenarios() {
    log_.what = "scenarios";
    try {
        scenarios_ = ReadScenarioList(files_, package_);
    } catch (const RuntimeError& error) {
        NoteQuietly(Explain("The list of scenarios", error));
    }
    const std::string& route = scenarios_.routeFolder;
    log_.what += route.empty() ? "" : " of the route " + route;
    if (route.empty()) return;
    // A name that leads elsewhere is the name of no route.
    if (!routes::IsFolderName(route) || !platform::FolderExists(files_, game_ + "\\Content\\Routes\\" + route)) {
        Refuse(Icon::Exclamation, "The Route Folder " + route + "\r\ndoes not exist, could not add scenarios.");
    }
}

void Installation::MergeIntoScenarios() {
    if (scenarios_.routeFolder.empty()) {
        isIncomplete_ = true;
        NoteQuietly("\"Scenario.yyy\" names no route: the scenarios are in no index.");
        return;
    }
    const platform::BusyPointer pointer(ui_);
    if (!Try("The scenarios' records",
             [&] { scenarioRecords_ = ReadOwnFile(files_, package_, routes::kScenarioMarker); })) {
        return;
    }
    const auto tryStatement = [this](const std::function<void()>& step) { return Try("The index of scenarios", step); };
    const MergedIndex merged =
        MergeScenarioIndex({installer_.platform, ui_, package_, game_, scenarios_, scenarioRecords_}, tryStatement);
    const std::string index = game_ + "\\Content\\Routes\\" + scenarios_.routeFolder + "\\Scenarios.bin";
    const std::string backup = merged.backup.empty() ? "none" : merged.backup;
    if (merged.problem.empty() || !merged.backup.empty()) log_.indexes.push_back(index + ", the old one: " + backup);
    if (!merged.problem.empty()) Note("The scenarios could not be added to the index of scenarios. " + merged.problem);
}

void Installation::CopyContent() {
    const PackageContent content = SurveyContent(files_, package_);
    for (const std::string& path : content.skipped)
        NoteQuietly(platform::ForDisplay(path) + " was skipped: it leads elsewhere or cannot be read.");
    if (!content.exists) {
        isIncomplete_ = true;
        NoteQuietly("The package has no folder \"Rail Simulator\".");
        return;
    }
    Try("Copying the files", [&] { CopyContentOver(files_, ui_, content, game_, copied_); });
    for (const std::string& failed : copied_.failed)
        Note(failed);
    if (!copied_.isCancelled) return;
    ui_.Show({.text = "The installation was cancelled after " +
                      std::to_string(copied_.added + copied_.replaced.size()) + " of " +
                      std::to_string(content.files.size()) + " files.\r\nRun this Setup again to finish installation.",
              .icon = Icon::Exclamation});
    throw End{Ended::Cancelled};
}

void Installation::RunHook() {
    const std::string hook = game_ + "\\" + routes::kInstallHook;
    if (!platform::FileExists(files_, hook)) return;
    platform::ProcessStart start;
    start.commandLine = "\"" + hook + "\"";
    start.folder = game_;
    start.style = platform::WindowStyle::NormalFocus;
    const bool hasRun = platform::ShellWait(installer_.platform.processes, ui_, start, true) != 0;
    if (!hasRun) Note("\"RS-Install.bat\" of the package could not be run.");
    if (hasRun) log_.notes.emplace_back("\"RS-Install.bat\" was run.");
    if (files_.EntryExists(hook)) Try("\"RS-Install.bat\"", [&] { files_.Remove(hook); });
}

void Installation::RemovePaks() {
    constexpr std::array kPaks = {"Assets\\Kuju\\RailSimulator\\BluePrints.pak",
                                  "Assets\\Kuju\\RailSimulatorUS\\BluePrints.pak",
                                  "Assets\\Kuju\\RailSimulatorCore\\BluePrints.pak"};
    for (const char* const pak : kPaks) {
        const std::string path = game_ + "\\" + pak;
        if (!files_.EntryExists(path)) continue;
        if (Try(platform::ForDisplay(pak), [&] { files_.Remove(path); })) log_.removed.emplace_back(pak);
    }
}

/// The log is a help, so its own failure is told in the status line alone.
void Installation::WriteLogFile(Ended how) {
    log_.replaced = copied_.replaced;
    log_.added = copied_.added;
    log_.ending = EndingOf(how);
    try {
        WriteLog(files_, package_, log_);
    } catch (const RuntimeError& error) {
        ui_.ShowStatus(Explain("RouteSetup.log", error));
    }
}

} // namespace tamarind::install
