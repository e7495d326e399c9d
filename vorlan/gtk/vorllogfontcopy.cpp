// CopyLOGFONT_W2A.
#include "gtk/vorllogfontcopy.h"

#include <cstddef>
#include <cstring>

namespace {

// Everything in front of the face name has the same layout in both forms.
constexpr size_t kNumericPartBytes = offsetof(LOGFONTW, lfFaceName);
static_assert(kNumericPartBytes == offsetof(LOGFONTA, lfFaceName), "LOGFONT layouts");
static_assert(kNumericPartBytes == 28, "LOGFONT numeric part");

int FaceNameLength(const WCHAR *name)
{
    int length = 0;
    while (length < LF_FACESIZE && name[length] != 0)
        ++length;
    return length;
}

} // namespace

BOOL CopyLOGFONT_W2A(const LOGFONTW *w, LOGFONTA *a)
{
    if (w == nullptr || a == nullptr)
        return FALSE;
    std::memcpy(a, w, kNumericPartBytes);
    if (FaceNameLength(w->lfFaceName) < LF_FACESIZE)
        return WideCharToMultiByte(0, 0, w->lfFaceName, -1, a->lfFaceName, LF_FACESIZE, nullptr, nullptr) != 0;
    // A name that fills the array without a terminator: the part that fits.
    const int written =
        WideCharToMultiByte(0, 0, w->lfFaceName, LF_FACESIZE - 1, a->lfFaceName, LF_FACESIZE - 1, nullptr, nullptr);
    a->lfFaceName[written > 0 ? written : 0] = '\0';
    return written != 0;
}
