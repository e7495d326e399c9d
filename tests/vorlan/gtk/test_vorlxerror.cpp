// The scoped X error handler.

// GoogleTest comes before the X headers, whose macros (None, Bool) clash with it.
#include <gtest/gtest.h>

#include "gtk/vorlxerror.h"

#include "gtk/vorlgtklock.h"
#include "support/gtk_helpers.h"

using namespace vorlan_test;
using vorlan::TemporaryXErrorHandler;

namespace {

int g_outerErrors = 0;

int CountingHandler(Display *, XErrorEvent *)
{
    ++g_outerErrors;
    return 0;
}

// Installs CountingHandler for the lifetime of the object.
class OuterHandler {
public:
    OuterHandler()
    {
        vorlan::GtkCriticalSection lock;
        g_outerErrors = 0;
        m_previous = XSetErrorHandler(CountingHandler);
    }
    ~OuterHandler()
    {
        vorlan::GtkCriticalSection lock;
        XSetErrorHandler(m_previous);
    }

private:
    XErrorHandler m_previous;
};

XErrorHandler CurrentHandler()
{
    vorlan::GtkCriticalSection lock;
    XErrorHandler current = XSetErrorHandler(nullptr);
    XSetErrorHandler(current);
    return current;
}

Status GetAttributes(XID window)
{
    vorlan::GtkCriticalSection lock;
    XWindowAttributes attributes;
    return XGetWindowAttributes(XDisplay(), window, &attributes);
}

} // namespace

// Each trap starts without an error, catches the error of a gone window and
// leaves the toolkit lock as it found it.
TEST(TemporaryXErrorHandler, StartsWithoutErrorAndCatchesTheErrorOfAGoneWindow)
{
    {
        TemporaryXErrorHandler trap;
        GetAttributes(DestroyedXWindow());
        EXPECT_EQ(vorlan::GtkCriticalSection::depth(), 0);
    }
    ASSERT_NE(TemporaryXErrorHandler::error_code, 0);
    EXPECT_EQ(vorlan::GtkCriticalSection::owner_thread(), vorlan::GtkCriticalSection::kNoOwner);
    {
        TemporaryXErrorHandler trap;
        EXPECT_EQ(TemporaryXErrorHandler::error_code, 0);
        ForeignXWindow live;
        EXPECT_NE(GetAttributes(live.xid()), 0);
        EXPECT_EQ(TemporaryXErrorHandler::error_code, 0);
    }
    const XID gone = DestroyedXWindow();
    vorlan::GtkCriticalSection lock;
    TemporaryXErrorHandler trap;
    EXPECT_EQ(GetAttributes(gone), 0);
    XSync(XDisplay(), False);
    EXPECT_EQ(TemporaryXErrorHandler::error_code, BadWindow);
}

TEST(TemporaryXErrorHandler, SyncsOnLeavingSoLateErrorsAreCaught)
{
    const XID gone = DestroyedXWindow();
    {
        TemporaryXErrorHandler trap;
        vorlan::GtkCriticalSection lock;
        XMapWindow(XDisplay(), gone); // no reply: the error comes at the next sync
    }
    EXPECT_EQ(TemporaryXErrorHandler::error_code, BadWindow);
}

TEST(TemporaryXErrorHandler, NestedScopesRestoreEachLevelAndThePreviousHandler)
{
    OuterHandler outer;
    const XErrorHandler before = CurrentHandler();
    {
        TemporaryXErrorHandler outerTrap;
        const XErrorHandler trapHandler = CurrentHandler();
        EXPECT_NE(trapHandler, before);
        {
            TemporaryXErrorHandler innerTrap;
            GetAttributes(DestroyedXWindow());
        }
        EXPECT_EQ(CurrentHandler(), trapHandler);
        EXPECT_EQ(TemporaryXErrorHandler::error_code, BadWindow);
    }
    EXPECT_EQ(g_outerErrors, 0);
    EXPECT_EQ(CurrentHandler(), before);
    GetAttributes(DestroyedXWindow());
    EXPECT_EQ(g_outerErrors, 1);
}
