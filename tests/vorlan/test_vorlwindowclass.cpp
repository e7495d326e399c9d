// Window class registration, the GCL_ fields and class names.
#include <gtest/gtest.h>

#include "support/expect_last_error.h"
#include "gtk/vorlstartup.h"
#include "gtk/vorlgtklock.h"
#include "support/window_objects.h"
#include "vorlwindowclass.h"
#include "vorlwindowproc.h"

#include <cstring>
#include <string>

using vorlan::GtkCriticalSection;

namespace {

template <int N> LRESULT CALLBACK Proc(HWND, UINT, WPARAM, LPARAM)
{
    return 2000 + N;
}

LPCWSTR W(const char16_t *text)
{
    return reinterpret_cast<LPCWSTR>(text);
}

std::u16string Text(const WCHAR *text)
{
    return reinterpret_cast<const char16_t *>(text);
}

HWND NoSuchWindow()
{
    return reinterpret_cast<HWND>(static_cast<ULONG_PTR>(0x1234));
}

HINSTANCE FakeInstance()
{
    return reinterpret_cast<HINSTANCE>(static_cast<ULONG_PTR>(0x7f1200000000ull));
}

template <typename T> T FakeHandle(ULONG_PTR value)
{
    return reinterpret_cast<T>(value);
}

WindowClass *FindClass(ATOM atom)
{
    GtkCriticalSection lock;
    return WindowClass_FindClass(atom);
}

ATOM RegisterWide(const char16_t *name, WNDPROC procedure, int cbClsExtra = 0)
{
    WNDCLASSW wc = {};
    wc.style = CS_HREDRAW;
    wc.lpfnWndProc = procedure;
    wc.cbClsExtra = cbClsExtra;
    wc.cbWndExtra = 12;
    wc.hInstance = FakeInstance();
    wc.lpszClassName = W(name);
    return RegisterClassW(&wc);
}

ATOM RegisterNarrow(const char *name, WNDPROC procedure)
{
    WNDCLASSA wc = {};
    wc.lpfnWndProc = procedure;
    wc.lpszClassName = name;
    return RegisterClassA(&wc);
}

LPCSTR AsName(ATOM atom)
{
    return reinterpret_cast<LPCSTR>(static_cast<ULONG_PTR>(atom));
}

// A window of a registered class: the test window's class record is
// swapped for the registered one while this object lives.
class ClassWindow {
public:
    explicit ClassWindow(ATOM atom) : m_window(Options())
    {
        GtkCriticalSection lock;
        m_own = m_window.object()->pClass;
        m_window.object()->pClass = WindowClass_FindClass(atom);
    }
    ~ClassWindow()
    {
        GtkCriticalSection lock;
        m_window.object()->pClass = m_own;
    }
    HWND hwnd() const { return m_window.hwnd(); }
    vorlan::Window *object() const { return m_window.object(); }

private:
    static vorlan_test::WindowOptions Options()
    {
        vorlan_test::WindowOptions options;
        options.withXWindow = false;
        return options;
    }
    vorlan_test::TestWindow m_window;
    WindowClass *m_own = nullptr;
};

} // namespace

// ---- Registration ------------------------------------------------------------

TEST(ClassRegistration, RoundTripByNameAndByAtomAndClassesOfOneProcedureShareItsEntry)
{
    const ATOM atom = RegisterWide(u"VorlanClassRoundTrip", Proc<1>);
    ASSERT_GE(atom, 0xC000);
    const WindowClass *wc = FindClass(atom);
    ASSERT_NE(wc, nullptr);
    EXPECT_EQ(wc->nIdWndProc, AllocWndProcId(nullptr, Proc<1>)) << "a wide class has a wide procedure";
    EXPECT_TRUE(UnregisterClassW(W(u"VorlanClassRoundTrip"), nullptr));
    EXPECT_EQ(FindClass(atom), nullptr);
    EXPECT_EQ(FindAtomW(W(u"VorlanClassRoundTrip")), 0) << "the registration's atom count is given back";

    const ATOM narrow = RegisterNarrow("VorlanClassByAtom", Proc<2>);
    ASSERT_NE(narrow, 0);
    EXPECT_EQ(FindClass(narrow)->nIdWndProc, AllocWndProcId(Proc<2>, nullptr)) << "an ANSI class";
    EXPECT_TRUE(UnregisterClassA(AsName(narrow), nullptr));
    EXPECT_EQ(FindClass(narrow), nullptr);
    EXPECT_EQ(FindAtomA("VorlanClassByAtom"), 0);

    const ATOM sharedA = RegisterWide(u"VorlanSharedProcA", Proc<6>);
    const UINT entries = g_nWndProcCount;
    const ATOM sharedB = RegisterWide(u"VorlanSharedProcB", Proc<6>);
    ASSERT_NE(sharedA, 0);
    ASSERT_NE(sharedB, 0);
    EXPECT_EQ(FindClass(sharedA)->nIdWndProc, FindClass(sharedB)->nIdWndProc);
    EXPECT_EQ(g_nWndProcCount, entries);
    UnregisterClassA(AsName(sharedA), nullptr);
    UnregisterClassA(AsName(sharedB), nullptr);
}

TEST(ClassRegistration, DuplicateNamesInAnyCaseAreRefusedAndKeepTheAtomCount)
{
    const ATOM atom = RegisterNarrow("VorlanDuplicateClass", Proc<4>);
    ASSERT_NE(atom, 0);
    const WindowClass *first = FindClass(atom);
    EXPECT_FAILS_WITH(RegisterNarrow("VorlanDuplicateClass", Proc<5>), 0, ERROR_CLASS_ALREADY_EXISTS);
    EXPECT_FAILS_WITH(RegisterWide(u"VORLANDUPLICATECLASS", Proc<5>), 0, ERROR_CLASS_ALREADY_EXISTS);
    EXPECT_EQ(FindClass(atom), first);
    EXPECT_EQ(first->nIdWndProc, AllocWndProcId(Proc<4>, nullptr)) << "the first registration stands";
    ASSERT_TRUE(UnregisterClassA("vorlanduplicateclass", nullptr));
    EXPECT_EQ(FindClass(atom), nullptr);
    EXPECT_EQ(FindAtomA("VorlanDuplicateClass"), 0) << "one count, given back once";
}

TEST(ClassRegistration, MenuNameNumberOrCopyAndExFormsTakeTheSmallIcon)
{
    WNDCLASSA wc = {};
    wc.lpfnWndProc = Proc<7>;
    wc.lpszClassName = "VorlanMenuNumber";
    wc.lpszMenuName = MAKEINTRESOURCEA(42);
    const ATOM numbered = RegisterClassA(&wc);
    ASSERT_NE(numbered, 0);
    EXPECT_EQ(reinterpret_cast<ULONG_PTR>(FindClass(numbered)->pszMenuName), 42u);

    char menu[] = "MainMenu";
    wc.lpszClassName = "VorlanMenuString";
    wc.lpszMenuName = menu;
    const ATOM named = RegisterClassA(&wc);
    ASSERT_NE(named, 0);
    std::strcpy(menu, "Changed!");
    EXPECT_EQ(Text(FindClass(named)->pszMenuName), u"MainMenu") << "an owned UTF-16 copy";
    EXPECT_TRUE(UnregisterClassA(AsName(numbered), nullptr));
    EXPECT_TRUE(UnregisterClassA(AsName(named), nullptr));

    WNDCLASSEXW wcx = {};
    wcx.cbSize = sizeof wcx;
    wcx.lpfnWndProc = Proc<8>;
    wcx.lpszClassName = W(u"VorlanExClass");
    wcx.hIconSm = FakeHandle<HICON>(0x5511);
    const ATOM atom = RegisterClassExW(&wcx);
    ASSERT_NE(atom, 0);
    EXPECT_EQ(FindClass(atom)->hIconSm, FakeHandle<HICON>(0x5511));
    EXPECT_TRUE(UnregisterClassW(W(u"VorlanExClass"), nullptr));

    wcx.cbSize = sizeof wcx - 1;
    EXPECT_FAILS_WITH(RegisterClassExW(&wcx), 0, ERROR_INVALID_PARAMETER);
    WNDCLASSEXA wcxa = {};
    wcxa.cbSize = sizeof wcxa + 4;
    wcxa.lpfnWndProc = Proc<8>;
    wcxa.lpszClassName = "VorlanExClass";
    EXPECT_EQ(RegisterClassExA(&wcxa), 0);
    EXPECT_EQ(FindAtomA("VorlanExClass"), 0);
}

TEST(ClassRegistration, BadArgumentsAndANegativeExtraSizeGive87)
{
    WNDCLASSA wc = {};
    wc.lpfnWndProc = Proc<9>;
    EXPECT_FAILS_WITH(RegisterClassA(nullptr), 0, ERROR_INVALID_PARAMETER);
    EXPECT_FAILS_WITH(RegisterClassA(&wc), 0, ERROR_INVALID_PARAMETER); // no name
    EXPECT_FAILS_WITH(RegisterWide(u"VorlanNoProcedure", nullptr), 0, ERROR_INVALID_PARAMETER);
    EXPECT_EQ(FindAtomW(W(u"VorlanNoProcedure")), 0);
    EXPECT_FAILS_WITH(RegisterWide(u"VorlanNegativeExtra", Proc<10>, -4), 0, ERROR_INVALID_PARAMETER);
    EXPECT_EQ(FindAtomW(W(u"VorlanNegativeExtra")), 0);
    EXPECT_FAILS_WITH(RegisterClassW(nullptr), 0, ERROR_INVALID_PARAMETER);
    EXPECT_FAILS_WITH(UnregisterClassA(nullptr, nullptr), FALSE, ERROR_INVALID_PARAMETER);
    EXPECT_FAILS_WITH(UnregisterClassW(nullptr, nullptr), FALSE, ERROR_INVALID_PARAMETER);
}

TEST(ClassRegistration, UnregisterGives1411ForAnUnknownClassAnd1412ForOneWithAWindow)
{
    EXPECT_FAILS_WITH(UnregisterClassA("VorlanNeverRegistered", nullptr), FALSE, ERROR_CLASS_DOES_NOT_EXIST);
    const ATOM plain = AddAtomA("VorlanAtomButNoClass");
    EXPECT_FAILS_WITH(UnregisterClassA("VorlanAtomButNoClass", nullptr), FALSE, ERROR_CLASS_DOES_NOT_EXIST);
    EXPECT_EQ(FindAtomA("VorlanAtomButNoClass"), plain) << "an atom that is no class is left alone";
    DeleteAtom(plain);
    EXPECT_FAILS_WITH(UnregisterClassA(AsName(0x7123), nullptr), FALSE, ERROR_CLASS_DOES_NOT_EXIST);

    const ATOM atom = RegisterNarrow("VorlanClassWithWindow", Proc<11>);
    ASSERT_NE(atom, 0);
    {
        vorlan_test::WindowOptions options;
        options.withXWindow = false;
        options.classAtom = atom;
        vorlan_test::TestWindow window(options);
        EXPECT_FAILS_WITH(UnregisterClassA("VorlanClassWithWindow", nullptr), FALSE, ERROR_CLASS_HAS_WINDOWS);
        EXPECT_NE(FindClass(atom), nullptr);
    }
    EXPECT_TRUE(UnregisterClassA("VorlanClassWithWindow", nullptr));
}

// ---- Class longs ---------------------------------------------------------------

class ClassLongs : public ::testing::Test {
protected:
    void SetUp() override
    {
        WNDCLASSEXW wcx = {};
        wcx.cbSize = sizeof wcx;
        wcx.style = CS_DBLCLKS | CS_OWNDC;
        wcx.lpfnWndProc = Proc<20>;
        wcx.cbClsExtra = 8;
        wcx.cbWndExtra = 16;
        wcx.hInstance = FakeInstance();
        wcx.hIcon = FakeHandle<HICON>(0x1101);
        wcx.hCursor = FakeHandle<HCURSOR>(0x1102);
        wcx.hbrBackground = FakeHandle<HBRUSH>(0x1103);
        wcx.hIconSm = FakeHandle<HICON>(0x1104);
        wcx.lpszClassName = W(u"VorlanClassLongs");
        atom = RegisterClassExW(&wcx);
        ASSERT_NE(atom, 0);
    }
    void TearDown() override { EXPECT_TRUE(UnregisterClassA(AsName(atom), nullptr)); }

    ATOM atom = 0;
};

TEST_F(ClassLongs, FieldsReadBackAndSettingReturnsTheOldValue)
{
    ClassWindow window(atom);
    const HWND hWnd = window.hwnd();
    EXPECT_EQ(GetClassLongW(hWnd, GCW_ATOM), atom);
    EXPECT_EQ(GetClassLongA(hWnd, GCL_STYLE), DWORD(CS_DBLCLKS | CS_OWNDC));
    EXPECT_EQ(GetClassLongPtrA(hWnd, GCLP_HICONSM), 0x1104u);
    EXPECT_EQ(SetClassLongW(hWnd, GCL_STYLE, CS_HREDRAW), DWORD(CS_DBLCLKS | CS_OWNDC));
    EXPECT_EQ(GetClassLongW(hWnd, GCL_STYLE), DWORD(CS_HREDRAW));
    EXPECT_EQ(SetClassLongPtrA(hWnd, GCLP_HICONSM, 0x2204), 0x1104u);
    EXPECT_EQ(GetClassLongPtrW(hWnd, GCLP_HICONSM), 0x2204u);
    EXPECT_EQ(SetClassLongW(hWnd, GCW_ATOM, 77), 0u) << "the atom is not written";
    EXPECT_EQ(FindClass(atom)->atom, atom);
}

TEST_F(ClassLongs, ProcedureOnTheSideAskedForAndSettingItLeavesWindowsAlone)
{
    ClassWindow window(atom);
    EXPECT_EQ(GetClassLongPtrW(window.hwnd(), GCLP_WNDPROC), reinterpret_cast<ULONG_PTR>(Proc<20>));
    const ULONG_PTR forAnsi = GetClassLongPtrA(window.hwnd(), GCLP_WNDPROC);
    EXPECT_TRUE(IsWndProcId(static_cast<LONG_PTR>(forAnsi))) << "no ANSI procedure: the id";
    EXPECT_EQ(CallWindowProcA(reinterpret_cast<WNDPROC>(forAnsi), window.hwnd(), WM_USER, 0, 0), 2020);

    ClassWindow other(atom);
    UINT windowProc;
    {
        GtkCriticalSection lock;
        other.object()->nIdWndProc = FindClass(atom)->nIdWndProc;
        windowProc = other.object()->nIdWndProc;
    }
    EXPECT_EQ(SetClassLongPtrW(other.hwnd(), GCLP_WNDPROC, reinterpret_cast<LONG_PTR>(Proc<21>)),
              reinterpret_cast<ULONG_PTR>(Proc<20>));
    EXPECT_EQ(FindClass(atom)->nIdWndProc, AllocWndProcId(nullptr, Proc<21>));
    EXPECT_EQ(other.object()->nIdWndProc, windowProc);

    const ULONG_PTR old = SetClassLongPtrA(other.hwnd(), GCLP_WNDPROC, reinterpret_cast<LONG_PTR>(Proc<22>));
    EXPECT_EQ(old, ULONG_PTR(AllocWndProcId(nullptr, Proc<21>))) << "the old one had no ANSI side";
    EXPECT_EQ(FindClass(atom)->nIdWndProc, AllocWndProcId(Proc<22>, nullptr));
    EXPECT_EQ(GetClassLongPtrA(other.hwnd(), GCLP_WNDPROC), reinterpret_cast<ULONG_PTR>(Proc<22>));

    EXPECT_FAILS_WITH(SetClassLongPtrW(other.hwnd(), GCLP_WNDPROC, 0), 0u, ERROR_INVALID_PARAMETER);
    EXPECT_EQ(FindClass(atom)->nIdWndProc, AllocWndProcId(Proc<22>, nullptr));
}

TEST_F(ClassLongs, SizesAndExtraBytesReadZeroNarrowFormsRefusePointerIndexesBadHandlesGive1400)
{
    ClassWindow window(atom);
    EXPECT_EQ(GetClassLongW(window.hwnd(), GCL_CBCLSEXTRA), 0u);
    EXPECT_EQ(GetClassLongW(window.hwnd(), GCL_CBWNDEXTRA), 0u);
    EXPECT_EQ(SetClassLongW(window.hwnd(), 0, 0x55667788), 0u);
    EXPECT_EQ(SetClassLongW(window.hwnd(), 4, 0x11223344), 0u);
    EXPECT_EQ(SetClassLongPtrW(window.hwnd(), 4096, 0x11223344), 0u) << "far beyond the extra bytes";
    EXPECT_EQ(GetClassLongW(window.hwnd(), 0), 0u);
    EXPECT_EQ(GetClassLongPtrA(window.hwnd(), 4096), 0u);
    WindowClass *wc = FindClass(atom);
    EXPECT_EQ(wc->cbClsExtra, 8);
    const BYTE zeros[8] = {};
    EXPECT_EQ(std::memcmp(ClassExtraBytes(wc), zeros, sizeof zeros), 0) << "zeroed and never written";

    EXPECT_FAILS_WITH(GetClassLongA(window.hwnd(), GCLP_WNDPROC), 0u, ERROR_INVALID_INDEX);
    EXPECT_FAILS_WITH(SetClassLongW(window.hwnd(), GCLP_HICON, 5), 0u, ERROR_INVALID_INDEX);
    EXPECT_EQ(FindClass(atom)->hIcon, FakeHandle<HICON>(0x1101));
    EXPECT_FAILS_WITH(GetClassLongPtrA(NoSuchWindow(), GCLP_HMODULE), 0u, ERROR_INVALID_WINDOW_HANDLE);
    EXPECT_FAILS_WITH(GetClassLongW(nullptr, GCL_STYLE), 0u, ERROR_INVALID_WINDOW_HANDLE);
    EXPECT_FAILS_WITH(SetClassLongPtrW(NoSuchWindow(), GCLP_HCURSOR, 1), 0u, ERROR_INVALID_WINDOW_HANDLE);
}

// ---- Class names -----------------------------------------------------------------

TEST_F(ClassLongs, ClassNameIsCutToTheBufferInBothForms)
{
    ClassWindow window(atom);
    WCHAR name[64];
    EXPECT_EQ(GetClassNameW(window.hwnd(), name, 64), 16);
    EXPECT_EQ(Text(name), u"VorlanClassLongs");
    WCHAR small[5] = {'x', 'x', 'x', 'x', 'x'};
    EXPECT_EQ(GetClassNameW(window.hwnd(), small, 4), 3);
    EXPECT_EQ(Text(small), u"Vor");
    EXPECT_EQ(small[4], 'x') << "nothing beyond the given size";
    EXPECT_EQ(GetClassNameW(window.hwnd(), small, 1), 0);
    EXPECT_EQ(small[0], 0);

    char narrow[64];
    EXPECT_EQ(GetClassNameA(window.hwnd(), narrow, 64), 16);
    EXPECT_STREQ(narrow, "VorlanClassLongs");
    char shortNarrow[6] = "xxxxx";
    EXPECT_EQ(GetClassNameA(window.hwnd(), shortNarrow, 5), 4);
    EXPECT_STREQ(shortNarrow, "Vorl");
    EXPECT_EQ(GetClassNameA(window.hwnd(), shortNarrow, 1), 0);
    EXPECT_EQ(shortNarrow[0], 0);
}

TEST(ClassNamesOfAtoms, IntegerAtomClassHasItsNumberFormAndBadArgumentsFail)
{
    char name[16];
    WCHAR wide[16];
    EXPECT_EQ(GetClassNameA(g_hWndDesktop, name, sizeof name), 6);
    EXPECT_STREQ(name, "#32769");
    EXPECT_FAILS_WITH(GetClassNameA(g_hWndDesktop, nullptr, 16), 0, ERROR_INVALID_PARAMETER);
    EXPECT_FAILS_WITH(GetClassNameW(g_hWndDesktop, wide, 0), 0, ERROR_INVALID_PARAMETER);
    EXPECT_FAILS_WITH(GetClassNameA(g_hWndDesktop, name, -1), 0, ERROR_INVALID_PARAMETER);
    EXPECT_FAILS_WITH(GetClassNameW(NoSuchWindow(), wide, 16), 0, ERROR_INVALID_WINDOW_HANDLE);
    EXPECT_FAILS_WITH(GetClassNameA(NoSuchWindow(), name, 16), 0, ERROR_INVALID_WINDOW_HANDLE);
}
