#include "platform/paths.h"
#include "platform/program_folder.h"

namespace tamarind::platform {

// Installed for one person, into a folder of that person's.
std::string ProgramFolder() { return ExecutableFolder(); }

void PrepareProgramFolder() {}

} // namespace tamarind::platform
