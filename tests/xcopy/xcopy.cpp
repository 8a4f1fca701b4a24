// xcopy "FOLDER\*.*" "TARGET\*.*" /I /C /S for tests under Wine, whose own one refuses such a target although Windows
// takes it. It copies the files of the tree, makes the folders that they need, and goes on after failures.
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace fs = std::filesystem;

namespace {

fs::path WithoutAllFiles(const std::wstring& argument) {
    constexpr std::size_t kLength = 4; // "\*.*"
    return argument.ends_with(L"\\*.*") ? argument.substr(0, argument.size() - kLength) : argument;
}

bool CopyTree(const fs::path& from, const fs::path& to) {
    bool isWhole = true;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(from, error)) {
        if (!entry.is_regular_file(error)) continue;
        const fs::path target = to / entry.path().lexically_relative(from);
        fs::create_directories(target.parent_path(), error);
        isWhole = fs::copy_file(entry.path(), target, fs::copy_options::overwrite_existing, error) && isWhole;
    }
    return isWhole && !error;
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    std::vector<fs::path> folders;
    for (int i = 1; i < count; ++i) {
        const std::wstring argument = arguments[i];
        if (!argument.starts_with(L'/')) folders.push_back(WithoutAllFiles(argument));
    }
    constexpr int kWrongUsage = 4;
    if (folders.size() != 2) return kWrongUsage;
    return CopyTree(folders[0], folders[1]) ? 0 : 1;
}
