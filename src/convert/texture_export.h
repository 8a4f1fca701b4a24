#pragma once

#include "session/editor_context.h"

#include <string>

namespace tamarind::convert {

struct Exported {
    bool done = false;
    std::string dds; ///< the picture, for image programs
    std::string dat; ///< its companion, for the way back
};

/// Writes the texture in the text editor to TempFiles as a .dds file and its companion. What cannot be converted is
/// said in a message; an earlier .dds is gone then. Throws RuntimeError: Overflow for a width or height above 32767 or
/// sizes beyond 32 bits, SubscriptOutOfRange for more hex text than a blob's size, and those of the disk; then there
/// is no new picture with an older companion.
Exported ExportTexture(session::EditorContext& context);

} // namespace tamarind::convert
