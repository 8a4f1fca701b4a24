#include "authoring/scenario_save.h"

#include "authoring/convert_back.h"
#include "platform/paths.h"
#include "platform/safe_write.h"
#include "routes/assets.h"
#include "routes/working_files.h"
#include "text/code_page.h"
#include "text/numbers.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <optional>
#include <utility>

namespace tamarind::authoring {

using platform::Icon;
using session::EditorContext;
using text::RuntimeError;

namespace {

constexpr const char* kExit = "Exit";

std::optional<double> NumberIn(const std::string& text) {
    try {
        return text::ReadNumber(text);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count)
        static_cast<void>(text::TakeCodePoint(text));
    return count;
}

/// Minutes are not looked at.
bool IsTime(const std::string& text) {
    constexpr std::size_t kDigits = 4;
    constexpr double kMidnight = 2400;
    const auto time = NumberIn(text);
    return CharacterCount(text) == kDigits && time && *time <= kMidnight;
}

bool IsWithin(const std::string& text, double most) {
    const auto number = NumberIn(text);
    return number && *number >= 1 && *number <= most;
}

bool HasWeather(const EditorContext& context, const FieldTexts& fields) {
    const std::string& game = context.session.RailSimPath;
    const std::string file = game + "\\Assets\\" + fields[Field::WeatherProvider] + "\\" +
                             fields[Field::WeatherProduct] + "\\" +
                             platform::WithLastThreeReplaced(fields[Field::WeatherBlueprint], "bin");
    return routes::AssetFinder(context.platform.files, game).Find(file).has_value();
}

/// What is wrong with the fields; null when they may be saved.
const char* FindMistake(const EditorContext& context, const FieldTexts& fields) {
    constexpr double kDays = 31;
    constexpr double kMonths = 12;
    if (!IsTime(fields[Field::StartTime])) return "The time must be in 24hour format, e.g. 0530";
    if (!IsWithin(fields[Field::StartDay], kDays)) return "Invalid Start Day, must be between 1 and 31.";
    if (!IsWithin(fields[Field::StartMonth], kMonths)) return "Invalid Start Month, must be between 1 and 12.";
    if (!HasWeather(context, fields)) return "Weather Blueprint entered does not exist in the folder shown.";
    return nullptr;
}

void ShowError(EditorContext& context, const RuntimeError& error) {
    context.ui.Show({.text = "An error " + error.Description() + " occurred in frmScenEdit"});
}

void ShowUnchanged(EditorContext& context, const std::string& file) {
    context.ui.Show(
        {.text = "Nothing was changed: the converter wrote no new file, and the old one is in its place.\r\n" +
                 platform::ForDisplay(file)});
}

/// While the index is written; unless it was, the record is again what it was, and so is the index's text in TempFiles,
/// from which the routes window deletes.
class RecordKeeper {
public:
    RecordKeeper(EditorContext& context, std::string xml)
        : context_(context), xml_(std::move(xml)), record_(context.session.ScenarioEdit.ScenarioRecord) {}
    ~RecordKeeper() {
        if (isDone_) return;
        auto& edit = context_.session.ScenarioEdit;
        edit.ScenarioRecord = std::move(record_);
        try {
            WriteLine(context_.platform.files, xml_,
                      edit.ScenarioIndexHead + edit.ScenarioRecord + edit.ScenarioIndexTail);
        } catch (const RuntimeError&) {
            return; // the person has just been told of a failure
        }
    }
    RecordKeeper(const RecordKeeper&) = delete;
    RecordKeeper& operator=(const RecordKeeper&) = delete;
    void SetDone() { isDone_ = true; }

private:
    EditorContext& context_;
    std::string xml_;
    std::string record_;
    bool isDone_ = false;
};

/// The list of scenarios goes by the new name.
void RenameListed(session::Session& session, const std::string& name) {
    auto& state = session.Routes;
    const std::string id = platform::NameOf(session.ScenarioEdit.EditScenarioFolder);
    for (std::size_t i = 0; i < state.ScenarioIds.size() && i < state.ScenarioNames.size(); ++i) {
        if (state.ScenarioIds[i] == id) state.ScenarioNames[i] = name;
    }
}

Written WriteIndex(EditorContext& context, ScenarioWindow& window, const std::string& record) {
    auto& edit = context.session.ScenarioEdit;
    const std::string base = context.session.TempFiles() + "\\Scenarios.";
    const platform::BusyPointer pointer(context.ui);
    const Busy busy(context, window, base);
    RecordKeeper keeper(context, base + "xml");
    edit.ScenarioRecord = edit.ScenarioIndexHead + record + edit.ScenarioIndexTail;
    WriteLine(context.platform.files, base + "xml", edit.ScenarioRecord);
    window.Command2 = kExit;
    const ConvertedBack converted = ConvertBack(context, base + "xml", edit.EditRouteFolder + "\\Scenarios");
    context.ui.Show({.text = "Your Scenario File has been updated.", .icon = Icon::Information});
    if (!converted.isNew) {
        ShowUnchanged(context, edit.EditRouteFolder + "\\Scenarios.bin");
        return {};
    }
    keeper.SetDone();
    window.isSaved = true;
    RenameListed(context.session, window.Text1[Field::DisplayName]);
    return {true, converted.backup};
}

Written WriteDriver(EditorContext& context, ScenarioWindow& window, int selected) {
    auto& edit = context.session.ScenarioEdit;
    auto& files = context.platform.files;
    const std::string base = context.session.TempFiles() + "\\Scenario.";
    const platform::BusyPointer pointer(context.ui);
    const Busy busy(context, window, base);
    std::string text = SetDriver(edit.ScenarioText, selected);
    if (files.EntryExists(base + "xml")) files.Remove(base + "xml", true);
    WriteLine(files, base + "xml", text);
    const ConvertedBack converted = ConvertBack(context, base + "xml", edit.EditScenarioFolder + "\\Scenario");
    window.Command2 = kExit;
    context.ui.Show({.text = "Your Scenario Driver information has been updated.", .icon = Icon::Information});
    if (!converted.isNew) {
        ShowUnchanged(context, edit.EditScenarioFolder + "\\Scenario.bin");
        return {};
    }
    edit.ScenarioText = std::move(text);
    window.Consists = ScanConsists(edit.ScenarioText);
    return {true, converted.backup};
}

} // namespace

Written SaveChanges(EditorContext& context, ScenarioWindow& window) {
    if (!window.isSaved) return WriteScenario(context, window);
    context.ui.Show({.text = "This scenario has been saved already. Close this window and open it again to change it "
                             "further."});
    window.isSaveEnabled = false;
    return {};
}

Written WriteScenario(EditorContext& context, ScenarioWindow& window) {
    if (window.isBusy || !routes::MayUseTempFiles(context)) return {};
    if (const char* const mistake = FindMistake(context, window.Text1)) {
        context.ui.Show({.text = mistake});
        return {};
    }
    try {
        return WriteIndex(context, window, WriteFields(context.session.ScenarioEdit.ScenarioRecord, window.Text1));
    } catch (const RuntimeError& error) {
        ShowError(context, error);
        return {};
    }
}

Written DriveIt(EditorContext& context, ScenarioWindow& window, int selected) {
    if (window.isBusy || !routes::MayUseTempFiles(context)) return {};
    try {
        return WriteDriver(context, window, selected);
    } catch (const RuntimeError& error) {
        ShowError(context, error);
        return {};
    }
}

} // namespace tamarind::authoring
