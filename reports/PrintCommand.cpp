#include "reports/PrintCommand.h"
