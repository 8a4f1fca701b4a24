#include "editors/page_state.h"

namespace tamarind::editors {

PageState StateOfPages(const session::Session& session) {
    if (session.UsesTreeEditor()) {
        return {.textCaption = "Warning: You are using XML editor, any changes you make on this page will not be saved",
                .textWarns = true,
                .treeCaption = "XML Editor",
                .treeWarns = false,
                .textFilesMenu = false};
    }
    return {.textCaption = "Tamarind Editor",
            .textWarns = false,
            .treeCaption =
                "Warning: You are using Tamarind editor, any changes you make on this page will not be saved",
            .treeWarns = true,
            .textFilesMenu = true};
}

} // namespace tamarind::editors
