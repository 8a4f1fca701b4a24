#pragma once

#include "session/editor_context.h"
#include "support/fake_editor_view.h"
#include "support/fake_processes.h"
#include "support/fake_registry.h"
#include "support/scripted_ui.h"

#include <string>

namespace tamarind::tests {

/// All that a command of the main window works with, none of it the real thing but, where a test wants it, the disk.
class EditorRig {
public:
    EditorRig(platform::Files& files, const std::string& programFolder)
        : context{session, document, {files, processes, registry}, ui, view} {
        session.ProgramFolder = programFolder;
    }
    EditorRig(const EditorRig&) = delete;
    EditorRig& operator=(const EditorRig&) = delete;

    FakeProcesses processes;
    FakeRegistry registry;
    ScriptedUserInterface ui;
    FakeEditorView view;
    session::Session session;
    document::OpenDocument document;
    session::EditorContext context;
};

} // namespace tamarind::tests
