// The board window's layout and the page operations that change it.
#include "platform/DeviceScreen.h"
#include "skin/ButtonPanel.h"
#include "skin/Skin.h"
#include "view/BoardWindow.h"
#include "win/RectConvert.h"

void BoardWindow::Layout() {
    if (hwnd_ == nullptr)
        return;
    RECT client;
    GetClientRect(hwnd_, &client);
    if (client.right - client.left == 0 || client.bottom - client.top == 0)
        return;
    const bool landscape =
        IsLandscape(device::SystemMetrics(SM_CXSCREEN), device::SystemMetrics(SM_CYSCREEN));
    const int thickness = panel_ ? panel_->Thickness() : 0;
    const PanelPlacement placed = PlacePanel(FromRECT(client), landscape, thickness, thickness);
    if (panel_) {
        // Moved without a repaint of its own; it paints with the board's next paint.
        SetWindowPos(panel_->Hwnd(), nullptr, placed.panel.left, placed.panel.top,
                     placed.panel.Width(), placed.panel.Height(),
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
        InvalidateRect(panel_->Hwnd(), nullptr, FALSE);
    }
    const int cellW = skin_ ? skin_->CellWidth() : 0;
    const int cellH = skin_ ? skin_->CellHeight() : 0;
    geometry_.Layout(placed.usableWidth, placed.usableHeight, cellW, cellH, board_.MaxSlot());
    UpdateArrows();
}

void BoardWindow::UpdateArrows() {
    const Arrows now = geometry_.ArrowsNow();
    if (panel_ && now.prev != arrows_.prev)
        panel_->SetButtonEnabled(0, now.prev);
    if (panel_ && now.next != arrows_.next)
        panel_->SetButtonEnabled(1, now.next);
    arrows_ = now;
}

void BoardWindow::SetBigButtons(bool big) {
    if (!skin_ || !skin_->SetBigButtons(big))
        return;
    if (skin_->CellWidth() == buttonW_ && skin_->CellHeight() == buttonH_)
        return;
    // Photos were made for the old size: drop them so they are read again at the new one.
    buttonW_ = skin_->CellWidth();
    buttonH_ = skin_->CellHeight();
    photos_.Clear();
}

void BoardWindow::RefreshContacts() {
    photos_.Clear();
    board_.Refresh();
    Layout();
    if (hwnd_ != nullptr)
        InvalidateRect(hwnd_, nullptr, FALSE);
}

void BoardWindow::GrowByPage() {
    geometry_.GrowByPage();
    UpdateArrows();
}

void BoardWindow::DeletePage() {
    const DeletePagePlan plan = geometry_.PlanDeletePage();
    Array<int32_t> slots;
    for (int32_t slot : plan.deleted)
        slots.Add(slot);
    board_.DeleteSlots(slots);
    for (const auto& [from, to] : plan.moves) {
        if (board_.FindBySlot(from) >= 0)
            board_.MoveSlot(from, to);
    }
    geometry_.ApplyDeletePage(plan);
    UpdateArrows();
    InvalidateRect(hwnd_, nullptr, FALSE);
}

void BoardWindow::MoveButton(int position, MoveDirection direction) {
    const int32_t slot = geometry_.SlotOf(position);
    if (slot < 0 || board_.FindBySlot(slot) < 0)
        return;
    const MoveResult target = geometry_.MoveTarget(position, direction);
    if (!target.valid)
        return;
    if (target.page != geometry_.Page()) {
        geometry_.SetPage(target.page);
        UpdateArrows();
    }
    board_.MoveSlot(slot, geometry_.SlotOf(target.position));
    if (geometry_.Selected() == position)
        geometry_.SetSelected(target.position);
    InvalidateRect(hwnd_, nullptr, FALSE);
}

void BoardWindow::ClearButton(int position) {
    const int32_t slot = geometry_.SlotOf(position);
    Array<int32_t> slots;
    slots.Add(slot);
    board_.DeleteSlots(slots);
    RepaintCell(position);
}

void BoardWindow::SetCellPressed(int position, bool pressed) {
    if (position < 0 || position >= kMaxButtonsPerPage || cellPressed_[position] == pressed)
        return;
    cellPressed_[position] = pressed;
    RepaintCell(position);
}

void BoardWindow::RepaintCell(int position) {
    if (hwnd_ == nullptr || position < 0 || position >= kMaxButtonsPerPage)
        return;
    const RECT cell = ToRECT(geometry_.Cell(position));
    InvalidateRect(hwnd_, &cell, FALSE);
    UpdateWindow(hwnd_);
}
