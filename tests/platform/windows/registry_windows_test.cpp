#include "platform/expect_error.h"
#include "platform/platform.h"

#include <gtest/gtest.h>
#include <windows.h>

// The real registry, below a key of the tests' own that is removed afterwards.
namespace tamarind::platform {
namespace {

const std::string kPath = "Software\\Tamarind Tests\\Installation";
const wchar_t* const kWidePath = L"Software\\Tamarind Tests\\Installation";
const wchar_t* const kWideParent = L"Software\\Tamarind Tests";

class WindowsRegistryTest : public testing::Test {
protected:
    ~WindowsRegistryTest() override {
        for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
            for (const REGSAM view : {REGSAM{KEY_WOW64_64KEY}, REGSAM{KEY_WOW64_32KEY}}) {
                RegDeleteKeyExW(root, kWidePath, view, 0);
                RegDeleteKeyExW(root, kWideParent, view, 0);
            }
        }
    }

    static void Write(const wchar_t* name, DWORD type, const void* data, std::size_t size,
                      HKEY root = HKEY_CURRENT_USER, REGSAM view = KEY_WOW64_64KEY) {
        HKEY key = nullptr;
        ASSERT_EQ(RegCreateKeyExW(root, kWidePath, 0, nullptr, 0, KEY_WRITE | view, nullptr, &key, nullptr), 0);
        EXPECT_EQ(RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(size)), 0);
        RegCloseKey(key);
    }

    static void WriteText(const wchar_t* name, const std::wstring& text, DWORD type = REG_SZ,
                          HKEY root = HKEY_CURRENT_USER, REGSAM view = KEY_WOW64_64KEY) {
        Write(name, type, text.c_str(), (text.size() + 1) * sizeof(wchar_t), root, view);
    }

    RegistryValue Read(const std::string& name, RootKey root = RootKey::CurrentUser) {
        return GetRegistryValue(*registry, root, kPath, name, std::string("the default"));
    }

    std::unique_ptr<Registry> registry = MakeRegistry();
};

RegistryValue Text(std::string_view text) { return std::string(text); }

TEST_F(WindowsRegistryTest, ReadsTheUnnamedValue) {
    WriteText(nullptr, L"c:\\Jeux\\Rail \u00E9");
    EXPECT_EQ(Read(""), Text("c:\\Jeux\\Rail é"));
}

TEST_F(WindowsRegistryTest, ReadsANamedValueAndDoesNotExpandIt) {
    WriteText(L"Path", L"%windir%\\x", REG_EXPAND_SZ);
    EXPECT_EQ(Read("Path"), Text("%windir%\\x"));
}

TEST_F(WindowsRegistryTest, ReadsBytes) {
    const std::vector<std::uint8_t> bytes = {0, 1, 255, 0};
    Write(L"Bytes", REG_BINARY, bytes.data(), bytes.size());
    EXPECT_EQ(Read("Bytes"), RegistryValue(bytes));
}

TEST_F(WindowsRegistryTest, ReadsASignedNumber) {
    const std::int32_t number = -2;
    Write(L"Number", REG_DWORD, &number, sizeof number);
    EXPECT_EQ(Read("Number"), RegistryValue(number));
}

TEST_F(WindowsRegistryTest, ReadsAMultipleTextWithItsInnerZeros) {
    const wchar_t texts[] = L"one\0two\0"; // and the zero that ends every literal
    Write(L"Texts", REG_MULTI_SZ, texts, sizeof texts);
    using namespace std::string_view_literals;
    EXPECT_EQ(Read("Texts"), Text("one\0two"sv));
}

TEST_F(WindowsRegistryTest, ReadsValuesOfMoreThan1024Bytes) {
    WriteText(L"Long", std::wstring(5000, L'x'));
    EXPECT_EQ(Read("Long"), Text(std::string(5000, 'x')));
    const std::vector<std::uint8_t> bytes(3000, 7);
    Write(L"LongBytes", REG_BINARY, bytes.data(), bytes.size());
    EXPECT_EQ(Read("LongBytes"), RegistryValue(bytes));
}

TEST_F(WindowsRegistryTest, ReadsValuesAroundTheFirstBufferSize) {
    for (const std::size_t size : {1023U, 1024U, 1025U}) {
        const std::vector<std::uint8_t> bytes(size, 9);
        Write(L"Bytes", REG_BINARY, bytes.data(), bytes.size());
        EXPECT_EQ(Read("Bytes"), RegistryValue(bytes)) << size;
    }
}

TEST_F(WindowsRegistryTest, RefusesAnUnsupportedType) {
    const std::uint64_t number = 1;
    Write(L"Quad", REG_QWORD, &number, sizeof number);
    EXPECT_EQ(tests::NumberOfError([&] { return Read("Quad"); }), 1001);
}

TEST_F(WindowsRegistryTest, GivesTheDefaultForAMissingKeyOrValue) {
    EXPECT_EQ(Read("Path"), Text("the default"));
    WriteText(L"Other", L"x");
    EXPECT_EQ(Read("Path"), Text("the default"));
    EXPECT_EQ(GetRegistryValue(*registry, RootKey::CurrentUser, kPath, "Path"), RegistryValue());
}

TEST_F(WindowsRegistryTest, FindsWhatA32BitSetupWrote) {
    WriteText(nullptr, L"c:\\game", REG_SZ, HKEY_LOCAL_MACHINE, KEY_WOW64_32KEY);
    EXPECT_EQ(Read("", RootKey::LocalMachine), Text("c:\\game"));
}

TEST_F(WindowsRegistryTest, FindsWhatA64BitSetupWrote) {
    WriteText(nullptr, L"c:\\game64", REG_SZ, HKEY_LOCAL_MACHINE, KEY_WOW64_64KEY);
    EXPECT_EQ(Read("", RootKey::LocalMachine), Text("c:\\game64"));
}

} // namespace
} // namespace tamarind::platform
