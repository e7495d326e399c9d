// Search by point below a window, and WindowFromPoint, which asks the X
// server at the desktop and so sees the windows of other X clients.
#include <gtest/gtest.h>

#include <vorlan.h>

#include "gtk/vorlstartup.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindowsearch.h"
#include "support/gtk_helpers.h"
#include "support/window_checks.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <memory>
#include <string>

using namespace vorlan_test;

extern char **environ;

namespace {

constexpr DWORD kChild = WS_CHILD | WS_VISIBLE;

void SetStyle(const TestWindow &window, DWORD style)
{
    vorlan::GtkCriticalSection lock;
    window.object()->dwStyle = style;
}

// A visible top-level window mapped where its rectangle says: override-
// redirect, so the window manager neither moves nor frames it.
std::unique_ptr<TestWindow> MappedTopLevel(RECT rect)
{
    auto window = std::make_unique<TestWindow>(ObjectSpec(nullptr, WS_POPUP | WS_VISIBLE, rect));
    {
        vorlan::GtkCriticalSection lock;
        window->object()->CreateOSWindow();
        gdk_window_set_override_redirect(window->object()->window, TRUE);
        PlaceXWindow(window->hwnd());
        gdk_window_show(window->object()->window);
        gdk_flush();
    }
    EXPECT_TRUE(PumpUntil([&] { return XWindowViewable(window->xid()); }));
    const ServerGeometry geometry = QueryServerGeometry(window->xid());
    EXPECT_EQ(geometry.x, rect.left);
    EXPECT_EQ(geometry.y, rect.top);
    return window;
}

// Another X client with one override-redirect window over a rectangle, for
// as long as the object lives.
class XPeer {
public:
    explicit XPeer(RECT rect)
    {
        int out[2], in[2];
        if (pipe2(out, O_CLOEXEC) != 0 || pipe2(in, O_CLOEXEC) != 0)
            return;
        std::string args[] = {VORLAN_XPEER, std::to_string(rect.left), std::to_string(rect.top),
                              std::to_string(rect.right - rect.left), std::to_string(rect.bottom - rect.top)};
        char *argv[] = {args[0].data(), args[1].data(), args[2].data(), args[3].data(), args[4].data(), nullptr};
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
        if (posix_spawn(&m_pid, VORLAN_XPEER, &actions, nullptr, argv, environ) != 0)
            m_pid = -1;
        posix_spawn_file_actions_destroy(&actions);
        close(in[0]);
        close(out[1]);
        m_stdin = in[1];
        std::string line;
        char c = 0;
        pollfd wait = {out[0], POLLIN, 0};
        while (m_pid > 0 && poll(&wait, 1, 10000) > 0 && read(out[0], &c, 1) == 1 && c != '\n')
            line += c;
        m_mapped = line == "mapped";
        close(out[0]);
    }
    ~XPeer()
    {
        close(m_stdin);
        if (m_pid > 0) {
            kill(m_pid, SIGTERM);
            waitpid(m_pid, nullptr, 0);
        }
    }
    bool mapped() const { return m_mapped; }

private:
    pid_t m_pid = -1;
    int m_stdin = -1;
    bool m_mapped = false;
};

// Answers FILTER_DESCEND_ONLY for one window, FILTER_DESCEND_OR_TAKE for
// the others.
HWND g_descendOnly;
FILTER_CODE DescendOnlyFor(HWND hWnd, HWND, POINT, LPARAM)
{
    return hWnd == g_descendOnly ? FILTER_DESCEND_ONLY : FILTER_DESCEND_OR_TAKE;
}

} // namespace

TEST(PointSearch, DirectChildFromPointFlagsPickTheFilter)
{
    TestWindow parent(ObjectSpec(nullptr, WS_POPUP | WS_VISIBLE, {0, 0, 200, 100}));
    TestWindow hidden(ObjectSpec(parent.hwnd(), WS_CHILD, {10, 10, 50, 50}));
    TestWindow disabled(ObjectSpec(parent.hwnd(), kChild | WS_DISABLED, {60, 10, 100, 50}));
    TestWindow normal(ObjectSpec(parent.hwnd(), kChild, {110, 10, 150, 50}));
    TestWindow grandchild(ObjectSpec(normal.hwnd(), kChild, {115, 15, 130, 30}));
    const HWND h = hidden.hwnd(), d = disabled.hwnd(), p = parent.hwnd();
    vorlan::GtkCriticalSection lock;
    // bDisabled, bInvisible: (TRUE, TRUE), (TRUE, FALSE), (FALSE, TRUE), (FALSE, FALSE)
    const HWND inHidden[] = {h, nullptr, h, nullptr}, inDisabled[] = {d, d, nullptr, nullptr};
    for (int i = 0; i < 4; ++i) {
        const BOOL bDisabled = i < 2, bInvisible = i % 2 == 0;
        EXPECT_EQ(DirectChildFromPoint(p, {20, 20}, bDisabled, bInvisible), inHidden[i]) << i;
        EXPECT_EQ(DirectChildFromPoint(p, {70, 20}, bDisabled, bInvisible), inDisabled[i]) << i;
        EXPECT_EQ(DirectChildFromPoint(p, {120, 20}, bDisabled, bInvisible), normal.hwnd()) << "direct only";
    }
}

TEST(PointSearch, ChildWindowFromPointTakesHiddenChildrenAndFindWindowFromPointExTakesSiblingsInListOrder)
{
    WindowOptions options = ObjectSpec(nullptr, WS_POPUP | WS_VISIBLE, {100, 100, 300, 300});
    options.rcClient = {110, 130, 290, 290};
    TestWindow framed(options);
    TestWindow hidden(ObjectSpec(framed.hwnd(), WS_CHILD, {120, 140, 160, 180}));
    EXPECT_EQ(ChildWindowFromPoint(framed.hwnd(), {15, 15}), hidden.hwnd());
    EXPECT_EQ(ChildWindowFromPoint(framed.hwnd(), {100, 100}), framed.hwnd()) << "client area, no child";
    EXPECT_EQ(ChildWindowFromPoint(framed.hwnd(), {-5, -5}), framed.hwnd()) << "in the frame";
    EXPECT_EQ(ChildWindowFromPoint(framed.hwnd(), {-20, -40}), nullptr) << "outside the window";

    TestWindow parent(ObjectSpec(nullptr, WS_POPUP | WS_VISIBLE, {0, 0, 200, 200}));
    TestWindow a(ObjectSpec(parent.hwnd(), kChild, {10, 10, 100, 100}));
    TestWindow b(ObjectSpec(parent.hwnd(), kChild, {50, 50, 150, 150}));
    TestWindow insideB(ObjectSpec(b.hwnd(), kChild, {120, 120, 140, 140}));
    EXPECT_EQ(FindWindowFromPointEx(parent.hwnd(), {60, 60}, WindowFromPointFilter), a.hwnd());
    EXPECT_EQ(FindWindowFromPointEx(parent.hwnd(), {130, 130}, WindowFromPointFilter), insideB.hwnd());
    EXPECT_EQ(FindWindowFromPointEx(parent.hwnd(), {250, 60}, WindowFromPointFilter), nullptr);
    g_descendOnly = a.hwnd();
    EXPECT_EQ(FindWindowFromPointEx(parent.hwnd(), {60, 60}, DescendOnlyFor), b.hwnd())
        << "nothing inside a: on to its sibling";
    SetLastError(0);
    EXPECT_EQ(FindWindowFromPointEx(parent.hwnd(), {60, 60}, nullptr), nullptr);
    EXPECT_EQ(GetLastError(), DWORD(ERROR_INVALID_PARAMETER));
}

TEST(PointSearch, WindowFromPointFollowsVisibilityEnabledStateAndOtherClientsWindows)
{
    auto top = MappedTopLevel({200, 200, 500, 450});
    TestWindow c1(ObjectSpec(top->hwnd(), kChild, {220, 220, 320, 320}));
    TestWindow c2(ObjectSpec(top->hwnd(), kChild, {260, 260, 360, 360}));
    TestWindow hidden(ObjectSpec(top->hwnd(), WS_CHILD, {380, 220, 440, 280}));
    TestWindow disabled(ObjectSpec(top->hwnd(), kChild | WS_DISABLED, {380, 300, 440, 360}));
    TestWindow insideDisabled(ObjectSpec(disabled.hwnd(), kChild, {390, 310, 420, 340}));
    const HWND t = top->hwnd();
    EXPECT_EQ(WindowFromPoint({270, 270}), c1.hwnd()) << "first in the list wins";
    EXPECT_EQ(WindowFromPoint({350, 350}), c2.hwnd());
    EXPECT_EQ(WindowFromPoint({400, 250}), t) << "hidden child";
    EXPECT_EQ(WindowFromPoint({395, 315}), t) << "disabled child, with its children";
    EXPECT_EQ(WindowFromPoint({480, 430}), t);
    EXPECT_EQ(WindowFromPoint({100, 100}), g_hWndDesktop) << "nothing there";
    SetStyle(*top, WS_POPUP | WS_VISIBLE | WS_DISABLED);
    EXPECT_EQ(WindowFromPoint({270, 270}), t) << "a disabled top-level window is taken whole";
    SetStyle(*top, WS_POPUP);
    EXPECT_EQ(WindowFromPoint({270, 270}), g_hWndDesktop) << "hidden, though mapped in X";
    SetStyle(*top, WS_POPUP | WS_VISIBLE);

    // The server decides: another client's window over ours hides it.
    ASSERT_EQ(WindowFromPoint({400, 300}), t);
    XPeer peer({350, 200, 500, 450});
    ASSERT_TRUE(peer.mapped());
    EXPECT_EQ(WindowFromPoint({400, 300}), g_hWndDesktop);
    EXPECT_EQ(WindowFromPoint({250, 300}), c1.hwnd());
    EXPECT_EQ(ChildWindowFromPoint(g_hWndDesktop, {400, 300}), g_hWndDesktop);
}
