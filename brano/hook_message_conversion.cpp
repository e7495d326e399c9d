// Character conversion of hook messages through the process ANSI code page.
#include "hook_message_conversion.h"

namespace brano {

namespace {

constexpr UINT kWmChar = 0x0102;
constexpr UINT kWmDeadChar = 0x0103;
constexpr UINT kWmSysChar = 0x0106;
constexpr UINT kWmSysDeadChar = 0x0107;
constexpr int kMaxAnsiBytes = 4;

} // namespace

bool IsCharacterMessage(UINT message)
{
    return message == kWmChar || message == kWmDeadChar || message == kWmSysChar ||
           message == kWmSysDeadChar;
}

// Only the first unit of a surrogate pair fits one message.
WPARAM AnsiCharToWide(WPARAM ansi)
{
    char bytes[kMaxAnsiBytes];
    int count = 0;
    for (;;) {
        bytes[count] = static_cast<char>((ansi >> (8 * count)) & 0xFF);
        ++count;
        if (count == kMaxAnsiBytes || ((ansi >> (8 * count)) & 0xFF) == 0)
            break;
    }
    WCHAR units[2] = {0, 0};
    const int converted = MultiByteToWideChar(CP_ACP, 0, bytes, count, units, 2);
    return converted > 0 ? static_cast<WPARAM>(units[0]) : ansi;
}

WPARAM WideCharToAnsi(WPARAM wide)
{
    const WCHAR unit = static_cast<WCHAR>(wide);
    char bytes[kMaxAnsiBytes];
    const int count = WideCharToMultiByte(CP_ACP, 0, &unit, 1, bytes, kMaxAnsiBytes, nullptr, nullptr);
    if (count <= 0)
        return wide;
    WPARAM packed = 0;
    for (int i = 0; i < count; ++i)
        packed |= static_cast<WPARAM>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    return packed;
}

} // namespace brano
