// The thunks between a caller of one character form and a procedure of the
// other.  Expected ANSI text comes from the process code page.
#include <gtest/gtest.h>

#include "support/child_process.h"
#include "vorlwindowproc.h"

#include <vorlwchar.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

const WCHAR kText[] = {'G', 'r', 0xFC, 0xDF, 'e', 0};        // "Grüße"
const WCHAR kItem[] = {'I', 't', 'e', 'm', ' ', 0xE9, 0};    // "Item é"
const WCHAR kClass[] = {'K', 'l', 'a', 's', 's', 'e', 0};

std::string Ansi(const WCHAR *text)
{
    char buffer[256] = {};
    const int n = WideCharToMultiByte(CP_ACP, 0, text, lstrlenW(text), buffer, sizeof buffer, nullptr, nullptr);
    return std::string(buffer, n);
}

// WM_GETTEXT towards an ANSI caller converts with WCSToMBS, whose
// replacement of characters outside the page may differ from
// WideCharToMultiByte's.
std::string AnsiOfGetText(const WCHAR *text)
{
    char buffer[256] = {};
    const int n = WCSToMBS(text, lstrlenW(text), buffer, sizeof buffer);
    return std::string(buffer, n);
}

std::u16string Wide(const WCHAR *text)
{
    return std::u16string(reinterpret_cast<const char16_t *>(text), lstrlenW(text));
}

std::u16string Wide(const std::string &ansi)
{
    WCHAR buffer[256] = {};
    const int n = MultiByteToWideChar(CP_ACP, 0, ansi.data(), int(ansi.size()), buffer, 256);
    return std::u16string(reinterpret_cast<const char16_t *>(buffer), n);
}

std::string TextOf(const char *text)
{
    return text;
}

std::u16string TextOf(const WCHAR *text)
{
    return Wide(text);
}

HWND FakeWindow()
{
    return reinterpret_cast<HWND>(0x6160);
}

// What the procedure on the far side of the thunk saw.
struct Seen {
    int calls = 0;
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    std::string ansi;         // text received by the ANSI procedure
    std::u16string wide;      // text received by the wide procedure
    std::string ansiClass;    // CREATESTRUCT class name, as a string
    std::u16string wideClass;
    bool nullName = false;     // the CREATESTRUCT had no window name
    CREATESTRUCTW create = {}; // the other fields of a CREATESTRUCT
};
Seen g_seen;

// The text that the procedures hold, in their own form.
std::string g_ansiText;
std::u16string g_wideText;

// Copies text into a caller's buffer of `size` units, terminated.
template <typename Text> LRESULT CopyOut(const Text &text, WPARAM size, LPARAM lParam)
{
    auto *out = reinterpret_cast<typename Text::value_type *>(lParam);
    const size_t n = size == 0 ? 0 : std::min<size_t>(size - 1, text.size());
    std::copy_n(text.data(), n, out);
    if (size > 0)
        out[n] = 0;
    return LRESULT(n);
}

// A procedure of one character form that holds `held` as its window text
// and its one list item, and notes what it receives in `seenText` and
// `seenClass`.
template <typename CreateStruct, typename Text>
LRESULT HoldingProc(UINT message, WPARAM wParam, LPARAM lParam, const Text &held, Text &seenText, Text &seenClass)
{
    using Chars = decltype(CreateStruct::lpszName);
    ++g_seen.calls;
    g_seen.message = message;
    g_seen.wParam = wParam;
    g_seen.lParam = lParam;
    switch (message) {
    case WM_CREATE:
    case WM_NCCREATE: {
        const auto *cs = reinterpret_cast<const CreateStruct *>(lParam);
        std::memcpy(&g_seen.create, cs, sizeof g_seen.create);
        g_seen.nullName = cs->lpszName == nullptr;
        if (cs->lpszName != nullptr)
            seenText = TextOf(cs->lpszName);
        if (vorlan::IsClassNameString(cs->lpszClass))
            seenClass = TextOf(cs->lpszClass);
        return 77;
    }
    case WM_GETTEXTLENGTH:
    case LB_GETTEXTLEN:
        return LRESULT(held.size());
    case WM_GETTEXT:
        return CopyOut(held, wParam, lParam);
    case LB_GETTEXT:
        return CopyOut(held, held.size() + 1, lParam);
    default:
        if (vorlan::IsPlainStringMessage(message) || message == WM_SETTEXT)
            seenText = TextOf(reinterpret_cast<Chars>(lParam));
        return 55;
    }
}

LRESULT CALLBACK AnsiProc(HWND, UINT message, WPARAM wParam, LPARAM lParam)
{
    return HoldingProc<CREATESTRUCTA>(message, wParam, lParam, g_ansiText, g_seen.ansi, g_seen.ansiClass);
}

LRESULT CALLBACK WideProc(HWND, UINT message, WPARAM wParam, LPARAM lParam)
{
    return HoldingProc<CREATESTRUCTW>(message, wParam, lParam, g_wideText, g_seen.wide, g_seen.wideClass);
}

WNDPROC AnsiOnly()
{
    static const UINT id = AllocWndProcId(AnsiProc, nullptr);
    return reinterpret_cast<WNDPROC>(static_cast<ULONG_PTR>(id));
}

WNDPROC WideOnly()
{
    static const UINT id = AllocWndProcId(nullptr, WideProc);
    return reinterpret_cast<WNDPROC>(static_cast<ULONG_PTR>(id));
}

// A wide caller reaching the ANSI procedure.
LRESULT SendW(UINT message, WPARAM wParam, const void *lParam)
{
    return CallWindowProcW(AnsiOnly(), FakeWindow(), message, wParam, reinterpret_cast<LPARAM>(lParam));
}

// An ANSI caller reaching the wide procedure.
LRESULT SendA(UINT message, WPARAM wParam, const void *lParam)
{
    return CallWindowProcA(WideOnly(), FakeWindow(), message, wParam, reinterpret_cast<LPARAM>(lParam));
}

class WindowProcThunks : public ::testing::Test {
protected:
    void SetUp() override
    {
        g_seen = Seen();
        g_ansiText = Ansi(kText);
        g_wideText = Wide(kText);
    }
};

CREATESTRUCTW SampleCreate(const WCHAR *name, const WCHAR *className)
{
    CREATESTRUCTW cs = {};
    cs.lpCreateParams = reinterpret_cast<LPVOID>(0xABC);
    cs.hInstance = reinterpret_cast<HINSTANCE>(0x400000);
    cs.hwndParent = reinterpret_cast<HWND>(0x99);
    cs.cy = 40;
    cs.cx = 30;
    cs.y = 20;
    cs.x = 10;
    cs.style = WS_CHILD | WS_VISIBLE;
    cs.lpszName = name;
    cs.lpszClass = className;
    cs.dwExStyle = WS_EX_CLIENTEDGE;
    return cs;
}

void ExpectSameGeometry(const CREATESTRUCTW &seen, const CREATESTRUCTW &sent)
{
    EXPECT_EQ(seen.lpCreateParams, sent.lpCreateParams);
    EXPECT_EQ(seen.hInstance, sent.hInstance);
    EXPECT_EQ(seen.hwndParent, sent.hwndParent);
    EXPECT_EQ(seen.x, sent.x);
    EXPECT_EQ(seen.y, sent.y);
    EXPECT_EQ(seen.cx, sent.cx);
    EXPECT_EQ(seen.cy, sent.cy);
    EXPECT_EQ(seen.style, sent.style);
    EXPECT_EQ(seen.dwExStyle, sent.dwExStyle);
}

} // namespace

// ---- Wide caller, ANSI procedure ------------------------------------------------

TEST_F(WindowProcThunks, W2A_SetTextConvertsAndDropsWParamGetTextLengthIsTheAnsiLength)
{
    EXPECT_EQ(SendW(WM_SETTEXT, 9, kText), 55);
    EXPECT_EQ(g_seen.ansi, Ansi(kText));
    EXPECT_EQ(g_seen.wParam, 0u);
    g_seen = Seen();
    EXPECT_EQ(SendW(WM_SETTEXT, 0, nullptr), 0);
    EXPECT_EQ(g_seen.calls, 0);
    g_seen = Seen();
    EXPECT_EQ(SendW(WM_GETTEXTLENGTH, 3, reinterpret_cast<void *>(4)), LRESULT(g_ansiText.size()));
    EXPECT_EQ(g_seen.wParam, 0u);
    EXPECT_EQ(g_seen.lParam, 0);
}

TEST_F(WindowProcThunks, W2A_GetTextGivesUnitsThatFitAndWithoutRoomDoesNotCallTheProcedure)
{
    WCHAR buffer[64];
    std::fill(std::begin(buffer), std::end(buffer), WCHAR(0x2A));
    EXPECT_EQ(SendW(WM_GETTEXT, 64, buffer), LRESULT(lstrlenW(kText))) << "units, not bytes";
    EXPECT_EQ(Wide(buffer), Wide(g_ansiText));
    EXPECT_EQ(g_seen.wParam, g_ansiText.size() + 1) << "the procedure gets room for its whole text";

    std::fill(std::begin(buffer), std::end(buffer), WCHAR(0x2A));
    EXPECT_EQ(SendW(WM_GETTEXT, 4, buffer), 3);
    EXPECT_EQ(Wide(buffer), Wide(g_ansiText).substr(0, 3));
    EXPECT_EQ(buffer[4], WCHAR(0x2A)) << "nothing written past the caller's size";
    g_seen = Seen();
    buffer[0] = WCHAR(0x2A);
    EXPECT_EQ(SendW(WM_GETTEXT, 0, buffer), 0);
    EXPECT_EQ(SendW(WM_GETTEXT, 8, nullptr), 0);
    EXPECT_EQ(g_seen.calls, 0);
    EXPECT_EQ(buffer[0], WCHAR(0x2A));
    EXPECT_EQ(SendW(WM_GETTEXT, 1, buffer), 0);
    EXPECT_EQ(buffer[0], 0);
}

TEST_F(WindowProcThunks, W2A_CreateStructNamesBecomeAnsiAtomsAndNullNamesPassAsTheyAre)
{
    const CREATESTRUCTW cs = SampleCreate(kText, kClass);
    EXPECT_EQ(SendW(WM_CREATE, 5, &cs), 77);
    EXPECT_EQ(g_seen.wParam, 0u);
    EXPECT_NE(g_seen.lParam, reinterpret_cast<LPARAM>(&cs)) << "a copy";
    EXPECT_EQ(g_seen.ansi, Ansi(kText));
    EXPECT_EQ(g_seen.ansiClass, "Klasse");
    ExpectSameGeometry(g_seen.create, cs);
    EXPECT_EQ(cs.lpszName, kText) << "the caller's structure is left alone";
    g_seen = Seen();
    const CREATESTRUCTW unnamed = SampleCreate(nullptr, reinterpret_cast<const WCHAR *>(ULONG_PTR(0xC123)));
    EXPECT_EQ(SendW(WM_NCCREATE, 0, &unnamed), 77);
    EXPECT_TRUE(g_seen.nullName);
    EXPECT_EQ(reinterpret_cast<ULONG_PTR>(g_seen.create.lpszClass), 0xC123u);
    g_seen = Seen();
    EXPECT_EQ(SendW(WM_CREATE, 0, nullptr), 0);
    EXPECT_EQ(g_seen.calls, 0);
}

TEST_F(WindowProcThunks, W2A_StringMessagesKeepWParamAndListBoxGetTextGivesUnits)
{
    for (UINT message : {UINT(EM_REPLACESEL), UINT(LB_ADDSTRING), UINT(LB_INSERTSTRING), UINT(LB_SELECTSTRING),
                         UINT(LB_FINDSTRING), UINT(LB_FINDSTRINGEXACT)}) {
        g_seen = Seen();
        EXPECT_EQ(SendW(message, 3, kItem), 55) << message;
        EXPECT_EQ(g_seen.message, message);
        EXPECT_EQ(g_seen.wParam, 3u) << message;
        EXPECT_EQ(g_seen.ansi, Ansi(kItem)) << message;
        g_seen = Seen();
        EXPECT_EQ(SendW(message, 3, nullptr), 0) << message;
        EXPECT_EQ(g_seen.calls, 0) << message;
    }
    g_seen = Seen();
    g_ansiText = Ansi(kItem);
    WCHAR buffer[32];
    std::fill(std::begin(buffer), std::end(buffer), WCHAR(0x2A));
    EXPECT_EQ(SendW(LB_GETTEXT, 2, buffer), LRESULT(lstrlenW(kItem)));
    EXPECT_EQ(g_seen.message, UINT(LB_GETTEXT));
    EXPECT_EQ(g_seen.wParam, 2u) << "the item index";
    EXPECT_EQ(Wide(buffer), Wide(g_ansiText));
    g_seen = Seen();
    EXPECT_EQ(SendW(LB_GETTEXT, 2, nullptr), 0);
    EXPECT_EQ(g_seen.calls, 0);
}

TEST_F(WindowProcThunks, CharComboAndOtherMessagesPassUnchangedBothWays)
{
    EXPECT_EQ(SendW(WM_CHAR, 0xE9, reinterpret_cast<void *>(0x10001)), 55);
    EXPECT_EQ(g_seen.wParam, 0xE9u);
    EXPECT_EQ(g_seen.lParam, 0x10001);
    EXPECT_EQ(SendW(WM_CHAR, 0x4E2D, nullptr), 55);
    EXPECT_EQ(g_seen.wParam, 0x4E2Du);
    EXPECT_EQ(SendW(CB_ADDSTRING, 1, kItem), 55);
    EXPECT_EQ(g_seen.lParam, reinterpret_cast<LPARAM>(kItem)) << "the caller's own pointer";

    // ANSI caller, wide procedure.
    const char *text = "abc";
    EXPECT_EQ(SendA(CB_ADDSTRING, 6, text), 55);
    EXPECT_EQ(g_seen.wParam, 6u);
    EXPECT_EQ(g_seen.lParam, reinterpret_cast<LPARAM>(text));
    EXPECT_EQ(SendA(WM_USER + 40, 7, reinterpret_cast<void *>(8)), 55);
    EXPECT_EQ(g_seen.message, UINT(WM_USER + 40));
    EXPECT_EQ(g_seen.lParam, 8);
}

// ---- ANSI caller, wide procedure ------------------------------------------------

TEST_F(WindowProcThunks, A2W_SetTextConvertsAndDropsWParamGetTextLengthIsAnUpperBoundInBytes)
{
    const std::string ansi = Ansi(kText);
    EXPECT_EQ(SendA(WM_SETTEXT, 9, ansi.c_str()), 55);
    EXPECT_EQ(g_seen.wide, Wide(ansi));
    EXPECT_EQ(g_seen.wParam, 0u);
    EXPECT_EQ(SendA(WM_GETTEXTLENGTH, 0, nullptr), LRESULT(2 * g_wideText.size()));
}

TEST_F(WindowProcThunks, A2W_GetTextGivesBytesAlsoIntoAShortBufferOrOfAnEmptyWindow)
{
    char buffer[64];
    std::memset(buffer, '*', sizeof buffer);
    const std::string expected = AnsiOfGetText(kText);
    EXPECT_EQ(SendA(WM_GETTEXT, sizeof buffer, buffer), LRESULT(expected.size())) << "bytes, not units";
    EXPECT_EQ(std::string(buffer), expected);
    EXPECT_EQ(g_seen.wParam, g_wideText.size() + 1);
    std::memset(buffer, '*', sizeof buffer);
    const LRESULT got = SendA(WM_GETTEXT, 4, buffer);
    EXPECT_EQ(g_seen.wParam, 4u) << "no more units asked for than the caller has bytes";
    ASSERT_LE(got, 3);
    EXPECT_EQ(LRESULT(std::strlen(buffer)), got);
    EXPECT_EQ(AnsiOfGetText(kText).compare(0, size_t(got), buffer), 0) << "a prefix of the text";
    EXPECT_EQ(buffer[4], '*');
    g_seen = Seen();
    g_wideText.clear();
    std::memset(buffer, '*', sizeof buffer);
    EXPECT_EQ(SendA(WM_GETTEXT, 8, buffer), 0);
    EXPECT_EQ(buffer[0], '\0');
    EXPECT_EQ(g_seen.message, UINT(WM_GETTEXTLENGTH)) << "WM_GETTEXT itself is not sent";
    g_seen = Seen();
    EXPECT_EQ(SendA(WM_GETTEXT, 8, nullptr), 0);
    EXPECT_EQ(g_seen.calls, 0);
}

TEST_F(WindowProcThunks, A2W_CreateStructNamesBecomeWide)
{
    const std::string name = Ansi(kText);
    CREATESTRUCTA cs;
    const CREATESTRUCTW sample = SampleCreate(nullptr, nullptr);
    std::memcpy(&cs, &sample, sizeof cs);
    cs.lpszName = name.c_str();
    cs.lpszClass = "Klasse";
    EXPECT_EQ(SendA(WM_NCCREATE, 5, &cs), 77);
    EXPECT_EQ(g_seen.wParam, 0u);
    EXPECT_EQ(g_seen.wide, Wide(name));
    EXPECT_EQ(g_seen.wideClass, u"Klasse");
    ExpectSameGeometry(g_seen.create, sample);
}

TEST_F(WindowProcThunks, A2W_StringMessagesKeepWParamAndListBoxGetTextGivesBytes)
{
    const std::string item = Ansi(kItem);
    for (UINT message : {UINT(EM_REPLACESEL), UINT(LB_ADDSTRING), UINT(LB_INSERTSTRING), UINT(LB_SELECTSTRING),
                         UINT(LB_FINDSTRING), UINT(LB_FINDSTRINGEXACT)}) {
        g_seen = Seen();
        EXPECT_EQ(SendA(message, 4, item.c_str()), 55) << message;
        EXPECT_EQ(g_seen.wParam, 4u) << message;
        EXPECT_EQ(g_seen.wide, Wide(item)) << message;
        g_seen = Seen();
        EXPECT_EQ(SendA(message, 4, nullptr), 0) << message;
        EXPECT_EQ(g_seen.calls, 0) << message;
    }
    g_seen = Seen();
    g_wideText = Wide(kItem);
    char buffer[32];
    std::memset(buffer, '*', sizeof buffer);
    const std::string expected = Ansi(kItem);
    EXPECT_EQ(SendA(LB_GETTEXT, 1, buffer), LRESULT(expected.size()));
    EXPECT_EQ(std::string(buffer), expected);
    EXPECT_EQ(g_seen.wParam, 1u);
}

TEST_F(WindowProcThunks, A2W_CharUnitBecomesOneAnsiByte)
{
    EXPECT_EQ(SendA(WM_CHAR, 0x10041, reinterpret_cast<void *>(0x1E0001)), 55);
    EXPECT_EQ(g_seen.wParam, WPARAM('A')) << "only the low 16 bits count";
    EXPECT_EQ(g_seen.lParam, 0x1E0001);

    const WCHAR unit = 0xE9;
    char bytes[4] = {};
    const int n = WideCharToMultiByte(CP_ACP, 0, &unit, 1, bytes, sizeof bytes, nullptr, nullptr);
    g_seen = Seen();
    const LRESULT result = SendA(WM_CHAR, unit, nullptr);
    std::printf("wm_char_delivered=%d\n", g_seen.calls);
    if (n == 1) {
        EXPECT_EQ(result, 55);
        EXPECT_EQ(g_seen.wParam, WPARAM(static_cast<unsigned char>(bytes[0]))) << "zero-extended";
    } else {
        EXPECT_EQ(result, 0);
        EXPECT_EQ(g_seen.calls, 0) << "a unit of several bytes is not delivered";
    }
}

// The same WM_CHAR in a single-byte and in a multi-byte process page: one
// page delivers the byte, the other drops the character.
TEST(WindowProcThunksByPage, CharDeliveryDependsOnTheAnsiPage)
{
    for (const auto &[locale, delivered] : {std::pair<const char *, const char *>{"de_DE.ISO-8859-1", "1"},
                                            std::pair<const char *, const char *>{"en_US.UTF-8", "0"}}) {
        vorlan_test::ChildOptions options;
        options.path = "/proc/self/exe";
        options.argv = {"vorlan_tests", "--gtest_filter=WindowProcThunks.A2W_CharUnitBecomesOneAnsiByte"};
        options.environment["LC_ALL"] = locale;
        options.environment["LANG"] = locale;
        const vorlan_test::ChildResult result = vorlan_test::RunChild(options);
        ASSERT_TRUE(result.exited) << result.Transcript();
        EXPECT_EQ(result.exitStatus, 0) << result.Transcript();
        EXPECT_EQ(result.Value("wm_char_delivered"), std::optional<std::string>(delivered)) << locale;
    }
}
