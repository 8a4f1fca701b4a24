#pragma once

#include <string>

namespace tamarind::platform {

/// Moves an entry into the trash of the person's home, with the note that file managers put it back by. False, and
/// nothing changed, when there is no such trash or it lies on another disk. Throws the RuntimeError of a failure;
/// `path` names the entry as the program spells it.
bool MoveToNativeTrash(const std::string& native, const std::string& path);

} // namespace tamarind::platform
