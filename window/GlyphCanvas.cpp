#include "window/GlyphCanvas.h"
