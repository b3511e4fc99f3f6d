#pragma once
// PopupMenu: the one place a MenuModel becomes a Win32 pop-up menu and is shown. The menu is
// built fresh, tracked with TPM_RETURNCMD (the choice comes back instead of being posted) and
// destroyed. Tests install a chooser that stands in for the person at the menu.

#include <windows.h>

#include <cstdint>
#include <functional>

#include "base/Geometry.h"
#include "base/MenuModel.h"

/// Builds the pop-up menu of `model` (sub-menus included); the caller destroys it.
HMENU BuildPopupMenu(const MenuModel& model);

/// Answers a menu in place of the person: gets the model, the screen point and the alignment,
/// and returns the id chosen (0 for none).
using MenuChooser = std::function<uint32_t(const MenuModel&, Point, MenuAlign)>;

/// Shows `model` at screen point `at` for `owner` and returns the chosen id, 0 when the menu was
/// dismissed. With a chooser installed, the chooser answers instead.
uint32_t TrackPopup(HWND owner, const MenuModel& model, Point at, MenuAlign align);

/// Installs a chooser (an empty one puts the real menu back); returns the previous one.
MenuChooser InstallMenuChooser(MenuChooser chooser);
