#pragma once

#include "session/editor_context.h"

#include <string>

namespace tamarind::convert {

struct Imported {
    enum class Ending { Done, Refused, Declined };
    Ending ending = Ending::Declined;
    std::string file = {};   ///< the game file
    std::string backup = {}; ///< where its old content is now; empty when all backup names were taken
};

/// Asks for a .dds file that ExportTexture wrote and somebody changed, and puts its pixels into the game file.
Imported ImportTexture(session::EditorContext& context);

/// The same for a file that is known. The game file's old content gets a backup name before the converter runs; when it
/// then fails, the person is offered to have it put back. Throws RuntimeError, whose details say where the old content
/// is.
Imported ImportTextureFrom(session::EditorContext& context, const std::string& dds);

} // namespace tamarind::convert
