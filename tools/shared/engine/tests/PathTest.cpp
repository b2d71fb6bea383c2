#include "Path.h"
#include "Unicode.h"

#include <gtest/gtest.h>

#include <array>

TEST(Path, Parts)
{
    const SPathParts parts = SplitPath(u"C:\\a.b/c\\name.tar.gz");
    const std::u16string_view bar = u"|";
    std::u16string text;
    for (const std::u16string_view part : {parts.drive, parts.directory, parts.name, parts.extension})
        text.append(part).append(bar);
    EXPECT_EQ(text, u"C:|\\a.b/c\\|name.tar|.gz|");
    EXPECT_EQ(WithExtension(u"a.b/name", u"dep") + WithExtension(u"a.b/name.x", u"dep"),
              u"a.b/name.depa.b/name.dep");
    EXPECT_EQ(GetExtensionPart(u"a.b/name").size() + GetDirectoryPart(u"name").size(), 0U);
    EXPECT_EQ(GetFileNamePart(u"a\\b/c"), u"c");
    EXPECT_EQ(WithoutLastSeparator(u"a\\/"), u"a");
}

TEST(Path, Absolute)
{
    for (const std::u16string_view path : {u"/a", u"\\a", u"C:\\a", u"C:a", u"D:", u"ab:/c"})
        EXPECT_TRUE(IsAbsolutePath(path)) << ToNarrow(path);
    for (const std::u16string_view path : {u"", u"a", u"a/b:c", u"..\\a", u"."})
        EXPECT_FALSE(IsAbsolutePath(path)) << ToNarrow(path);
}

using CPathRow = std::array<std::u16string_view, 3>; // Base, value, result.

TEST(Path, CanonicalForm)
{
    const CPathRow rows[] = {
        {u"C:\\p\\", u"..\\Game\\x.rec", u"C:\\Game\\x.rec"},
        {u"/p/q", u"./a/../b/x.rec", u"/p/q/b/x.rec"},
        {u"/p/q", u"../../../x", u"/x"},
        {u"/a/b/c/d", u"../../x", u"/a/b/x"},
        {u"/p", u"a\\b/x", u"\\p\\a\\b\\x"}, // One '\' anywhere decides the separator.
        {u"p", u"x", u"/p/x"},
        {u"/p", u"/abs/x", u"/p/abs/x"},
        {u"/p//q", u"x", u"/p/q/x"},
        {u"/p", u"..", u"/p/.."}, // The last element is a file name.
        {u"", u"", u"/"},
    };
    for (const auto& [base, value, expected] : rows)
    {
        const std::u16string result = JoinCanonical(base, value);
        EXPECT_EQ(result, expected) << ToNarrow(base) << " + " << ToNarrow(value);
        EXPECT_EQ(CanonicalPath(result), expected);
    }
}

TEST(Path, Resolve)
{
    const CPathRow rows[] = {
        {u"C:\\p\\", u"..\\Game", u"C:\\Game"},
        {u"C:\\p\\", u"D:\\lib\\..\\db.dll", u"D:\\lib\\..\\db.dll"},
        {u"C:\\p\\", u"", u"C:\\p\\"},
        {u"C:\\p\\", u"..", u"C:\\"},
        {u"/p/q/", u"../r/./x", u"/p/r/x"},
        {u"/p/q/", u"..\\r/x", u"/p/r/x"},
        {u"/p/q/", u"../../../x", u"/x"},
        {u"p", u"a/b/..", u"p/a"},
        {u"p", u"../a", u"a"},
    };
    for (const auto& [base, value, result] : rows)
        EXPECT_EQ(ResolvePath(base, value), result) << ToNarrow(base) << " + " << ToNarrow(value);
}

TEST(Path, FileBaseNames)
{
    const std::pair<std::u16string, std::u16string> rows[] = {{u"", u"_"},
                                                              {u"..", u"_"},
                                                              {u"a/b\\c", u"a_b_c"},
                                                              {u"a\tb", u"a_b"},
                                                              {u"Länge (2).x", u"Länge (2).x"},
                                                              {{u'a', char16_t{0xD800}}, u"a_"}};
    for (const auto& [name, safe] : rows)
        EXPECT_EQ(MakeFileBaseName(name), safe);
    const std::size_t length = ToNarrow(MakeFileBaseName(std::u16string(300, u'ä'))).size();
    EXPECT_TRUE(length > 180 && length <= 200) << length;
}
