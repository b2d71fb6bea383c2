// What people see of a node text, whatever its bytes are.
#include "NodeView.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{
std::string Show(std::string_view text)
{
    std::string shown;
    const auto take = [&shown](std::string_view piece) { return shown += piece, true; };
    EXPECT_TRUE(CNodeView(take).Show(text));
    return shown;
}
} // namespace

TEST(NodeView, ShowsAnyBytes)
{
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {" \n\t", ""},
        {"\n(a \"x\" \n\t(b 1 )\n\t(c 2 )\n)\n", "(a \"x\"\n  (b 1)\n  (c 2)\n)\n"},
        {"(a(b)c d(e))f", "(a\n  (b)\n  c d\n  (e)\n)\nf\n"},
        {"()(())", "()\n(\n  ()\n)\n"},
        {")a))(", ")\na\n)\n)\n(\n"},
        {"(a \"one \"two three\" \"say \"x\"\")", "(a \"one \"two three\" \"say \"x\"\")\n"},
        {"(\"open (a)\n ", "(\"open (a)\\n \n"},
        {std::string("a\x1b[2J\x7f\0b \"\xc2\x9b\r\t\" \xff", 17),
         "a\\x1b[2J\\x7f\\x00b \"\\x9b\\r\\t\" \xef\xbf\xbd\n"},
    };
    for (const auto& [text, shown] : cases)
        EXPECT_EQ(Show(text), shown) << text;
}

TEST(NodeView, DepthAndLengthHaveNoLimitAndASinkMayStop)
{
    constexpr std::size_t kDepth = 100'000;
    const std::string shown = Show(std::string(kDepth, '(') + std::string(kDepth, ')'));
    EXPECT_EQ(std::count(shown.begin(), shown.end(), '('), kDepth);
    EXPECT_TRUE(shown.ends_with("\n  )\n)\n"));
    std::string longAtom = "\"";
    for (int i = 0; i < 50'000; ++i)
        longAtom += "\xe2\x82\xac\xc3\xa4";
    EXPECT_EQ(Show(longAtom), longAtom + '\n');
    int pieces = 0;
    EXPECT_FALSE(
        CNodeView([&pieces](std::string_view) { return ++pieces < 3; }).Show(std::string(kDepth, '(')));
    EXPECT_EQ(pieces, 3);
}
