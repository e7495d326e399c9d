// Parser of the .res format.  Every read is bounds-checked against the
// record it belongs to; nothing is assumed about the alignment of the input.
#include "resource_directory.h"

#include <cstring>
#include <unicode/uchar.h>

namespace brano {

namespace {

constexpr WORD kIdMarker = 0xFFFF;
constexpr size_t kFixedHeaderPart = 16;  // DataVersion .. Characteristics
constexpr size_t kSizeFields = 8;        // DataSize, HeaderSize

size_t AlignToDword(size_t offset)
{
    return (offset + 3) & ~static_cast<size_t>(3);
}

template <typename T>
T ReadAt(const BYTE *bytes, size_t offset)
{
    T value;
    std::memcpy(&value, bytes + offset, sizeof value);
    return value;
}

// Reads a type or name field that starts at `offset` and ends before
// `limit`; advances `offset` just past it.  The name follows the type
// directly; only the fixed part after the name is DWORD-aligned.
bool ReadKey(const BYTE *bytes, size_t limit, size_t &offset, ResourceKey &key)
{
    if (offset + sizeof(WORD) > limit)
        return false;
    if (ReadAt<WORD>(bytes, offset) == kIdMarker) {
        if (offset + 2 * sizeof(WORD) > limit)
            return false;
        key = ResourceKey::FromId(ReadAt<WORD>(bytes, offset + sizeof(WORD)));
        offset += 2 * sizeof(WORD);
        return true;
    }
    std::u16string text;
    for (size_t at = offset;; at += sizeof(WORD)) {
        if (at + sizeof(WORD) > limit)
            return false;
        const WORD unit = ReadAt<WORD>(bytes, at);
        if (unit == 0) {
            offset = at + sizeof(WORD);
            break;
        }
        text.push_back(static_cast<char16_t>(unit));
    }
    key = ResourceKey::FromName(reinterpret_cast<const WCHAR *>(text.data()), text.size());
    return true;
}

bool IsPlaceholder(const ResourceEntry &entry)
{
    return entry.size == 0 && entry.type.isId && entry.type.id == 0 && entry.name.isId &&
           entry.name.id == 0;
}

// Parses the record at `offset`; on success sets `next` to the following
// record's offset.
bool ParseRecord(const BYTE *bytes, size_t size, size_t offset, ResourceEntry &entry, size_t &next)
{
    if (size - offset < kSizeFields)
        return false;
    const DWORD dataSize = ReadAt<DWORD>(bytes, offset);
    const DWORD headerSize = ReadAt<DWORD>(bytes, offset + 4);
    if (headerSize < kSizeFields || headerSize > size - offset)
        return false;
    const size_t headerEnd = offset + headerSize;
    if (dataSize > size - headerEnd)
        return false;
    size_t field = offset + kSizeFields;
    if (!ReadKey(bytes, headerEnd, field, entry.type) || !ReadKey(bytes, headerEnd, field, entry.name))
        return false;
    field = offset + AlignToDword(field - offset);
    if (field + kFixedHeaderPart > headerEnd)
        return false;
    entry.language = ReadAt<WORD>(bytes, field + 6);
    entry.data = bytes + headerEnd;
    entry.size = dataSize;
    // The padding after the last record may be missing.
    next = AlignToDword(headerEnd + dataSize);
    if (next > size)
        next = size;
    return true;
}

} // namespace

ResourceKey ResourceKey::FromId(WORD id)
{
    ResourceKey key;
    key.isId = true;
    key.id = id;
    return key;
}

// Upper-cases unit by unit, as Win32 does for resource names; surrogate
// halves are left alone.
ResourceKey ResourceKey::FromName(const WCHAR *text, size_t length)
{
    ResourceKey key;
    key.isId = false;
    key.name.reserve(length);
    for (size_t i = 0; i < length; ++i) {
        const UChar32 unit = text[i];
        const bool surrogate = unit >= 0xD800 && unit <= 0xDFFF;
        const UChar32 upper = surrogate ? unit : u_toupper(unit);
        key.name.push_back(static_cast<char16_t>(upper <= 0xFFFF ? upper : unit));
    }
    return key;
}

bool ResourceKey::operator<(const ResourceKey &other) const
{
    if (isId != other.isId)
        return isId;
    return isId ? id < other.id : name < other.name;
}

bool ResourceKey::operator==(const ResourceKey &other) const
{
    return isId == other.isId && (isId ? id == other.id : name == other.name);
}

bool ParseResourceFile(const void *data, size_t size, std::vector<ResourceEntry> &entries)
{
    entries.clear();
    if (data == nullptr || size == 0)
        return false;
    const BYTE *bytes = static_cast<const BYTE *>(data);
    std::vector<ResourceEntry> parsed;
    size_t offset = 0;
    bool first = true;
    while (offset < size) {
        ResourceEntry entry;
        size_t next = 0;
        if (!ParseRecord(bytes, size, offset, entry, next))
            return false;
        // A resource file announces itself with an empty record.
        if (first && !IsPlaceholder(entry))
            return false;
        first = false;
        if (!IsPlaceholder(entry))
            parsed.push_back(std::move(entry));
        offset = next;
    }
    entries.swap(parsed);
    return true;
}

} // namespace brano
