#pragma once
// The two-byte characters of Shift_JIS (as windows-932 writes it), for TextDecoding.

constexpr int kShiftJisLeads = 60;    ///< lead bytes 0x81..0x9F and 0xE0..0xFC
constexpr int kShiftJisTrails = 188;  ///< trail bytes 0x40..0xFC without 0x7F

extern const char16_t kShiftJisTable[kShiftJisLeads * kShiftJisTrails];
