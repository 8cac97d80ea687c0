#include "core/Decimal.h"
