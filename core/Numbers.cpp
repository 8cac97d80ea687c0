#include "core/Numbers.h"
