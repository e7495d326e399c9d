// Reading compiled resource data: the 32-bit .res format, a sequence of
// records each made of a header (sizes, type, name, language) and the
// resource's bytes.  The fixed fields after the name, the data and the next
// record each start on a DWORD boundary.
#ifndef BRANO_RESOURCE_DIRECTORY_H
#define BRANO_RESOURCE_DIRECTORY_H

#include <windows.h>

#include <string>
#include <vector>

namespace brano {

// A resource type or name: a 16-bit id, or a string kept upper-cased so
// that lookups ignore case as Win32 does.
struct ResourceKey {
    bool isId = true;
    WORD id = 0;
    std::u16string name;

    static ResourceKey FromId(WORD id);
    static ResourceKey FromName(const WCHAR *text, size_t length);
    bool operator<(const ResourceKey &other) const;
    bool operator==(const ResourceKey &other) const;
};

struct ResourceEntry {
    ResourceKey type;
    ResourceKey name;
    WORD language = 0;
    const BYTE *data = nullptr;
    DWORD size = 0;
};

// Parses the bytes of a .res file into entries pointing into `data`.
// Empty placeholder records (the one that opens every file, and those left
// between concatenated files) are skipped.  Returns false, leaving
// `entries` empty, when the bytes are not a well-formed resource file.
bool ParseResourceFile(const void *data, size_t size, std::vector<ResourceEntry> &entries);

} // namespace brano

#endif
