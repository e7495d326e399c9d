// The physical slots of logical objects: what each kind of device made of
// them.
#include "gdi/vorlgdiobject.h"

#include "vorlassert.h"

using vorlan::LogicalGdiObject;

namespace {

bool IsPhysicalSlot(int slot)
{
    return slot >= 0 && slot < vorlan::kPhysicalSlots;
}

// Slot 0 of a live object of the type, or 0.
DHANDLE ScreenObjectOf(HGDIOBJ handle, UINT type)
{
    const LogicalGdiObject *object = LogicalGdiObject::FromHandle(handle, type);
    return object != nullptr ? object->physical[vorlan::kScreenSlot].handle : 0;
}

} // namespace

DHANDLE GetPhysicalObject(HGDIOBJ handle, int slot)
{
    LogicalGdiObject *pObj = LogicalGdiObject::FromHandle(handle);
    VORLAN_ASSERT("vorlan/gdi/vorlgdiobject", pObj);
    VORLAN_ASSERT("vorlan/gdi/vorlgdiobject", IsPhysicalSlot(slot));
    return pObj->physical[slot].handle;
}

BOOL SetPhysicalObject(HGDIOBJ handle, int slot, DHANDLE physical, DFREEPROC freeProc, ULONG_PTR extra)
{
    LogicalGdiObject *object = LogicalGdiObject::FromHandle(handle);
    if (object == nullptr || !IsPhysicalSlot(slot))
        return FALSE;
    vorlan::PhysicalObject &entry = object->physical[slot];
    if (entry.handle != 0 && entry.freeProc != nullptr)
        entry.freeProc(entry.handle);
    entry.handle = physical;
    entry.freeProc = freeProc;
    entry.extra = extra;
    return TRUE;
}

GdkRegion *GetGdkRegion(HGDIOBJ handle)
{
    return reinterpret_cast<GdkRegion *>(ScreenObjectOf(handle, OBJ_REGION));
}

GdkPixmap *GetGdkPixmap(HGDIOBJ handle)
{
    return reinterpret_cast<GdkPixmap *>(ScreenObjectOf(handle, OBJ_BITMAP));
}
