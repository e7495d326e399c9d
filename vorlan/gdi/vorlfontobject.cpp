// Logical fonts.  The object keeps the wide LOGFONTW; the narrow calls
// convert the face name on the way in.
#include "gdi/vorlgdiobject.h"
#include "gtk/vorlgtklock.h"
#include "vorltextencoding.h"

#include <cstddef>
#include <cstring>
#include <type_traits>

using vorlan::LogicalGdiObject;

namespace {

// Everything in front of the face name has the same layout in both forms.
constexpr size_t kFontHeadBytes = offsetof(LOGFONTW, lfFaceName);
static_assert(kFontHeadBytes == offsetof(LOGFONTA, lfFaceName), "LOGFONT layouts");

// The face that stands in for a missing or unreadable one.
constexpr char kDefaultFace[] = "Luxi Sans";

// Characters kept of a converted face name; a terminator follows.
constexpr int kKeptFaceChars = 31;

template <typename Char> int FaceLength(const Char *face)
{
    int length = 0;
    while (length < LF_FACESIZE && face[length] != 0)
        ++length;
    return length;
}

// Copies at most kKeptFaceChars characters and terminates.
template <typename Char> void SetWideFace(WCHAR *target, const Char *source)
{
    int i = 0;
    for (; i < kKeptFaceChars && source[i] != 0; ++i)
        target[i] = static_cast<WCHAR>(static_cast<std::make_unsigned_t<Char>>(source[i]));
    target[i] = 0;
}

// The caller's face with a limit of LF_FACESIZE units, or the default face.
template <typename Char> void CopyFaceArgument(Char *target, const Char *face)
{
    std::memset(target, 0, LF_FACESIZE * sizeof(Char));
    if (face == nullptr) {
        for (size_t i = 0; i < sizeof kDefaultFace; ++i)
            target[i] = static_cast<Char>(kDefaultFace[i]);
        return;
    }
    for (int i = 0; i < LF_FACESIZE && face[i] != 0; ++i)
        target[i] = face[i];
}

template <typename LogFont>
void FillLogFont(LogFont &lf, int cHeight, int cWidth, int cEscapement, int cOrientation, int cWeight, DWORD bItalic,
                 DWORD bUnderline, DWORD bStrikeOut, DWORD iCharSet, DWORD iOutPrecision, DWORD iClipPrecision,
                 DWORD iQuality, DWORD iPitchAndFamily)
{
    lf.lfHeight = cHeight;
    lf.lfWidth = cWidth;
    lf.lfEscapement = cEscapement;
    lf.lfOrientation = cOrientation;
    lf.lfWeight = cWeight;
    lf.lfItalic = static_cast<BYTE>(bItalic);
    lf.lfUnderline = static_cast<BYTE>(bUnderline);
    lf.lfStrikeOut = static_cast<BYTE>(bStrikeOut);
    lf.lfCharSet = static_cast<BYTE>(iCharSet);
    lf.lfOutPrecision = static_cast<BYTE>(iOutPrecision);
    lf.lfClipPrecision = static_cast<BYTE>(iClipPrecision);
    lf.lfQuality = static_cast<BYTE>(iQuality);
    lf.lfPitchAndFamily = static_cast<BYTE>(iPitchAndFamily);
}

} // namespace

HFONT WINAPI CreateFontIndirectW(const LOGFONTW *lplf)
{
    if (lplf == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    vorlan::GtkCriticalSection lock;
    LogicalGdiObject *object = LogicalGdiObject::Create(OBJ_FONT);
    if (object == nullptr) {
        SetLastError(0);
        return nullptr;
    }
    object->record.font = *lplf;
    return static_cast<HFONT>(object->handle);
}

// A face that fills the array without a terminator is read in full; one
// that does not convert becomes the default face.
HFONT WINAPI CreateFontIndirectA(const LOGFONTA *lplf)
{
    if (lplf == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    LOGFONTW wide = {};
    std::memcpy(&wide, lplf, kFontHeadBytes);
    vorlan::StringTranslator translator;
    const int length = FaceLength(lplf->lfFaceName);
    const WCHAR *face = translator.AnsiToUtf16(lplf->lfFaceName, length < LF_FACESIZE ? -1 : LF_FACESIZE);
    if (face != nullptr)
        SetWideFace(wide.lfFaceName, face);
    else
        SetWideFace(wide.lfFaceName, kDefaultFace);
    return CreateFontIndirectW(&wide);
}

HFONT WINAPI CreateFontA(int cHeight, int cWidth, int cEscapement, int cOrientation, int cWeight, DWORD bItalic,
                         DWORD bUnderline, DWORD bStrikeOut, DWORD iCharSet, DWORD iOutPrecision, DWORD iClipPrecision,
                         DWORD iQuality, DWORD iPitchAndFamily, LPCSTR pszFaceName)
{
    LOGFONTA lf = {};
    FillLogFont(lf, cHeight, cWidth, cEscapement, cOrientation, cWeight, bItalic, bUnderline, bStrikeOut, iCharSet,
                iOutPrecision, iClipPrecision, iQuality, iPitchAndFamily);
    CopyFaceArgument(lf.lfFaceName, pszFaceName);
    return CreateFontIndirectA(&lf);
}

HFONT WINAPI CreateFontW(int cHeight, int cWidth, int cEscapement, int cOrientation, int cWeight, DWORD bItalic,
                         DWORD bUnderline, DWORD bStrikeOut, DWORD iCharSet, DWORD iOutPrecision, DWORD iClipPrecision,
                         DWORD iQuality, DWORD iPitchAndFamily, LPCWSTR pszFaceName)
{
    LOGFONTW lf = {};
    FillLogFont(lf, cHeight, cWidth, cEscapement, cOrientation, cWeight, bItalic, bUnderline, bStrikeOut, iCharSet,
                iOutPrecision, iClipPrecision, iQuality, iPitchAndFamily);
    CopyFaceArgument(lf.lfFaceName, pszFaceName);
    return CreateFontIndirectW(&lf);
}
