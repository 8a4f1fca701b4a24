#pragma once

#include "platform/registry.h"

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace tamarind::tests {

/// A registry that holds what a test puts in, below HKEY_LOCAL_MACHINE. By key path and value name.
class FakeRegistry : public platform::Registry {
public:
    std::map<std::pair<std::string, std::string>, platform::StoredValue> values;

    /// Stores ASCII text as little-endian UTF-16 with its terminating zero.
    void SetText(const std::string& keyPath, const std::string& valueName, const std::string& text) {
        platform::StoredValue& value = values[{keyPath, valueName}];
        value.type = platform::RegistryType::Text;
        value.bytes.clear();
        for (const char c : text + '\0') {
            value.bytes.push_back(static_cast<std::uint8_t>(c));
            value.bytes.push_back(0);
        }
    }

    std::optional<platform::StoredValue> Read(platform::RootKey root, const std::string& keyPath,
                                              const std::string& valueName) override {
        const auto found = values.find({keyPath, valueName});
        if (root != platform::RootKey::LocalMachine || found == values.end()) {
            return std::nullopt;
        }
        return found->second;
    }
};

} // namespace tamarind::tests
