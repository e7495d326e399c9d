// What applications link against in the shared library: the built-in class
// tables, the class names and the class calls, under their plain names.
#include <gtest/gtest.h>

#include <vorlan.h>

#include <dlfcn.h>

#include <string>

namespace {

std::u16string Wide(const WCHAR *text)
{
    std::u16string out;
    while (*text != 0)
        out += static_cast<char16_t>(*text++);
    return out;
}

} // namespace

// Applications link against the class tables and names by their plain
// names, so they must stay exported as such.
TEST(BuiltinClasses, TablesAndNamesAreExportedUnderTheirPlainNames)
{
    for (const char *symbol :
         {"g_staticClass", "g_buttonClass", "g_editClass", "g_listboxClass", "g_comboClass", "g_scrollBarClass",
          "g_menuClass", "wszButtonClass", "wszComboboxClass", "wszDialogClass", "wszEditClass", "wszListboxClass",
          "wszScrollbarClass", "wszStaticClass", "WindowClass_RegisterBuiltins", "WindowClass_FindClass"})
        EXPECT_NE(dlsym(RTLD_DEFAULT, symbol), nullptr) << symbol;
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "g_staticClass"), static_cast<const void *>(&g_staticClass));
    EXPECT_EQ(Wide(wszButtonClass), u"Button");
    EXPECT_EQ(Wide(wszDialogClass), u"#32770");
    EXPECT_EQ(Wide(wszStaticClass), u"Static");
}
