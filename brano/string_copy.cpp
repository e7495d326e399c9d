// lstrlen, lstrcpy, lstrcpyn and lstrcat, plus the host's own bounded copy
// and fill.  Windows guards these against bad pointers and returns null (or
// 0) instead of faulting; null pointers get the same answer here.
#include <windows.h>

#include <cstring>

namespace {

template <typename Char>
size_t TextLength(const Char *text)
{
    size_t length = 0;
    while (text[length])
        ++length;
    return length;
}

template <typename Char>
Char *CopyText(Char *destination, const Char *source)
{
    if (!destination || !source)
        return nullptr;
    std::memmove(destination, source, (TextLength(source) + 1) * sizeof(Char));
    return destination;
}

// Copies at most maxLength - 1 characters and always terminates.
template <typename Char>
Char *CopyBoundedText(Char *destination, const Char *source, int maxLength)
{
    if (!destination)
        return nullptr;
    if (maxLength <= 0)
        return destination;
    if (!source)
        return nullptr;
    size_t limit = (size_t)maxLength - 1;
    size_t i = 0;
    for (; i < limit && source[i]; ++i)
        destination[i] = source[i];
    destination[i] = 0;
    return destination;
}

template <typename Char>
Char *AppendText(Char *destination, const Char *source)
{
    if (!destination || !source)
        return nullptr;
    CopyText(destination + TextLength(destination), source);
    return destination;
}

template <typename Char>
int TextLengthOrZero(const Char *text)
{
    return text ? (int)TextLength(text) : 0;
}

} // namespace

int WINAPI lstrlenA(LPCSTR lpString)
{
    return TextLengthOrZero(lpString);
}

int WINAPI lstrlenW(LPCWSTR lpString)
{
    return TextLengthOrZero(lpString);
}

LPSTR WINAPI lstrcpyA(LPSTR lpString1, LPCSTR lpString2)
{
    return CopyText(lpString1, lpString2);
}

LPWSTR WINAPI lstrcpyW(LPWSTR lpString1, LPCWSTR lpString2)
{
    return CopyText(lpString1, lpString2);
}

LPSTR WINAPI lstrcpynA(LPSTR lpString1, LPCSTR lpString2, int iMaxLength)
{
    return CopyBoundedText(lpString1, lpString2, iMaxLength);
}

LPWSTR WINAPI lstrcpynW(LPWSTR lpString1, LPCWSTR lpString2, int iMaxLength)
{
    return CopyBoundedText(lpString1, lpString2, iMaxLength);
}

LPSTR WINAPI lstrcatA(LPSTR lpString1, LPCSTR lpString2)
{
    return AppendText(lpString1, lpString2);
}

LPWSTR WINAPI lstrcatW(LPWSTR lpString1, LPCWSTR lpString2)
{
    return AppendText(lpString1, lpString2);
}

char *Cstrncpy(char *dst, const char *src, size_t n)
{
    if (!dst || n == 0)
        return dst;
    size_t i = 0;
    if (src) {
        for (; i + 1 < n && src[i]; ++i)
            dst[i] = src[i];
    }
    dst[i] = 0;
    return dst;
}

void *Csetmem(void *block, size_t size, int value)
{
    if (block && size)
        std::memset(block, value, size);
    return block;
}
