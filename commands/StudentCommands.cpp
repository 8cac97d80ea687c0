#include "commands/StudentCommands.h"
