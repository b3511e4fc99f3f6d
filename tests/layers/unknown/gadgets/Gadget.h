#pragma once
// A folder the order does not name.
#include "base/Text.h"
