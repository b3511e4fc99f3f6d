#pragma once
#include "base/Text.h"
#include "win/WndBase.h"
