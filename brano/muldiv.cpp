// MulDiv: a * b / c with a 64-bit intermediate, rounded half away from
// zero.  Division by zero and results beyond 32 bits give -1.
#include <windows.h>

#include <climits>
#include <cstdint>

namespace {

uint64_t Magnitude(int64_t value)
{
    return value < 0 ? (uint64_t)0 - (uint64_t)value : (uint64_t)value;
}

} // namespace

int WINAPI MulDiv(int nNumber, int nNumerator, int nDenominator)
{
    if (nDenominator == 0)
        return -1;
    int64_t product = (int64_t)nNumber * nNumerator;
    bool negative = (product < 0) != (nDenominator < 0);
    uint64_t divisor = Magnitude(nDenominator);
    uint64_t quotient = (Magnitude(product) + divisor / 2) / divisor;
    if (negative ? quotient > (uint64_t)INT_MAX + 1 : quotient > (uint64_t)INT_MAX)
        return -1;
    int64_t result = negative ? -(int64_t)quotient : (int64_t)quotient;
    return (int)result;
}
