#include "cmake/pch_core.h"
