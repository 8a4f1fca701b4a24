#pragma once

#include "session/authoring_state.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// The rules by which a blueprint is made of a template, as functions of text alone.
namespace tamarind::authoring {

/// The rows that the window has; each mode uses the first few of them.
inline constexpr std::size_t kBlueprintRows = 5;
using BlueprintTexts = std::array<std::string, kBlueprintRows>;

/// What a mode shows and reads.
struct BlueprintForm {
    const char* heading;
    std::array<const char*, kBlueprintRows> labels; ///< null for a row that the mode does not use
    const char* templateFile;                       ///< below the program's folder, with a "\" in front
    const char* folderCaption;                      ///< of the window that chooses the folder
};
[[nodiscard]] const BlueprintForm& FormOf(session::BlueprintMode mode);

/// The name of a marker file: ".csv" is appended where it does not end so, in any letter case.
[[nodiscard]] std::string WithCsvEnding(std::string_view name);

/// The template with its placeholders replaced, one after the other and wherever they stand: "ZZZZZZ" by the name, then
/// "XXXXXX" by the marker file or the longitude, then, in a route template, "YYYYYY" by the latitude. Texts are
/// inserted as typed.
[[nodiscard]] std::string FillTemplate(std::string_view text, session::BlueprintMode mode, const BlueprintTexts& texts);

/// What goes wrong with a row's text once it stands in XML, as a sentence; empty for nothing.
[[nodiscard]] std::string BlueprintWarning(std::size_t row, std::string_view text);

} // namespace tamarind::authoring
