// "corvanectl dependencies": the resource database of a database, as a file for the game's tools.
#pragma once

#include "Command.h"

extern const SCommand kDependenciesCommand;
