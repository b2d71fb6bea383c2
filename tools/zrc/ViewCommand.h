// "zrc view".
#pragma once

#include "Tool.h"

extern const SCommand kViewCommand;
