#include "core/Score.h"
