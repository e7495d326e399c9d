// Strings of STRINGTABLE resources.  Strings are stored in blocks of 16:
// string id N lives in the RT_STRING resource (N / 16) + 1 at position
// N % 16, each position holding a length unit followed by that many UTF-16
// units, with no terminator.
#include "resources.h"

#include <cstring>

namespace {

constexpr WORD kStringTableType = 6;  // RT_STRING
constexpr UINT kStringsPerBlock = 16;

struct FoundString {
    const WCHAR *text = nullptr;
    int length = 0;
};

// Locates string `id` inside its block's bytes; false if the block is too
// short to hold it (a damaged resource reads as a missing string).
bool StringInBlock(const brano::ResourceEntry &block, UINT position, FoundString &found)
{
    const WCHAR *units = reinterpret_cast<const WCHAR *>(block.data);
    const size_t count = block.size / sizeof(WCHAR);
    size_t at = 0;
    for (UINT i = 0; i < position; ++i) {
        if (at >= count)
            return false;
        at += 1 + units[at];
    }
    if (at >= count || units[at] > count - at - 1)
        return false;
    found.text = units + at + 1;
    found.length = units[at];
    return true;
}

// String ids are 16-bit: only the low word of `id` counts.  On failure the
// Win32 error is left in *error.
bool FindString(HINSTANCE instance, UINT id, FoundString &found, DWORD *error)
{
    const WORD stringId = LOWORD(id);
    const brano::ResourceKey type = brano::ResourceKey::FromId(kStringTableType);
    const brano::ResourceKey block =
        brano::ResourceKey::FromId(static_cast<WORD>(stringId / kStringsPerBlock + 1));
    const brano::ResourceEntry *entry = brano::FindResourceEntry(instance, type, block, error);
    if (entry == nullptr)
        return false;
    if (!StringInBlock(*entry, stringId % kStringsPerBlock, found)) {
        *error = ERROR_RESOURCE_NAME_NOT_FOUND;
        return false;
    }
    return true;
}

void StorePointer(LPWSTR buffer, const WCHAR *text)
{
    std::memcpy(buffer, &text, sizeof text);
}

int AnsiLength(const WCHAR *text, int units)
{
    return WideCharToMultiByte(CP_ACP, 0, text, units, nullptr, 0, nullptr, nullptr);
}

bool IsHighSurrogate(WCHAR unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

// How many UTF-16 units convert into at most `room` ANSI bytes without
// cutting a character (or a surrogate pair) in half.
int UnitsThatFit(const WCHAR *text, int length, int room)
{
    int units = 0;
    int bytes = 0;
    while (units < length) {
        int step = 1;
        if (IsHighSurrogate(text[units]) && units + 1 < length)
            step = 2;
        const int size = AnsiLength(text + units, step);
        if (size <= 0 || bytes + size > room)
            break;
        bytes += size;
        units += step;
    }
    return units;
}

} // namespace

// With cchBufferMax > 0, copies at most cchBufferMax-1 units and
// terminates.  With cchBufferMax == 0, lpBuffer is really an LPCWSTR* that
// receives a read-only pointer to the unterminated string in the resource
// (null when there is none), and the string's full length is returned.
// 0 means the string is missing or empty (ERROR_RESOURCE_NAME_NOT_FOUND, or
// the error of the failed resource lookup).
int WINAPI LoadStringW(HINSTANCE hInstance, UINT uID, LPWSTR lpBuffer, int cchBufferMax)
{
    if (lpBuffer == nullptr || cchBufferMax < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    FoundString found;
    DWORD error = ERROR_SUCCESS;
    const bool exists = FindString(hInstance, uID, found, &error);
    if (!exists || found.length == 0)
        SetLastError(exists ? ERROR_RESOURCE_NAME_NOT_FOUND : error);
    if (cchBufferMax == 0) {
        StorePointer(lpBuffer, found.text);
        return found.length;
    }
    const int copied = found.length < cchBufferMax - 1 ? found.length : cchBufferMax - 1;
    if (copied > 0)
        std::memcpy(lpBuffer, found.text, static_cast<size_t>(copied) * sizeof(WCHAR));
    lpBuffer[copied] = 0;
    return copied;
}

// The string converted to the ANSI code page, cut at a character boundary
// to fit cchBufferMax-1 bytes and terminated.  Returns the bytes copied.
// There is no pointer mode: a zero-sized buffer is an invalid parameter.
int WINAPI LoadStringA(HINSTANCE hInstance, UINT uID, LPSTR lpBuffer, int cchBufferMax)
{
    if (lpBuffer == nullptr || cchBufferMax <= 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    lpBuffer[0] = '\0';
    FoundString found;
    DWORD error = ERROR_SUCCESS;
    if (!FindString(hInstance, uID, found, &error)) {
        SetLastError(error);
        return 0;
    }
    if (found.length == 0) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return 0;
    }
    const int room = cchBufferMax - 1;
    int units = found.length;
    if (AnsiLength(found.text, units) > room)
        units = UnitsThatFit(found.text, units, room);
    if (units == 0)
        return 0;
    const int written =
        WideCharToMultiByte(CP_ACP, 0, found.text, units, lpBuffer, room, nullptr, nullptr);
    lpBuffer[written > 0 ? written : 0] = '\0';
    return written > 0 ? written : 0;
}
