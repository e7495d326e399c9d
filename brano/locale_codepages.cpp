// Tables relating locale names to the Windows ANSI, OEM and Macintosh code
// pages.  Linux names a character set per locale ("codeset"); Windows
// derives its ANSI page from the language, so both routes are needed.
#include "locale_codepages.h"

#include <cctype>
#include <cstdlib>
#include <cstring>

namespace brano {

namespace {

struct NamedCodePage {
    const char *name;
    UINT codePage;
};

// Codeset names after NormalizedCodeset (lower case, no '-' or '_').
const NamedCodePage kCodesets[] = {
    {"utf8", 65001},       {"iso88591", 1252},    {"iso885915", 1252},  {"ascii", 1252},
    {"ansix3.41968", 1252}, {"usascii", 1252},    {"gb2312", 936},      {"gbk", 936},
    {"gb18030", 936},      {"euccn", 936},        {"big5", 950},        {"big5hkscs", 950},
    {"euctw", 950},        {"eucjp", 932},        {"ujis", 932},        {"sjis", 932},
    {"shiftjis", 932},     {"euckr", 949},        {"iso88592", 1250},   {"iso88595", 1251},
    {"koi8r", 1251},       {"koi8u", 1251},       {"iso88597", 1253},   {"iso88599", 1254},
    {"iso88598", 1255},    {"iso88596", 1256},    {"iso885913", 1257},  {"iso88594", 1257},
    {"tis620", 874},       {"iso885911", 874},
};

// Language-only defaults, used when the codeset does not decide.
const NamedCodePage kLanguages[] = {
    {"el", 1253}, {"tr", 1254}, {"he", 1255}, {"iw", 1255}, {"ar", 1256}, {"fa", 1256},
    {"ur", 1256}, {"th", 874},  {"vi", 1258}, {"ru", 1251}, {"uk", 1251}, {"bg", 1251},
    {"be", 1251}, {"mk", 1251}, {"sr", 1251}, {"pl", 1250}, {"cs", 1250}, {"hu", 1250},
    {"sk", 1250}, {"sl", 1250}, {"hr", 1250}, {"ro", 1250}, {"lt", 1257}, {"lv", 1257},
    {"et", 1257}, {"ja", 932},  {"ko", 949},
};

struct CodePagePair {
    UINT ansi;
    UINT other;
};

const CodePagePair kOemPages[] = {
    {1252, 437}, {1250, 852}, {1251, 866}, {1253, 737}, {1254, 857}, {1255, 862},
    {1256, 720}, {1257, 775}, {1258, 1258}, {874, 874}, {932, 932}, {936, 936},
    {949, 949},  {950, 950},  {65001, 65001},
};

const CodePagePair kMacPages[] = {
    {1252, 10000}, {1250, 10029}, {1251, 10007}, {1253, 10006}, {1254, 10081},
    {1255, 10005}, {1256, 10004}, {1257, 10029}, {1258, 10000}, {874, 10021},
    {932, 10001},  {936, 10008},  {949, 10003},  {950, 10002},  {65001, 10000},
};

std::string NormalizedCodeset(const std::string &codeset)
{
    std::string normal;
    for (char c : codeset) {
        if (c != '-' && c != '_')
            normal += (char)std::tolower((unsigned char)c);
    }
    return normal;
}

// "cp1252" and "windows1251" name a Windows page directly.
UINT NumberedCodeset(const std::string &normal)
{
    const char *digits = nullptr;
    if (normal.compare(0, 2, "cp") == 0)
        digits = normal.c_str() + 2;
    else if (normal.compare(0, 7, "windows") == 0)
        digits = normal.c_str() + 7;
    if (!digits || !*digits || std::strspn(digits, "0123456789") != std::strlen(digits))
        return 0;
    return (UINT)std::strtoul(digits, nullptr, 10);
}

UINT LookUpPair(const CodePagePair *table, size_t count, UINT ansi, UINT fallback)
{
    for (size_t i = 0; i < count; ++i) {
        if (table[i].ansi == ansi)
            return table[i].other;
    }
    return fallback;
}

bool IsAnsiCodePage(UINT codePage)
{
    return codePage == 874 || codePage == 932 || codePage == 936 || codePage == 949 ||
           codePage == 950 || (codePage >= 1250 && codePage <= 1258) || codePage == 65001;
}

bool IsTraditionalChineseTerritory(const std::string &territory)
{
    return territory == "TW" || territory == "HK" || territory == "MO";
}

} // namespace

UINT AnsiCodePageForCodeset(const std::string &codeset)
{
    std::string normal = NormalizedCodeset(codeset);
    if (normal.empty())
        return 0;
    for (const NamedCodePage &entry : kCodesets) {
        if (normal == entry.name)
            return entry.codePage;
    }
    UINT numbered = NumberedCodeset(normal);
    return IsAnsiCodePage(numbered) ? numbered : 0;
}

UINT AnsiCodePageForLanguage(const std::string &language, const std::string &territory)
{
    if (language == "zh")
        return IsTraditionalChineseTerritory(territory) ? 950 : 936;
    for (const NamedCodePage &entry : kLanguages) {
        if (language == entry.name)
            return entry.codePage;
    }
    return 1252;
}

UINT AnsiCodePageForPosixLocale(const PosixLocaleName &name)
{
    UINT fromCodeset = AnsiCodePageForCodeset(name.codeset);
    if (fromCodeset)
        return fromCodeset;
    if (IsPortableLocale(name))
        return 1252;
    return AnsiCodePageForLanguage(name.language, name.territory);
}

UINT OemCodePageForAnsi(UINT ansiCodePage)
{
    return LookUpPair(kOemPages, sizeof kOemPages / sizeof kOemPages[0], ansiCodePage, 437);
}

UINT MacCodePageForAnsi(UINT ansiCodePage)
{
    return LookUpPair(kMacPages, sizeof kMacPages / sizeof kMacPages[0], ansiCodePage, 10000);
}

} // namespace brano
