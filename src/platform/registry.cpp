#include "platform/registry.h"

#include "text/code_page.h"
#include "text/runtime_error.h"

#include <algorithm>

namespace tamarind::platform {
namespace {

/// The stored characters without `zeros` terminating zeros, fewer where fewer stand at the end.
std::string DecodeText(const std::vector<std::uint8_t>& bytes, int zeros) {
    std::size_t size = bytes.size() / 2 * 2;
    for (; zeros > 0 && size >= 2 && bytes[size - 1] == 0 && bytes[size - 2] == 0; --zeros) {
        size -= 2;
    }
    std::string marked = "\xFF\xFE"; // fixes the byte order, whatever the text begins with
    marked.append(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
    return text::FromUtf16(marked);
}

std::int32_t DecodeNumber(const std::vector<std::uint8_t>& bytes) {
    std::uint32_t number = 0;
    for (std::size_t i = std::min<std::size_t>(bytes.size(), 4); i > 0; --i) {
        number = number << 8 | bytes[i - 1];
    }
    return static_cast<std::int32_t>(number);
}

} // namespace

RegistryValue DecodeRegistryValue(const StoredValue& stored) {
    switch (stored.type) {
    case RegistryType::Text:
    case RegistryType::ExpandableText: return DecodeText(stored.bytes, 1);
    case RegistryType::MultipleText: return DecodeText(stored.bytes, 2);
    case RegistryType::Binary: return stored.bytes;
    case RegistryType::DoubleWord: return DecodeNumber(stored.bytes);
    case RegistryType::None: break;
    }
    throw text::RuntimeError(text::ErrorNumber::UnsupportedValueType);
}

RegistryValue GetRegistryValue(Registry& registry, RootKey root, const std::string& keyPath,
                               const std::string& valueName, const RegistryValue& defaultValue) {
    const std::optional<StoredValue> stored = registry.Read(root, keyPath, valueName);
    return stored ? DecodeRegistryValue(*stored) : defaultValue;
}

} // namespace tamarind::platform
