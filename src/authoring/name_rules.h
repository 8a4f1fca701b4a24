#pragma once

#include <string>
#include <string_view>

/// Names that people type for folders and files to be made.
namespace tamarind::authoring {

/// Why no folder can bear that name on every system, as a sentence; empty when one can.
[[nodiscard]] std::string FolderNameRefusal(std::string_view name);

/// The same for the file name + `ending`, such as ".xml".
[[nodiscard]] std::string FileNameRefusal(std::string_view name, std::string_view ending);

} // namespace tamarind::authoring
