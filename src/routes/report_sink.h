#pragma once

#include "session/editor_context.h"

#include <string>

namespace tamarind::routes {

/// Where reports are shown: the report window, or a list of the terminal's.
class ReportSink {
public:
    virtual ~ReportSink() = default;
    /// Shows a text; lines end with CR LF. Returns when it was read, or at once where nobody reads it.
    virtual void ShowReport(const std::string& text) = 0;
};

/// The save command of the report window: asks for a file and writes the text. Returns whether it was written.
bool SaveReport(session::EditorContext& context, const std::string& text);

} // namespace tamarind::routes
