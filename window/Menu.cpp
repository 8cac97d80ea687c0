#include "window/Menu.h"
