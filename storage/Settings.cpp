#include "storage/Settings.h"
