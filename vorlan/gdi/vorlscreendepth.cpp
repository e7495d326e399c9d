// The depth of the screen, as a device context on it reports BITSPIXEL.
#include "gdi/vorlgdisystem.h"

#include <gdk/gdk.h>

namespace vorlan {

int ScreenBitsPerPixel()
{
    return gdk_visual_get_system()->depth;
}

} // namespace vorlan
