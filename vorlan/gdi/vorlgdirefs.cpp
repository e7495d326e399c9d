// The three reference counts of logical objects.  Stock objects are never
// counted and never die.
#include "gdi/vorlgdiobject.h"

using vorlan::LogicalGdiObject;

LONG AddRef(HGDIOBJ handle, int which)
{
    if (IsStockObject(handle))
        return 1;
    LogicalGdiObject *object = LogicalGdiObject::FromHandle(handle);
    LONG *count = object != nullptr ? object->refCount(which) : nullptr;
    if (count == nullptr)
        return 0;
    return ++*count;
}

LONG ReleaseRef(HGDIOBJ handle, int which)
{
    if (IsStockObject(handle))
        return 1;
    LogicalGdiObject *object = LogicalGdiObject::FromHandle(handle);
    LONG *count = object != nullptr ? object->refCount(which) : nullptr;
    if (count == nullptr)
        return -1;
    const LONG left = --*count;
    if (object->anyRefAlive())
        return left;
    delete object;
    return 0;
}

LONG GetSelectRef(HGDIOBJ handle)
{
    if (IsStockObject(handle))
        return 0;
    const LogicalGdiObject *object = LogicalGdiObject::FromHandle(handle);
    return object != nullptr ? object->selectRef : 0;
}
