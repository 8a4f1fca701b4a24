#include "platform/paths.h"
#include "platform/posix/native_path.h"
#include "platform/posix/shared_installation.h"
#include "platform/program_folder.h"

namespace tamarind::platform {
namespace {

struct Place {
    std::string installation; ///< native
    std::string own;          ///< native; empty where the installation's folder is the program's
};

Place FindPlace() {
    Place place{ToNative(ExecutableFolder()), {}};
    if (IsSharedInstallation(place.installation)) place.own = OwnProgramFolder();
    return place;
}

} // namespace

std::string ProgramFolder() {
    const Place place = FindPlace();
    return ProgramSpelling(place.own.empty() ? place.installation : place.own);
}

void PrepareProgramFolder() {
    const Place place = FindPlace();
    if (!place.own.empty()) LinkInstalledFiles(place.installation, place.own);
}

} // namespace tamarind::platform
