// Reusable ICU converters.  Opening a converter allocates; the conversion
// functions run often, so converters are kept per character set and lent
// out instead.
#ifndef BRANO_CONVERTER_POOL_H
#define BRANO_CONVERTER_POOL_H

#include <unicode/ucnv.h>

#include <mutex>
#include <string>
#include <vector>

namespace brano {

// The idle converters of one ICU character set.  Converters come back in
// ICU's default state (callbacks, substitution bytes, fallback use), so a
// borrower may change any of those.
class ConverterPool {
public:
    // Takes ownership of `first`, an open converter whose ucnv_getName is
    // the set this pool serves.
    explicit ConverterPool(UConverter *first);
    ConverterPool(const ConverterPool &) = delete;
    ConverterPool &operator=(const ConverterPool &) = delete;

    // An idle converter, or a new one; null only if ICU cannot open one.
    UConverter *Acquire();
    void Release(UConverter *converter);

    const std::string &Name() const { return name_; }

private:
    void RestoreDefaults(UConverter *converter) const;

    std::string name_;
    std::string substitution_;
    UBool usesFallback_;
    std::mutex mutex_;
    std::vector<UConverter *> idle_;
};

// The pool serving `first`'s character set, created from `first` when there
// is none yet (otherwise `first` joins the existing pool).  Pools live as
// long as the process.
ConverterPool *PoolForConverter(UConverter *first);

// The pool a converter belongs to, or null when it came from elsewhere.
ConverterPool *FindPoolOf(const UConverter *converter);

// Borrows a converter for the length of a scope.
class ConverterLease {
public:
    explicit ConverterLease(ConverterPool *pool) : pool_(pool), converter_(pool ? pool->Acquire() : nullptr) {}
    ~ConverterLease()
    {
        if (converter_)
            pool_->Release(converter_);
    }
    ConverterLease(const ConverterLease &) = delete;
    ConverterLease &operator=(const ConverterLease &) = delete;

    UConverter *Get() const { return converter_; }

private:
    ConverterPool *pool_;
    UConverter *converter_;
};

} // namespace brano

#endif
