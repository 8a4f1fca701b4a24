#include "support/faulty_files.h"

#include "text/runtime_error.h"

#include <cstdlib>
#include <utility>

namespace tamarind::tests {
namespace {

text::ErrorNumber NumberOf(FaultKind kind) {
    switch (kind) {
    case FaultKind::IoError: return text::ErrorNumber::DeviceIoError;
    case FaultKind::AccessDenied: return text::ErrorNumber::PermissionDenied;
    case FaultKind::NoSpace:
    case FaultKind::ShortWrite:
    case FaultKind::Stop: break;
    }
    return text::ErrorNumber::DiskFull;
}

} // namespace

class FaultyFiles::File : public platform::OutputFile {
public:
    File(FaultyFiles& owner, std::unique_ptr<platform::OutputFile> inner, std::string path)
        : owner_(owner), inner_(std::move(inner)), path_(std::move(path)) {}

    void Write(std::string_view bytes) override {
        owner_.Change("Write", path_, [&] { inner_->Write(bytes.substr(0, bytes.size() / 2)); });
        inner_->Write(bytes);
    }
    void Flush() override {
        owner_.Change("Flush", path_);
        inner_->Flush();
    }
    /// The file is closed even where that fails.
    void Close() override {
        const std::unique_ptr<platform::OutputFile> closing = std::move(inner_);
        owner_.Change("Close", path_);
        closing->Close();
    }

private:
    FaultyFiles& owner_;
    std::unique_ptr<platform::OutputFile> inner_;
    std::string path_;
};

std::vector<std::string> FaultyFiles::Changes() const {
    const std::lock_guard lock(mutex_);
    return changes_;
}

bool FaultyFiles::HasStruck() const {
    const std::lock_guard lock(mutex_);
    return hasStruck_;
}

void FaultyFiles::Change(const char* name, const std::string& path, const std::function<void()>& half) {
    const std::lock_guard lock(mutex_);
    changes_.emplace_back(name);
    const int number = static_cast<int>(changes_.size());
    const bool strikes = fault_.at > 0 && (number == fault_.at || (fault_.forever && number > fault_.at));
    if (!strikes) {
        return;
    }
    hasStruck_ = true;
    if ((fault_.kind == FaultKind::ShortWrite || fault_.kind == FaultKind::Stop) && half) {
        half();
    }
    if (fault_.kind == FaultKind::Stop) {
        std::_Exit(kStoppedByFault);
    }
    throw text::RuntimeError(NumberOf(fault_.kind), path);
}

std::unique_ptr<platform::OutputFile> FaultyFiles::Create(const std::string& path, platform::CreateMode mode) {
    Change("Create", path);
    return std::make_unique<File>(*this, inner_.Create(path, mode), path);
}

void FaultyFiles::Rename(const std::string& from, const std::string& to) {
    Change("Rename", to);
    inner_.Rename(from, to);
}

void FaultyFiles::Replace(const std::string& from, const std::string& to) {
    Change("Replace", to);
    inner_.Replace(from, to);
}

void FaultyFiles::HardLink(const std::string& from, const std::string& to) {
    Change("HardLink", to);
    inner_.HardLink(from, to);
}

void FaultyFiles::CopyAttributes(const std::string& from, const std::string& to) {
    Change("CopyAttributes", to);
    inner_.CopyAttributes(from, to);
}

void FaultyFiles::MakeWritable(const std::string& path) {
    Change("MakeWritable", path);
    inner_.MakeWritable(path);
}

void FaultyFiles::Remove(const std::string& path, bool force) {
    Change("Remove", path);
    inner_.Remove(path, force);
}

void FaultyFiles::CreateFolder(const std::string& path) {
    Change("CreateFolder", path);
    inner_.CreateFolder(path);
}

void FaultyFiles::RemoveFolder(const std::string& path) {
    Change("RemoveFolder", path);
    inner_.RemoveFolder(path);
}

bool FaultyFiles::MoveToTrash(const std::string& path) {
    Change("MoveToTrash", path);
    if (trash.empty()) {
        return false;
    }
    inner_.Rename(path, trash + path.substr(path.rfind('\\')));
    return true;
}

} // namespace tamarind::tests
