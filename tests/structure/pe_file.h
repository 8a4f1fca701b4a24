#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace tamarind::tests {

/// A finished Windows program, read as the system reads it.
class PeFile {
public:
    /// Beside the running program.
    explicit PeFile(const std::string& name);
    ~PeFile();
    PeFile(const PeFile&) = delete;
    PeFile& operator=(const PeFile&) = delete;

    /// Names of the libraries that it needs, in lower case.
    [[nodiscard]] std::set<std::string> Imports() const;
    /// The contents of all resources of a type (RT_MANIFEST, …).
    [[nodiscard]] std::vector<std::string> Resources(std::uint16_t type) const;
    /// "N.N.N.0" of the version resource; empty when there is none.
    [[nodiscard]] std::string FileVersion() const;
    /// Bytes of the file.
    [[nodiscard]] std::uint64_t Size() const;

private:
    std::wstring path_;
    void* module_; ///< mapped as data
};

} // namespace tamarind::tests
