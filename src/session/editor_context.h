#pragma once

#include "document/open_document.h"
#include "platform/converter.h"
#include "platform/platform.h"
#include "platform/ui.h"
#include "session/editor_view.h"
#include "session/session.h"

namespace tamarind::session {

/// What every command of the main window works with.
struct EditorContext {
    Session& session;
    document::OpenDocument& document;
    platform::Platform platform;
    platform::UserInterface& ui;
    EditorView& view;

    [[nodiscard]] platform::ConverterFolders ConverterFolders() const {
        return {session.ProgramFolder, session.RailSimPath};
    }
};

} // namespace tamarind::session
