// Selecting objects into a context.  A selection holds a selection
// reference on the object, so an object the application deletes while it
// is selected lives on until the context lets it go.
#include "gdi/vorldc.h"

namespace vorlan {

namespace {

// What each new context selects, in this order.
struct DefaultObject {
    UINT type;
    int stockIndex;
};
constexpr int kDefaultBitmapStockIndex = 21;
constexpr DefaultObject default_objects[] = {
    {OBJ_BITMAP, kDefaultBitmapStockIndex}, {OBJ_BRUSH, WHITE_BRUSH}, {OBJ_FONT, SYSTEM_FONT},
    {OBJ_PEN, BLACK_PEN},                   {OBJ_PAL, DEFAULT_PALETTE},
};

bool IsSelectableType(UINT type)
{
    return type == OBJ_PEN || type == OBJ_BRUSH || type == OBJ_FONT || type == OBJ_BITMAP || type == OBJ_REGION;
}

} // namespace

void CommonDeviceContext::initObj()
{
    for (HGDIOBJ &object : dcState.hObjects)
        object = nullptr;
    for (const DefaultObject &entry : default_objects) {
        HGDIOBJ object = GetStockObject(entry.stockIndex);
        if (entry.type == OBJ_PAL)
            SelectPalette(static_cast<HPALETTE>(object), TRUE);
        else
            SelectObject(object);
    }
}

HGDIOBJ CommonDeviceContext::GetCurrentObject(UINT type)
{
    switch (type) {
    case OBJ_PEN:
    case OBJ_BRUSH:
    case OBJ_PAL:
    case OBJ_FONT:
    case OBJ_BITMAP:
        return dcState.hObjects[type];
    default:
        return nullptr;
    }
}

// A bitmap goes into one memory context at a time (stock bitmaps into any),
// and only with one bit per pixel or the depth of the device.
bool CommonDeviceContext::mayHoldBitmap(HGDIOBJ bitmap)
{
    const LogicalGdiObject *object = LogicalGdiObject::FromHandle(bitmap, OBJ_BITMAP);
    if (object == nullptr || type() != OBJ_MEMDC)
        return false;
    if (!IsStockObject(bitmap) && object->selectRef > 1)
        return false;
    const int depth = object->record.bitmap.bitmap.bmBitsPixel;
    return depth == 1 || depth == GetDeviceCaps(BITSPIXEL);
}

HGDIOBJ CommonDeviceContext::SelectObject(HGDIOBJ object)
{
    const UINT objectType = GetObjectType(object);
    if (!IsSelectableType(objectType))
        return nullptr;
    if (objectType == OBJ_REGION)
        return reinterpret_cast<HGDIOBJ>(static_cast<INT_PTR>(SelectClipRgn(static_cast<HRGN>(object))));
    HGDIOBJ &slot = dcState.hObjects[objectType];
    if (slot == object)
        return object;
    HGDIOBJ old = slot;
    AddRef(object, kSelectRef);
    if (objectType == OBJ_BITMAP && !mayHoldBitmap(object)) {
        ReleaseRef(object, kSelectRef);
        return nullptr;
    }
    if (objectType != OBJ_FONT && RealizeObject(object) == 0) {
        ReleaseRef(object, kSelectRef);
        return nullptr;
    }
    slot = object;
    // Pens, brushes and fonts reach the device when drawing uses them.  A
    // bitmap becomes the drawable at once, before the old one is let go:
    // the device still compares against the old pixmap.
    if (objectType == OBJ_BITMAP)
        ApplyObject(objectType);
    ReleaseRef(old, kSelectRef);
    return old;
}

} // namespace vorlan
