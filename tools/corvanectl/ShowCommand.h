// "corvanectl show": one record with the values in force and where each of them comes from.
#pragma once

#include "Command.h"

extern const SCommand kShowCommand;
