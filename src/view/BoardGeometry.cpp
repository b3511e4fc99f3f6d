#include "view/BoardGeometry.h"

#include <algorithm>
#include <limits>

PanelPlacement PlacePanel(const Rect& client, bool landscape, int32_t landscapeWidth,
                          int32_t portraitHeight) {
    PanelPlacement out;
    if (landscape) {
        out.panel = {client.right - landscapeWidth, client.top, client.right, client.bottom};
        out.usableWidth = client.Width() - landscapeWidth;
        out.usableHeight = client.Height();
    } else {
        out.panel = {client.left, client.bottom - portraitHeight, client.right, client.bottom};
        out.usableWidth = client.Width();
        out.usableHeight = client.Height() - portraitHeight;
    }
    return out;
}

int32_t BoardGeometry::SlotOf(int32_t position) const {
    if (position < 0 || position > perPage_ - 1)
        return -1;
    return position + perPage_ * page_;
}

void BoardGeometry::Layout(int32_t usableWidth, int32_t usableHeight, int32_t cellW, int32_t cellH,
                           int32_t maxSlot) {
    cellW_ = cellW;
    cellH_ = cellH;
    const int32_t remembered = SlotOf(selected_);
    for (Rect& cell : cells_)
        cell = Rect{};

    cols_ = cellW > 0 && usableWidth > 0 ? usableWidth / cellW : 0;
    rows_ = cellH > 0 && usableHeight > 0 ? usableHeight / cellH : 0;
    if (cols_ == 0 || rows_ == 0) {
        cols_ = rows_ = perPage_ = totalSlots_ = page_ = 0;
        return;
    }
    perPage_ = cols_ * rows_;
    if (perPage_ > kMaxButtonsPerPage) {
        // A column count that does not divide 24 leaves the last positions without a cell.
        perPage_ = kMaxButtonsPerPage;
        rows_ = kMaxButtonsPerPage / cols_;
    }

    // The page holding the highest bound slot always exists. A corrupt, huge slot is held to
    // the largest whole number of pages that the slot counter can express.
    const int64_t pages = static_cast<int64_t>(std::max(maxSlot, 0)) / perPage_ + 1;
    const int64_t mostPages = std::numeric_limits<int32_t>::max() / perPage_;
    totalSlots_ = static_cast<int32_t>(std::min(pages, mostPages) * perPage_);

    // The +1 moves on to the next page when the selected button was the last of its page.
    page_ = static_cast<int32_t>((static_cast<int64_t>(remembered) + 1) / perPage_);
    page_ = std::min(page_, Pages() - 1);
    const int32_t onPage = remembered - perPage_ * page_;
    selected_ = remembered >= 0 && onPage >= 0 && onPage <= perPage_ - 1 ? onPage : 0;

    PlaceCells(usableWidth, usableHeight);
}

void BoardGeometry::PlaceCells(int32_t usableWidth, int32_t usableHeight) {
    const int32_t spareX = usableWidth - cols_ * cellW_;
    const int32_t spareY = usableHeight - rows_ * cellH_;
    const int32_t gapX = spareX / (cols_ + 1);
    const int32_t gapY = spareY / (rows_ + 1);
    // The leftover pixels are split between both sides.
    const int32_t x0 = gapX + spareX % (cols_ + 1) / 2;
    const int32_t y0 = gapY + spareY % (rows_ + 1) / 2;
    for (int32_t r = 0; r < rows_; ++r) {
        for (int32_t c = 0; c < cols_; ++c) {
            const int32_t x = x0 + c * (cellW_ + gapX);
            const int32_t y = y0 + r * (cellH_ + gapY);
            cells_[c + cols_ * r] = Rect{x, y, x + cellW_, y + cellH_};
        }
    }
}

int32_t BoardGeometry::HitTest(int32_t x, int32_t y) const {
    for (int32_t p = 0; p < perPage_; ++p) {
        if (cells_[p].Contains(x, y))
            return p;
    }
    return -1;
}

Arrows BoardGeometry::ArrowsNow() const {
    // An empty board has no pages to go to either way.
    if (Pages() == 0)
        return Arrows{};
    return Arrows{page_ != 0, page_ != Pages() - 1};
}

void BoardGeometry::AddPage() {
    totalSlots_ += perPage_;
    page_ = Pages() - 1;
    selected_ = 0;
}

DeletePagePlan BoardGeometry::PlanDeletePage() const {
    DeletePagePlan plan;
    for (int32_t p = 0; p < perPage_; ++p)
        plan.deleted.push_back(SlotOf(p));
    for (int32_t s = perPage_ * (page_ + 1); s < totalSlots_; ++s) {
        plan.moves.emplace_back(s, s - perPage_);
    }
    // The last page is never removed; deleting it only empties it.
    plan.totalSlots = totalSlots_ > perPage_ ? totalSlots_ - perPage_ : totalSlots_;
    const int32_t pages = perPage_ > 0 ? plan.totalSlots / perPage_ : 0;
    plan.page = std::max(0, std::min(page_, pages - 1));
    return plan;
}

void BoardGeometry::ApplyDeletePage(const DeletePagePlan& plan) {
    totalSlots_ = plan.totalSlots;
    page_ = plan.page;
    selected_ = 0;
}

MoveResult BoardGeometry::MoveTarget(int32_t position, MoveDirection direction) const {
    if (cols_ <= 0)
        return MoveResult{};
    MoveResult out{true, position, page_};
    const int32_t column = position % cols_;
    switch (direction) {
        case MoveDirection::kUp:
            out.position = position - cols_;
            break;
        case MoveDirection::kDown:
            out.position = position + cols_;
            break;
        case MoveDirection::kLeft:
            if (column != 0) {
                out.position = position - 1;
            } else if (page_ == 0) {
                return MoveResult{};
            } else {
                out = MoveResult{true, position + cols_ - 1, page_ - 1};
            }
            break;
        case MoveDirection::kRight:
            if (column != cols_ - 1) {
                out.position = position + 1;
            } else if (page_ == Pages() - 1) {
                return MoveResult{};
            } else {
                out = MoveResult{true, position - cols_ + 1, page_ + 1};
            }
            break;
        default:
            return MoveResult{};
    }
    if (out.position < 0 || out.position > perPage_ - 1)
        return MoveResult{};
    return out;
}

void BoardGeometry::ResetToOnePage() {
    page_ = 0;
    totalSlots_ = perPage_;
    selected_ = 0;
}
