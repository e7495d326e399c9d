// The "A" functions convert their text through the process ANSI page with
// the public conversion functions, so they see exactly what applications
// see.  Successful conversions leave the last error alone.
#include "ansi_text.h"

#include <climits>
#include <cstring>

namespace brano {

void WideText::Resize(size_t length)
{
    if (length > kInline)
        heap_.resize(length + 1);
    else
        heap_.clear();
    length_ = length;
    Data()[length] = 0;
}

void AnsiToWide(const char *text, int length, WideText &wide)
{
    size_t bytes = length < 0 ? std::strlen(text) : (size_t)length;
    if (bytes == 0 || bytes > (size_t)INT_MAX) {
        wide.Resize(0);
        return;
    }
    // Every ANSI page yields at most one UTF-16 unit per byte.
    wide.Resize(bytes);
    int converted = MultiByteToWideChar(CP_ACP, 0, text, (int)bytes, wide.Data(), (int)bytes);
    wide.Resize(converted > 0 ? (size_t)converted : 0);
}

std::string WideToAnsi(const WCHAR *text, size_t length)
{
    if (length == 0 || length > (size_t)INT_MAX / 4)
        return std::string();
    int needed = WideCharToMultiByte(CP_ACP, 0, text, (int)length, nullptr, 0, nullptr, nullptr);
    if (needed <= 0)
        return std::string();
    std::string bytes((size_t)needed, '\0');
    WideCharToMultiByte(CP_ACP, 0, text, (int)length, &bytes[0], needed, nullptr, nullptr);
    return bytes;
}

std::string WideToAnsi(const std::u16string &text)
{
    return WideToAnsi(reinterpret_cast<const WCHAR *>(text.data()), text.size());
}

} // namespace brano
