#include "testing/ManualTimers.h"

#include <algorithm>

namespace {

constexpr UINT kShortestPeriod = USER_TIMER_MINIMUM;

}  // namespace

ManualTimers::ManualTimers(uint32_t start) : now_(start), previous_(InstallTimers(this)) {}

ManualTimers::~ManualTimers() {
    InstallTimers(previous_);
}

bool ManualTimers::Start(HWND window, UINT_PTR id, UINT ms) {
    if (!IsWindow(window))
        return false;
    std::erase_if(armed_, [&](const Armed& a) { return a.window == window && a.id == id; });
    uint32_t period = std::max(ms, kShortestPeriod);
    armed_.push_back(Armed{window, id, period, now_ + period, nextOrder_++});
    return true;
}

void ManualTimers::Stop(HWND window, UINT_PTR id) {
    std::erase_if(armed_, [&](const Armed& a) { return a.window == window && a.id == id; });
    RemoveQueuedTicks(window, id);
}

int ManualTimers::Advance(uint32_t ms) {
    const uint64_t target = now_ + ms;
    int sent = 0;
    for (;;) {
        std::erase_if(armed_, [](const Armed& a) { return !IsWindow(a.window); });
        auto next =
            std::min_element(armed_.begin(), armed_.end(), [](const Armed& a, const Armed& b) {
                return a.due != b.due ? a.due < b.due : a.order < b.order;
            });
        if (next == armed_.end() || next->due > target)
            break;
        // A WaitUntil may have moved the clock past the due time; the clock never runs back.
        now_ = std::max(now_, next->due);
        // Armed for its next period before the handler runs, so the handler may stop it.
        next->due += next->period;
        next->order = nextOrder_++;
        HWND window = next->window;
        UINT_PTR id = next->id;
        SendMessageW(window, WM_TIMER, id, 0);
        ++sent;
    }
    now_ = std::max(now_, target);
    return sent;
}

void ManualTimers::WaitUntil(uint32_t when) {
    ++waits_;
    const auto ahead = static_cast<int32_t>(when - static_cast<uint32_t>(now_));
    if (ahead > 0)
        now_ += static_cast<uint64_t>(ahead);
}

const ManualTimers::Armed* ManualTimers::Find(HWND window, UINT_PTR id) const {
    auto it = std::find_if(armed_.begin(), armed_.end(),
                           [&](const Armed& a) { return a.window == window && a.id == id; });
    return it == armed_.end() ? nullptr : &*it;
}

bool ManualTimers::IsArmed(HWND window, UINT_PTR id) const {
    return Find(window, id) != nullptr;
}

int64_t ManualTimers::DueIn(HWND window, UINT_PTR id) const {
    const Armed* a = Find(window, id);
    return a == nullptr ? -1 : static_cast<int64_t>(a->due - now_);
}
