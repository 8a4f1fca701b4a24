#include "cli/arguments.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <utility>

namespace tamarind::cli {
namespace {

constexpr int kWrongUsage = 2;
constexpr int kLastLevel = 15;

void AddGlobalOptions(CLI::App& app, Arguments& arguments) {
    app.add_option("--game", arguments.gameFolder, "The game folder")->type_name("DIR");
    app.add_option("--program-dir", arguments.programFolder, "The folder that stands for the program's own")
        ->type_name("DIR");
    auto* const yes = app.add_flag_callback(
        "--yes", [&arguments] { arguments.answerYes = true; }, "Answer every question with Yes");
    app.add_flag_callback(
           "--no", [&arguments] { arguments.answerYes = false; }, "Answer every question with No")
        ->excludes(yes);
    app.add_flag("--json", arguments.json, "One JSON object on standard output");
    app.set_version_flag("--version", "tamarind-cli " TAMARIND_VERSION);
}

/// Words that other words follow, as "texture" before "export".
CLI::App* AddGroup(CLI::App& app, const std::string& name, const std::string& description) {
    auto* const group = app.add_subcommand(name, description);
    group->fallthrough();
    group->require_subcommand(1);
    group->set_version_flag("--version", "tamarind-cli " TAMARIND_VERSION);
    return group;
}

CLI::App* AddCommand(CLI::App& app, Arguments& arguments, const std::string& name, const std::string& description) {
    auto* const command = app.add_subcommand(name, description);
    command->fallthrough();
    command->set_version_flag("--version", "tamarind-cli " TAMARIND_VERSION);
    const std::string words = app.get_parent() == nullptr ? name : app.get_name() + " " + name;
    command->callback([&arguments, words] { arguments.command = words; });
    return command;
}

void AddPath(CLI::App* command, const char* name, std::string& path, const char* description) {
    command->add_option(name, path, description)->required()->type_name("");
}

void AddTextureCommands(CLI::App& app, Arguments& arguments) {
    auto* const texture = AddGroup(app, "texture", "Pictures of textures");

    auto* const exporting = AddCommand(*texture, arguments, "export", "Write textures as .dds pictures in TempFiles");
    exporting->add_option("FILE", arguments.files, "The .TgPcDx files")->required()->type_name("");

    auto* const importing =
        AddCommand(*texture, arguments, "import", "Put changed .dds pictures into their game files");
    importing->add_option("DDS", arguments.files, "The .dds files in TempFiles")->required()->type_name("");

    auto* const preview = AddCommand(*texture, arguments, "preview", "Write a texture as a PNG picture");
    AddPath(preview, "FILE", arguments.file, "The .TgPcDx file");
    preview->add_option("-o", arguments.output, "The picture to write")->required()->type_name("OUT.png");
    preview->add_option("--level", arguments.level, "The mip-map level, 0 the largest")
        ->check(CLI::Range(0, kLastLevel))
        ->type_name("N");
}

void AddCommands(CLI::App& app, Arguments& arguments) {
    auto* const open = AddCommand(app, arguments, "open", "Convert a game file to XML in TempFiles");
    AddPath(open, "FILE", arguments.file, "The game file");

    auto* const save = AddCommand(app, arguments, "save", "Convert XML back into a game file, keeping a backup");
    AddPath(save, "FILE", arguments.file, "The game file");
    AddPath(save, "XML", arguments.xml, "Its new content");

    auto* const tidy = AddCommand(app, arguments, "tidy", "Load XML and write it back in the tree editor's form");
    AddPath(tidy, "XML", arguments.xml, "The XML file");
    tidy->add_option("-o", arguments.output, "Write here instead of over the XML file")->type_name("OUT");

    auto* const tree = AddCommand(app, arguments, "tree", "List the rows of an XML file");
    AddPath(tree, "XML", arguments.xml, "The XML file");

    auto* const find = AddCommand(app, arguments, "find", "Find rows of an XML file");
    AddPath(find, "XML", arguments.xml, "The XML file");
    AddPath(find, "TEXT", arguments.text, "What to look for, in any letter case");
    find->add_flag("--in-text", arguments.inText, "Look into the elements' texts instead of their names");
    find->add_flag("--whole-word", arguments.wholeWord, "Do not find it within a longer word");

    auto* const highlight = AddCommand(app, arguments, "highlight", "Show an XML file in colours");
    AddPath(highlight, "XML", arguments.xml, "The XML file");

    AddTextureCommands(app, arguments);

    auto* const markers = AddCommand(app, arguments, "markers", "Make a marker list of a mapping program's file");
    AddPath(markers, "IN", arguments.file, "The .kml, .gpx, .wpt or .mkr file");
    AddPath(markers, "OUT", arguments.output, "The .csv file to write");
    markers->add_option("--plot", arguments.plot, "Write a picture of the markers, too")->type_name("OUT.svg");
}

void AddRoute(CLI::App* command, Arguments& arguments) {
    AddPath(command, "ROUTE", arguments.route, "The route's id or display name");
}

void AddScenario(CLI::App* command, Arguments& arguments) {
    AddRoute(command, arguments);
    AddPath(command, "SCENARIO", arguments.scenario, "The scenario's id or display name");
}

void AddRouteCommands(CLI::App& app, Arguments& arguments) {
    AddCommand(app, arguments, "routes", "List the routes");
    AddRoute(AddCommand(app, arguments, "scenarios", "List the scenarios of a route"), arguments);
    AddScenario(AddCommand(app, arguments, "stock", "List what a scenario uses, and what of it is missing"), arguments);

    auto* const check = AddCommand(app, arguments, "check", "Look for what a route uses and the game does not have");
    AddRoute(check, arguments);
    check->add_flag("--list-shapes", arguments.listShapes, "List the shapes that the route uses");
    check->add_flag("--textures", arguments.checkTextures, "Check the textures of the shapes as well");
    check->add_flag("--list-textures", arguments.listTextures, "List the textures that the route uses");
    constexpr unsigned kMostJobs = 256;
    check->add_option("--jobs", arguments.jobs, "Conversions at a time (as many as there are processors)")
        ->type_name("N")
        ->check(CLI::Range(1U, kMostJobs));

    auto* const remove = AddGroup(app, "delete", "Delete a route or a scenario");
    AddRoute(AddCommand(*remove, arguments, "route", "Delete a route"), arguments);
    AddScenario(AddCommand(*remove, arguments, "scenario", "Delete a scenario"), arguments);
}

void AddScenarioCommands(CLI::App& app, Arguments& arguments) {
    auto* const scenario = AddGroup(app, "scenario", "Properties and driver of a scenario");
    AddScenario(AddCommand(*scenario, arguments, "show", "Show the properties and the consists"), arguments);

    auto* const set = AddCommand(*scenario, arguments, "set", "Change properties, keeping a backup");
    AddScenario(set, arguments);
    constexpr std::array<std::pair<const char*, const char*>, 12> kOptions{
        {{"--display-name", "Its name"},
         {"--description", "What it is about"},
         {"--briefing", "What the player has to do"},
         {"--start-time", "Four digits, 0000 to 2400"},
         {"--duration", "Minutes"},
         {"--day", "Of the start, 1 to 31"},
         {"--month", "Of the start, 1 to 12"},
         {"--year", "Of the start, four digits"},
         {"--season", "SEASON_SPRING, SEASON_SUMMER, SEASON_AUTUMN or SEASON_WINTER"},
         {"--weather-provider", "The first folder below Assets"},
         {"--weather-product", "The folder in that"},
         {"--weather-blueprint", "The rest of its path, ending in .xml"}}};
    for (std::size_t i = 0; i < kOptions.size(); ++i) {
        set->add_option(kOptions.at(i).first, arguments.fields.at(i), kOptions.at(i).second)
            ->type_name(i == 3 ? "HHMM" : "T");
    }

    auto* const drive = AddCommand(*scenario, arguments, "drive", "Let the player drive a consist, keeping a backup");
    AddScenario(drive, arguments);
    drive->add_option("N", arguments.consist, "The consist, 0 the first, -1 none")
        ->required()
        ->type_name("")
        ->check(CLI::Number); // without it an empty word would be the first one
}

void AddPackageCommands(CLI::App& app, Arguments& arguments) {
    auto* const package = AddGroup(app, "package", "Make a package to be handed to others");
    AddRoute(AddCommand(*package, arguments, "route", "Package a route"), arguments);

    auto* const scenarios = AddCommand(*package, arguments, "scenarios", "Package scenarios of a route");
    AddRoute(scenarios, arguments);
    scenarios->add_option("SCENARIO", arguments.files, "The scenarios' ids or display names")
        ->required()
        ->type_name("");

    auto* const assets = AddCommand(*package, arguments, "assets", "Package folders of assets");
    assets->add_option("FOLDER", arguments.files, "Folders below \"Rail Simulator\"")->required()->type_name("");

    AddPath(AddCommand(*package, arguments, "verify", "List what a package holds and what is missing or odd"), "FOLDER",
            arguments.file, "The package's folder");
    AddPath(AddCommand(app, arguments, "install", "Install a package into the game"), "PACKAGE", arguments.file,
            "The package's folder");
}

void AddBlueprintCommands(CLI::App& app, Arguments& arguments) {
    auto* const blueprint = AddGroup(app, "blueprint", "Make a blueprint of a template");
    struct Kind {
        const char* name;
        const char* description;
        std::array<const char*, 2> texts;
    };
    constexpr std::array<Kind, 3> kKinds{
        {{"named", "Make the blueprint of a file of named markers", {"CSV", nullptr}},
         {"series", "Make the blueprint of a file of a series of markers", {"CSV", nullptr}},
         {"route", "Make the blueprint of a route template", {"LONGITUDE", "LATITUDE"}}}};
    for (const Kind& kind : kKinds) {
        auto* const command = AddCommand(*blueprint, arguments, kind.name, kind.description);
        AddPath(command, "NAME", arguments.name, "The name of the blueprint and its file");
        for (std::size_t i = 0; i < kind.texts.size() && kind.texts.at(i) != nullptr; ++i) {
            AddPath(command, kind.texts.at(i), arguments.texts.at(i),
                    kind.texts.at(1) == nullptr ? "The marker file, with or without .csv" : "Inserted as typed");
        }
        command->add_option("-o", arguments.output, "The folder to write it to")->required()->type_name("DIR");
    }
}

void AddFolderCommands(CLI::App& app, Arguments& arguments) {
    auto* const folders = AddGroup(app, "folders", "Folders of developers and their add-ons");
    AddPath(AddCommand(*folders, arguments, "developer", "Make a developer's folder in the game's Source folder"),
            "NAME", arguments.name, "The developer's name");
    auto* const addOn = AddCommand(*folders, arguments, "addon", "Make the folders of an add-on");
    AddPath(addOn, "DIR", arguments.file, "The developer's folder");
    AddPath(addOn, "NAME", arguments.name, "The add-on's name");
    AddPath(AddCommand(*folders, arguments, "loco", "Check whether a folder is that of a loco to be cloned"), "SOURCE",
            arguments.file, "The loco's folder");
}

/// The command that the words name, as far as they do.
const CLI::App& ChosenApp(const CLI::App& app) {
    const CLI::App* chosen = &app;
    while (!chosen->get_subcommands().empty())
        chosen = chosen->get_subcommands().front();
    return *chosen;
}

std::string CommandWords(const CLI::App& app) {
    std::string words;
    for (const CLI::App* command = &ChosenApp(app); command != &app; command = command->get_parent())
        words.insert(0, words.empty() ? command->get_name() : command->get_name() + " ");
    return words;
}

} // namespace

ParseResult ParseArguments(const std::vector<std::string>& words) {
    ParseResult result;
    CLI::App app("Tamarind's jobs without a window", "tamarind-cli");
    app.require_subcommand(1);
    app.allow_windows_style_options(false); // "/name" is a path on every system
    AddGlobalOptions(app, result.arguments);
    AddCommands(app, result.arguments);
    AddRouteCommands(app, result.arguments);
    AddScenarioCommands(app, result.arguments);
    AddPackageCommands(app, result.arguments);
    AddBlueprintCommands(app, result.arguments);
    AddFolderCommands(app, result.arguments);
    std::vector<std::string> reversed(words.rbegin(), words.rend());
    try {
        app.parse(reversed);
    } catch (const CLI::CallForHelp&) {
        result.message = ChosenApp(app).help();
        result.exitCode = 0;
    } catch (const CLI::CallForVersion& version) {
        result.message = std::string(version.what()) + "\n";
        result.exitCode = 0;
    } catch (const CLI::ParseError& error) {
        result.arguments.command = CommandWords(app);
        const auto options = std::find(words.begin(), words.end(), "--");
        result.arguments.json = std::find(words.begin(), options, "--json") != options;
        result.message = std::string(error.what()) + "\nRun with --help for more information.\n";
        result.exitCode = kWrongUsage;
    }
    return result;
}

} // namespace tamarind::cli
