#include "core/CommandContext.h"
