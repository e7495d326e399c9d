// The narrow atom calls: names are converted through the process code page
// into a 256-unit buffer and handed to the wide calls.
#include "gtk/vorlatom.h"

namespace {

constexpr int kNameBufferUnits = 256;

ATOM RefuseName()
{
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
}

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
