// LCID <-> ICU locale through ICU's own table (uloc_getLocaleForLCID and
// uloc_getLCID), with regions filled in from likely subtags so that a
// language-only identifier behaves as its main country.
#include "lcid_mapping.h"

#include <unicode/uloc.h>

#include <mutex>
#include <unordered_map>

#include "locale_environment.h"

namespace brano {

namespace {

constexpr LCID kEnglishUnitedStates = 0x0409;
constexpr LCID kCustomDefault = 0x0C00;
constexpr LCID kCustomUiDefault = 0x1400;
constexpr size_t kNameCapacity = ULOC_FULLNAME_CAPACITY;

bool IsDefaultAlias(LCID lcid)
{
    return lcid == LOCALE_NEUTRAL || lcid == LOCALE_USER_DEFAULT || lcid == LOCALE_SYSTEM_DEFAULT ||
           lcid == kCustomDefault || lcid == kCustomUiDefault;
}

std::string LocalePart(int32_t (*getter)(const char *, char *, int32_t, UErrorCode *), const std::string &name)
{
    char buffer[kNameCapacity];
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = getter(name.c_str(), buffer, sizeof buffer, &status);
    if (U_FAILURE(status) || length <= 0 || length >= (int32_t)sizeof buffer)
        return std::string();
    return std::string(buffer, (size_t)length);
}

std::string LikelyRegion(const std::string &name)
{
    char maximized[kNameCapacity];
    UErrorCode status = U_ZERO_ERROR;
    uloc_addLikelySubtags(name.c_str(), maximized, sizeof maximized, &status);
    if (U_FAILURE(status))
        return std::string();
    return LocalePart(uloc_getCountry, maximized);
}

// language[_Script]_REGION, the region added when the name lacks one.
std::string WithRegion(const std::string &name)
{
    std::string language = LocalePart(uloc_getLanguage, name);
    std::string script = LocalePart(uloc_getScript, name);
    std::string region = LocalePart(uloc_getCountry, name);
    if (language.empty())
        return std::string();
    if (region.empty())
        region = LikelyRegion(name);
    std::string result = language;
    if (!script.empty())
        result += "_" + script;
    if (!region.empty())
        result += "_" + region;
    return result;
}

// The specific (not language-neutral) LCID of a locale name, trying it
// without the script when ICU only knows the script-less form.
LCID SpecificLcid(const std::string &name)
{
    LCID lcid = uloc_getLCID(name.c_str());
    if (lcid && SUBLANGID(lcid) != 0)
        return lcid;
    std::string language = LocalePart(uloc_getLanguage, name);
    std::string region = LocalePart(uloc_getCountry, name);
    LCID withoutScript = region.empty() ? 0 : uloc_getLCID((language + "_" + region).c_str());
    return withoutScript ? withoutScript : lcid;
}

std::string IcuNameForEnvironment(const PosixLocaleName &name)
{
    if (IsPortableLocale(name))
        return "en_US";
    std::string icuName = name.language;
    if (name.modifier == "latin")
        icuName += "_Latn";
    else if (name.modifier == "cyrillic")
        icuName += "_Cyrl";
    if (!name.territory.empty())
        icuName += "_" + name.territory;
    return WithRegion(icuName);
}

LocaleIdentity IdentityForEnvironment()
{
    LocaleIdentity identity;
    identity.icuName = IcuNameForEnvironment(ProcessLocaleName());
    identity.lcid = identity.icuName.empty() ? 0 : SpecificLcid(identity.icuName);
    if (!identity.lcid) {
        // A language ICU has no identifier for: behave as en-US throughout.
        identity.lcid = kEnglishUnitedStates;
        identity.icuName = "en_US";
    }
    return identity;
}

// Resolves an identifier that is not a default alias, without caching.
bool ResolveSpecificLcid(LCID lcid, LocaleIdentity &identity)
{
    if (lcid >> 20)
        return false; // reserved bits set
    LANGID language = LANGIDFROMLCID(lcid);
    if (language == LOCALE_INVARIANT) {
        identity.lcid = LOCALE_INVARIANT;
        identity.icuName = "en_US";
        identity.invariant = true;
        return true;
    }
    char name[kNameCapacity];
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = uloc_getLocaleForLCID(language, name, sizeof name, &status);
    if (U_FAILURE(status) || length <= 0 || status == U_STRING_NOT_TERMINATED_WARNING)
        return false;
    identity.icuName = WithRegion(name);
    if (identity.icuName.empty())
        return false;
    identity.lcid = SUBLANGID(language) != 0 ? language : SpecificLcid(identity.icuName);
    if (!identity.lcid)
        identity.lcid = language;
    identity.invariant = false;
    return true;
}

struct IdentityCache {
    std::mutex mutex;
    std::unordered_map<LCID, LocaleIdentity> identities;
};

IdentityCache &Cache()
{
    static IdentityCache *cache = new IdentityCache; // lives as long as the process
    return *cache;
}

bool ResolveThroughCache(LCID lcid, LocaleIdentity &identity)
{
    IdentityCache &cache = Cache();
    {
        std::lock_guard<std::mutex> lock(cache.mutex);
        auto found = cache.identities.find(lcid);
        if (found != cache.identities.end()) {
            identity = found->second;
            return true;
        }
    }
    if (!ResolveSpecificLcid(lcid, identity))
        return false;
    std::lock_guard<std::mutex> lock(cache.mutex);
    cache.identities.emplace(lcid, identity);
    return true;
}

} // namespace

const LocaleIdentity &ProcessLocaleIdentity()
{
    static const LocaleIdentity identity = IdentityForEnvironment();
    return identity;
}

bool ResolveLcid(LCID lcid, LocaleIdentity &identity)
{
    if (IsDefaultAlias(lcid)) {
        identity = ProcessLocaleIdentity();
        return true;
    }
    // Callers tend to ask about the same locale again and again.
    thread_local LCID lastLcid = 0;
    thread_local LocaleIdentity lastIdentity;
    if (lastLcid == lcid && lcid != 0) {
        identity = lastIdentity;
        return true;
    }
    if (!ResolveThroughCache(lcid, identity))
        return false;
    lastLcid = lcid;
    lastIdentity = identity;
    return true;
}

} // namespace brano
