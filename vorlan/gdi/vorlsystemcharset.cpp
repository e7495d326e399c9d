// The character set of the system locale.
#include "gdi/vorlgdisystem.h"

namespace vorlan {

BYTE CharsetOfAnsiCodePage(UINT codePage)
{
    switch (codePage) {
    case 932:
        return SHIFTJIS_CHARSET;
    case 936:
        return GB2312_CHARSET;
    case 949:
        return HANGUL_CHARSET;
    case 950:
        return CHINESEBIG5_CHARSET;
    default:
        return ANSI_CHARSET;
    }
}

} // namespace vorlan

// GetACP answers for the process locale, which is the system locale here.
BYTE getSystemCharset(LCID)
{
    return vorlan::CharsetOfAnsiCodePage(GetACP());
}
