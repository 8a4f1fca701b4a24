#pragma once

#include "session/editor_context.h"

#include <span>
#include <string_view>

/// The menus of the main window, in one table: the window builds its menus from it.
namespace tamarind::shell {

using CommandFunction = void (*)(session::EditorContext&);
using EnabledFunction = bool (*)(const session::EditorContext&);

struct Menu {
    std::string_view name;
    std::string_view caption;
};

struct MenuItem {
    std::string_view menu;
    std::string_view name; ///< also names the handler
    std::string_view caption;
    CommandFunction command;             ///< what the item does
    EnabledFunction isEnabled = nullptr; ///< null: always
    std::string_view shortcut = {};      ///< as "Ctrl+O"; empty for none
};

/// In order from left to right. mnuFileS and mnuFile take the same place, one at a time; mnuNodePopUp only pops up.
[[nodiscard]] std::span<const Menu> Menus();
/// In order from top to bottom within each menu.
[[nodiscard]] std::span<const MenuItem> MenuItems();
[[nodiscard]] bool IsItemEnabled(const MenuItem& item, const session::EditorContext& context);

} // namespace tamarind::shell
