#include "core/CodePage.h"
