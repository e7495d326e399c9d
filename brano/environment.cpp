// Host settings read from the process environment.
#include <windows.h>

#include <cerrno>
#include <cctype>
#include <climits>
#include <cstdlib>
#include <cstring>

namespace {

bool OnlySpacesRemain(const char *text)
{
    while (*text != '\0' && std::isspace(static_cast<unsigned char>(*text)))
        ++text;
    return *text == '\0';
}

// A value in the 32-bit range, signed or unsigned, keeps its bit pattern, so
// "0xffffffff" gives -1 as a mask would expect.  Anything wider is invalid.
bool FitsIn32Bits(long long value)
{
    return value >= static_cast<long long>(INT_MIN) && value <= static_cast<long long>(UINT_MAX);
}

const char *LookUp(LPCSTR name)
{
    if (name == nullptr || *name == '\0')
        return nullptr;
    return std::getenv(name);
}

} // namespace

// The variable as a number: decimal, 0x-prefixed hexadecimal or 0-prefixed
// octal, with optional sign and surrounding white space.  A missing,
// empty, partly numeric or out-of-range value gives 0.
LONG OSGetEnvironmentLong(LPCSTR name)
{
    const char *text = LookUp(name);
    if (text == nullptr)
        return 0;
    errno = 0;
    char *end = nullptr;
    const long long value = std::strtoll(text, &end, 0);
    if (end == text || errno != 0 || !OnlySpacesRemain(end) || !FitsIn32Bits(value))
        return 0;
    return static_cast<LONG>(static_cast<unsigned int>(value));
}

// Copies at most size-1 bytes of the value and terminates it.  Returns the
// full length of the value so that a result >= size reveals truncation; a
// missing variable reads as an empty string.
DWORD OSGetEnvironmentString(LPCSTR name, LPSTR buffer, DWORD size)
{
    const char *text = LookUp(name);
    if (text == nullptr)
        text = "";
    const size_t length = std::strlen(text);
    if (buffer != nullptr && size > 0) {
        const size_t copied = length < size - 1 ? length : size - 1;
        std::memcpy(buffer, text, copied);
        buffer[copied] = '\0';
    }
    return length > MAXDWORD ? MAXDWORD : static_cast<DWORD>(length);
}
