#pragma once
#include "base/Text.h"
