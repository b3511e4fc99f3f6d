#pragma once
// BoardGeometry: the board's grid arithmetic. Turns the usable client area and the button cell
// size into cells, buttons per page and pages; keeps the page and the selection valid across a
// relayout; works out the slot moves of deleting a page and the target of moving a button.
// Pure arithmetic: the window applies the results to the entries and to the screen.

#include <cstdint>
#include <utility>
#include <vector>

#include "base/Geometry.h"

/// Where the soft-key panel goes and what is left for the buttons.
struct PanelPlacement {
    Rect panel;
    int32_t usableWidth = 0;
    int32_t usableHeight = 0;
};

/// Landscape screens (wider than high) put the panel at the right edge, `landscapeWidth` wide
/// and full height; portrait and square screens put it along the bottom, `portraitHeight` high
/// and full width. The usable area shrinks by the panel.
PanelPlacement PlacePanel(const Rect& client, bool landscape, int32_t landscapeWidth,
                          int32_t portraitHeight);

/// Landscape exactly when the screen is wider than it is high.
inline bool IsLandscape(int32_t screenWidth, int32_t screenHeight) {
    return screenWidth > screenHeight;
}

/// A page never holds more buttons than this.
constexpr int32_t kMaxButtonsPerPage = 24;
/// Directions of MoveTarget.
enum class MoveDirection : int32_t { kUp = 1, kDown = 2, kLeft = 3, kRight = 4 };

/// Which page arrows are shown.
struct Arrows {
    bool prev = false;
    bool next = false;
    bool operator==(const Arrows&) const = default;
};

/// Target of a key move: valid, or nothing happens.
struct MoveResult {
    bool valid = false;
    int32_t position = -1;
    int32_t page = 0;
};

/// The slot work of deleting the current page: delete `deleted`, then move each (from, to) of
/// `moves` in order; `totalSlots` and `page` are the values afterwards.
struct DeletePagePlan {
    std::vector<int32_t> deleted;
    std::vector<std::pair<int32_t, int32_t>> moves;
    int32_t totalSlots = 0;
    int32_t page = 0;
};

class BoardGeometry {
  public:
    /// Lays the board out in a usable area of usableWidth x usableHeight pixels with cells of
    /// cellW x cellH. `maxSlot` is the highest slot bound to an entry (0 when there is none).
    /// Keeps the selected button's page and selection valid, as the board does on every relayout.
    void Layout(int32_t usableWidth, int32_t usableHeight, int32_t cellW, int32_t cellH,
                int32_t maxSlot);

    /// Slot of `position` on the current page, or -1 when the position is off the page.
    int32_t SlotOf(int32_t position) const;
    /// Pages = totalSlots / perPage (0 for an empty board).
    int32_t Pages() const { return perPage_ > 0 ? totalSlots_ / perPage_ : 0; }
    /// Position whose cell holds the point, the first in position order, or -1.
    int32_t HitTest(int32_t x, int32_t y) const;
    /// Arrows for the current page: prev unless on page 0, next unless on the last page.
    Arrows ArrowsNow() const;

    /// Adds a page at the end (a free button on the last page was just bound).
    void GrowByPage() { totalSlots_ += perPage_; }
    /// Adds a page at the end and makes it current with the selection on position 0.
    void AddPage();
    /// Slot work of deleting the current page; ApplyDeletePage commits the totals.
    DeletePagePlan PlanDeletePage() const;
    void ApplyDeletePage(const DeletePagePlan& plan);
    /// Where a button at `position` goes with the given key direction (see MoveResult).
    MoveResult MoveTarget(int32_t position, MoveDirection direction) const;

    /// Every slot back to one empty page (clear all).
    void ResetToOnePage();

    int32_t CellW() const { return cellW_; }
    int32_t CellH() const { return cellH_; }
    int32_t Cols() const { return cols_; }
    int32_t Rows() const { return rows_; }
    int32_t PerPage() const { return perPage_; }
    int32_t Page() const { return page_; }
    int32_t TotalSlots() const { return totalSlots_; }
    int32_t Selected() const { return selected_; }
    /// Cell of position p (0..23); positions past rows x cols have an empty cell.
    const Rect& Cell(int32_t p) const { return cells_[p]; }
    /// Number of positions with a cell (rows x cols, which is below perPage when the 24-button
    /// cap leaves the last positions of a page without one).
    int32_t CellCount() const { return cols_ * rows_; }

    void SetPage(int32_t page) { page_ = page; }
    void SetSelected(int32_t position) { selected_ = position; }
    void SetTotalSlots(int32_t totalSlots) { totalSlots_ = totalSlots; }

  private:
    void PlaceCells(int32_t usableWidth, int32_t usableHeight);

    int32_t cellW_ = 0;
    int32_t cellH_ = 0;
    int32_t cols_ = 0;
    int32_t rows_ = 0;
    int32_t perPage_ = 0;
    int32_t page_ = 0;
    int32_t totalSlots_ = 0;
    int32_t selected_ = 0;
    Rect cells_[kMaxButtonsPerPage];
};
