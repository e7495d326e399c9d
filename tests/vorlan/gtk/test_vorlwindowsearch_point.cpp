// Search by point: the filters, DirectChildFromPoint, ChildWindowFromPoint,
// FindWindowFromPointEx below a window, and WindowFromPoint, which asks the
// X server at the desktop and so sees the windows of other X clients.
#include <gtest/gtest.h>

#include <vorlan.h>

#include "gtk/vorlglobals.h"
#include "gtk/vorlgtklock.h"
#include "gtk/vorlwindowsearch.h"
#include "support/gtk_helpers.h"
#include "support/window_objects.h"

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

WindowOptions Place(HWND parent, DWORD style, RECT rect, bool withXWindow = false)
{
    WindowOptions options;
    options.parent = parent;
    options.style = style;
    options.rcWindow = rect;
    options.withXWindow = withXWindow;
    return options;
}

void SetStyle(const TestWindow &window, DWORD style)
{
    vorlan::GtkCriticalSection lock;
    window.object()->dwStyle = style;
}

bool IsMappedInX(XID window)
{
    vorlan::GtkCriticalSection lock;
    XWindowAttributes attributes;
    return XGetWindowAttributes(XDisplay(), window, &attributes) && attributes.map_state == IsViewable;
}

// A visible top-level window whose X window is mapped where its rectangle
// says.  It is override-redirect before its geometry goes to X, so that the
// window manager neither intercepts the move nor frames the window.
std::unique_ptr<TestWindow> MappedTopLevel(RECT rect)
{
    auto window = std::make_unique<TestWindow>(Place(nullptr, WS_POPUP | WS_VISIBLE, rect));
    {
        vorlan::GtkCriticalSection lock;
        window->object()->CreateOSWindow();
        gdk_window_set_override_redirect(window->object()->window, TRUE);
        PlaceXWindow(window->hwnd());
        gdk_window_show(window->object()->window);
        gdk_flush();
    }
    EXPECT_TRUE(PumpUntil([&] { return IsMappedInX(window->xid()); }));
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
        const std::string args[] = {std::to_string(rect.left), std::to_string(rect.top),
                                    std::to_string(rect.right - rect.left), std::to_string(rect.bottom - rect.top)};
        char *argv[] = {const_cast<char *>(VORLAN_XPEER), const_cast<char *>(args[0].c_str()),
                        const_cast<char *>(args[1].c_str()), const_cast<char *>(args[2].c_str()),
                        const_cast<char *>(args[3].c_str()), nullptr};
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
        m_mapped = m_pid > 0 && ReadLine(out[0]) == "mapped";
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
    static std::string ReadLine(int fd)
    {
        std::string line;
        char c = 0;
        pollfd wait = {fd, POLLIN, 0};
        while (poll(&wait, 1, 10000) > 0 && read(fd, &c, 1) == 1 && c != '\n')
            line += c;
        return line;
    }

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

TEST(PointFilters, HiddenAndDisabledRules)
{
    TestWindow top(Place(nullptr, WS_POPUP | WS_VISIBLE, {0, 0, 100, 100}));
    TestWindow child(Place(top.hwnd(), kChild, {10, 10, 50, 50}));
    struct Case {
        const TestWindow *window;
        DWORD style, parentStyle;
        FILTER_CODE direct, visible, enabled, visibleEnabled, fromPoint;
    };
    const DWORD top_ = WS_POPUP | WS_VISIBLE;
    const Case cases[] = {
        {&child, kChild, top_, 1, 1, 1, 1, 0},
        {&child, WS_CHILD, top_, 1, 3, 1, 3, 3},
        {&child, kChild | WS_DISABLED, top_, 1, 1, 3, 3, 3},
        {&child, kChild, WS_POPUP, 1, 3, 1, 3, 3},  // visible, but the parent is hidden
        {&top, top_ | WS_DISABLED, top_, 1, 1, 1, 1, 1},  // disabled right below the desktop
        {&top, WS_POPUP | WS_DISABLED, top_, 1, 3, 1, 3, 3},
    };
    for (const Case &c : cases) {
        SetStyle(top, c.window == &top ? c.style : c.parentStyle);
        SetStyle(child, c.window == &child ? c.style : kChild);
        const HWND hWnd = c.window->hwnd();
        const HWND parent = c.window == &top ? g_hWndDesktop : top.hwnd();
        SCOPED_TRACE(::testing::Message() << "style " << std::hex << c.style << " parent " << c.parentStyle);
        EXPECT_EQ(DirectChildFilter(hWnd, parent, {}, 0), c.direct);
        EXPECT_EQ(DirectVisibleChildFilter(hWnd, parent, {}, 0), c.visible);
        EXPECT_EQ(DirectEnabledChildFilter(hWnd, parent, {}, 0), c.enabled);
        EXPECT_EQ(DirectVisibleAndEnabledChildFilter(hWnd, parent, {}, 0), c.visibleEnabled);
        EXPECT_EQ(WindowFromPointFilter(hWnd, parent, {}, 0), c.fromPoint);
    }
    EXPECT_EQ(DirectChildFilter(nullptr, top.hwnd(), {}, 0), FILTER_SKIP);
}

TEST(PointSearch, DirectChildFromPointFlagsPickTheFilter)
{
    TestWindow parent(Place(nullptr, WS_POPUP | WS_VISIBLE, {0, 0, 200, 100}));
    TestWindow hidden(Place(parent.hwnd(), WS_CHILD, {10, 10, 50, 50}));
    TestWindow disabled(Place(parent.hwnd(), kChild | WS_DISABLED, {60, 10, 100, 50}));
    TestWindow normal(Place(parent.hwnd(), kChild, {110, 10, 150, 50}));
    TestWindow grandchild(Place(normal.hwnd(), kChild, {115, 15, 130, 30}));
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

TEST(PointSearch, ChildWindowFromPointTakesHiddenChildrenAndTheFrame)
{
    WindowOptions options = Place(nullptr, WS_POPUP | WS_VISIBLE, {100, 100, 300, 300});
    options.rcClient = {110, 130, 290, 290};
    TestWindow parent(options);
    TestWindow hidden(Place(parent.hwnd(), WS_CHILD, {120, 140, 160, 180}));
    EXPECT_EQ(ChildWindowFromPoint(parent.hwnd(), {15, 15}), hidden.hwnd());
    EXPECT_EQ(ChildWindowFromPoint(parent.hwnd(), {100, 100}), parent.hwnd()) << "client area, no child";
    EXPECT_EQ(ChildWindowFromPoint(parent.hwnd(), {-5, -5}), parent.hwnd()) << "in the frame";
    EXPECT_EQ(ChildWindowFromPoint(parent.hwnd(), {-20, -40}), nullptr) << "outside the window";
}

TEST(PointSearch, OverlappingSiblingsInListOrder)
{
    TestWindow parent(Place(nullptr, WS_POPUP | WS_VISIBLE, {0, 0, 200, 200}));
    TestWindow a(Place(parent.hwnd(), kChild, {10, 10, 100, 100}));
    TestWindow b(Place(parent.hwnd(), kChild, {50, 50, 150, 150}));
    TestWindow insideB(Place(b.hwnd(), kChild, {120, 120, 140, 140}));
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

TEST(PointSearch, WindowFromPointFollowsVisibilityAndEnabledState)
{
    auto top = MappedTopLevel({200, 200, 500, 450});
    TestWindow c1(Place(top->hwnd(), kChild, {220, 220, 320, 320}));
    TestWindow c2(Place(top->hwnd(), kChild, {260, 260, 360, 360}));
    TestWindow hidden(Place(top->hwnd(), WS_CHILD, {380, 220, 440, 280}));
    TestWindow disabled(Place(top->hwnd(), kChild | WS_DISABLED, {380, 300, 440, 360}));
    TestWindow insideDisabled(Place(disabled.hwnd(), kChild, {390, 310, 420, 340}));
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
}

TEST(PointSearch, AnotherClientsWindowHidesOurs)
{
    auto top = MappedTopLevel({200, 200, 500, 450});
    ASSERT_EQ(WindowFromPoint({400, 300}), top->hwnd());
    XPeer peer({350, 200, 500, 450});
    ASSERT_TRUE(peer.mapped());
    EXPECT_EQ(WindowFromPoint({400, 300}), g_hWndDesktop);
    EXPECT_EQ(WindowFromPoint({250, 300}), top->hwnd());
    EXPECT_EQ(ChildWindowFromPoint(g_hWndDesktop, {400, 300}), g_hWndDesktop);
}
