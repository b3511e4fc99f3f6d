#pragma once
// Captures the boxes shown through the alert seam while a test runs.

#include <string>
#include <vector>

#include "base/Alert.h"

struct CapturedAlert {
    std::u16string text;
    std::u16string caption;
    uint32_t flags;
};

class AlertCapture {
  public:
    /// When throwOnAlert is set, a box ends the test's current statement by throwing, so an
    /// out-of-range access that follows the trap is never performed.
    explicit AlertCapture(bool throwOnAlert = false);
    ~AlertCapture();
    AlertCapture(const AlertCapture&) = delete;
    AlertCapture& operator=(const AlertCapture&) = delete;
    const std::vector<CapturedAlert>& Alerts() const;

  private:
    AlertHandler previous_;
};

/// Thrown by a throwing capture.
struct AlertShown {
    std::u16string text;
};
