#include "platform/converter_batch.h"

#include "support/fake_processes.h"
#include "support/scripted_ui.h"
#include "text/runtime_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace tamarind::tests {
namespace {

using platform::ConverterBatch;
using testing::ElementsAre;
using testing::IsEmpty;

/// Converters of different length: number i needs `lengths[i]` looks.
class UnevenProcesses : public platform::Processes {
public:
    std::vector<int> lengths;
    int running = 0;
    int mostRunning = 0;
    int stopped = 0;
    std::size_t started = 0;
    std::vector<std::chrono::milliseconds> sleeps;

    std::unique_ptr<platform::RunningProcess> Start(const platform::ProcessStart&) override {
        mostRunning = std::max(mostRunning, ++running);
        return std::make_unique<Process>(*this, lengths.at(started++));
    }
    void Sleep(std::chrono::milliseconds duration) override { sleeps.push_back(duration); }

private:
    class Process : public platform::RunningProcess {
    public:
        Process(UnevenProcesses& owner, int looks) : owner_(owner), looks_(looks) {}
        std::uint64_t Id() const override { return 1; }
        bool HasEnded() override {
            if (--looks_ == 0) --owner_.running;
            return looks_ <= 0;
        }
        void Stop() override {
            ++owner_.stopped;
            looks_ = 1;
        }

    private:
        UnevenProcesses& owner_;
        int looks_;
    };
};

struct BatchRig {
    std::vector<std::size_t> taken;
    std::set<std::size_t> lanesInUse;
    std::map<std::size_t, std::size_t> laneOf;

    ConverterBatch Make(std::size_t count, std::size_t jobs) {
        ConverterBatch batch;
        batch.count = count;
        batch.jobs = jobs;
        batch.prepare = [this](std::size_t index, std::size_t lane) {
            EXPECT_TRUE(lanesInUse.insert(lane).second) << "lane " << lane << " is taken twice";
            laneOf[index] = lane;
            return ConverterBatch::Conversion{"in" + std::to_string(index), "out" + std::to_string(index)};
        };
        batch.take = [this](std::size_t index, const ConverterBatch::Conversion& conversion) {
            EXPECT_EQ(conversion.xmlPath, "out" + std::to_string(index));
            lanesInUse.erase(laneOf[index]);
            taken.push_back(index);
        };
        return batch;
    }

    bool Run(platform::Processes& processes, const ConverterBatch& batch) {
        return platform::ConvertToXml(processes, ui, {"C:\\Kit", "C:\\Game"}, batch);
    }

    ScriptedUserInterface ui;
};

TEST(ConverterBatch, TakesResultsInOrderWhicheverEndsFirst) {
    UnevenProcesses processes;
    processes.lengths = {9, 1, 1, 5, 1, 1, 1, 2, 1, 1};
    BatchRig rig;
    EXPECT_TRUE(rig.Run(processes, rig.Make(10, 3)));
    EXPECT_THAT(rig.taken, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9));
    EXPECT_EQ(processes.mostRunning, 3);
}

TEST(ConverterBatch, OfOneJobRunsOneAtATimeInOneLane) {
    UnevenProcesses processes;
    processes.lengths = {1, 2, 1};
    BatchRig rig;
    EXPECT_TRUE(rig.Run(processes, rig.Make(3, 1)));
    EXPECT_EQ(processes.mostRunning, 1);
    EXPECT_THAT(rig.laneOf, ElementsAre(std::pair(0U, 0U), std::pair(1U, 0U), std::pair(2U, 0U)));
}

TEST(ConverterBatch, LooksAtEachConverterFiftyMillisecondsAfterItsStart) {
    UnevenProcesses processes;
    processes.lengths = {2};
    BatchRig rig;
    rig.Run(processes, rig.Make(1, 1));
    ASSERT_EQ(processes.sleeps.size(), 2U);
    for (const auto sleep : processes.sleeps) {
        EXPECT_LE(sleep.count(), 50);
        EXPECT_GT(sleep.count(), 20);
    }
    EXPECT_EQ(rig.ui.EventRounds(), 2);
    EXPECT_THAT(rig.ui.WaitingCalls(), ElementsAre(true, false));
}

TEST(ConverterBatch, StartsTheConverterAsASingleConversionDoes) {
    FakeProcesses processes;
    BatchRig rig;
    rig.Run(processes, rig.Make(1, 4));
    ASSERT_EQ(processes.starts.size(), 1U);
    EXPECT_EQ(processes.starts[0].commandLine, "serz.exe \"in0\" xml:\"out0\"");
    EXPECT_EQ(processes.starts[0].folder, "C:\\Kit");
    EXPECT_THAT(processes.starts[0].searchFolders, ElementsAre("C:\\Kit", "C:\\Game"));
    EXPECT_EQ(processes.starts[0].style, platform::WindowStyle::Hidden);
}

TEST(ConverterBatch, TakesWhatCouldNotBeStarted) {
    FakeProcesses processes;
    processes.run = [](const platform::ProcessStart&) { throw text::RuntimeError(text::ErrorNumber::FileNotFound); };
    BatchRig rig;
    EXPECT_TRUE(rig.Run(processes, rig.Make(5, 2)));
    EXPECT_THAT(rig.taken, ElementsAre(0, 1, 2, 3, 4));
    EXPECT_THAT(processes.sleeps, IsEmpty());
}

TEST(ConverterBatch, StopsWhatRunsWhenItMayNotGoOn) {
    UnevenProcesses processes;
    processes.lengths = {1, 100, 100, 100};
    BatchRig rig;
    ConverterBatch batch = rig.Make(4, 2);
    batch.mayGoOn = [&] { return processes.started < 3; };
    EXPECT_FALSE(rig.Run(processes, batch));
    EXPECT_THAT(rig.taken, ElementsAre(0));
    EXPECT_EQ(processes.stopped, 2);
    EXPECT_THAT(rig.ui.WaitingCalls(), ElementsAre(true, false));
}

TEST(ConverterBatch, StopsWhatRunsWhenATakerFails) {
    UnevenProcesses processes;
    processes.lengths = {1, 100};
    BatchRig rig;
    ConverterBatch batch = rig.Make(2, 2);
    batch.take = [](std::size_t, const ConverterBatch::Conversion&) {
        throw text::RuntimeError(text::ErrorNumber::DiskFull);
    };
    EXPECT_THROW(rig.Run(processes, batch), text::RuntimeError);
    EXPECT_EQ(processes.stopped, 1);
}

TEST(ConverterBatch, OfNothingIsDone) {
    UnevenProcesses processes;
    BatchRig rig;
    EXPECT_TRUE(rig.Run(processes, rig.Make(0, 2)));
}

} // namespace
} // namespace tamarind::tests
