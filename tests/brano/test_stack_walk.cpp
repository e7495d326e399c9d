// Stack walking and frame formatting.  The test binary is linked with
// -rdynamic, so dladdr can name its exported functions.
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#define EXPORTED_NOINLINE extern "C" __attribute__((noinline, visibility("default")))

namespace {

struct Walk {
    std::vector<OSSTACKFRAME> frames;
    size_t stopAfter = SIZE_MAX;
};

int CollectFrames(void *context, const OSSTACKFRAME *frame)
{
    Walk *walk = static_cast<Walk *>(context);
    walk->frames.push_back(*frame);
    return walk->frames.size() >= walk->stopAfter ? 1 : 0;
}

std::string Format(const OSSTACKFRAME &frame, DWORD flags = 1)
{
    char text[512];
    OSFormatStackFrame(text, flags, &frame, sizeof text);
    return text;
}

thread_local Walk *t_walk;
thread_local int t_skip;
thread_local int t_visited;

} // namespace

EXPORTED_NOINLINE void StackWalkTestInnermost()
{
    t_visited = OSWalkStack(t_skip, CollectFrames, t_walk);
    __asm__ volatile("" ::: "memory");  // keeps the call from being a tail call
}

EXPORTED_NOINLINE void StackWalkTestMiddle()
{
    StackWalkTestInnermost();
    __asm__ volatile("" ::: "memory");
}

EXPORTED_NOINLINE void StackWalkTestOutermost()
{
    StackWalkTestMiddle();
    __asm__ volatile("" ::: "memory");
}

namespace {

Walk WalkFromTestChain(int skip)
{
    Walk walk;
    t_walk = &walk;
    t_skip = skip;
    StackWalkTestOutermost();
    return walk;
}

} // namespace

TEST(StackWalk, KnownCallChainAppearsInOrderSkipDropsInnerFramesAndTheCallbackCanStop)
{
    Walk walk = WalkFromTestChain(0);
    ASSERT_GE(walk.frames.size(), 4u);
    EXPECT_EQ(t_visited, static_cast<int>(walk.frames.size()));
    const char *expected[] = {"StackWalkTestInnermost", "StackWalkTestMiddle", "StackWalkTestOutermost"};
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(walk.frames[i].index, i);
        const std::string text = Format(walk.frames[i]);
        EXPECT_NE(text.find(std::string("(") + expected[i] + "+0x"), std::string::npos) << text;
        EXPECT_NE(text.find(" in brano_tests "), std::string::npos) << text;
        EXPECT_EQ(text.rfind("#" + std::to_string(i) + " 0x", 0), 0u) << text;
    }

    Walk skipped = WalkFromTestChain(2);
    ASSERT_GE(skipped.frames.size(), 1u);
    EXPECT_EQ(skipped.frames.size() + 2, walk.frames.size());
    EXPECT_NE(Format(skipped.frames[0]).find("StackWalkTestOutermost"), std::string::npos);
    EXPECT_EQ(skipped.frames[0].index, 0u);
    Walk none = WalkFromTestChain(100000);
    EXPECT_TRUE(none.frames.empty());
    EXPECT_EQ(t_visited, 0);
    Walk stopped;
    stopped.stopAfter = 2;
    EXPECT_EQ(OSWalkStack(0, CollectFrames, &stopped), 2) << "the callback stops the walk";
    EXPECT_EQ(stopped.frames.size(), 2u);
}

TEST(StackWalk, NullCallbackPrintsFrames)
{
    testing::internal::CaptureStdout();
    const int visited = OSWalkStack(0, nullptr, nullptr);
    const std::string output = testing::internal::GetCapturedStdout();
    EXPECT_GT(visited, 0);
    EXPECT_EQ(output.rfind("#0 0x", 0), 0u) << output;
    size_t lines = 0;
    for (char c : output)
        lines += c == '\n';
    EXPECT_EQ(lines, static_cast<size_t>(visited));
    EXPECT_NE(output.find("(main+0x"), std::string::npos) << output;
}

TEST(StackFrameFormat, SymbolsOnlyWithTheFlagAndForKnownAddresses)
{
    EXPECT_EQ(Format({reinterpret_cast<void *>(0x1234abcd), nullptr, 7}, 0), "#7 0x1234abcd");
    EXPECT_EQ(Format({reinterpret_cast<void *>(0x10), nullptr, 1}), "#1 0x10") << "no module";
    const std::string text = Format({reinterpret_cast<void *>(&StackWalkTestMiddle), nullptr, 0});
    EXPECT_NE(text.find("(StackWalkTestMiddle+0x0)"), std::string::npos) << text;
}

TEST(StackFrameFormat, TruncatesAndTerminates)
{
    OSSTACKFRAME frame = {reinterpret_cast<void *>(&StackWalkTestMiddle), nullptr, 3};
    const std::string full = Format(frame);
    ASSERT_GT(full.size(), 10u);
    char buffer[16];
    std::memset(buffer, 'Q', sizeof buffer);
    EXPECT_EQ(OSFormatStackFrame(buffer, 1, &frame, 8), 7);
    EXPECT_EQ(std::string(buffer), full.substr(0, 7));
    for (size_t i = 8; i < sizeof buffer; ++i)
        EXPECT_EQ(buffer[i], 'Q') << i;
    EXPECT_EQ(OSFormatStackFrame(buffer, 1, &frame, 1), 0);
    EXPECT_EQ(buffer[0], '\0');
    buffer[0] = 'Q';
    EXPECT_EQ(OSFormatStackFrame(buffer, 1, &frame, 0), 0);
    EXPECT_EQ(buffer[0], 'Q');
    EXPECT_EQ(OSFormatStackFrame(nullptr, 1, &frame, 100), 0);
    EXPECT_EQ(OSFormatStackFrame(buffer, 1, nullptr, sizeof buffer), 0);
    EXPECT_EQ(buffer[0], '\0');
}
