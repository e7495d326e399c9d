// The painting clip of a screen context goes to its GC together with the
// output bounds and the application's clip.
#include "gdi/screen/vorlscreendc.h"

int ScreenContext::setUpdateRgn(HRGN region)
{
    if (CommonDeviceContext::setUpdateRgn(region) == ERROR)
        return ERROR;
    return UpdateClipping();
}
