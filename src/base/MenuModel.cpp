#include "base/MenuModel.h"

#include <algorithm>

MenuItem& MenuModel::Add(uint32_t id, const Str& text, bool checked) {
    MenuItem item;
    item.id = id;
    item.text = text;
    item.checked = checked;
    items_.push_back(item);
    return items_.back();
}

MenuItem& MenuModel::AddInert(uint32_t id, const Str& text) {
    MenuItem& item = Add(id, text);
    item.enabled = false;
    return item;
}

void MenuModel::AddSeparator() {
    MenuItem item;
    item.kind = MenuItemKind::kSeparator;
    items_.push_back(item);
}

MenuModel& MenuModel::AddSub(const Str& text) {
    MenuItem item;
    item.kind = MenuItemKind::kSubMenu;
    item.text = text;
    items_.push_back(item);
    return items_.back().sub;
}

int MenuModel::Count() const {
    return static_cast<int>(items_.size());
}

const MenuItem& MenuModel::At(int i) const {
    return items_[static_cast<size_t>(i)];
}

const MenuItem* MenuModel::Find(uint32_t id) const {
    for (const MenuItem& item : items_) {
        if (item.kind == MenuItemKind::kCommand && item.id == id)
            return &item;
        if (item.kind == MenuItemKind::kSubMenu) {
            if (const MenuItem* found = item.sub.Find(id))
                return found;
        }
    }
    return nullptr;
}

std::vector<uint32_t> MenuModel::Ids() const {
    std::vector<uint32_t> ids;
    for (const MenuItem& item : items_) {
        if (item.kind == MenuItemKind::kCommand)
            ids.push_back(item.id);
        if (item.kind == MenuItemKind::kSubMenu) {
            const std::vector<uint32_t> more = item.sub.Ids();
            ids.insert(ids.end(), more.begin(), more.end());
        }
    }
    return ids;
}

bool MenuModel::IdsUnique() const {
    std::vector<uint32_t> ids = Ids();
    std::sort(ids.begin(), ids.end());
    return std::adjacent_find(ids.begin(), ids.end()) == ids.end();
}
