#pragma once

#include "session/session.h"

#include <string>

namespace tamarind::editors {

/// What the two pages and the "Files" menus show. The pages are not kept in step: the caption of the page that is not
/// in use warns that changes there are lost.
struct PageState {
    std::string textCaption;
    bool textWarns = false;
    std::string treeCaption;
    bool treeWarns = false;
    bool textFilesMenu = true; ///< the text editor's "Files" menu is shown, else the tree editor's and "Nodes"
};

[[nodiscard]] PageState StateOfPages(const session::Session& session);

} // namespace tamarind::editors
