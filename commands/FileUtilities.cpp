#include "commands/FileUtilities.h"
