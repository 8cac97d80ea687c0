#include "storage/RecordFile.h"
