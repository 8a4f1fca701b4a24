#pragma once

#include "platform/processes.h"

#include <functional>
#include <memory>
#include <vector>

namespace tamarind::tests {

/// Runs a function in place of a process and does not really sleep.
class FakeProcesses : public platform::Processes {
public:
    /// What the process does, when it is started. A RuntimeError that it throws is a failed start.
    std::function<void(const platform::ProcessStart&)> run;
    /// How many looks find the process still running.
    int looksBeforeEnd = 0;
    std::uint64_t processId = 4711;

    std::vector<platform::ProcessStart> starts;
    std::vector<std::chrono::milliseconds> sleeps;
    int looks = 0;
    int stops = 0;

    std::unique_ptr<platform::RunningProcess> Start(const platform::ProcessStart& start) override {
        starts.push_back(start);
        if (run) {
            run(start);
        }
        return std::make_unique<Process>(*this, looksBeforeEnd);
    }

    void Sleep(std::chrono::milliseconds duration) override { sleeps.push_back(duration); }

private:
    class Process : public platform::RunningProcess {
    public:
        Process(FakeProcesses& owner, int looksLeft) : owner_(owner), looksLeft_(looksLeft) {}
        [[nodiscard]] std::uint64_t Id() const override { return owner_.processId; }
        [[nodiscard]] bool HasEnded() override {
            ++owner_.looks;
            return looksLeft_-- <= 0;
        }
        void Stop() override {
            ++owner_.stops;
            looksLeft_ = 0;
        }

    private:
        FakeProcesses& owner_;
        int looksLeft_;
    };
};

} // namespace tamarind::tests
