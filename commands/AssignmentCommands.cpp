#include "commands/AssignmentCommands.h"
