// Host settings from environment variables.
#include <windows.h>

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace {

class Environment : public ::testing::Test {
protected:
    void TearDown() override { unsetenv(kName); }
    void Set(const char *value) { setenv(kName, value, 1); }
    static constexpr const char *kName = "VORLAN_TEST_SETTING";
};

} // namespace

TEST_F(Environment, LongParsesDecimalHexAndOctalAndIsZeroForMissingOrNonNumeric)
{
    const struct {
        const char *text;
        LONG value;
    } cases[] = {
        {"-17", -17}, {"0X10", 16}, {"010", 8}, {"  7 ", 7}, {"+5", 5},
        {"0xffffffff", -1}, {"-2147483648", (LONG)0x80000000u},
    };
    for (const auto &c : cases) {
        Set(c.text);
        EXPECT_EQ(OSGetEnvironmentLong(kName), c.value) << c.text;
    }
    unsetenv(kName);
    EXPECT_EQ(OSGetEnvironmentLong(kName), 0) << "missing";
    for (const char *text : {"", "abc", "12abc", "0x", "1.5", "0x100000000", "99999999999999999999", "-"}) {
        Set(text);
        EXPECT_EQ(OSGetEnvironmentLong(kName), 0) << text;
    }
    EXPECT_EQ(OSGetEnvironmentLong(nullptr), 0);
    EXPECT_EQ(OSGetEnvironmentLong(""), 0);
}

TEST_F(Environment, StringCopiesOrTruncatesWithinSizeAndReportsTheFullLength)
{
    Set("hello world");
    char buffer[16];
    std::memset(buffer, 'Z', sizeof buffer);
    EXPECT_EQ(OSGetEnvironmentString(kName, buffer, sizeof buffer), 11u);
    EXPECT_STREQ(buffer, "hello world");
    EXPECT_EQ(buffer[12], 'Z');
    std::memset(buffer, 'Z', sizeof buffer);
    EXPECT_EQ(OSGetEnvironmentString(kName, buffer, 6), 11u) << "result >= size reveals truncation";
    EXPECT_STREQ(buffer, "hello");
    for (size_t i = 6; i < sizeof buffer; ++i)
        EXPECT_EQ(buffer[i], 'Z') << i;
    EXPECT_EQ(OSGetEnvironmentString(kName, buffer, 1), 11u);
    EXPECT_EQ(buffer[0], '\0');
    EXPECT_EQ(buffer[1], 'e');
}

TEST_F(Environment, StringMissingOrNoBuffer)
{
    char buffer[8] = "xxxxxxx";
    EXPECT_EQ(OSGetEnvironmentString(kName, buffer, sizeof buffer), 0u);
    EXPECT_STREQ(buffer, "");
    Set("value");
    std::strcpy(buffer, "keep");
    EXPECT_EQ(OSGetEnvironmentString(kName, buffer, 0), 5u);
    EXPECT_STREQ(buffer, "keep");
    EXPECT_EQ(OSGetEnvironmentString(kName, nullptr, 100), 5u);
    EXPECT_EQ(OSGetEnvironmentString(nullptr, buffer, sizeof buffer), 0u);
    EXPECT_STREQ(buffer, "");
}
