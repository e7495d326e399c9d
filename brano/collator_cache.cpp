// Opening a collator loads and builds tables, far too slow for each
// comparison, so collators are made once per locale and option set.
#include "collator_cache.h"

#include <map>
#include <mutex>
#include <utility>

namespace brano {

namespace {

using CollatorKey = std::pair<std::string, int>;

void SetAttribute(UCollator *collator, UColAttribute attribute, UColAttributeValue value)
{
    UErrorCode status = U_ZERO_ERROR;
    ucol_setAttribute(collator, attribute, value, &status);
}

// Windows compares canonically equivalent text as equal, distinguishes
// case at the third level (lower case first, as ICU does) and accents at
// the second; the options switch levels off.
UCollator *OpenCollator(const std::string &icuLocale, const CollationOptions &options)
{
    UErrorCode status = U_ZERO_ERROR;
    UCollator *collator = ucol_open(icuLocale.c_str(), &status);
    if (U_FAILURE(status)) {
        ucol_close(collator);
        return nullptr;
    }
    SetAttribute(collator, UCOL_NORMALIZATION_MODE, UCOL_ON);
    if (options.ignoreDiacritics) {
        SetAttribute(collator, UCOL_STRENGTH, UCOL_PRIMARY);
        if (!options.ignoreCase)
            SetAttribute(collator, UCOL_CASE_LEVEL, UCOL_ON);
    } else {
        SetAttribute(collator, UCOL_STRENGTH, options.ignoreCase ? UCOL_SECONDARY : UCOL_TERTIARY);
    }
    if (options.digitsAsNumbers)
        SetAttribute(collator, UCOL_NUMERIC_COLLATION, UCOL_ON);
    return collator;
}

struct CollatorRegistry {
    std::mutex mutex;
    std::map<CollatorKey, UCollator *> collators;
};

CollatorRegistry &Registry()
{
    static CollatorRegistry *registry = new CollatorRegistry; // collators are never closed
    return *registry;
}

const UCollator *LookUpOrOpen(const CollatorKey &key, const CollationOptions &options)
{
    CollatorRegistry &registry = Registry();
    std::lock_guard<std::mutex> lock(registry.mutex);
    auto found = registry.collators.find(key);
    if (found != registry.collators.end())
        return found->second;
    UCollator *collator = OpenCollator(key.first, options);
    if (collator)
        registry.collators.emplace(key, collator);
    return collator;
}

} // namespace

const UCollator *CollatorFor(const std::string &icuLocale, const CollationOptions &options)
{
    // Successive comparisons nearly always use the same collator.
    thread_local CollatorKey lastKey;
    thread_local const UCollator *lastCollator = nullptr;
    CollatorKey key(icuLocale, options.Bits());
    if (lastCollator && key == lastKey)
        return lastCollator;
    const UCollator *collator = LookUpOrOpen(key, options);
    if (collator) {
        lastKey = key;
        lastCollator = collator;
    }
    return collator;
}

} // namespace brano
