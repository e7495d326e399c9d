// The process-wide GDI object table and the objects that live in it.
//
// Every GDI handle names one slot of GdiObject::gdiTable:
//
//     handle = 0x70000000 + (type << 16) + index
//
// with the OBJ_ number as type tag in bits 22..16 (bit 23 is ignored when a
// handle is read).  A freed index is given out again only after the search
// for a free slot has gone once round the table, and after a wrap the search
// restarts at index 22, so indices 0 to 21 serve only the first objects of
// the process.
//
// Pens, brushes, palettes, fonts, bitmaps and regions are LogicalGdiObjects:
// three reference counts (the application's, selections, saved states) keep
// them alive, and three physical slots hold what a kind of device made of
// them (slot 0 screen, slot 1 metafile, slot 2 PostScript).  Device contexts
// derive from GdiObject directly.
//
// Nothing here takes the toolkit lock: the exported calls do, and every
// internal operation expects its caller to hold it.
#ifndef VORLAN_GDI_VORLGDIOBJECT_H
#define VORLAN_GDI_VORLGDIOBJECT_H

#include <windows.h>

#include <gdk/gdk.h>

#include <cstddef>

// What a device made of a logical object: a pixmap, a region, a number.
typedef ULONG_PTR DHANDLE;
// Frees a DHANDLE; may be null.
typedef void (*DFREEPROC)(DHANDLE handle);

namespace vorlan {

// Handle form.
constexpr ULONG_PTR kGdiHandleBase = 0x70000000;
constexpr unsigned kGdiTableSize = 65536;
// Number of stock entries; also where the slot search resumes after a wrap.
constexpr unsigned kGdiStockSlots = 22;

inline ULONG_PTR GdiHandleValue(HGDIOBJ handle) { return reinterpret_cast<ULONG_PTR>(handle); }
inline UINT GdiHandleType(HGDIOBJ handle) { return (GdiHandleValue(handle) >> 16) & 0x7F; }
inline UINT GdiHandleIndex(HGDIOBJ handle) { return GdiHandleValue(handle) & 0xFFFF; }
inline HGDIOBJ MakeGdiHandle(UINT type, UINT index)
{
    return reinterpret_cast<HGDIOBJ>(kGdiHandleBase + ((type & 127) << 16) + index);
}
// Pen, brush, palette, font, bitmap or region.
bool IsLogicalGdiType(UINT type);

class GdiObject {
public:
    // Takes the first free slot from currentIndex on and forms the handle.
    // A full table stops the process.
    explicit GdiObject(UINT type);
    // Clears the slot; currentIndex is left alone.
    virtual ~GdiObject();
    GdiObject(const GdiObject &) = delete;
    GdiObject &operator=(const GdiObject &) = delete;

    // The object a handle names, or null: the top byte must be 0x70, the
    // tag 1..10, and the slot must hold an object made with that tag.
    static GdiObject *getGdiObject(HGDIOBJ handle);
    // No bit of a handle marks a stock object: the handle as it is.
    static HGDIOBJ SetStockBit(HGDIOBJ handle) { return handle; }

    UINT type() const { return GdiHandleType(handle); }

    HGDIOBJ handle;

    // Every object by index; null where free.
    static GdiObject *gdiTable[kGdiTableSize];
    // The index at which the next search for a free slot starts.
    static unsigned currentIndex;
};

// What one kind of device made of a logical object.
struct PhysicalObject {
    DHANDLE handle;
    DFREEPROC freeProc;
    ULONG_PTR extra;
};

// Physical slots.
constexpr int kScreenSlot = 0;
constexpr int kMetaFileSlot = 1;
constexpr int kPostScriptSlot = 2;
constexpr int kPhysicalSlots = 3;

// Reference counts, by number.
constexpr int kObjectRef = 0;
constexpr int kSelectRef = 1;
constexpr int kSavedRef = 2;

struct LogicalBrush {
    LOGBRUSH logbrush;
    HBITMAP hPatternCopy; // own copy of the pattern of a BS_PATTERN brush
};

// A BITMAP followed by the tail of a DIBSECTION, with the header by pointer.
struct LogicalBitmap {
    BITMAP bitmap;
    BITMAPINFOHEADER *pHeader; // DIB sections only: header and colour table, malloc'd
    DWORD dsBitfields[3];
    HANDLE dshSection;
    DWORD dsOffset;
};

// The entries run on past the record into the object's extra bytes.
struct LogicalPalette {
    WORD palVersion;
    WORD palNumEntries;
    PALETTEENTRY palPalEntry[1];
};

union LogicalRecord {
    LOGPEN pen;
    LogicalBrush brush;
    LOGFONTW font;
    LogicalBitmap bitmap;
    LogicalPalette palette;
};

// Bytes allocated behind a LogicalGdiObject.
struct ExtraBytes {
    size_t count;
};

class LogicalGdiObject : public GdiObject {
public:
    // The application's reference is 1, the others 0; the record and the
    // physical slots are zeroed.
    explicit LogicalGdiObject(UINT type);
    // Frees the bits and header of a bitmap, the pattern copy of a brush and
    // the physical objects, and tells a recording metafile.
    ~LogicalGdiObject() override;

    // Plain malloc and free; new fails with null rather than throwing.
    static void *operator new(size_t size) noexcept;
    static void *operator new(size_t size, ExtraBytes extra) noexcept;
    static void operator delete(void *block);
    static void operator delete(void *block, ExtraBytes extra);

    // A new object with `extraBytes` behind its record, or null when memory
    // runs out.
    static LogicalGdiObject *Create(UINT type, size_t extraBytes = 0);

    // The live logical object of a handle, or null.
    static LogicalGdiObject *FromHandle(HGDIOBJ handle);
    // The same, also requiring the type.
    static LogicalGdiObject *FromHandle(HGDIOBJ handle, UINT type);

    // Count 0, 1 or 2; null for any other number.
    LONG *refCount(int which);
    bool anyRefAlive() const { return objectRef > 0 || selectRef > 0 || savedRef > 0; }
    PALETTEENTRY *paletteEntries();

    LONG objectRef;
    LONG selectRef;
    LONG savedRef;
    PhysicalObject physical[kPhysicalSlots];
    LogicalRecord record; // must stay last: palette entries run on past it

private:
    void freeBitmapMemory();
};

} // namespace vorlan

// Internal operations on logical objects.  The caller holds the toolkit lock.
//
// Index of a stock handle in the stock list, or -1; handle 0 counts as stock.
int GetStockObjectIndex(HGDIOBJ handle);
BOOL IsStockObject(HGDIOBJ handle);
// Adds 1 to count `which` and returns it; 1 for a stock handle, 0 for a
// handle that is no live logical object.
LONG AddRef(HGDIOBJ handle, int which);
// Subtracts 1 from count `which`.  The object dies when no count stays above
// 0: result 0.  Otherwise the decremented value; 1 for a stock handle; -1
// for a handle that is no live logical object.
LONG ReleaseRef(HGDIOBJ handle, int which);
// The selection count; 0 for a stock or bad handle.
LONG GetSelectRef(HGDIOBJ handle);
// The handle of a physical slot.  The handle must name a live logical
// object: anything else stops the process.
DHANDLE GetPhysicalObject(HGDIOBJ handle, int slot);
// Frees what the slot held (with its own free procedure) and stores the new
// record.  FALSE for anything but a live logical object.
BOOL SetPhysicalObject(HGDIOBJ handle, int slot, DHANDLE physical, DFREEPROC freeProc,
                       ULONG_PTR extra);
// Physical slot 0 of a region, or null.
GdkRegion *GetGdkRegion(HGDIOBJ handle);
// Physical slot 0 of a bitmap, or null.
GdkPixmap *GetGdkPixmap(HGDIOBJ handle);

#endif // VORLAN_GDI_VORLGDIOBJECT_H
