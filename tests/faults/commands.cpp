#include "faults/commands.h"

#include "editors/document_commands.h"
#include "faults/fault_count.h"
#include "platform/myfile.h"
#include "shell/closing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace tamarind::tests {

using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;

int& FaultCount() {
    static int count = 0;
    return count;
}

FaultyKit::FaultyKit(Fault fault) : files(folder.Disk(), fault), rig(files, folder / "Kit"), converter(folder.Disk()) {
    folder.MakeFolder("Kit\\TempFiles");
    folder.MakeFolder("Game");
    rig.processes.run = [this](const platform::ProcessStart& start) { converter(start); };
}

void FaultyKit::Run(const std::function<void(session::EditorContext&)>& command) {
    try {
        command(rig.context);
    } catch (const text::RuntimeError& error) {
        shell::ReportFatalError(rig.context, error);
    }
}

void FaultyKit::Finish(FaultRun& run) const {
    run.struck = files.HasStruck();
    run.changes = files.Changes();
    FaultCount() += run.struck ? 1 : 0;
}

void FaultyKit::OpenTrack() {
    rig.view.ShowFilePath(folder.Write("Game\\Track.XSec", GameFile(kOldXml)));
    folder.Write("Game\\Track.XSec.bak", "an earlier backup");
    folder.Write("Kit\\TempFiles\\Track.bin", GameFile(kOldXml));
    folder.Write("Kit\\TempFiles\\Track.XSec", "an earlier result");
    rig.document.path = folder.Write("Kit\\TempFiles\\Track.xml", kOldXml);
    rig.session.FileBaseName = "Track.";
    rig.session.TempBase = folder / "Kit\\TempFiles\\Track.";
    rig.session.RSFileExt = "XSec";
    rig.session.RSFileLoaded = true;
    editors::LoadXmlFile(rig.context);
    rig.document.document.SetCharacters(rig.document.document.Top(), "new text that is longer");
    editors::SetModified(rig.context, true);
    rig.view.TypeText(kNewXml);
}

bool FaultyKit::GameHas(std::string_view name) const {
    return platform::FileExists(folder.Disk(), folder / ("Game\\" + std::string(name)));
}

std::string FaultyKit::Told() const {
    std::string told;
    for (const std::string& text : rig.ui.MessageTexts()) {
        told += text + "\r\n";
    }
    return told;
}

std::vector<std::string> WithoutTemporaries(const std::vector<std::string>& names) {
    std::vector<std::string> kept;
    std::copy_if(names.begin(), names.end(), std::back_inserter(kept),
                 [](const std::string& name) { return !name.starts_with("~tamarind-"); });
    return kept;
}

void CheckTrack(const FaultyKit& kit, const FaultRun& run, const std::string& newXml) {
    const testing::Message where = testing::Message() << run.Name();
    const std::string oldFile = GameFile(kOldXml);
    const std::string newFile = GameFile(newXml);
    const std::string track = kit.Game("Track.XSec");
    EXPECT_THAT(track, AnyOf(oldFile, newFile)) << where;
    EXPECT_EQ(kit.Game("Track.XSec.bak"), "an earlier backup") << where;
    if (kit.GameHas("Track.XSec.bak1")) {
        EXPECT_EQ(kit.Game("Track.XSec.bak1"), oldFile) << where;
    }
    if (track == newFile) {
        EXPECT_TRUE(kit.GameHas("Track.XSec.bak1")) << where;
    }
    if (track == oldFile) {
        EXPECT_NE(kit.Told(), "") << where;
    }
    EXPECT_THAT(kit.folder.Read("Kit\\TempFiles\\Track.xml"), AnyOf(kOldXml, newXml)) << where;
    // A disk on which nothing works any more cannot be cleared either.
    const auto names = kit.folder.Names("Game");
    const auto working = kit.folder.Names("Kit\\TempFiles");
    if (!run.fault.forever) {
        EXPECT_EQ(names, WithoutTemporaries(names)) << where;
        EXPECT_EQ(working, WithoutTemporaries(working)) << where;
        EXPECT_EQ(kit.GameHas("Track.XSec.bak1"), track == newFile) << where;
    }
    EXPECT_THAT(WithoutTemporaries(names), AnyOf(ElementsAre("Track.XSec", "Track.XSec.bak"),
                                                 ElementsAre("Track.XSec", "Track.XSec.bak", "Track.XSec.bak1")))
        << where;
}

} // namespace tamarind::tests
