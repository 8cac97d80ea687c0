#include "storage/FileCommands.h"
