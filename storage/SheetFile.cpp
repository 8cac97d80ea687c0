#include "storage/SheetFile.h"
