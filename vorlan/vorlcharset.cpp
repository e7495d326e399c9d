// Charset, code page and language tables.
#include "vorlcharset.h"

#include <cstdio>
#include <cstdlib>
#include <strings.h>

namespace vorlan {

const VorlCharsetInfo gs_VorlCharsetInfo[] = {
    {0, 1252},   {2, 42},     {128, 932},  {129, 949},  {134, 936},
    {136, 950},  {161, 1253}, {162, 1254}, {177, 1255}, {178, 1256},
    {186, 1257}, {204, 1251}, {222, 874},  {238, 1250}, {0, 0},
};

// The second row carries a code page in its charset column; no font
// charset has that value, so only its locale name ever selects it.
const CharsetMapping charset_mapping[kCharsetMappingRows] = {
    {0, "en-us", "en_US.iso88591", 1252},
    {65001, "en-utf8", "en_US.UTF-8", 65001},
    {134, "zh-cn", "zh_CN", 936},
    {128, "ja", "ja_JP", 932},
    {129, "ko", "ko_KR", 949},
    {136, "zh-tw", "zh_TW.big5", 950},
    {177, "he", "he_IL", 1255},
    {178, "ar", "ar_LB", 1256},
    {161, "el", "greek", 1253},
    {162, "tr", "turkish", 1254},
    {163, "vi", "vi_VN", 1258},
    {222, "th", "th_TH", 874},
};

namespace {

constexpr UINT kWesternCodepage = 1252;
constexpr UINT kOemCharset = 255;
const char kDefaultLang[] = "en-us";

bool IsDefaultCharset(UINT charset)
{
    return charset == 0 || charset == 1;
}

bool IsTableEnd(const VorlCharsetInfo &row)
{
    return row.nCharset == 0 && row.nCodepage == 0;
}

const char *LangOfCharset(UINT charset)
{
    for (const CharsetMapping &row : charset_mapping)
        if (row.nCharset == charset)
            return row.szLang;
    return kDefaultLang;
}

const char *LangOfEnvironment()
{
    const char *lang = std::getenv("LANG");
    if (lang == nullptr)
        return kDefaultLang;
    for (const CharsetMapping &row : charset_mapping)
        if (strcasecmp(lang, row.szLocale) == 0)
            return row.szLang;
    return kDefaultLang;
}

} // namespace

UINT getCharsetByCodepage(UINT codepage)
{
    if (codepage == kWesternCodepage)
        return 0;
    for (const VorlCharsetInfo *row = gs_VorlCharsetInfo; !IsTableEnd(*row); ++row)
        if (row->nCodepage == codepage)
            return row->nCharset;
    return 0;
}

UINT getCodepageByCharset(UINT charset)
{
    if (IsDefaultCharset(charset))
        return GetACP();
    if (charset == kOemCharset) {
        std::printf("Don't know how to map charset %d\n", int(charset));
        return kWesternCodepage;
    }
    for (const VorlCharsetInfo *row = gs_VorlCharsetInfo + 1; !IsTableEnd(*row); ++row)
        if (row->nCharset == charset)
            return row->nCodepage;
    return kWesternCodepage;
}

void getLangByCharset(UINT charset, GString *string)
{
    if (string == nullptr)
        return;
    g_string_append(string, IsDefaultCharset(charset) ? LangOfEnvironment() : LangOfCharset(charset));
}

} // namespace vorlan
