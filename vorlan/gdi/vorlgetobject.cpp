// GetObjectW and GetObjectA: the logical record of an object, and its type.
//
// A null buffer asks for the size of the record.  A buffer larger than the
// record gets the record only, but the result is still the caller's size.
#include "gdi/vorlgdiobject.h"
#include "gtk/vorllogfontcopy.h"
#include "gtk/vorlgtklock.h"

#include <cstring>

using vorlan::LogicalBitmap;
using vorlan::LogicalGdiObject;

namespace {

// A record of fixed size: pens, brushes and wide fonts.
int CopyFixedRecord(const void *record, int size, int cb, void *buffer)
{
    if (buffer == nullptr)
        return size;
    if (cb < size)
        return 0;
    std::memcpy(buffer, record, size);
    return cb;
}

// The number of entries, as one WORD.
int GetPaletteObject(const LogicalGdiObject &object, int cb, void *buffer)
{
    const int size = sizeof(WORD);
    if (buffer == nullptr)
        return cb < size ? size : cb;
    if (cb < size)
        return 0;
    std::memcpy(buffer, &object.record.palette.palNumEntries, size);
    return cb;
}

// A DIBSECTION for a buffer that can take one: the BITMAP, and for a DIB
// section its header and section.
void FillDIBSection(const LogicalBitmap &bitmap, DIBSECTION &ds)
{
    std::memset(&ds, 0, sizeof ds);
    ds.dsBm = bitmap.bitmap;
    if (bitmap.pHeader == nullptr)
        return;
    ds.dsBmih = *bitmap.pHeader;
    std::memcpy(ds.dsBitfields, bitmap.dsBitfields, sizeof ds.dsBitfields);
    ds.dshSection = bitmap.dshSection;
    ds.dsOffset = bitmap.dsOffset;
}

// Below the size of a DIBSECTION the caller gets the head of the logical
// record: the BITMAP and what follows it.
int GetBitmapObject(const LogicalBitmap &bitmap, int cb, void *buffer)
{
    const int bitmapSize = sizeof(BITMAP);
    const int sectionSize = sizeof(DIBSECTION);
    if (buffer == nullptr)
        return cb < sectionSize ? bitmapSize : sectionSize;
    if (cb < bitmapSize)
        return 0;
    if (cb < sectionSize) {
        const int recordSize = sizeof bitmap;
        std::memcpy(buffer, &bitmap, cb < recordSize ? cb : recordSize);
        return cb;
    }
    DIBSECTION ds;
    FillDIBSection(bitmap, ds);
    std::memcpy(buffer, &ds, sizeof ds);
    return cb;
}

int GetObjectOf(LogicalGdiObject &object, int cb, void *buffer)
{
    switch (object.type()) {
    case OBJ_PEN:
        return CopyFixedRecord(&object.record.pen, sizeof(LOGPEN), cb, buffer);
    case OBJ_BRUSH:
        return CopyFixedRecord(&object.record.brush.logbrush, sizeof(LOGBRUSH), cb, buffer);
    case OBJ_PAL:
        return GetPaletteObject(object, cb, buffer);
    case OBJ_FONT:
        return CopyFixedRecord(&object.record.font, sizeof(LOGFONTW), cb, buffer);
    case OBJ_BITMAP:
        return GetBitmapObject(object.record.bitmap, cb, buffer);
    default:
        SetLastError(0);
        return 0;
    }
}

// The narrow form of a font: the numbers and the face in the process's
// code page.
int GetFontObjectA(const LogicalGdiObject &object, int cb, void *buffer)
{
    const int size = sizeof(LOGFONTA);
    if (buffer == nullptr)
        return size;
    if (cb < size)
        return 0;
    LOGFONTA lf = {};
    if (!CopyLOGFONT_W2A(&object.record.font, &lf))
        return 0;
    std::memcpy(buffer, &lf, size);
    return size;
}

} // namespace

int WINAPI GetObjectW(HANDLE h, int c, LPVOID pv)
{
    vorlan::GtkCriticalSection lock;
    LogicalGdiObject *object = LogicalGdiObject::FromHandle(h);
    return object != nullptr ? GetObjectOf(*object, c, pv) : 0;
}

int WINAPI GetObjectA(HANDLE h, int c, LPVOID pv)
{
    vorlan::GtkCriticalSection lock;
    LogicalGdiObject *object = LogicalGdiObject::FromHandle(h);
    if (object == nullptr)
        return 0;
    if (object->type() == OBJ_FONT)
        return GetFontObjectA(*object, c, pv);
    return GetObjectOf(*object, c, pv);
}

DWORD WINAPI GetObjectType(HGDIOBJ h)
{
    vorlan::GtkCriticalSection lock;
    const vorlan::GdiObject *object = vorlan::GdiObject::getGdiObject(h);
    return object != nullptr ? object->type() : 0;
}
