/* The 16-bit string header is usable from C with the platform's wchar_t. */
#include <windows.h>
#include <vorlwchar.h>

void vorlwchar_h_in_c(void);

void vorlwchar_h_in_c(void)
{
    char *(*narrow)(const WCHAR *, char *, int) = wcs2str;
    int (*toInt)(const WCHAR *) = _wtoi;
    char *(*format)(long, char *, int) = ltoa;
    int (*toAnsi)(const WCHAR *, int, char *, int) = WCSToMBS;
    int (*toWide)(const char *, int, WCHAR *, int) = MBSToWCS;
    (void)narrow;
    (void)toInt;
    (void)format;
    (void)toAnsi;
    (void)toWide;
}
