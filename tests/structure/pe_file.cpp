#include "structure/pe_file.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <filesystem>

namespace tamarind::tests {
namespace {

/// Start of the mapped file: the low bits of such a handle are flags.
const std::byte* BaseOf(HMODULE module) {
    return reinterpret_cast<const std::byte*>(reinterpret_cast<std::uintptr_t>(module) & ~std::uintptr_t{3});
}

template <class T> T ReadAt(const std::byte* place) {
    T value;
    std::memcpy(&value, place, sizeof value);
    return value;
}

std::string LowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::wstring BesideThisProgram(const std::string& name) {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.rfind(L'\\') + 1) + std::wstring(name.begin(), name.end());
}

BOOL CALLBACK CollectResource(HMODULE module, LPCWSTR type, LPWSTR name, LONG_PTR target) {
    HRSRC found = FindResourceW(module, name, type);
    const void* const data = LockResource(LoadResource(module, found));
    reinterpret_cast<std::vector<std::string>*>(target)->emplace_back(static_cast<const char*>(data),
                                                                      SizeofResource(module, found));
    return TRUE;
}

} // namespace

PeFile::PeFile(const std::string& name)
    : path_(BesideThisProgram(name)), module_(LoadLibraryExW(path_.c_str(), nullptr, LOAD_LIBRARY_AS_IMAGE_RESOURCE)) {
    EXPECT_NE(module_, nullptr) << name;
}

PeFile::~PeFile() { FreeLibrary(static_cast<HMODULE>(module_)); }

std::set<std::string> PeFile::Imports() const {
    const std::byte* const base = BaseOf(static_cast<HMODULE>(module_));
    const auto dos = ReadAt<IMAGE_DOS_HEADER>(base);
    const auto headers = ReadAt<IMAGE_NT_HEADERS64>(base + dos.e_lfanew);
    EXPECT_EQ(headers.Signature, static_cast<DWORD>(IMAGE_NT_SIGNATURE));
    const auto& table = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    std::set<std::string> names;
    for (DWORD place = table.VirtualAddress;; place += sizeof(IMAGE_IMPORT_DESCRIPTOR)) {
        const auto import = ReadAt<IMAGE_IMPORT_DESCRIPTOR>(base + place);
        if (import.Name == 0) return names;
        names.insert(LowerCase(reinterpret_cast<const char*>(base + import.Name)));
    }
}

std::vector<std::string> PeFile::Resources(std::uint16_t type) const {
    std::vector<std::string> contents;
    EnumResourceNamesW(static_cast<HMODULE>(module_), MAKEINTRESOURCEW(type), CollectResource,
                       reinterpret_cast<LONG_PTR>(&contents));
    return contents;
}

std::uint64_t PeFile::Size() const { return std::filesystem::file_size(path_); }

std::string PeFile::FileVersion() const {
    DWORD ignored = 0;
    std::vector<std::byte> block(GetFileVersionInfoSizeW(path_.c_str(), &ignored));
    void* found = nullptr;
    UINT size = 0;
    if (GetFileVersionInfoW(path_.c_str(), 0, static_cast<DWORD>(block.size()), block.data()) == 0 ||
        VerQueryValueW(block.data(), L"\\", &found, &size) == 0) {
        return {};
    }
    const auto info = ReadAt<VS_FIXEDFILEINFO>(static_cast<const std::byte*>(found));
    return std::to_string(HIWORD(info.dwFileVersionMS)) + "." + std::to_string(LOWORD(info.dwFileVersionMS)) + "." +
           std::to_string(HIWORD(info.dwFileVersionLS)) + "." + std::to_string(LOWORD(info.dwFileVersionLS));
}

} // namespace tamarind::tests
