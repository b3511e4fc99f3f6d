#pragma once
// Test hooks of the native locale seam.

#include <cstdint>

namespace locale_text {

/// The language id UserLanguageId returns (default 0x0409).
void SetUserLanguageId(uint16_t id);
/// The stamp FormatLogStamp writes; null restores the real clock.
void SetFixedLogStamp(const char16_t* stamp);

}  // namespace locale_text
