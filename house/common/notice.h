#pragma once

#include "session/notice.h"
