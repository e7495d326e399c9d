// Maps Windows code page numbers to ICU converter names.  The pages whose
// ICU name differs from the obvious patterns are listed; for the rest
// "windows-N", "cpN" and "ibm-N" are tried in turn.
#include "codepage_names.h"

namespace brano {

namespace {

struct CodePageName {
    UINT codePage;
    const char *icuName;
};

// "windows-932" resolves to ICU's Windows-compatible Shift-JIS table; the
// "-2000" tables are the Windows variants of the other East Asian pages.
const CodePageName kKnownNames[] = {
    {874, "windows-874-2000"}, {932, "windows-932"},       {936, "windows-936-2000"},
    {949, "windows-949-2000"}, {950, "windows-950-2000"},  {1250, "windows-1250"},
    {1251, "windows-1251"},    {1252, "windows-1252"},     {1253, "windows-1253"},
    {1254, "windows-1254"},    {1255, "windows-1255"},     {1256, "windows-1256"},
    {1257, "windows-1257"},    {1258, "windows-1258"},     {10000, "macintosh"},
    {20127, "US-ASCII"},       {20866, "KOI8-R"},          {21866, "KOI8-U"},
    {20936, "GB2312"},         {28591, "ISO-8859-1"},      {28592, "ISO-8859-2"},
    {28593, "ISO-8859-3"},     {28594, "ISO-8859-4"},      {28595, "ISO-8859-5"},
    {28596, "ISO-8859-6"},     {28597, "ISO-8859-7"},      {28598, "ISO-8859-8"},
    {28599, "ISO-8859-9"},     {28603, "ISO-8859-13"},     {28605, "ISO-8859-15"},
    {50220, "ISO-2022-JP"},    {50221, "ISO-2022-JP"},     {50222, "ISO-2022-JP"},
    {50225, "ISO-2022-KR"},    {50227, "ISO-2022-CN"},     {51932, "EUC-JP"},
    {51949, "EUC-KR"},         {52936, "HZ-GB-2312"},      {54936, "GB18030"},
    {65000, "UTF-7"},          {65001, "UTF-8"},
};

// UTF-16 and UTF-32 have code page numbers but are not byte encodings the
// conversion functions accept.
bool IsUnicodeEncodingNumber(UINT codePage)
{
    return codePage == 1200 || codePage == 1201 || codePage == 12000 || codePage == 12001;
}

} // namespace

std::vector<std::string> IcuNameCandidates(UINT codePage)
{
    if (IsUnicodeEncodingNumber(codePage))
        return {};
    for (const CodePageName &known : kKnownNames) {
        if (known.codePage == codePage)
            return {known.icuName};
    }
    std::string number = std::to_string(codePage);
    return {"windows-" + number, "cp" + number, "ibm-" + number};
}

} // namespace brano
