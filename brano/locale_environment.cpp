// Reads the locale name the process was started with and splits it into
// its parts.  Everything locale-dependent in the host derives from this.
#include "locale_environment.h"

#include <cstdlib>
#include <cstring>

namespace brano {

namespace {

// Cuts `text` at the first of `stops`, returning the head and leaving the
// rest (starting at the stop character) in `text`.
std::string TakeUntil(std::string &text, const char *stops)
{
    size_t end = text.find_first_of(stops);
    std::string head = text.substr(0, end);
    text.erase(0, end == std::string::npos ? text.size() : end);
    return head;
}

const char *EnvironmentLocaleName()
{
    static const char *const kVariables[] = {"LC_ALL", "LC_CTYPE", "LANG"};
    for (const char *variable : kVariables) {
        const char *value = std::getenv(variable);
        if (value && *value)
            return value;
    }
    return "";
}

} // namespace

PosixLocaleName ParsePosixLocaleName(const char *name)
{
    PosixLocaleName parts;
    std::string rest = name ? name : "";
    parts.language = TakeUntil(rest, "_.@");
    if (!rest.empty() && rest[0] == '_') {
        rest.erase(0, 1);
        parts.territory = TakeUntil(rest, ".@");
    }
    if (!rest.empty() && rest[0] == '.') {
        rest.erase(0, 1);
        parts.codeset = TakeUntil(rest, "@");
    }
    if (!rest.empty() && rest[0] == '@')
        parts.modifier = rest.substr(1);
    return parts;
}

bool IsPortableLocale(const PosixLocaleName &name)
{
    return name.language.empty() || name.language == "C" || name.language == "POSIX";
}

const PosixLocaleName &ProcessLocaleName()
{
    static const PosixLocaleName name = ParsePosixLocaleName(EnvironmentLocaleName());
    return name;
}

} // namespace brano
