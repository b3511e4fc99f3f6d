#pragma once
// MenuModel: a pop-up menu as plain data (items, ids, checks, separators, sub-menus), so the
// board's menus are built and checked without a window; win/PopupMenu.h turns one into the
// platform's menu in one place.

#include <cstdint>
#include <vector>

#include "base/Str.h"

/// Where a pop-up menu stands against the point it opens at.
enum class MenuAlign {
    kTopLeft,     ///< the point is the menu's top-left corner
    kRightTop,    ///< the point is its top-right corner (landscape: the panel is at the right)
    kLeftBottom,  ///< the point is its bottom-left corner (portrait: the panel is at the bottom)
};

struct MenuItem;

class MenuModel {
  public:
    /// A command item; returns it so a caller may check or disable it.
    MenuItem& Add(uint32_t id, const Str& text, bool checked = false);
    /// An item that shows a text and cannot be chosen.
    MenuItem& AddInert(uint32_t id, const Str& text);
    void AddSeparator();
    /// A sub-menu titled `text`; fill it through the returned model.
    MenuModel& AddSub(const Str& text);

    int Count() const;
    const MenuItem& At(int i) const;
    /// The first command item with `id`, searching sub-menus too; null when none.
    const MenuItem* Find(uint32_t id) const;
    /// The command ids of every item, sub-menus included, in menu order.
    std::vector<uint32_t> Ids() const;
    /// True when no two command items of the whole menu share an id.
    bool IdsUnique() const;

  private:
    std::vector<MenuItem> items_;
};

enum class MenuItemKind { kCommand, kSeparator, kSubMenu };

struct MenuItem {
    MenuItemKind kind = MenuItemKind::kCommand;
    uint32_t id = 0;
    Str text;
    bool checked = false;
    bool enabled = true;
    MenuModel sub;  ///< the items of a sub-menu
};
