// Per-character-set pools of ICU converters, shared by all threads.
#include "converter_pool.h"

#include <memory>
#include <unordered_map>

namespace brano {

namespace {

// More idle converters than this for one set are closed on release: only
// as many threads as convert at once ever need one each.
constexpr size_t kMaxIdlePerPool = 16;

std::string ConverterName(const UConverter *converter)
{
    UErrorCode status = U_ZERO_ERROR;
    const char *name = ucnv_getName(converter, &status);
    return U_SUCCESS(status) && name ? name : "";
}

struct PoolRegistry {
    std::mutex mutex;
    std::unordered_map<std::string, std::unique_ptr<ConverterPool>> pools;
};

PoolRegistry &Registry()
{
    static PoolRegistry *registry = new PoolRegistry; // never destroyed: pools outlive static teardown
    return *registry;
}

} // namespace

ConverterPool::ConverterPool(UConverter *first) : name_(ConverterName(first)), usesFallback_(ucnv_usesFallback(first))
{
    char bytes[32]; // substitution bytes are at most 4
    int8_t length = sizeof bytes;
    UErrorCode status = U_ZERO_ERROR;
    ucnv_getSubstChars(first, bytes, &length, &status);
    if (U_SUCCESS(status))
        substitution_.assign(bytes, (size_t)length);
    RestoreDefaults(first);
    idle_.push_back(first);
}

UConverter *ConverterPool::Acquire()
{
    {
        std::lock_guard<std::mutex> lock(mutex_);
        if (!idle_.empty()) {
            UConverter *converter = idle_.back();
            idle_.pop_back();
            return converter;
        }
    }
    UErrorCode status = U_ZERO_ERROR;
    UConverter *converter = ucnv_open(name_.c_str(), &status);
    if (U_FAILURE(status)) {
        ucnv_close(converter);
        return nullptr;
    }
    return converter;
}

void ConverterPool::Release(UConverter *converter)
{
    if (!converter)
        return;
    RestoreDefaults(converter);
    {
        std::lock_guard<std::mutex> lock(mutex_);
        if (idle_.size() < kMaxIdlePerPool) {
            idle_.push_back(converter);
            return;
        }
    }
    ucnv_close(converter);
}

void ConverterPool::RestoreDefaults(UConverter *converter) const
{
    UErrorCode status = U_ZERO_ERROR;
    ucnv_reset(converter);
    ucnv_setToUCallBack(converter, UCNV_TO_U_CALLBACK_SUBSTITUTE, nullptr, nullptr, nullptr, &status);
    status = U_ZERO_ERROR;
    ucnv_setFromUCallBack(converter, UCNV_FROM_U_CALLBACK_SUBSTITUTE, nullptr, nullptr, nullptr, &status);
    ucnv_setFallback(converter, usesFallback_);
    if (!substitution_.empty()) {
        status = U_ZERO_ERROR;
        ucnv_setSubstChars(converter, substitution_.data(), (int8_t)substitution_.size(), &status);
    }
}

ConverterPool *PoolForConverter(UConverter *first)
{
    std::string name = ConverterName(first);
    PoolRegistry &registry = Registry();
    std::lock_guard<std::mutex> lock(registry.mutex);
    auto found = registry.pools.find(name);
    if (found != registry.pools.end()) {
        found->second->Release(first);
        return found->second.get();
    }
    auto pool = std::make_unique<ConverterPool>(first);
    ConverterPool *result = pool.get();
    registry.pools.emplace(name, std::move(pool));
    return result;
}

ConverterPool *FindPoolOf(const UConverter *converter)
{
    std::string name = ConverterName(converter);
    PoolRegistry &registry = Registry();
    std::lock_guard<std::mutex> lock(registry.mutex);
    auto found = registry.pools.find(name);
    return found == registry.pools.end() ? nullptr : found->second.get();
}

} // namespace brano
