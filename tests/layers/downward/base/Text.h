#pragma once
// Own folder and below only.
#include <vector>

#include "base/Other.h"
