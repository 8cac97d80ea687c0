#include "core/TaggedValue.h"
