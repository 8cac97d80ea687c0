#include "core/GradeSheet.h"
