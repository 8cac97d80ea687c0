#include "commands/ScoreCommands.h"
