// GetLocaleInfoA and the default locale identifiers.  Values are computed
// once per locale and type and then served from a cache: applications ask
// for separators and names over and over while formatting.
#include <windows.h>

#include <cstring>
#include <map>
#include <mutex>
#include <utility>

#include "ansi_text.h"
#include "lcid_mapping.h"
#include "locale_values.h"

namespace {

constexpr LCTYPE kTypeModifiers = LOCALE_NOUSEROVERRIDE | LOCALE_RETURN_NUMBER | LOCALE_USE_CP_ACP;

// With LOCALE_RETURN_NUMBER the "A" form writes a DWORD: four chars.
constexpr int kNumberChars = (int)sizeof(DWORD);

using ValueKey = std::pair<LCID, LCTYPE>;

struct ValueCache {
    std::mutex mutex;
    std::map<ValueKey, brano::LocaleValue> values;
};

ValueCache &Cache()
{
    static ValueCache *cache = new ValueCache; // lives as long as the process
    return *cache;
}

bool CachedLocaleValue(const brano::LocaleIdentity &locale, LCTYPE type, brano::LocaleValue &value)
{
    ValueKey key(locale.lcid, type);
    ValueCache &cache = Cache();
    {
        std::lock_guard<std::mutex> lock(cache.mutex);
        auto found = cache.values.find(key);
        if (found != cache.values.end()) {
            value = found->second;
            return true;
        }
    }
    if (!brano::QueryLocaleValue(locale, type, value))
        return false;
    std::lock_guard<std::mutex> lock(cache.mutex);
    cache.values.emplace(key, value);
    return true;
}

int FailLocaleInfo(DWORD error)
{
    SetLastError(error);
    return 0;
}

int WriteNumber(DWORD number, LPSTR buffer, int size)
{
    if (size == 0)
        return kNumberChars;
    if (size < kNumberChars)
        return FailLocaleInfo(ERROR_INSUFFICIENT_BUFFER);
    std::memcpy(buffer, &number, sizeof number);
    return kNumberChars;
}

int WriteText(const std::u16string &text, LPSTR buffer, int size)
{
    std::string bytes = brano::WideToAnsi(text);
    int needed = (int)bytes.size() + 1;
    if (size == 0)
        return needed;
    if (size < needed)
        return FailLocaleInfo(ERROR_INSUFFICIENT_BUFFER);
    std::memcpy(buffer, bytes.c_str(), (size_t)needed);
    return needed;
}

} // namespace

int WINAPI GetLocaleInfoA(LCID Locale, LCTYPE LCType, LPSTR lpLCData, int cchData)
{
    if (cchData < 0 || (!lpLCData && cchData != 0))
        return FailLocaleInfo(ERROR_INVALID_PARAMETER);
    brano::LocaleIdentity locale;
    if (!brano::ResolveLcid(Locale, locale))
        return FailLocaleInfo(ERROR_INVALID_PARAMETER);
    LCTYPE type = LCType & ~kTypeModifiers;
    brano::LocaleValue value;
    if (!CachedLocaleValue(locale, type, value))
        return FailLocaleInfo(ERROR_INVALID_FLAGS);
    if (LCType & LOCALE_RETURN_NUMBER) {
        if (!value.numeric)
            return FailLocaleInfo(ERROR_INVALID_FLAGS);
        return WriteNumber(value.number, lpLCData, cchData);
    }
    return WriteText(value.text, lpLCData, cchData);
}

LCID WINAPI GetSystemDefaultLCID(void)
{
    return brano::ProcessLocaleIdentity().lcid;
}

LCID WINAPI GetUserDefaultLCID(void)
{
    return brano::ProcessLocaleIdentity().lcid;
}

LANGID WINAPI GetSystemDefaultLangID(void)
{
    return LANGIDFROMLCID(GetSystemDefaultLCID());
}

LANGID WINAPI GetUserDefaultLangID(void)
{
    return LANGIDFROMLCID(GetUserDefaultLCID());
}
