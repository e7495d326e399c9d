// The process code pages and access to ICU converters for other modules.
#include "codepage.h"

#include "converter_pool.h"
#include "locale_codepages.h"
#include "locale_environment.h"

UINT WINAPI GetACP(void)
{
    static const UINT ansiCodePage = brano::AnsiCodePageForPosixLocale(brano::ProcessLocaleName());
    return ansiCodePage;
}

UINT WINAPI GetOEMCP(void)
{
    static const UINT oemCodePage = brano::OemCodePageForAnsi(GetACP());
    return oemCodePage;
}

BOOL WINAPI IsValidCodePage(UINT CodePage)
{
    // The pseudo pages (CP_ACP and friends) are not code pages themselves.
    if (CodePage <= CP_THREAD_ACP)
        return FALSE;
    return brano::FindCodePage(CodePage) != nullptr;
}

void *GetIcuConverter(UINT codePage)
{
    const brano::CodePageInfo *info = brano::FindCodePage(codePage);
    if (!info || !info->pool)
        return nullptr;
    return info->pool->Acquire();
}

void ReleaseIcuConverter(void *converter)
{
    if (!converter)
        return;
    UConverter *icuConverter = static_cast<UConverter *>(converter);
    brano::ConverterPool *pool = brano::FindPoolOf(icuConverter);
    if (pool)
        pool->Release(icuConverter);
    else
        ucnv_close(icuConverter);
}
