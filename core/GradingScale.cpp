#include "core/GradingScale.h"
