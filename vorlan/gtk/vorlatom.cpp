// The atom table and the atom calls, wide, narrow and global.
//
// The table is a singly linked list of records, each followed in the same
// allocation by its name.  Every access to the list and to the counter of
// string atoms happens under g_atomMutex, so threads may add, find and
// delete the same names at the same time.
#include "gtk/vorlatom.h"

#include <windows.h>

#include <glib.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

// ----------------------------------------------------------------------------
// The atom table and its wide calls.
//
// The table is a singly linked list of records, each followed in the same
// allocation by its name.  Every access to the list and to the counter of
// string atoms happens under g_atomMutex, so threads may add, find and
// delete the same names at the same time.

namespace {

struct AtomRecord {
    AtomRecord *next;
    ATOM atom;
    LONG refCount;
    LONG length; // units of the name, terminator excluded
    // The name, with terminator and in the case of its first addition,
    // follows the record.
};

WCHAR *NameOf(AtomRecord *record)
{
    return reinterpret_cast<WCHAR *>(record + 1);
}

AtomRecord *g_pFirst = nullptr;
ATOM g_nAtom = vorlan::kFirstStringAtom;
GMutex g_atomMutex;

class AtomTableLock {
public:
    AtomTableLock() { g_mutex_lock(&g_atomMutex); }
    ~AtomTableLock() { g_mutex_unlock(&g_atomMutex); }
    AtomTableLock(const AtomTableLock &) = delete;
    AtomTableLock &operator=(const AtomTableLock &) = delete;
};

WCHAR FoldAsciiLetter(WCHAR unit)
{
    return (unit >= 'A' && unit <= 'Z') ? static_cast<WCHAR>(unit + 32) : unit;
}

// Equal with the ASCII letters folded; other units compare as they are.
bool EqualIgnoringAsciiCase(const WCHAR *a, const WCHAR *b, LONG length)
{
    for (LONG i = 0; i < length; ++i) {
        if (FoldAsciiLetter(a[i]) != FoldAsciiLetter(b[i]))
            return false;
    }
    return true;
}

LONG WideLength(LPCWSTR text)
{
    LONG length = 0;
    while (text[length] != 0)
        ++length;
    return length;
}

// Caller holds g_atomMutex.
AtomRecord *FindByName(LPCWSTR name, LONG length)
{
    for (AtomRecord *record = g_pFirst; record != nullptr; record = record->next) {
        if (record->length == length && EqualIgnoringAsciiCase(NameOf(record), name, length))
            return record;
    }
    return nullptr;
}

// Caller holds g_atomMutex.
AtomRecord *FindByAtom(ATOM atom)
{
    for (AtomRecord *record = g_pFirst; record != nullptr; record = record->next) {
        if (record->atom == atom)
            return record;
    }
    return nullptr;
}

// Caller holds g_atomMutex.
void Append(AtomRecord *record)
{
    AtomRecord **link = &g_pFirst;
    while (*link != nullptr)
        link = &(*link)->next;
    *link = record;
}

// Caller holds g_atomMutex.
void Unlink(AtomRecord *record)
{
    for (AtomRecord **link = &g_pFirst; *link != nullptr; link = &(*link)->next) {
        if (*link == record) {
            *link = record->next;
            return;
        }
    }
}

// The counter has passed 0xFFFF: numbers are never reused, so no more
// string atoms can be made.
bool StringAtomsExhausted()
{
    return g_nAtom < vorlan::kFirstStringAtom;
}

// Caller holds g_atomMutex.  A new record with one reference, or null when
// memory or atom numbers have run out.
AtomRecord *NewRecord(LPCWSTR name, LONG length)
{
    if (StringAtomsExhausted())
        return nullptr;
    void *block = std::malloc(sizeof(AtomRecord) + (length + 1) * sizeof(WCHAR));
    if (block == nullptr)
        return nullptr;
    AtomRecord *record = new (block) AtomRecord{nullptr, g_nAtom, 1, length};
    std::memcpy(NameOf(record), name, (length + 1) * sizeof(WCHAR));
    ++g_nAtom;
    return record;
}

ATOM AddStringAtom(LPCWSTR name)
{
    const LONG length = WideLength(name);
    AtomTableLock lock;
    if (AtomRecord *record = FindByName(name, length)) {
        ++record->refCount;
        return record->atom;
    }
    AtomRecord *record = NewRecord(name, length);
    if (record == nullptr)
        return 0;
    Append(record);
    return record->atom;
}

ATOM FindStringAtom(LPCWSTR name)
{
    const LONG length = WideLength(name);
    AtomTableLock lock;
    if (AtomRecord *record = FindByName(name, length))
        return record->atom;
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
}

// "#" and the number, as the name of an integer atom.
UINT GetIntegerAtomName(ATOM atom, LPWSTR buffer, int size)
{
    char text[8];
    const int length = std::snprintf(text, sizeof text, "#%u", static_cast<unsigned>(atom));
    if (size < length + 1) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    for (int i = 0; i <= length; ++i)
        buffer[i] = static_cast<unsigned char>(text[i]);
    return length;
}

UINT GetStringAtomName(ATOM atom, LPWSTR buffer, int size)
{
    AtomTableLock lock;
    AtomRecord *record = FindByAtom(atom);
    if (record == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    if (size < record->length + 1) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::memcpy(buffer, NameOf(record), (record->length + 1) * sizeof(WCHAR));
    return record->length;
}

ATOM DeleteStringAtom(ATOM atom)
{
    AtomRecord *freed = nullptr;
    {
        AtomTableLock lock;
        AtomRecord *record = FindByAtom(atom);
        if (record == nullptr) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return atom;
        }
        if (--record->refCount == 0) {
            Unlink(record);
            freed = record;
        }
    }
    std::free(freed);
    return 0;
}

ATOM RefuseName()
{
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
}

} // namespace

ATOM WINAPI AddAtomW(LPCWSTR lpString)
{
    const vorlan::AtomName name = vorlan::ClassifyAtomName(lpString, true);
    switch (name.kind) {
    case vorlan::AtomNameKind::Integer:
        return name.value;
    case vorlan::AtomNameKind::String:
        return AddStringAtom(lpString);
    case vorlan::AtomNameKind::Invalid:
        break;
    }
    return RefuseName();
}

ATOM WINAPI FindAtomW(LPCWSTR lpString)
{
    const vorlan::AtomName name = vorlan::ClassifyAtomName(lpString, false);
    switch (name.kind) {
    case vorlan::AtomNameKind::Integer:
        return name.value;
    case vorlan::AtomNameKind::String:
        return FindStringAtom(lpString);
    case vorlan::AtomNameKind::Invalid:
        break;
    }
    return RefuseName();
}

UINT WINAPI GetAtomNameW(ATOM nAtom, LPWSTR lpBuffer, int nSize)
{
    if (nAtom == 0 || lpBuffer == nullptr)
        return RefuseName();
    if (nAtom <= vorlan::kMaxIntegerAtom)
        return GetIntegerAtomName(nAtom, lpBuffer, nSize);
    return GetStringAtomName(nAtom, lpBuffer, nSize);
}

ATOM WINAPI DeleteAtom(ATOM nAtom)
{
    if (nAtom == 0)
        return RefuseName();
    if (nAtom <= vorlan::kMaxIntegerAtom)
        return 0;
    return DeleteStringAtom(nAtom);
}

// ----------------------------------------------------------------------------
// How an atom name argument is read: integer atoms given as a small value
// in place of a pointer, "#" forms, and names for the table.

namespace {

bool HasHighBits(const void *name)
{
    return (reinterpret_cast<ULONG_PTR>(name) >> 16) != 0;
}

bool IsIntegerAtomValue(ULONG_PTR value)
{
    return value >= 1 && value <= vorlan::kMaxIntegerAtom;
}

vorlan::AtomName Refused()
{
    return {vorlan::AtomNameKind::Invalid, 0};
}

vorlan::AtomName IntegerAtomOrRefused(ULONG_PTR value)
{
    if (!IsIntegerAtomValue(value))
        return Refused();
    return {vorlan::AtomNameKind::Integer, static_cast<ATOM>(value)};
}

// Decimal digits up to the terminator.  An empty text reads as 0; any other
// unit than a digit makes the whole text unreadable.  Large values saturate,
// which keeps them out of the integer atom range.
bool ParseString(LPCWSTR text, ULONG_PTR &value)
{
    constexpr ULONG_PTR kSaturated = 0x10000;
    value = 0;
    for (; *text != 0; ++text) {
        if (*text < '0' || *text > '9') {
            value = 0;
            return false;
        }
        value = value * 10 + (*text - '0');
        if (value > kSaturated)
            value = kSaturated;
    }
    return true;
}

int LengthUpTo(LPCWSTR name, int limit)
{
    int length = 0;
    while (length < limit && name[length] != 0)
        ++length;
    return length;
}

} // namespace

namespace vorlan {

AtomName ClassifyAtomName(LPCWSTR name, bool limitLength)
{
    if (!HasHighBits(name))
        return IntegerAtomOrRefused(reinterpret_cast<ULONG_PTR>(name));
    if (name[0] == 0)
        return Refused();
    if (limitLength && LengthUpTo(name, kMaxAtomNameLength) >= kMaxAtomNameLength)
        return Refused();
    if (name[0] == '#') {
        ULONG_PTR value = 0;
        if (!ParseString(name + 1, value))
            return Refused();
        return IntegerAtomOrRefused(value);
    }
    return {AtomNameKind::String, 0};
}

AtomName ClassifyNarrowAtomPointer(LPCSTR name)
{
    if (!HasHighBits(name))
        return IntegerAtomOrRefused(reinterpret_cast<ULONG_PTR>(name));
    return {AtomNameKind::String, 0};
}

} // namespace vorlan

// ----------------------------------------------------------------------------
// The narrow atom calls: names are converted through the process code page
// into a 256-unit buffer and handed to the wide calls.

namespace {

constexpr int kNameBufferUnits = 256;

// Runs `wideCall` on the name: integer atoms directly, strings after
// conversion.  A name that does not convert is refused.
template <typename WideCall>
ATOM WithWideName(LPCSTR name, WideCall wideCall)
{
    const vorlan::AtomName kind = vorlan::ClassifyNarrowAtomPointer(name);
    if (kind.kind == vorlan::AtomNameKind::Invalid)
        return RefuseName();
    if (kind.kind == vorlan::AtomNameKind::Integer)
        return kind.value;
    WCHAR buffer[kNameBufferUnits];
    if (MultiByteToWideChar(CP_ACP, 0, name, -1, buffer, kNameBufferUnits) == 0)
        return RefuseName();
    return wideCall(buffer);
}

} // namespace

ATOM WINAPI AddAtomA(LPCSTR lpString)
{
    return WithWideName(lpString, AddAtomW);
}

ATOM WINAPI FindAtomA(LPCSTR lpString)
{
    return WithWideName(lpString, FindAtomW);
}

// The count returned includes the terminator, as the conversion counts it.
UINT WINAPI GetAtomNameA(ATOM nAtom, LPSTR lpBuffer, int nSize)
{
    WCHAR text[kNameBufferUnits];
    const UINT length = GetAtomNameW(nAtom, text, kNameBufferUnits);
    if (length == 0)
        return 0;
    return WideCharToMultiByte(CP_ACP, 0, text, length + 1, lpBuffer, nSize, nullptr, nullptr);
}

// ----------------------------------------------------------------------------
// The global atom calls.  There is no table shared between processes: the
// global names live in the same table as the local ones.

ATOM WINAPI GlobalAddAtomA(LPCSTR lpString)
{
    return AddAtomA(lpString);
}

ATOM WINAPI GlobalAddAtomW(LPCWSTR lpString)
{
    return AddAtomW(lpString);
}

ATOM WINAPI GlobalFindAtomA(LPCSTR lpString)
{
    return FindAtomA(lpString);
}

ATOM WINAPI GlobalFindAtomW(LPCWSTR lpString)
{
    return FindAtomW(lpString);
}

ATOM WINAPI GlobalDeleteAtom(ATOM nAtom)
{
    return DeleteAtom(nAtom);
}

UINT WINAPI GlobalGetAtomNameA(ATOM nAtom, LPSTR lpBuffer, int nSize)
{
    return GetAtomNameA(nAtom, lpBuffer, nSize);
}

UINT WINAPI GlobalGetAtomNameW(ATOM nAtom, LPWSTR lpBuffer, int nSize)
{
    return GetAtomNameW(nAtom, lpBuffer, nSize);
}
