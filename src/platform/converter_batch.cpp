#include "platform/converter_batch.h"

#include "text/runtime_error.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>
#include <vector>

namespace tamarind::platform {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kLooksAfterStop = 40;

class BatchRun {
public:
    BatchRun(Processes& processes, UserInterface& ui, const ConverterFolders& folders, const ConverterBatch& batch)
        : processes_(processes), ui_(ui), folders_(folders), batch_(batch),
          lanes_(batch.jobs <= 1 ? 1 : 2 * batch.jobs) {
        ui_.SetWaiting(true);
    }
    ~BatchRun() {
        StopAll();
        ui_.SetWaiting(false);
    }
    BatchRun(const BatchRun&) = delete;
    BatchRun& operator=(const BatchRun&) = delete;

    bool Run() {
        while (taken_ < batch_.count) {
            StartMore();
            if (!running_.empty() && !LookAtNext()) return false;
            TakeReady();
        }
        return true;
    }

private:
    struct Lane {
        ConverterBatch::Conversion conversion;
        bool isReady = false;
    };

    struct Running {
        std::size_t index;
        std::unique_ptr<RunningProcess> process;
        Clock::time_point due; ///< of the next look
    };

    Lane& LaneOf(std::size_t index) { return lanes_[index % lanes_.size()]; }

    void StartMore() {
        const std::size_t jobs = std::max<std::size_t>(batch_.jobs, 1);
        while (running_.size() < jobs && started_ < batch_.count && started_ - taken_ < lanes_.size()) {
            const std::size_t index = started_++;
            Lane& lane = LaneOf(index);
            lane.conversion = batch_.prepare(index, index % lanes_.size());
            try {
                auto process = processes_.Start(
                    ConverterStart(folders_, CommandLineToXml(lane.conversion.binaryPath, lane.conversion.xmlPath)));
                running_.push_back({index, std::move(process), Clock::now() + kPollInterval});
            } catch (const text::RuntimeError&) {
                lane.isReady = true; // its XML is missing, which the taker sees
            }
        }
    }

    /// Waits for the converter that is to be looked at next; false when the batch is to end.
    bool LookAtNext() {
        const auto next = std::min_element(running_.begin(), running_.end(),
                                           [](const Running& a, const Running& b) { return a.due < b.due; });
        const auto pause = std::chrono::ceil<std::chrono::milliseconds>(next->due - Clock::now());
        if (pause.count() > 0) processes_.Sleep(pause);
        ui_.ProcessEvents();
        if (ui_.StopRequested() || (batch_.mayGoOn && !batch_.mayGoOn())) return false;
        if (next->process->HasEnded()) {
            LaneOf(next->index).isReady = true;
            running_.erase(next);
        } else {
            next->due = Clock::now() + kPollInterval;
        }
        return true;
    }

    void TakeReady() {
        for (; taken_ < started_ && LaneOf(taken_).isReady; ++taken_) {
            Lane& lane = LaneOf(taken_);
            lane.isReady = false;
            batch_.take(taken_, lane.conversion);
        }
    }

    /// A stopped converter may hold its files for a moment.
    void StopAll() {
        for (const Running& running : running_) {
            running.process->Stop();
        }
        const auto hasEnded = [](const Running& running) { return running.process->HasEnded(); };
        for (int look = 0; look < kLooksAfterStop && !std::all_of(running_.begin(), running_.end(), hasEnded); ++look) {
            processes_.Sleep(kPollInterval);
        }
    }

    Processes& processes_;
    UserInterface& ui_;
    const ConverterFolders& folders_;
    const ConverterBatch& batch_;
    std::vector<Lane> lanes_;
    std::vector<Running> running_;
    std::size_t started_ = 0;
    std::size_t taken_ = 0;
};

} // namespace

bool ConvertToXml(Processes& processes, UserInterface& ui, const ConverterFolders& folders,
                  const ConverterBatch& batch) {
    BatchRun run(processes, ui, folders, batch);
    return run.Run();
}

} // namespace tamarind::platform
