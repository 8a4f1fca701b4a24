#include "authoring/made_folders.h"

#include "text/runtime_error.h"

#include <algorithm>
#include <utility>

namespace tamarind::authoring {

void MadeFolders::Make(const std::string& path) {
    files_.CreateFolder(path);
    made_.push_back(path);
}

std::vector<std::string> MadeFolders::TakeBack() {
    std::vector<std::string> left;
    while (!made_.empty()) {
        try {
            files_.RemoveFolder(made_.back());
        } catch (const text::RuntimeError&) {
            left.push_back(std::move(made_.back())); // told by the caller
        }
        made_.pop_back();
    }
    std::reverse(left.begin(), left.end());
    return left;
}

} // namespace tamarind::authoring
