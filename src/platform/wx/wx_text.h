#pragma once

#include <wx/string.h>

#include <string>
#include <string_view>

/// The program's UTF-8 as the window system's text and back.
namespace tamarind::platform {

[[nodiscard]] inline wxString ToWx(std::string_view text) { return wxString::FromUTF8(text.data(), text.size()); }
[[nodiscard]] inline std::string FromWx(const wxString& text) { return text.utf8_string(); }

} // namespace tamarind::platform
