#include "core/Grades.h"
