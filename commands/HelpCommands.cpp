#include "commands/HelpCommands.h"
