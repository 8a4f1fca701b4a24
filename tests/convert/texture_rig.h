#pragma once

#include "convert/game_rig.h"
#include "convert/texture_sample.h"

#include <string>
#include <vector>

namespace tamarind::tests {

/// A game texture "Wall.TgPcDx", open in the text editor.
class TextureRig : public GameRig {
protected:
    TextureRig() : wall(folder / "Game\\Wall.TgPcDx"), base(folder / "Kit\\TempFiles\\Wall.") {
        rig.session.FileBaseName = "Wall.";
        rig.session.TempBase = base;
        rig.session.RSFileLoaded = true;
        rig.view.ShowFilePath(wall);
    }

    void SetTexture(std::string_view format, const std::vector<BlobText>& blobs) {
        rig.view.SetEditorText(TextureText(format, "4", "4", blobs));
    }
    [[nodiscard]] bool TempHas(std::string_view name) const {
        return folder.Disk().EntryExists(folder / ("Kit\\TempFiles\\" + std::string(name)));
    }

    std::string wall; ///< the game file's path
    std::string base; ///< its working files' path without ending
};

} // namespace tamarind::tests
