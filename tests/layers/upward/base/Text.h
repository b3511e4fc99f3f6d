#pragma once
// Reaches up to the view: the check must refuse this.
#include "view/Window.h"
