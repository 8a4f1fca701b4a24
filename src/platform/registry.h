#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tamarind::platform {

enum class RootKey { LocalMachine, CurrentUser };

/// The registry's own numbers of value types.
enum class RegistryType : std::uint32_t {
    None = 0,
    Text = 1,
    ExpandableText = 2,
    Binary = 3,
    DoubleWord = 4,
    MultipleText = 7,
};

/// Nothing, text (UTF-8; of a multiple text with its inner zeros), bytes, or a signed 32-bit number.
using RegistryValue = std::variant<std::monostate, std::string, std::vector<std::uint8_t>, std::int32_t>;

/// A value as stored: for the text types little-endian UTF-16.
struct StoredValue {
    RegistryType type = RegistryType::None;
    std::vector<std::uint8_t> bytes;
};

class Registry {
public:
    virtual ~Registry() = default;
    /// Nothing when the key cannot be opened for reading or holds no such value. An empty name is the unnamed value.
    [[nodiscard]] virtual std::optional<StoredValue> Read(RootKey root, const std::string& keyPath,
                                                          const std::string& valueName) = 0;
};

/// Text without its terminating zero (a multiple text without its last two characters), bytes, or a number.
/// Throws UnsupportedValueType for any other type.
[[nodiscard]] RegistryValue DecodeRegistryValue(const StoredValue& stored);

/// The value, or `defaultValue` when it cannot be read. Throws UnsupportedValueType.
[[nodiscard]] RegistryValue GetRegistryValue(Registry& registry, RootKey root, const std::string& keyPath,
                                             const std::string& valueName, const RegistryValue& defaultValue = {});

} // namespace tamarind::platform
