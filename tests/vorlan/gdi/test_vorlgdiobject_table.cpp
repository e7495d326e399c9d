#include <gtest/gtest.h>

#include "gdi/vorlgdiobject.h"
#include "gtk/vorlgtklock.h"
#include "support/child_process.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using vorlan::GdiObject;

namespace {

ULONG_PTR Value(HGDIOBJ h)
{
    return reinterpret_cast<ULONG_PTR>(h);
}

unsigned IndexOf(HGDIOBJ h)
{
    return Value(h) & 0xFFFF;
}

std::string ReadAll(int fd)
{
    std::string text;
    char buffer[512];
    ssize_t got;
    while ((got = read(fd, buffer, sizeof buffer)) > 0)
        text.append(buffer, got);
    close(fd);
    return text;
}

std::vector<DHANDLE> g_freed;
void RecordFree(DHANDLE handle)
{
    g_freed.push_back(handle);
}

} // namespace

TEST(GdiTable, HandleCarriesTypeTagAndIndexAndFreedIndicesAreNotReusedAtOnce)
{
    HPEN pen = CreatePen(PS_SOLID, 1, 0);
    HBRUSH brush = CreateSolidBrush(0);
    EXPECT_EQ(Value(pen) >> 16, 0x7001u);
    EXPECT_EQ(Value(brush) >> 16, 0x7002u);
    EXPECT_EQ(GetObjectType(reinterpret_cast<HGDIOBJ>(Value(pen) | 0x800000)), static_cast<DWORD>(OBJ_PEN))
        << "bit 23 is ignored";
    EXPECT_TRUE(DeleteObject(pen));
    EXPECT_TRUE(DeleteObject(brush));
    {
        vorlan::GtkCriticalSection lock;
        EXPECT_EQ(GdiObject::gdiTable[IndexOf(pen)], nullptr);
    }
    // A freed index is not reused at once.
    HBRUSH next = CreateSolidBrush(0);
    EXPECT_GT(IndexOf(next), IndexOf(brush));
    DeleteObject(next);
}

// Past the last index the search goes on at 22, never at the stock indices.
TEST(GdiTable, SearchWrapsBehindTheStockIndices)
{
    vorlan::GtkCriticalSection lock;
    const unsigned saved = GdiObject::currentIndex;
    ASSERT_EQ(GdiObject::gdiTable[65535], nullptr);
    GdiObject::currentIndex = 65535;
    HPEN last = CreatePen(PS_SOLID, 1, 0);
    EXPECT_EQ(IndexOf(last), 65535u);
    EXPECT_EQ(GdiObject::currentIndex, 22u);
    HPEN wrapped = CreatePen(PS_SOLID, 1, 0);
    EXPECT_GE(IndexOf(wrapped), 22u);
    DeleteObject(last);
    DeleteObject(wrapped);
    GdiObject::currentIndex = saved;
}

TEST(GdiTable, StaleHandleNamesTheObjectThatReusedItsIndex)
{
    vorlan::GtkCriticalSection lock;
    const unsigned saved = GdiObject::currentIndex;
    HPEN old = CreatePen(PS_SOLID, 1, 0);
    DeleteObject(old);
    GdiObject::currentIndex = IndexOf(old);
    HPEN pen = CreatePen(PS_DASH, 3, 0);
    HBRUSH brush = CreateSolidBrush(0);
    EXPECT_EQ(pen, old);
    LOGPEN lp;
    EXPECT_EQ(GetObjectW(old, sizeof lp, &lp), static_cast<int>(sizeof lp));
    EXPECT_EQ(lp.lopnWidth.x, 3);
    DeleteObject(pen);
    // The same index under another tag: no object.
    GdiObject::currentIndex = IndexOf(old);
    HBRUSH reused = CreateSolidBrush(0);
    EXPECT_EQ(IndexOf(reused), IndexOf(old));
    EXPECT_EQ(GetObjectType(old), 0u);
    DeleteObject(reused);
    DeleteObject(brush);
    GdiObject::currentIndex = saved;
}

// Run in a fresh process, where no GDI object exists yet.
TEST(GdiTable, FirstObjectOfTheProcessHasIndexZero)
{
    if (std::getenv("VORLAN_TEST_FRESH_GDI_TABLE") != nullptr) {
        std::printf("first=%lx\n", static_cast<unsigned long>(Value(CreateSolidBrush(0))));
        return;
    }
    vorlan_test::ChildOptions options;
    options.path = "/proc/self/exe";
    options.argv = {"vorlan_tests", "--gtest_filter=GdiTable.FirstObjectOfTheProcessHasIndexZero"};
    options.environment["VORLAN_TEST_FRESH_GDI_TABLE"] = "1";
    const vorlan_test::ChildResult result = vorlan_test::RunChild(options);
    ASSERT_TRUE(result.exited) << result.Transcript();
    EXPECT_EQ(result.Value("first"), std::optional<std::string>("70020000")) << result.Transcript();
}

// The child fills every free slot; the next object stops the process.
TEST(GdiTable, FullTableStopsTheProcess)
{
    int outPipe[2];
    int errPipe[2];
    ASSERT_EQ(pipe(outPipe), 0);
    ASSERT_EQ(pipe(errPipe), 0);
    // Nothing buffered by the parent may reach the child's pipes.
    std::fflush(nullptr);
    const pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
        dup2(outPipe[1], STDOUT_FILENO);
        dup2(errPipe[1], STDERR_FILENO);
        for (unsigned i = 0; i <= vorlan::kGdiTableSize; ++i)
            vorlan::LogicalGdiObject::Create(OBJ_BRUSH);
        std::printf("table never filled\n");
        std::fflush(stdout);
        _exit(0);
    }
    close(outPipe[1]);
    close(errPipe[1]);
    const std::string out = ReadAll(outPipe[0]);
    const std::string err = ReadAll(errPipe[0]);
    int status = 0;
    waitpid(pid, &status, 0);
    // The message is the first line; GLib's assertion report follows.
    EXPECT_EQ(out.substr(0, out.find('\n') + 1), "vorlan fatal error: gdi table object table full\n") << out;
    EXPECT_NE(err.find("vorlan/gdi/vorlgdiobject:"), std::string::npos) << err;
    EXPECT_NE(err.find("vorlan::GdiObject::GdiObject(UINT)"), std::string::npos) << err;
    EXPECT_EQ(out.find("never"), std::string::npos);
    EXPECT_TRUE(WIFSIGNALED(status));
}

TEST(GdiTableDeathTest, PhysicalObjectOfADeadHandleIsFatal)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    HPEN pen = CreatePen(PS_SOLID, 1, 0);
    DeleteObject(pen);
    EXPECT_DEATH(GetPhysicalObject(pen, 0), "vorlan/gdi/vorlgdiobject:[0-9]+:.*pObj");
}

// Replacing a slot frees what it held; the object frees slot 0 when it dies.
TEST(GdiPhysicalSlots, ReplacedAndDyingValuesAreFreed)
{
    vorlan::GtkCriticalSection lock;
    g_freed.clear();
    HBITMAP bitmap = CreateBitmap(4, 4, 1, 1, nullptr);
    EXPECT_TRUE(SetPhysicalObject(bitmap, 0, 0x1234, RecordFree, 0));
    EXPECT_EQ(GetPhysicalObject(bitmap, 0), 0x1234u);
    EXPECT_EQ(GetGdkPixmap(bitmap), reinterpret_cast<GdkPixmap *>(0x1234));
    EXPECT_EQ(GetGdkRegion(bitmap), nullptr);
    EXPECT_TRUE(SetPhysicalObject(bitmap, 0, 0x5678, RecordFree, 0));
    EXPECT_TRUE(SetPhysicalObject(bitmap, 2, 3, nullptr, 0));
    EXPECT_FALSE(SetPhysicalObject(bitmap, 3, 3, nullptr, 0));
    EXPECT_EQ(GetPhysicalObject(bitmap, 2), 3u);
    HRGN region = CreateRectRgn(0, 0, 1, 1);
    EXPECT_NE(GetGdkRegion(region), nullptr);
    EXPECT_EQ(GetGdkPixmap(region), nullptr);
    DeleteObject(region);
    DeleteObject(bitmap);
    EXPECT_EQ(g_freed, (std::vector<DHANDLE>{0x1234, 0x5678}));
}
