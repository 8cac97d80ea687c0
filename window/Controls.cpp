#include "window/Controls.h"
