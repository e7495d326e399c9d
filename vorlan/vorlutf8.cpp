// UTF-8 GStrings from and to 16-bit units and ANSI bytes.
#include "vorlutf8.h"

#include <algorithm>
#include <cstring>

namespace vorlan {

namespace {

// Longest UTF-8 form of one unit (six bytes covers any gunichar).
constexpr int kMaxUtf8Bytes = 6;

void AppendUnitAsUtf8(GString *string, WCHAR unit)
{
    gchar bytes[kMaxUtf8Bytes];
    const gint length = g_unichar_to_utf8(gunichar(unit), bytes);
    g_string_append_len(string, bytes, length);
}

void ReplaceByLocaleConversion(GString *string)
{
    gchar *converted = g_locale_to_utf8(string->str, gssize(string->len), nullptr, nullptr, nullptr);
    g_string_truncate(string, 0);
    if (converted != nullptr)
        g_string_append(string, converted);
    g_free(converted);
}

} // namespace

GString *WideCharToUTF8(const WCHAR *src, int n)
{
    GString *string = g_string_sized_new(n > 0 ? gsize(n) : 0);
    if (src == nullptr)
        return string;
    for (int i = 0; i < n; ++i)
        if (src[i] != 0)
            AppendUnitAsUtf8(string, src[i]);
    return string;
}

GString *ANSItoUTF8(const char *src, int len)
{
    if (src == nullptr)
        return g_string_new(nullptr);
    const gsize length = len < 0 ? std::strlen(src) : gsize(len);
    GString *string = g_string_new_len(src, gssize(length));
    if (!g_utf8_validate(string->str, gssize(string->len), nullptr))
        ReplaceByLocaleConversion(string);
    return string;
}

int WideCharFromUTF8(const GString *string, int len, WCHAR *dst)
{
    if (string == nullptr || string->str == nullptr || dst == nullptr)
        return 0;
    const gsize count = std::min(gsize(std::max(len, 0)), string->len);
    for (gsize i = 0; i < count; ++i)
        dst[i] = WCHAR(static_cast<signed char>(string->str[i]));
    dst[count] = 0;
    return 1;
}

} // namespace vorlan
