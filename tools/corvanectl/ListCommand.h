// "corvanectl list": the records of a database, one display path a line.
#pragma once

#include "Command.h"

extern const SCommand kListCommand;
