#pragma once

#include "install/content_copy.h"
#include "install/install_log.h"
#include "install/installer.h"
#include "text/runtime_error.h"

#include <string>
#include <vector>

namespace tamarind::install {

/// One press of the button that installs.
class Installation {
public:
    explicit Installation(Installer& installer);
    Ended Run();

private:
    /// Ends the installation where it is thrown.
    struct End {
        Ended how;
    };

    /// One statement under the error handler: false when it failed and the installation goes on behind it. Throws End
    /// where the person does not want to go on.
    template <typename Step> bool Try(const std::string& what, const Step& step) {
        try {
            step();
            return true;
        } catch (const text::RuntimeError& error) {
            Handle(what, error);
            return false;
        }
    }
    void Handle(const std::string& what, const text::RuntimeError& error);
    void MakeWritable();

    Ended RunSteps();
    void PrepareRoute();
    void MergeIntoRoutes();
    /// Why the new index could not be written; empty when it was.
    std::string ReplaceRoutes(const std::string& index, const std::string& text);
    void PrepareScenarios();
    void MergeIntoScenarios();
    void RequireGameFolder();
    void CopyContent();
    void RunHook();
    void RemovePaks();
    void WriteLogFile(Ended how);

    /// Tells of something that was not done, directly after the success message.
    void Note(const std::string& sentence);
    /// The same in the status line and the log alone, where the rules pass over it without a word.
    void NoteQuietly(const std::string& sentence);
    [[noreturn]] void Refuse(platform::Icon icon, const std::string& text);

    Installer& installer_;
    platform::Files& files_;
    platform::UserInterface& ui_;
    const std::string& game_;    ///< G
    const std::string& package_; ///< P
    std::string record_;         ///< of the route
    ScenarioList scenarios_;
    std::string scenarioRecords_;
    std::vector<std::string> notes_;
    bool isIncomplete_ = false;
    bool hasBegun_ = false; ///< the disk may have been changed
    CopyResult copied_;
    InstallLog log_;
};

} // namespace tamarind::install
