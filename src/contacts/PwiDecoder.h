#pragma once
// The word processor's binary "pwi" notes form: a 14-byte header, then records of a tag byte,
// a high length byte and a 16-bit length; the "A" records carry the text runs.

#include <cstddef>
#include <cstdint>

#include "base/Str.h"

/// True when bytes look like the pwi form: more than 14 bytes, "{\pwi" first, and some byte at
/// offsets 5 to 13 below 10.
bool IsPwi(const uint8_t* bytes, size_t size);

/// The text of a pwi block: every text run in order, joined by one blank. Lengths that run
/// past the end are cut at the end; a run with a bad code keeps what came before it.
Str DecodePwi(const uint8_t* bytes, size_t size);

/// Decodes one text run of `count` bytes and appends its characters to out. False when the run
/// ended on a bad code (out keeps what came before it).
bool DecodePwiRun(const uint8_t* bytes, size_t count, Str& out);
