#include "platform/posix/open_files.h"

#include "platform/posix/system_error.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tamarind::platform {
namespace {

class PosixInputFile final : public InputFile {
public:
    PosixInputFile(Descriptor file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}

    std::size_t Read(std::span<char> buffer) override {
        for (;;) {
            const ssize_t count = read(file_.Number(), buffer.data(), buffer.size());
            if (count >= 0) {
                return static_cast<std::size_t>(count);
            }
            if (errno != EINTR) {
                ThrowSystemError(errno, path_);
            }
        }
    }

private:
    Descriptor file_;
    std::string path_;
};

class PosixOutputFile final : public OutputFile {
public:
    PosixOutputFile(Descriptor file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}

    void Write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t count = write(file_.Number(), bytes.data(), bytes.size());
            if (count > 0) {
                bytes.remove_prefix(static_cast<std::size_t>(count));
            } else if (count == 0 || errno != EINTR) {
                ThrowSystemError(count == 0 ? ENOSPC : errno, path_);
            }
        }
    }

    void Flush() override {
        while (fsync(file_.Number()) != 0) {
            if (errno == EINVAL || errno == ENOTSUP || errno == EROFS) {
                return; // no file on a disk: a pipe, a terminal
            }
            if (errno != EINTR) {
                ThrowSystemError(errno, path_);
            }
        }
    }

    void Close() override {
        const int number = file_.Release();
        // After EINTR the descriptor is closed nevertheless.
        if (number >= 0 && close(number) != 0 && errno != EINTR) {
            ThrowSystemError(errno, path_);
        }
    }

private:
    Descriptor file_;
    std::string path_;
};

} // namespace

Descriptor::~Descriptor() {
    if (number_ >= 0) {
        close(number_);
    }
}

int Descriptor::Release() { return std::exchange(number_, -1); }

Descriptor OpenDescriptor(const std::string& native, int flags, unsigned mode) {
    int number = -1;
    do {
        number = open(native.c_str(), flags | O_CLOEXEC, mode);
    } while (number < 0 && errno == EINTR);
    return Descriptor(number);
}

std::unique_ptr<InputFile> OpenInput(const std::string& native, const std::string& path) {
    // Without O_NONBLOCK, opening a pipe that nobody writes to would hang.
    Descriptor file = OpenDescriptor(native, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    struct stat status = {};
    if (!file.IsOpen() || fstat(file.Number(), &status) != 0) {
        ThrowSystemError(errno, path);
    }
    if (S_ISDIR(status.st_mode)) {
        ThrowSystemError(EISDIR, path);
    }
    const int flags = fcntl(file.Number(), F_GETFL);
    if (flags < 0 || fcntl(file.Number(), F_SETFL, flags & ~O_NONBLOCK) != 0) {
        ThrowSystemError(errno, path);
    }
    return std::make_unique<PosixInputFile>(std::move(file), path);
}

std::unique_ptr<OutputFile> OpenOutput(const std::string& native, const std::string& path, CreateMode mode) {
    const int flags = O_WRONLY | O_CREAT | O_NOCTTY | (mode == CreateMode::New ? O_EXCL : O_TRUNC);
    Descriptor file = OpenDescriptor(native, flags, 0666);
    if (!file.IsOpen()) {
        ThrowSystemError(errno, path);
    }
    return std::make_unique<PosixOutputFile>(std::move(file), path);
}

} // namespace tamarind::platform
