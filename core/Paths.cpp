#include "core/Paths.h"
