// The locale calls: default locale ids from the host, GetLocaleInfoW over
// the host's GetLocaleInfoA, and IsValidLocale over ICU's locale list.
// None of them touches toolkit state, so none takes the toolkit lock.
#include <windows.h>

#include <unicode/uloc.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include <glib.h>

namespace {

constexpr int kNumberUnits = int(sizeof(DWORD) / sizeof(WCHAR));
// Narrow buffers up to this size live on the stack.
constexpr int kStackNarrowBytes = 256;

// The LCIDs of ICU's available locales, sorted; locales without an LCID
// are left out.  Built once: the list does not change in a process.
const std::vector<LCID> &AvailableLcids()
{
    static const std::vector<LCID> lcids = [] {
        std::vector<LCID> found;
        const int32_t count = uloc_countAvailable();
        for (int32_t i = 0; i < count; ++i) {
            const uint32_t lcid = uloc_getLCID(uloc_getAvailable(i));
            if (lcid != 0)
                found.push_back(lcid);
        }
        std::sort(found.begin(), found.end());
        return found;
    }();
    return lcids;
}

int FailLocaleInfo(DWORD error)
{
    SetLastError(error);
    return 0;
}

// LOCALE_RETURN_NUMBER: the value is a DWORD, two units in the wide form.
int GetLocaleNumberW(LCID locale, LCTYPE type, LPWSTR buffer, int size)
{
    DWORD number = 0;
    if (GetLocaleInfoA(locale, type, reinterpret_cast<LPSTR>(&number), int(sizeof number)) <= 0)
        return 0;
    if (size == 0)
        return kNumberUnits;
    if (size < kNumberUnits)
        return FailLocaleInfo(ERROR_INSUFFICIENT_BUFFER);
    std::memcpy(buffer, &number, sizeof number);
    return kNumberUnits;
}

// Widens the narrow text into the caller's buffer, which is written only
// when the whole text fits.
int WidenLocaleText(const char *narrow, int narrowCount, LPWSTR buffer, int size)
{
    const int units = MultiByteToWideChar(0, 0, narrow, -1, nullptr, 0);
    if (units <= 0)
        return FailLocaleInfo(ERROR_INTERNAL_ERROR);
    if (units > size)
        return FailLocaleInfo(ERROR_INSUFFICIENT_BUFFER);
    if (MultiByteToWideChar(0, 0, narrow, -1, buffer, size) <= 0)
        return FailLocaleInfo(ERROR_INTERNAL_ERROR);
    return narrowCount;
}

int GetLocaleTextW(LCID locale, LCTYPE type, LPWSTR buffer, int size, char *narrow)
{
    const int count = GetLocaleInfoA(locale, type, narrow, size);
    if (count < 1 || size == 0)
        return count;
    return WidenLocaleText(narrow, count, buffer, size);
}

} // namespace

LCID WINAPI GetThreadLocale(void)
{
    return GetSystemDefaultLCID();
}

HKL WINAPI GetKeyboardLayout(DWORD)
{
    return reinterpret_cast<HKL>(UINT_PTR(LANGIDFROMLCID(GetSystemDefaultLCID())));
}

int WINAPI GetLocaleInfoW(LCID Locale, LCTYPE LCType, LPWSTR lpLCData, int cchData)
{
    if (cchData < 0 || (lpLCData == nullptr && cchData != 0))
        return FailLocaleInfo(ERROR_INVALID_PARAMETER);
    if (LCType & LOCALE_RETURN_NUMBER)
        return GetLocaleNumberW(Locale, LCType, lpLCData, cchData);
    if (cchData <= kStackNarrowBytes) {
        char narrow[kStackNarrowBytes];
        return GetLocaleTextW(Locale, LCType, lpLCData, cchData, cchData == 0 ? nullptr : narrow);
    }
    char *narrow = static_cast<char *>(g_try_malloc(gsize(cchData)));
    if (narrow == nullptr)
        return FailLocaleInfo(ERROR_NOT_ENOUGH_MEMORY);
    const int result = GetLocaleTextW(Locale, LCType, lpLCData, cchData, narrow);
    g_free(narrow);
    return result;
}

BOOL WINAPI IsValidLocale(LCID Locale, DWORD)
{
    const std::vector<LCID> &lcids = AvailableLcids();
    return std::binary_search(lcids.begin(), lcids.end(), Locale);
}

HKL WINAPI LoadKeyboardLayoutA(LPCSTR, UINT)
{
    return nullptr;
}

HKL WINAPI ActivateKeyboardLayout(HKL, UINT)
{
    return nullptr;
}

BOOL WINAPI ExitWindowsEx(UINT, DWORD)
{
    return FALSE;
}
