// The GDI object table: taking and freeing slots, and resolving handles.
#include "gdi/vorlgdiobject.h"

#include <cstdio>
#include <cstdlib>

namespace vorlan {

GdiObject *GdiObject::gdiTable[kGdiTableSize] = {};
unsigned GdiObject::currentIndex = 0;

bool IsLogicalGdiType(UINT type)
{
    switch (type) {
    case OBJ_PEN:
    case OBJ_BRUSH:
    case OBJ_PAL:
    case OBJ_FONT:
    case OBJ_BITMAP:
    case OBJ_REGION:
        return true;
    default:
        return false;
    }
}

} // namespace vorlan

namespace {

[[noreturn]] void StopOnFullTable()
{
    vorlan::GdiObject::currentIndex = vorlan::kGdiStockSlots;
    std::puts("vorlan fatal error: gdi table object table full");
    std::fflush(stdout);
    g_assertion_message_expr(nullptr, "vorlan/gdi/vorlgdiobject", __LINE__, "vorlan::GdiObject::GdiObject(UINT)",
                             "false");
}

// From currentIndex upward; past the end the search goes on at the first
// index after the stock entries, and a second wrap means the table is full.
unsigned FindFreeSlot()
{
    unsigned index = vorlan::GdiObject::currentIndex;
    int wraps = 0;
    while (vorlan::GdiObject::gdiTable[index] != nullptr) {
        if (++index == vorlan::kGdiTableSize) {
            index = vorlan::kGdiStockSlots;
            if (++wraps == 2)
                StopOnFullTable();
        }
    }
    return index;
}

} // namespace

namespace vorlan {

GdiObject::GdiObject(UINT type)
{
    const unsigned index = FindFreeSlot();
    gdiTable[index] = this;
    currentIndex = index + 1 == kGdiTableSize ? kGdiStockSlots : index + 1;
    handle = MakeGdiHandle(type, index);
}

GdiObject::~GdiObject()
{
    const UINT index = GdiHandleIndex(handle);
    if (gdiTable[index] == this)
        gdiTable[index] = nullptr;
}

// A handle whose tag differs from the object's own is refused: reading a
// brush as a pen, or any object as a device context, would read the wrong
// record.
GdiObject *GdiObject::getGdiObject(HGDIOBJ handle)
{
    if ((GdiHandleValue(handle) >> 24) != (kGdiHandleBase >> 24))
        return nullptr;
    const UINT type = GdiHandleType(handle);
    if (type < OBJ_PEN || type > OBJ_MEMDC)
        return nullptr;
    GdiObject *object = gdiTable[GdiHandleIndex(handle)];
    if (object == nullptr || object->type() != type)
        return nullptr;
    return object;
}

} // namespace vorlan
