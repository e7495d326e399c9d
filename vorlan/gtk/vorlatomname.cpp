// How an atom name argument is read: integer atoms given as a small value
// in place of a pointer, "#" forms, and names for the table.
#include "gtk/vorlatom.h"

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
