// "corvanectl info": what a database consists of and how its root file sets it up.
#pragma once

#include "Command.h"

extern const SCommand kInfoCommand;
