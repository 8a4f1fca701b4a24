#include "authoring/scenario_window.h"

#include "platform/paths.h"
#include "routes/assets.h"
#include "text/code_page.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <fmt/format.h>

namespace tamarind::authoring {

using session::EditorContext;
using text::RuntimeError;

namespace {

constexpr const char* kWeatherPattern = "*.bin";

void ShowFolder(const EditorContext& context, ScenarioWindow& window, const std::string& folder) {
    auto rows = install::FolderRows(context.platform.files, folder);
    auto files = install::FileNames(context.platform.files, folder, kWeatherPattern);
    window.Dir1 = folder;
    window.DirRows = std::move(rows);
    window.File1 = std::move(files);
}

/// The weather's folder, or the nearest one above that is there.
void ShowWeatherFolder(const EditorContext& context, ScenarioWindow& window) {
    const std::string& game = context.session.RailSimPath;
    std::string folder = game + "\\Assets\\" + routes::AsUtf8(window.Text1[Field::WeatherProvider]) + "\\" +
                         routes::AsUtf8(window.Text1[Field::WeatherProduct]) + "\\Weather";
    for (; !folder.empty() && folder.size() >= game.size(); folder = platform::FolderOf(folder)) {
        try {
            ShowFolder(context, window, folder);
            return;
        } catch (const RuntimeError&) {
            continue; // a scenario may name weather that is not installed
        }
    }
}

/// Takes the next component off the front of a path.
std::string TakeComponent(std::string& path) {
    const std::string component = path.substr(0, path.find('\\'));
    path.erase(0, component.size() + 1);
    return component;
}

/// What stands behind "Assets\" in the path of a folder. The game folder's own path may hold that word too.
std::string BehindAssets(const std::string& gameFolder, const std::string& folder) {
    constexpr std::string_view kAssets = "Assets";
    const bool isInGame = text::StartsWithNoCase(folder, gameFolder + "\\");
    const std::size_t found = text::FindNoCase(folder, kAssets, isInGame ? gameFolder.size() + 1 : 1);
    const std::size_t behind = found + kAssets.size(); // counted from 0, where the position counts from 1
    return found == 0 || behind >= folder.size() ? std::string() : folder.substr(behind);
}

} // namespace

bool LoadScenario(EditorContext& context, ScenarioWindow& window) {
    const auto& edit = context.session.ScenarioEdit;
    window = {};
    try {
        window.Text1 = ReadFields(edit.ScenarioRecord);
    } catch (const RuntimeError& error) {
        const char* const reason = error.Code() == text::ErrorNumber::InvalidProcedureCall
                                       ? "its record holds no whole \"{}\"."
                                       : "the \"{}\" in its record is not a number of seconds in a day.";
        context.ui.Show(
            {.text = "This scenario cannot be edited: " + fmt::format(fmt::runtime(reason), error.Details())});
        return false;
    }
    window.isRecordUtf8 = routes::AsUtf8(edit.ScenarioRecord) != edit.ScenarioRecord;
    ShowWeatherFolder(context, window);
    try {
        window.Consists = ScanConsists(edit.ScenarioText);
    } catch (const RuntimeError&) {
        context.ui.Show({.text = "This scenario cannot be edited: the names of its trains are not whole."});
        return false;
    }
    return true;
}

std::string ShownText(const ScenarioWindow& window, Field field) {
    return window.isRecordUtf8 ? routes::AsUtf8(window.Text1[field]) : window.Text1[field];
}

void TypeText(ScenarioWindow& window, Field field, const std::string& typed) {
    if (typed == ShownText(window, field)) return;
    window.Text1[field] = window.isRecordUtf8 ? text::FromCodePage(typed) : typed;
}

void ChooseSeason(ScenarioWindow& window, const std::string& season) {
    window.Text1[Field::Season] = season;
    window.isCombo1Visible = false;
}

std::string DriveCaption(const ScenarioWindow& window, int selected) {
    const auto driven = DrivenConsist(window.Consists, selected);
    if (!driven) return "Drive It";
    return fmt::format("Drive It: {}, {}", *driven + 1, routes::AsUtf8(window.Consists[*driven].name));
}

bool ClickWeatherFolder(EditorContext& context, ScenarioWindow& window, std::size_t row) {
    if (row >= window.DirRows.size()) return false;
    const std::string path = window.DirRows[row].path;
    try {
        ShowFolder(context, window, path);
        return true;
    } catch (const RuntimeError& error) {
        context.ui.Show({.text = error.Description() + "\r\n" + platform::ForDisplay(path)});
        return false;
    }
}

bool SetWeather(EditorContext& context, ScenarioWindow& window, std::size_t file) {
    if (file >= window.File1.size()) return false;
    std::string name = window.File1[file];
    if (text::EndsWithNoCase(name, "bin")) name = platform::WithLastThreeReplaced(name, "xml");
    std::string rest = BehindAssets(context.session.RailSimPath, window.Dir1);
    const std::string provider = TakeComponent(rest);
    const std::string product = TakeComponent(rest);
    if (provider.empty() || product.empty()) {
        context.ui.Show({.text = "Weather must lie below a provider and a product in the game's Assets."});
        return false;
    }
    TypeText(window, Field::WeatherProvider, provider);
    TypeText(window, Field::WeatherProduct, product);
    TypeText(window, Field::WeatherBlueprint, rest.empty() ? name : rest + "\\" + name);
    return true;
}

} // namespace tamarind::authoring
