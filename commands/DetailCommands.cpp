#include "commands/DetailCommands.h"
