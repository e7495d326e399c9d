// Lookup in the resources registered for each module, shared by the
// resource calls and the string loader.
#ifndef BRANO_RESOURCES_H
#define BRANO_RESOURCES_H

#include "resource_directory.h"

namespace brano {

// The entry for (type, name) in `module` (null = main executable), in the
// preferred language.  On failure returns null and sets *error to the
// Win32 error: ERROR_MOD_NOT_FOUND for a handle that is no loaded module,
// ERROR_RESOURCE_DATA_NOT_FOUND for a module without resources,
// ERROR_RESOURCE_TYPE_NOT_FOUND or ERROR_RESOURCE_NAME_NOT_FOUND.
// The entry stays valid until its module's resources are unregistered.
const ResourceEntry *FindResourceEntry(HMODULE module, const ResourceKey &type,
                                       const ResourceKey &name, DWORD *error);

} // namespace brano

#endif
