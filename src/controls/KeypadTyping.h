#pragma once
// KeypadTyping: what a key of the on-screen keypad does to the typed digits, and which key a
// hardware key stands for. Key 0 removes the last digit; key k from 1 to 8 appends the digit
// "2" to "9" (character code 49 + k).

#include <cstdint>

#include "base/Str.h"

/// The backspace key.
constexpr int kBackspaceKey = 0;

/// The digits after key `key` acts on `typed`: a digit appended, the last one removed (key 0),
/// or `typed` itself when nothing changes (backspace on empty, an index outside 0..8).
Str TypedAfterKey(const Str& typed, int key);

/// The character key `key` types ("2" to "9" for 1 to 8); 0 for the backspace and other indices.
char16_t KeyDigit(int key);

/// The key a hardware key code stands for: "1" to "9" (codes 49 to 57) give keys 0 to 8, so the
/// hardware "1" is a backspace; any other code gives -1.
int KeyForHardwareCode(uint32_t code);
