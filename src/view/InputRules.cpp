#include "view/InputRules.h"

KeyMove NavigateKey(uint32_t key, const KeyGrid& grid) {
    KeyMove move;
    move.page = grid.page;
    move.selected = grid.selected;
    switch (key) {
        case board_key::kLeft:
        case board_key::kRight:
        case board_key::kUp:
        case board_key::kDown:
        case board_key::kHome:
        case board_key::kEnd:
            move.handled = true;
            break;
        default:
            return move;
    }
    // An empty board (nothing fits on the screen) has nothing to select.
    if (grid.cols <= 0 || grid.perPage <= 0)
        return move;
    const int32_t s = grid.selected;
    const int32_t column = s % grid.cols;
    switch (key) {
        case board_key::kLeft:
            if (column != 0) {
                move.selected = s - 1;
            } else if (grid.page > 0) {
                move.page = grid.page - 1;
                move.selected = s + grid.cols - 1;
            }
            break;
        case board_key::kRight:
            if (column != grid.cols - 1) {
                // A row cut short by the 24-button cap has no next position.
                if (s + 1 < grid.perPage)
                    move.selected = s + 1;
            } else if (grid.page < grid.pages - 1) {
                move.page = grid.page + 1;
                move.selected = s - grid.cols + 1;
            }
            break;
        case board_key::kUp:
            if (s - grid.cols >= 0)
                move.selected = s - grid.cols;
            break;
        case board_key::kDown:
            if (s + grid.cols < grid.perPage)
                move.selected = s + grid.cols;
            break;
        case board_key::kHome:
            move.selected = 0;
            break;
        case board_key::kEnd:
            move.selected = grid.perPage - 1;
            break;
        default:
            break;
    }
    move.pageChanged = move.page != grid.page;
    move.moved = move.pageChanged || move.selected != grid.selected;
    return move;
}

MarkerChange HiddenMarkerRule(uint32_t flags) {
    MarkerChange change;
    change.set = (flags & kPosHiding) != 0;
    change.clear = (flags & kPosShowing) != 0 || flags == kPosShownAgain;
    change.hide = (flags & kPosHideRequest) != 0;
    return change;
}

int AwaitCallScreen(const std::function<bool()>& inFront, const std::function<uint32_t()>& now,
                    const std::function<void(uint32_t)>& sleep) {
    const uint32_t start = now();
    int polls = 0;
    while (inFront() && now() - start < kCallScreenWaitMs) {
        sleep(kCallScreenPollMs);
        ++polls;
    }
    return polls;
}
