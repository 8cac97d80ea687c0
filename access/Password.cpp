#include "access/Password.h"
