// Tamarind's own export and import as whole commands, without the converter:
//   texture_pass export XML FOLDER   reads the XML into the editor, writes FOLDER/TempFiles/Big.dds and .dat
//   texture_pass import FOLDER       the way back; an empty file stands for the converter's output
#include "convert/texture_export.h"
#include "convert/texture_import.h"
#include "measure.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "session/headless_view.h"

#include <cstdio>
#include <cstring>
#include <exception>
#include <functional>
#include <utility>

namespace {

using namespace tamarind;

/// Says Yes to everything.
class YesInterface : public platform::UserInterface {
public:
    platform::Answer Show(const platform::Message&) override { return platform::Answer::Yes; }
    std::string AskForFile(const platform::FileDialog&) override { return {}; }
    std::string AskForText(const std::string&, const std::string&, const std::string&) override { return {}; }
    void SetBusy(bool) override {}
    void ProcessEvents() override {}
    void ShowStatus(const std::string&) override {}
};

class Ended : public platform::RunningProcess {
public:
    [[nodiscard]] std::uint64_t Id() const override { return 1; }
    [[nodiscard]] bool HasEnded() override { return true; }
    void Stop() override {}
};

/// Does its work at once.
class Instantly : public platform::Processes {
public:
    explicit Instantly(std::function<void()> work) : work_(std::move(work)) {}
    [[nodiscard]] std::unique_ptr<platform::RunningProcess> Start(const platform::ProcessStart&) override {
        work_();
        return std::make_unique<Ended>();
    }
    void Sleep(std::chrono::milliseconds) override {}

private:
    std::function<void()> work_;
};

bool Run(int argc, char** argv) {
    const bool exports = std::strcmp(argv[1], "export") == 0;
    const auto files = platform::MakeFiles();
    const auto registry = platform::MakeRegistry();
    session::Session session;
    document::OpenDocument document;
    session::HeadlessView view;
    YesInterface ui;
    session.ProgramFolder = platform::FromNative(argv[argc - 1]);
    session.FileBaseName = "Big.";
    session.TempBase = session.TempFiles() + "\\Big.";
    view.ShowFilePath(session.ProgramFolder + "\\Big.TgPcDx");
    Instantly converter([&] { files->Create(session.TempBase + "bin", platform::CreateMode::New)->Close(); });
    session::EditorContext context{session, document, {*files, converter, *registry}, ui, view};
    if (!exports) {
        return convert::ImportTextureFrom(context, session.TempBase + "dds").ending == convert::Imported::Ending::Done;
    }
    {
        std::string text;
        platform::ReadUniFile(*files, platform::FromNative(argv[2]), text);
        view.SetEditorText(text);
    }
    return convert::ExportTexture(context).done;
}

} // namespace

int main(int argc, char** argv) {
    const bench::Measure measure;
    if (argc < 3) {
        std::fputs("texture_pass export XML FOLDER | import FOLDER\n", stderr);
        return 2;
    }
    try {
        if (!Run(argc, argv)) return 1;
        measure.Print();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
