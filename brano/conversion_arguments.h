// Argument checks common to MultiByteToWideChar and WideCharToMultiByte.
#ifndef BRANO_CONVERSION_ARGUMENTS_H
#define BRANO_CONVERSION_ARGUMENTS_H

#include <windows.h>

#include <climits>
#include <cstdint>

#include "text_conversion.h"

namespace brano {

// A source is a pointer with a length of -1 (terminated) or more than 0;
// a destination is either absent with size 0, or present with size >= 0.
inline bool AreValidConversionBuffers(const void *source, int sourceLength, const void *destination,
                                      int destinationSize)
{
    if (!source || sourceLength == 0 || sourceLength < -1)
        return false;
    if (destinationSize < 0 || (!destination && destinationSize != 0))
        return false;
    return true;
}

inline bool RangesOverlap(const void *first, size_t firstBytes, const void *second, size_t secondBytes)
{
    uintptr_t a = reinterpret_cast<uintptr_t>(first);
    uintptr_t b = reinterpret_cast<uintptr_t>(second);
    return a < b + secondBytes && b < a + firstBytes;
}

inline int FailConversion(DWORD error)
{
    SetLastError(error);
    return 0;
}

// The Win32 result for a finished conversion: the length on success (the
// last error is left alone, as Windows does), otherwise 0 and the error.
template <typename Unit>
int ConversionResult(ConversionStatus status, const OutputSink<Unit> &out)
{
    switch (status) {
    case ConversionStatus::Ok:
        if (out.Length() > (size_t)INT_MAX)
            return FailConversion(ERROR_INSUFFICIENT_BUFFER);
        return (int)out.Length();
    case ConversionStatus::BufferTooSmall:
        return FailConversion(ERROR_INSUFFICIENT_BUFFER);
    case ConversionStatus::InvalidChars:
        return FailConversion(ERROR_NO_UNICODE_TRANSLATION);
    case ConversionStatus::Failed:
        break;
    }
    return FailConversion(ERROR_NOT_ENOUGH_MEMORY);
}

} // namespace brano

#endif
