#include "cmake/pch_gui.h"
