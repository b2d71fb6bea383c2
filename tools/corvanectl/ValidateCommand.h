// "corvanectl validate": loads a database, checks every record and reports what is not usable.
#pragma once

#include "Command.h"

extern const SCommand kValidateCommand;
