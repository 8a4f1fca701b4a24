#pragma once

#include "document/open_document.h"
#include "platform/converter.h"
#include "platform/platform.h"
#include "platform/ui.h"
#include "session/editor_view.h"
#include "session/session.h"

#include <functional>

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

/// Carries out a command, and handles an error that the command does not handle itself; windows have it of the main
/// one.
using CommandRunner = std::function<void(const std::function<void(EditorContext&)>& command)>;

} // namespace tamarind::session
