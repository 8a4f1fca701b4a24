#include "platform/platform.h"
#include "platform/windows/wide.h"

#include <windows.h>

namespace tamarind::platform {
namespace {

constexpr REGSAM kRead = 0x20019; // KEY_READ
constexpr DWORD kFirstBuffer = 1024;

/// An open key, closed at the end of a scope.
class Key {
public:
    Key(HKEY root, const std::wstring& path, REGSAM view) {
        if (RegOpenKeyExW(root, path.c_str(), 0, kRead | view, &key_) != ERROR_SUCCESS) {
            key_ = nullptr;
        }
    }
    ~Key() {
        if (key_ != nullptr) {
            RegCloseKey(key_);
        }
    }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    [[nodiscard]] std::optional<StoredValue> Query(const std::wstring& name) const {
        if (key_ == nullptr) {
            return std::nullopt;
        }
        StoredValue value;
        DWORD type = 0;
        DWORD size = kFirstBuffer;
        LONG result = ERROR_MORE_DATA;
        while (result == ERROR_MORE_DATA) { // the value may grow between two questions
            value.bytes.resize(size);
            result = RegQueryValueExW(key_, name.c_str(), nullptr, &type, value.bytes.data(), &size);
        }
        if (result != ERROR_SUCCESS) {
            return std::nullopt;
        }
        value.bytes.resize(size);
        value.type = static_cast<RegistryType>(type);
        return value;
    }

private:
    HKEY key_ = nullptr;
};

class WindowsRegistry final : public Registry {
public:
    std::optional<StoredValue> Read(RootKey root, const std::string& keyPath, const std::string& valueName) override {
        const HKEY rootKey = root == RootKey::LocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
        // The game's setup was a 32-bit program: what it wrote stands in the other view.
        for (const REGSAM view : {REGSAM{KEY_WOW64_64KEY}, REGSAM{KEY_WOW64_32KEY}}) {
            std::optional<StoredValue> value = Key(rootKey, ToWide(keyPath), view).Query(ToWide(valueName));
            if (value) {
                return value;
            }
        }
        return std::nullopt;
    }
};

} // namespace

std::unique_ptr<Registry> MakeRegistry() { return std::make_unique<WindowsRegistry>(); }

} // namespace tamarind::platform
