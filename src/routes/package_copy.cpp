#include "routes/package_copy.h"

#include "platform/batch_file.h"
#include "platform/myfile.h"
#include "platform/paths.h"
#include "platform/safe_write.h"
#include "platform/tree_copy.h"
#include "routes/package_layout.h"
#include "routes/scan_progress.h"
#include "text/code_page.h"
#include "text/runtime_error.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <span>
#include <utility>

namespace tamarind::routes {

using platform::Files;
using platform::FileStamp;
using platform::Tree;
using session::EditorContext;
using text::ErrorNumber;
using text::RuntimeError;

namespace {

std::string Below(const std::string& folder, const std::string& path) { return folder + "\\" + path; }

std::string Problem(const std::string& description, const std::string& path) {
    return description + ": " + platform::ForDisplay(path);
}

void NoteTree(PackageCopy& copy, const Tree& tree, const std::string& folder) {
    copy.total += tree.files.size();
    for (const std::string& link : tree.links)
        copy.links.push_back(Below(folder, link));
    for (const std::string& name : tree.unreadable)
        copy.problems.push_back(
            Problem(text::Description(ErrorNumber::PathNotFound), name.empty() ? folder : Below(folder, name)));
}

/// Whether the next file would fare no better.
bool EndsEverything(const RuntimeError& error) { return error.Code() == ErrorNumber::DiskFull; }

/// Runs one step of a copy; a failure is noted. False when nothing more can be copied.
template <typename Step> bool Note(PackageCopy& copy, const std::string& path, const Step& step) {
    try {
        step();
        return true;
    } catch (const RuntimeError& error) {
        copy.problems.push_back(Problem(error.Description(), error.Details().empty() ? path : error.Details()));
        return !EndsEverything(error);
    }
}

/// A file that the copy script has to copy.
struct Expected {
    std::string source;
    std::string target;
    bool isHidden = false; ///< some systems' copy program passes over hidden files
    std::optional<FileStamp> before;
};

struct Stray {
    std::string target;
    bool wasThere = false;
};

/// What a copy script is to do, file by file.
class Plan {
public:
    Plan(Files& files, std::string_view lines, PackageCopy& copy) : files_(files), copy_(copy) {
        const auto commands = platform::ParseBatchFile(lines);
        if (!commands) return;
        for (const platform::BatchCommand& command : *commands) {
            const auto* const each = std::get_if<platform::CopyToFolder>(&command);
            if (each != nullptr && !each->source.empty()) Add(*each);
        }
    }

    /// How many of the files are there by now. Looks at few at a time: it is asked many times a second.
    std::size_t CountDone() {
        constexpr std::size_t kWindow = 200;
        const std::size_t end = std::min(expected.size(), done_ + kWindow);
        const auto isThere = [this](const Expected& file) { return files_.Stamp(file.target).has_value(); };
        const auto first = expected.begin() + static_cast<std::ptrdiff_t>(done_);
        const auto rest = std::stable_partition(first, expected.begin() + static_cast<std::ptrdiff_t>(end), isThere);
        done_ = static_cast<std::size_t>(rest - expected.begin());
        return done_;
    }

    [[nodiscard]] std::string Current() const {
        return expected.empty() ? std::string()
                                : platform::NameOf(expected[std::min(done_, expected.size() - 1)].source);
    }

    /// After the script: notes what is missing.
    void Verify() {
        for (const Expected& file : expected) {
            const auto source = files_.Stamp(file.source);
            const auto target = files_.Stamp(file.target);
            if (target && source && target->size == source->size && !IsLocked(file)) {
                ++copy_.copied;
            } else if (IsLocked(file)) {
                copy_.problems.push_back(Problem(text::Description(ErrorNumber::PermissionDenied), file.target));
            } else if (!file.isHidden) {
                copy_.problems.push_back(Problem("Not copied", file.source));
            }
        }
    }

    /// Takes away what a script left half-written that was ended from outside.
    void RemoveHalves() {
        for (const Expected& file : expected) {
            const auto source = files_.Stamp(file.source);
            const auto target = files_.Stamp(file.target);
            const bool isHalf = target && target != file.before && (!source || source->size != target->size);
            if (isHalf) Remove(file.target);
        }
    }

    void RemoveStrays() {
        for (const Stray& stray : strays_) {
            if (!stray.wasThere && files_.EntryExists(stray.target)) Remove(stray.target);
        }
    }

    std::vector<Expected> expected;

private:
    void Add(const platform::CopyToFolder& command) {
        const Tree tree = platform::ListTree(files_, command.source);
        NoteTree(copy_, tree, command.source);
        for (const Tree::File& file : tree.files) {
            const std::string target = Below(command.destination, file.path);
            expected.push_back({Below(command.source, file.path), target, file.isHidden, files_.Stamp(target)});
        }
        for (const std::string& link : tree.links) {
            const std::string target = Below(command.destination, link);
            strays_.push_back({target, files_.EntryExists(target)});
        }
    }

    [[nodiscard]] bool IsLocked(const Expected& file) const {
        return file.before && files_.IsWriteProtected(file.target);
    }

    void Remove(const std::string& path) {
        if (files_.IsFolder(path)) {
            platform::DelAll(files_, path);
            return;
        }
        try {
            files_.Remove(path, true);
        } catch (const RuntimeError& error) {
            copy_.problems.push_back(Problem("Not taken out again, " + error.Description(), path));
        }
    }

    Files& files_;
    PackageCopy& copy_;
    std::vector<Stray> strays_;
    std::size_t done_ = 0;
};

/// Shows progress while the script is waited for; asking to end it stops the script.
class ScriptInterface : public platform::UserInterface {
public:
    ScriptInterface(platform::UserInterface& inner, std::string title, Plan& plan)
        : inner_(inner), progress_(inner, std::move(title)), plan_(plan) {
        progress_.Expect(plan.expected.size());
    }

    platform::Answer Show(const platform::Message& message) override { return inner_.Show(message); }
    std::string AskForFile(const platform::FileDialog& dialog) override { return inner_.AskForFile(dialog); }
    std::string AskForText(const std::string& prompt, const std::string& title, const std::string& preset) override {
        return inner_.AskForText(prompt, title, preset);
    }
    void SetBusy(bool busy) override { inner_.SetBusy(busy); }
    void ShowStatus(const std::string& text) override { inner_.ShowStatus(text); }
    void SetWaiting(bool waiting) override { inner_.SetWaiting(waiting); }

    void ProcessEvents() override {
        inner_.ProcessEvents();
        const std::size_t done = plan_.CountDone();
        while (progress_.Done() < done)
            progress_.Count();
        if (!plan_.expected.empty()) progress_.Show(plan_.Current());
    }
    [[nodiscard]] bool StopRequested() override {
        if (inner_.StopRequested()) progress_.Cancel();
        return progress_.IsCancelled();
    }
    [[nodiscard]] bool IsCancelled() const { return progress_.IsCancelled(); }

private:
    platform::UserInterface& inner_;
    ScanProgress progress_;
    Plan& plan_;
};

void AppendLines(std::string& text, const std::vector<std::string>& lines) {
    constexpr std::size_t kMost = 20; // a box has to fit on a screen
    const std::size_t shown = std::min(lines.size(), kMost);
    for (const std::string& line : std::span(lines).first(shown))
        text += "\r\n" + line;
    if (lines.size() > shown) text += fmt::format("\r\nand {} more", lines.size() - shown);
}

} // namespace

PackageCopy CopyPackageFolder(EditorContext& context, const std::string& title, const std::string& from,
                              const std::string& to) {
    auto& files = context.platform.files;
    const Tree tree = platform::ListTree(files, from);
    PackageCopy copy;
    NoteTree(copy, tree, from);
    ScanProgress progress(context.ui, title);
    progress.Expect(tree.files.size());
    platform::TreeCopier copier(files, from, to);
    bool goesOn = Note(copy, to, [&] { copier.MakeFolder({}); });
    for (std::size_t i = 0; goesOn && i < tree.folders.size(); ++i)
        goesOn = Note(copy, Below(to, tree.folders[i]), [&] { copier.MakeFolder(tree.folders[i]); });
    for (std::size_t i = 0; goesOn && i < tree.files.size(); ++i) {
        const std::string& path = tree.files[i].path;
        copy.isCancelled = !progress.Show(path) || context.ui.StopRequested();
        if (copy.isCancelled) break;
        goesOn = Note(copy, Below(from, path), [&] {
            copier.Copy(path);
            ++copy.copied;
        });
        progress.Count();
    }
    return copy;
}

PackageCopy RunCopyScript(EditorContext& context, const std::string& title, std::string_view lines) {
    auto& files = context.platform.files;
    const std::string folder = context.session.TempFiles();
    platform::WriteSafely(files, folder + "\\" + kCopyScript, text::ToCodePage(CopyScriptFile(lines)));
    PackageCopy copy;
    Plan plan(files, lines, copy);
    {
        ScriptInterface ui(context.ui, title, plan);
        platform::ShellWait(context.platform.processes, ui,
                            {.commandLine = kCopyScript,
                             .folder = folder,
                             .searchFolders = {},
                             .style = platform::WindowStyle::NormalFocus},
                            true);
        copy.isCancelled = ui.IsCancelled();
    }
    if (copy.isCancelled) plan.RemoveHalves();
    plan.RemoveStrays();
    if (!copy.isCancelled) plan.Verify();
    return copy;
}

bool ShowProblems(EditorContext& context, const PackageCopy& copy) {
    if (copy.problems.empty() && copy.links.empty()) return false;
    std::string text;
    if (!copy.problems.empty()) {
        text = fmt::format("The package is not complete; {} could not be copied:",
                           copy.problems.size() == 1 ? "this" : "these");
        AppendLines(text, copy.problems);
    }
    if (!copy.links.empty()) {
        std::vector<std::string> names;
        for (const std::string& link : copy.links)
            names.push_back(platform::ForDisplay(link));
        text += text.empty() ? "" : "\r\n";
        text += "Links that lead elsewhere were left out of the package:";
        AppendLines(text, names);
    }
    context.ui.Show({.text = text});
    return true;
}

std::string CancelledText(const PackageCopy& copy, const std::string& packageFolder) {
    const std::string files =
        copy.copied == 0 ? std::string() : fmt::format("{} of {} files, ", copy.copied, copy.total);
    return "The package was cancelled. What was already made stays: " + files + platform::ForDisplay(packageFolder);
}

} // namespace tamarind::routes
