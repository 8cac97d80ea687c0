#include "window/frmQRV.h"
