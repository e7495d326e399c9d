// Maps the POSIX locale name of the process to a Win32 primary language.
#include "resource_language.h"

#include <cstdlib>
#include <cstring>
#include <initializer_list>

namespace brano {

namespace {

struct LanguageCode {
    char iso639[3];
    WORD primary;
};

// ISO 639-1 codes and their Win32 primary language ids.
constexpr LanguageCode kLanguages[] = {
    {"ar", 0x01}, {"bg", 0x02}, {"ca", 0x03}, {"zh", 0x04}, {"cs", 0x05}, {"da", 0x06},
    {"de", 0x07}, {"el", 0x08}, {"en", 0x09}, {"es", 0x0a}, {"fi", 0x0b}, {"fr", 0x0c},
    {"he", 0x0d}, {"hu", 0x0e}, {"is", 0x0f}, {"it", 0x10}, {"ja", 0x11}, {"ko", 0x12},
    {"nl", 0x13}, {"nb", 0x14}, {"no", 0x14}, {"pl", 0x15}, {"pt", 0x16}, {"ro", 0x18},
    {"ru", 0x19}, {"hr", 0x1a}, {"sk", 0x1b}, {"sv", 0x1d}, {"th", 0x1e}, {"tr", 0x1f},
    {"uk", 0x22}, {"sl", 0x24}, {"et", 0x25}, {"lv", 0x26}, {"lt", 0x27}, {"vi", 0x2a},
};

const char *MessageLocaleName()
{
    for (const char *variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char *value = std::getenv(variable);
        if (value != nullptr && *value != '\0')
            return value;
    }
    return nullptr;
}

WORD LanguageOfLocaleName(const char *name)
{
    if (name == nullptr || std::strlen(name) < 2)
        return LANG_NEUTRAL;
    const char next = name[2];
    if (next != '\0' && next != '_' && next != '.' && next != '@')
        return LANG_NEUTRAL;
    for (const LanguageCode &code : kLanguages) {
        if (name[0] == code.iso639[0] && name[1] == code.iso639[1])
            return code.primary;
    }
    return LANG_NEUTRAL;
}

} // namespace

WORD ProcessPrimaryLanguage()
{
    static const WORD s_language = LanguageOfLocaleName(MessageLocaleName());
    return s_language;
}

} // namespace brano
