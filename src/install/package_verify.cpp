#include "install/package_verify.h"

#include "install/catalogue_merge.h"
#include "install/record_insert.h"
#include "install/scenario_merge.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "routes/folder_name.h"
#include "routes/package_layout.h"
#include "text/runtime_error.h"
#include "text/search.h"

#include <optional>
#include <set>
#include <utility>

namespace tamarind::install {
namespace {

class Verification {
public:
    Verification(const platform::Files& files, const std::string& folder) : files_(files), folder_(folder) {
        report_.mode = ModeOf(files, folder);
    }

    PackageReport Run() {
        VerifyContent();
        switch (report_.mode) {
        case InstallMode::Route: VerifyRoute(); break;
        case InstallMode::Scenario: VerifyScenarios(); break;
        case InstallMode::Assets: VerifyAssets(); break;
        }
        VerifyLeftovers();
        return std::move(report_);
    }

private:
    void Problem(std::string sentence) { report_.problems.push_back(std::move(sentence)); }
    [[nodiscard]] bool Has(const std::string& name) const {
        return platform::FileExists(files_, folder_ + "\\" + name);
    }

    void VerifyContent() {
        const PackageContent content = SurveyContent(files_, folder_);
        for (const PackageContent::File& file : content.files)
            report_.files.push_back({"Rail Simulator\\" + file.path, file.size});
        for (const std::string& path : content.skipped)
            Problem("\"" + platform::ForDisplay(path) + "\" leads elsewhere or cannot be read; it is not installed.");
        if (!content.exists) {
            Problem("There is no folder \"Rail Simulator\".");
        } else if (content.files.empty()) {
            Problem("The folder \"Rail Simulator\" holds no files.");
        }
    }

    void NameRepeated(const std::string& marker, const std::string& id) {
        std::string sentence = "\"" + marker;
        sentence.append("\" holds more than one record of ").append(id).append(".");
        Problem(std::move(sentence));
    }

    void RequireSetup(const std::string& name) {
        if (!Has(name)) Problem("The setup program \"" + name + "\" is missing.");
    }

    void RequireFolder(const std::string& path) {
        const std::string below = "Rail Simulator\\Content\\Routes\\" + path;
        if (!platform::FolderExists(files_, folder_ + "\\" + below)) {
            Problem("The folder \"" + platform::ForDisplay(below) + "\" is missing.");
        }
    }

    /// A marker's text; nothing, which is a problem, when it cannot be read.
    std::optional<std::string> Read(const std::string& marker) {
        try {
            return ReadOwnFile(files_, folder_, marker);
        } catch (const text::RuntimeError& error) {
            Problem("\"" + marker + "\" cannot be read: " + error.Description() + ".");
            return std::nullopt;
        }
    }

    /// Takes a marker apart into its records; false, which is a problem, when they are not whole.
    bool TakeRecords(std::string_view text, const std::string& marker, std::string_view open, std::string_view close) {
        if (!HoldsWholeRecords(text, open, close)) {
            Problem("\"" + marker + "\" holds no whole record.");
            return false;
        }
        if (!text.ends_with("\r\n")) Problem("\"" + marker + "\" does not end with a line end.");
        std::size_t at = text::FindNoCase(text, open);
        while (at != 0) {
            const std::size_t next = text::FindNoCase(text, open, at + open.size());
            const std::string_view record = text.substr(at - 1, next == 0 ? std::string_view::npos : next - at);
            report_.records.push_back({KeyOf(record), EnglishNameOf(record)});
            const std::string& id = report_.records.back().id;
            if (id.empty()) Problem("A record of \"" + marker + "\" has no id.");
            const bool isNew = recordIds_.insert(text::ToLower(id)).second;
            if (!isNew && !id.empty()) NameRepeated(marker, id);
            at = next;
        }
        return true;
    }

    void VerifyRoute() {
        RequireSetup(routes::kSetupProgram);
        if (Has(routes::kScenarioMarker) || Has(routes::kScenarioList)) {
            Problem("The markers of scenarios are ignored, since there is one of a route.");
        }
        const auto text = Read(routes::kRouteMarker);
        if (!text || !TakeRecords(*text, routes::kRouteMarker, kRouteOpenTag, kRouteCloseTag)) return;
        if (report_.records.size() > 1) Problem("\"Route_Setup.xxx\" holds more than one record.");
        for (const PackageRecord& record : report_.records) {
            if (!record.id.empty()) RequireFolder(record.id);
        }
    }

    void VerifyScenarios() {
        RequireSetup(routes::kSecondSetupProgram);
        if (const auto text = Read(routes::kScenarioMarker)) {
            TakeRecords(*text, routes::kScenarioMarker, kScenarioOpenTag, kScenarioCloseTag);
        }
        try {
            VerifyList(ReadScenarioList(files_, folder_));
        } catch (const text::RuntimeError& error) {
            Problem("\"Scenario.yyy\" cannot be used: " + error.Description() + ".");
        }
    }

    void VerifyList(const ScenarioList& list) {
        if (!routes::IsFolderName(list.routeFolder)) {
            Problem("\"Scenario.yyy\" names no route: \"" + list.routeFolder + "\" is not the name of a folder.");
            return;
        }
        if (list.ids.empty()) Problem("\"Scenario.yyy\" lists no scenario.");
        std::set<std::string> listed;
        for (const std::string& id : list.ids) {
            VerifyListed(list.routeFolder, id);
            listed.insert(text::ToLower(id));
        }
        for (const PackageRecord& record : report_.records) {
            const bool isListed = listed.contains(text::ToLower(record.id));
            if (!isListed) Problem("The record of " + record.id + " is not listed in \"Scenario.yyy\".");
        }
    }

    void VerifyListed(const std::string& route, const std::string& id) {
        if (!routes::IsFolderName(id)) {
            Problem("\"Scenario.yyy\" lists \"" + id + "\", which is not the name of a folder.");
            return;
        }
        if (!recordIds_.contains(text::ToLower(id))) Problem("\"Scenario.zzz\" holds no record of " + id + ".");
        RequireFolder(route + "\\Scenarios\\" + id);
    }

    void VerifyAssets() {
        RequireSetup(routes::kSecondSetupProgram);
        if (Has(routes::kScenarioList)) Problem("\"Scenario.yyy\" is ignored, since there is no \"Scenario.zzz\".");
    }

    void VerifyLeftovers() {
        for (const char* const name : {kInstallLog, kConvertedIndex}) {
            if (Has(name)) Problem(std::string("\"") + name + "\" is left over from an installation.");
        }
        for (const char* const name : {routes::kRouteMarker, routes::kScenarioMarker, routes::kScenarioList}) {
            if (Has(name) && !HasOwnFile(files_, folder_, name)) {
                Problem(std::string("\"") + name + "\" leads elsewhere; it is not read.");
            }
        }
        if (Has("serz.exe")) Problem("The installer would run the package's own \"serz.exe\".");
    }

    const platform::Files& files_;
    const std::string& folder_;
    PackageReport report_;
    std::set<std::string> recordIds_; ///< in small letters
};

} // namespace

PackageReport VerifyPackage(const platform::Files& files, const std::string& packageFolder) {
    return Verification(files, packageFolder).Run();
}

} // namespace tamarind::install
