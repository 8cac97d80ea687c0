#include "core/ScoreColumn.h"
