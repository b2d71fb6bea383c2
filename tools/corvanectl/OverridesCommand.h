// "corvanectl overrides": the files by which a server's administrator changes values.
#pragma once

#include "Command.h"

extern const SCommand kOverridesCommand;
