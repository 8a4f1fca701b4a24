#include "editors/node_path.h"

#include <fmt/format.h>

namespace tamarind::editors {

std::string PathOf(const document::clsNode& node) {
    std::string path;
    for (const document::clsNode* step = &node; step->ParentNode != nullptr; step = step->ParentNode) {
        std::size_t position = 0;
        std::size_t count = 0;
        for (const document::clsNode* const sibling : step->ParentNode->ChildNodes) {
            if (sibling->NodeName == step->NodeName) ++count;
            if (sibling == step) position = count;
        }
        path.insert(0,
                    count > 1 ? fmt::format("/{}[{}]", step->NodeName, position) : fmt::format("/{}", step->NodeName));
    }
    return path;
}

} // namespace tamarind::editors
