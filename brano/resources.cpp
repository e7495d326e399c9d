// Resources of modules: compiled .res data registered per module, found by
// type and name, handed out as HRSRC (an entry) and HGLOBAL (its bytes).
//
// Handles are never dereferenced before they are found in the registry, so
// forged or stale values fail with an error instead of crashing.
#include "resources.h"

#include "module.h"
#include "resource_language.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <unordered_set>
#include <utility>
#include <vector>

namespace brano {

namespace {

// One registered .res image.  Unaligned input is copied so that every
// resource's bytes start on a DWORD boundary, as Win32 code expects.
struct ResourceBlock {
    const void *source = nullptr;
    std::unique_ptr<DWORD[]> alignedCopy;
    std::vector<ResourceEntry> entries;
};

using NameIndex = std::map<ResourceKey, std::vector<const ResourceEntry *>>;

struct ModuleResources {
    std::vector<std::unique_ptr<ResourceBlock>> blocks;
    std::map<ResourceKey, NameIndex> types;  // every language of a name, in registration order
};

struct Registry {
    std::shared_mutex mutex;
    std::map<HMODULE, ModuleResources> modules;
    std::unordered_set<const ResourceEntry *> entries;       // valid HRSRC values
    std::unordered_multiset<const void *> dataPointers;      // valid HGLOBAL values
};

// Never destroyed: modules unregister from their destructors, which may run
// after this library's own static objects are gone.
Registry &TheRegistry()
{
    static Registry *s_registry = new Registry;
    return *s_registry;
}

void RebuildIndex(ModuleResources &resources)
{
    resources.types.clear();
    for (const auto &block : resources.blocks) {
        for (const ResourceEntry &entry : block->entries)
            resources.types[entry.type][entry.name].push_back(&entry);
    }
}

void AddHandlesOf(Registry &registry, const ResourceBlock &block)
{
    for (const ResourceEntry &entry : block.entries) {
        registry.entries.insert(&entry);
        registry.dataPointers.insert(entry.data);
    }
}

void RemoveHandlesOf(Registry &registry, const ResourceBlock &block)
{
    for (const ResourceEntry &entry : block.entries) {
        registry.entries.erase(&entry);
        const auto data = registry.dataPointers.find(entry.data);
        if (data != registry.dataPointers.end())
            registry.dataPointers.erase(data);
    }
}

std::unique_ptr<ResourceBlock> ParseBlock(const void *data, SIZE_T size)
{
    auto block = std::make_unique<ResourceBlock>();
    block->source = data;
    const void *bytes = data;
    if (reinterpret_cast<uintptr_t>(data) % sizeof(DWORD) != 0) {
        block->alignedCopy.reset(new DWORD[(size + sizeof(DWORD) - 1) / sizeof(DWORD)]);
        std::memcpy(block->alignedCopy.get(), data, size);
        bytes = block->alignedCopy.get();
    }
    if (!ParseResourceFile(bytes, size, block->entries))
        return nullptr;
    return block;
}

// Neutral first, then the process's language, then the first registered.
const ResourceEntry *PreferredLanguage(const std::vector<const ResourceEntry *> &candidates)
{
    for (const ResourceEntry *entry : candidates) {
        if (PRIMARYLANGID(entry->language) == LANG_NEUTRAL)
            return entry;
    }
    const WORD processLanguage = ProcessPrimaryLanguage();
    if (processLanguage != LANG_NEUTRAL) {
        for (const ResourceEntry *entry : candidates) {
            if (PRIMARYLANGID(entry->language) == processLanguage)
                return entry;
        }
    }
    return candidates.front();
}

DWORD MissingModuleError(HMODULE module)
{
    return IsLoadedModule(module) ? ERROR_RESOURCE_DATA_NOT_FOUND : ERROR_MOD_NOT_FOUND;
}

bool IsDecimal(const char *text)
{
    if (*text == '\0')
        return false;
    for (; *text != '\0'; ++text) {
        if (*text < '0' || *text > '9')
            return false;
    }
    return true;
}

bool IsAscii(const char *text)
{
    for (; *text != '\0'; ++text) {
        if (static_cast<unsigned char>(*text) >= 0x80)
            return false;
    }
    return true;
}

bool WidenName(const char *text, std::u16string &wide)
{
    if (IsAscii(text)) {
        wide.assign(text, text + std::strlen(text));
        return true;
    }
    const int length = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    if (length <= 0)
        return false;
    wide.resize(static_cast<size_t>(length));
    MultiByteToWideChar(CP_ACP, 0, text, -1, reinterpret_cast<LPWSTR>(&wide[0]), length);
    wide.resize(static_cast<size_t>(length) - 1);
    return true;
}

// MAKEINTRESOURCE values (null being id 0), "#123" for id 123, or a name in
// the ANSI code page.  A '#' not followed by a 16-bit decimal is rejected.
bool KeyFromAnsi(LPCSTR text, ResourceKey &key)
{
    if (IS_INTRESOURCE(text)) {
        key = ResourceKey::FromId(LOWORD(reinterpret_cast<ULONG_PTR>(text)));
        return true;
    }
    if (text[0] == '#') {
        if (!IsDecimal(text + 1) || std::strlen(text + 1) > 5)
            return false;
        const unsigned long id = std::strtoul(text + 1, nullptr, 10);
        if (id > 0xFFFF)
            return false;
        key = ResourceKey::FromId(static_cast<WORD>(id));
        return true;
    }
    std::u16string wide;
    if (!WidenName(text, wide))
        return false;
    key = ResourceKey::FromName(reinterpret_cast<const WCHAR *>(wide.data()), wide.size());
    return true;
}

const ResourceEntry *ValidEntry(Registry &registry, HRSRC handle)
{
    const ResourceEntry *entry = reinterpret_cast<const ResourceEntry *>(handle);
    std::shared_lock<std::shared_mutex> lock(registry.mutex);
    return registry.entries.count(entry) != 0 ? entry : nullptr;
}

} // namespace

const ResourceEntry *FindResourceEntry(HMODULE module, const ResourceKey &type,
                                       const ResourceKey &name, DWORD *error)
{
    if (module == nullptr)
        module = MainModule();
    Registry &registry = TheRegistry();
    {
        std::shared_lock<std::shared_mutex> lock(registry.mutex);
        const auto moduleIt = registry.modules.find(module);
        if (moduleIt != registry.modules.end()) {
            const auto typeIt = moduleIt->second.types.find(type);
            if (typeIt == moduleIt->second.types.end()) {
                *error = ERROR_RESOURCE_TYPE_NOT_FOUND;
                return nullptr;
            }
            const auto nameIt = typeIt->second.find(name);
            if (nameIt == typeIt->second.end()) {
                *error = ERROR_RESOURCE_NAME_NOT_FOUND;
                return nullptr;
            }
            return PreferredLanguage(nameIt->second);
        }
    }
    *error = MissingModuleError(module);
    return nullptr;
}

} // namespace brano

using brano::ResourceEntry;
using brano::ResourceKey;

// Several blocks may be registered for one module; their resources add up,
// the first registered winning for a duplicate type, name and language.
// Registering the same block again is harmless.  `data` must stay valid
// while registered (it is only copied when misaligned).
BOOL BranoRegisterModuleResources(HMODULE hModule, const void *data, SIZE_T size)
{
    if (hModule == nullptr || data == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    std::unique_ptr<brano::ResourceBlock> block = brano::ParseBlock(data, size);
    if (!block) {
        SetLastError(ERROR_INVALID_DATA);
        return FALSE;
    }
    brano::Registry &registry = brano::TheRegistry();
    std::unique_lock<std::shared_mutex> lock(registry.mutex);
    brano::ModuleResources &resources = registry.modules[hModule];
    for (const auto &existing : resources.blocks) {
        if (existing->source == data)
            return TRUE;
    }
    brano::AddHandlesOf(registry, *block);
    resources.blocks.push_back(std::move(block));
    brano::RebuildIndex(resources);
    return TRUE;
}

// Undoes one registration; its HRSRC and HGLOBAL values become invalid.
BOOL BranoUnregisterModuleResources(HMODULE hModule, const void *data)
{
    brano::Registry &registry = brano::TheRegistry();
    std::unique_lock<std::shared_mutex> lock(registry.mutex);
    const auto moduleIt = registry.modules.find(hModule);
    if (moduleIt != registry.modules.end()) {
        auto &blocks = moduleIt->second.blocks;
        for (auto it = blocks.begin(); it != blocks.end(); ++it) {
            if ((*it)->source != data)
                continue;
            brano::RemoveHandlesOf(registry, **it);
            blocks.erase(it);
            if (blocks.empty())
                registry.modules.erase(moduleIt);
            else
                brano::RebuildIndex(moduleIt->second);
            return TRUE;
        }
    }
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

HRSRC WINAPI FindResourceA(HMODULE hModule, LPCSTR lpName, LPCSTR lpType)
{
    ResourceKey type;
    ResourceKey name;
    if (!brano::KeyFromAnsi(lpType, type) || !brano::KeyFromAnsi(lpName, name)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    DWORD error = ERROR_SUCCESS;
    const ResourceEntry *entry = brano::FindResourceEntry(hModule, type, name, &error);
    if (entry == nullptr) {
        SetLastError(error);
        return nullptr;
    }
    return reinterpret_cast<HRSRC>(const_cast<ResourceEntry *>(entry));
}

// The HGLOBAL of a resource is the address of its bytes.  The module handle
// is not needed: the HRSRC already names the module's entry.
HGLOBAL WINAPI LoadResource(HMODULE hModule, HRSRC hResInfo)
{
    (void)hModule;
    const ResourceEntry *entry = brano::ValidEntry(brano::TheRegistry(), hResInfo);
    if (entry == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return const_cast<BYTE *>(entry->data);
}

// Returns the bytes of a loaded resource; anything that LoadResource did
// not return gives null.
LPVOID WINAPI LockResource(HGLOBAL hResData)
{
    if (hResData == nullptr)
        return nullptr;
    brano::Registry &registry = brano::TheRegistry();
    std::shared_lock<std::shared_mutex> lock(registry.mutex);
    if (registry.dataPointers.count(hResData) == 0) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    return hResData;
}

// Resources live as long as their module; there is nothing to free.
BOOL WINAPI FreeResource(HGLOBAL hResData)
{
    (void)hResData;
    return FALSE;
}

DWORD WINAPI SizeofResource(HMODULE hModule, HRSRC hResInfo)
{
    (void)hModule;
    const ResourceEntry *entry = brano::ValidEntry(brano::TheRegistry(), hResInfo);
    if (entry == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    return entry->size;
}
