// The GDI object table: handles, slots and reference counts, logical and
// physical objects, stock objects, pens and brushes, GetObject and
// DeleteObject.
#include "gdi/vorlgdiobject.h"

#include "gdi/vorlbitmapobject.h"
#include "gdi/vorlgdisystem.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlsysparams.h"
#include "gtk/vorlpending.h"
#include "vorlassert.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cstddef>

// ----------------------------------------------------------------------------
// The GDI object table: taking and freeing slots, and resolving handles.

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

// `function` is the constructor that found the table full.
[[noreturn]] void StopOnFullTable(const char *function)
{
    vorlan::GdiObject::currentIndex = vorlan::kGdiStockSlots;
    std::puts("vorlan fatal error: gdi table object table full");
    std::fflush(stdout);
    g_assertion_message_expr(nullptr, VORLAN_SOURCE, __LINE__, function, "false");
}

// From currentIndex upward; past the end the search goes on at the first
// index after the stock entries, and a second wrap means the table is full.
unsigned FindFreeSlot(const char *caller)
{
    unsigned index = vorlan::GdiObject::currentIndex;
    int wraps = 0;
    while (vorlan::GdiObject::gdiTable[index] != nullptr) {
        if (++index == vorlan::kGdiTableSize) {
            index = vorlan::kGdiStockSlots;
            if (++wraps == 2)
                StopOnFullTable(caller);
        }
    }
    return index;
}

} // namespace

namespace vorlan {

GdiObject::GdiObject(UINT type)
{
    const unsigned index = FindFreeSlot(G_STRFUNC);
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

// ----------------------------------------------------------------------------
// The three reference counts of logical objects.  Stock objects are never
// counted and never die.

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

// ----------------------------------------------------------------------------
// Logical GDI objects: allocation, construction and what dies with them.

namespace vorlan {

LogicalGdiObject::LogicalGdiObject(UINT type)
    : GdiObject(type), objectRef(1), selectRef(0), savedRef(0), physical()
{
    std::memset(&record, 0, sizeof record);
}

LogicalGdiObject::~LogicalGdiObject()
{
    if (type() == OBJ_BITMAP)
        freeBitmapMemory();
    if (type() == OBJ_BRUSH && record.brush.logbrush.lbStyle == BS_PATTERN)
        ReleaseRef(record.brush.hPatternCopy, kObjectRef);
    const PhysicalObject &screen = physical[kScreenSlot];
    if (screen.handle != 0 && screen.freeProc != nullptr)
        screen.freeProc(screen.handle);
    const ULONG_PTR recordingContext = physical[kMetaFileSlot].extra;
    if (recordingContext != 0)
        DeleteObjectFromMetaFile(reinterpret_cast<HDC>(recordingContext), handle);
}

// Bits on a section handle stay the section's: only its lock is given back.
void LogicalGdiObject::freeBitmapMemory()
{
    LogicalBitmap &bitmap = record.bitmap;
    if (bitmap.bitmap.bmBits != nullptr) {
        if (bitmap.dshSection != nullptr) {
            GlobalUnlock(bitmap.dshSection);
            bitmap.dshSection = nullptr;
        } else {
            std::free(bitmap.bitmap.bmBits);
        }
        bitmap.bitmap.bmBits = nullptr;
    }
    std::free(bitmap.pHeader);
    bitmap.pHeader = nullptr;
}

void *LogicalGdiObject::operator new(size_t size) noexcept
{
    return std::malloc(size);
}

void *LogicalGdiObject::operator new(size_t size, ExtraBytes extra) noexcept
{
    return std::malloc(size + extra.count);
}

void LogicalGdiObject::operator delete(void *block)
{
    std::free(block);
}

void LogicalGdiObject::operator delete(void *block, ExtraBytes)
{
    std::free(block);
}

LogicalGdiObject *LogicalGdiObject::Create(UINT type, size_t extraBytes)
{
    return new (ExtraBytes{extraBytes}) LogicalGdiObject(type);
}

LogicalGdiObject *LogicalGdiObject::FromHandle(HGDIOBJ handle)
{
    GdiObject *object = getGdiObject(handle);
    if (object == nullptr || !IsLogicalGdiType(object->type()))
        return nullptr;
    return static_cast<LogicalGdiObject *>(object);
}

LogicalGdiObject *LogicalGdiObject::FromHandle(HGDIOBJ handle, UINT type)
{
    LogicalGdiObject *object = FromHandle(handle);
    return object != nullptr && object->type() == type ? object : nullptr;
}

LONG *LogicalGdiObject::refCount(int which)
{
    switch (which) {
    case kObjectRef:
        return &objectRef;
    case kSelectRef:
        return &selectRef;
    case kSavedRef:
        return &savedRef;
    default:
        return nullptr;
    }
}

PALETTEENTRY *LogicalGdiObject::paletteEntries()
{
    return reinterpret_cast<PALETTEENTRY *>(reinterpret_cast<BYTE *>(&record.palette) +
                                            offsetof(LogicalPalette, palPalEntry));
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// The physical slots of logical objects: what each kind of device made of
// them.

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
    VORLAN_ASSERT(pObj);
    VORLAN_ASSERT(IsPhysicalSlot(slot));
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

// ----------------------------------------------------------------------------
// Stock objects: ordinary objects of the table, made when first asked
// for, that reference counting leaves alone.

namespace {

// Entries that never get an object (NULL_PEN, 9, 20) stay 0, which is why
// handle 0 counts as stock.
HGDIOBJ s_stockObjects[vorlan::kGdiStockSlots] = {};

constexpr int kDefaultBitmapIndex = 21;

// The seven font indices share the object of SYSTEM_FONT.
bool IsStockFontIndex(int index)
{
    return (index >= OEM_FIXED_FONT && index <= DEVICE_DEFAULT_FONT) || index == SYSTEM_FIXED_FONT ||
           index == DEFAULT_GUI_FONT;
}

HGDIOBJ MakeStockFont()
{
    LOGFONTA lf = {};
    lf.lfHeight = 12;
    lf.lfWidth = 12;
    lf.lfWeight = FW_NORMAL;
    lf.lfCharSet = getSystemCharset(GetSystemDefaultLCID());
    std::strcpy(lf.lfFaceName, "Luxi Sans");
    return CreateFontIndirectA(&lf);
}

// Without a palette device to ask, the default system palette.
HGDIOBJ MakeDefaultPalette()
{
    const size_t entriesOffset = offsetof(LOGPALETTE, palPalEntry);
    const size_t size = entriesOffset + sizeof vorlan::kDefaultPaletteEntries;
    auto *lp = static_cast<LOGPALETTE *>(std::malloc(size));
    if (lp == nullptr)
        return nullptr;
    lp->palVersion = 0x300;
    lp->palNumEntries = vorlan::kDefaultPaletteSize;
    std::memcpy(reinterpret_cast<BYTE *>(lp) + entriesOffset, vorlan::kDefaultPaletteEntries,
                sizeof vorlan::kDefaultPaletteEntries);
    HGDIOBJ palette = CreatePalette(lp);
    std::free(lp);
    return palette;
}

HGDIOBJ MakeStockObject(int index)
{
    static const LOGBRUSH nullBrush = {BS_NULL, 0, 0};
    switch (index) {
    case WHITE_BRUSH:
    case DC_BRUSH:
        return CreateSolidBrush(0xFFFFFF);
    case LTGRAY_BRUSH:
        return CreateSolidBrush(0xC0C0C0);
    case GRAY_BRUSH:
        return CreateSolidBrush(0x0D808080);
    case DKGRAY_BRUSH:
        return CreateSolidBrush(0x404040);
    case BLACK_BRUSH:
        return CreateSolidBrush(0);
    case NULL_BRUSH:
        return CreateBrushIndirect(&nullBrush);
    case WHITE_PEN:
    case DC_PEN:
        return CreatePen(PS_SOLID, 1, 0xFFFFFF);
    case BLACK_PEN:
        return CreatePen(PS_SOLID, 1, 0);
    case SYSTEM_FONT:
        return MakeStockFont();
    case DEFAULT_PALETTE:
        return MakeDefaultPalette();
    case kDefaultBitmapIndex:
        return CreateBitmap(1, 1, 1, 1, nullptr);
    default:
        return nullptr;
    }
}

} // namespace

int GetStockObjectIndex(HGDIOBJ handle)
{
    for (unsigned i = 0; i < vorlan::kGdiStockSlots; ++i) {
        if (s_stockObjects[i] == handle)
            return static_cast<int>(i);
    }
    return -1;
}

BOOL IsStockObject(HGDIOBJ handle)
{
    return GetStockObjectIndex(handle) != -1;
}

HGDIOBJ WINAPI GetStockObject(int i)
{
    if (i < 0 || i >= static_cast<int>(vorlan::kGdiStockSlots))
        return nullptr;
    if (IsStockFontIndex(i))
        i = SYSTEM_FONT;
    vorlan::GtkCriticalSection lock;
    if (s_stockObjects[i] == nullptr)
        s_stockObjects[i] = vorlan::GdiObject::SetStockBit(MakeStockObject(i));
    return s_stockObjects[i];
}

// ----------------------------------------------------------------------------
// Pens and brushes.

using vorlan::LogicalGdiObject;

HPEN WINAPI CreatePenIndirect(const LOGPEN *plpen)
{
    if (plpen == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    vorlan::GtkCriticalSection lock;
    LogicalGdiObject *object = LogicalGdiObject::Create(OBJ_PEN);
    if (object == nullptr) {
        SetLastError(0);
        return nullptr;
    }
    object->record.pen = *plpen;
    return static_cast<HPEN>(object->handle);
}

HPEN WINAPI CreatePen(int iStyle, int cWidth, COLORREF color)
{
    const LOGPEN pen = {static_cast<UINT>(iStyle), {cWidth, cWidth}, color};
    return CreatePenIndirect(&pen);
}

// A pattern brush keeps a copy of its bitmap, so that the application may
// delete its own.
HBRUSH WINAPI CreateBrushIndirect(const LOGBRUSH *plbrush)
{
    if (plbrush == nullptr) {
        SetLastError(0);
        return nullptr;
    }
    vorlan::GtkCriticalSection lock;
    LOGBRUSH logbrush = *plbrush;
    HBITMAP hPatternCopy = nullptr;
    if (logbrush.lbStyle == BS_PATTERN) {
        hPatternCopy = vorlan::bitmapCopy(reinterpret_cast<HBITMAP>(logbrush.lbHatch));
        if (hPatternCopy == nullptr) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return nullptr;
        }
        logbrush.lbHatch = reinterpret_cast<ULONG_PTR>(hPatternCopy);
    }
    LogicalGdiObject *object = LogicalGdiObject::Create(OBJ_BRUSH);
    if (object == nullptr) {
        ReleaseRef(hPatternCopy, vorlan::kObjectRef);
        SetLastError(0);
        return nullptr;
    }
    object->record.brush.logbrush = logbrush;
    object->record.brush.hPatternCopy = hPatternCopy;
    return static_cast<HBRUSH>(object->handle);
}

HBRUSH WINAPI CreateSolidBrush(COLORREF color)
{
    const LOGBRUSH brush = {BS_SOLID, color, 0};
    return CreateBrushIndirect(&brush);
}

HBRUSH WINAPI CreateHatchBrush(int iHatch, COLORREF color)
{
    const LOGBRUSH brush = {BS_HATCHED, color, static_cast<ULONG_PTR>(iHatch)};
    return CreateBrushIndirect(&brush);
}

HBRUSH WINAPI CreatePatternBrush(HBITMAP hbm)
{
    const LOGBRUSH brush = {BS_PATTERN, 0, reinterpret_cast<ULONG_PTR>(hbm)};
    return CreateBrushIndirect(&brush);
}

// The packed DIB stays the caller's; the brush only names it.
HBRUSH WINAPI CreateDIBPatternBrush(HGLOBAL h, UINT iUsage)
{
    const LOGBRUSH brush = {BS_DIBPATTERN, iUsage, reinterpret_cast<ULONG_PTR>(h)};
    return CreateBrushIndirect(&brush);
}

// Brushes from a packed DIB in plain memory are not supported.
HBRUSH WINAPI CreateDIBPatternBrushPt(const void *, UINT)
{
    return nullptr;
}

// ----------------------------------------------------------------------------
// GetObjectW and GetObjectA: the logical record of an object, and its type.
//
// A null buffer asks for the size of the record.  A buffer larger than the
// record gets the record only, but the result is still the caller's size.

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

// ----------------------------------------------------------------------------
// DeleteObject: the application gives up its reference.  An object still
// selected into a context or held by a saved state lives on until those
// let it go.

BOOL WINAPI DeleteObject(HGDIOBJ ho)
{
    vorlan::GtkCriticalSection lock;
    return ReleaseRef(ho, vorlan::kObjectRef) != -1;
}
