#include "window/Layout.h"
