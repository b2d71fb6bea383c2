// Conversion in memory, what people see of a node text, and the built program over files.
#include "Conversion.h"
#include "NodeView.h"
#include "ScratchDir.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

namespace fs = std::filesystem;

namespace
{
std::string ReadBytes(const fs::path& path)
{
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

const ConversionProgress kUnwatched = [](std::size_t) {};

CFileError ExpandText(const std::string& text, std::string& out)
{
    return Expand(std::as_bytes(std::span(text)), out, kUnwatched);
}

bool RoundTrips(const std::string& text)
{
    std::string compressed;
    std::string expanded;
    return Compress(std::as_bytes(std::span(text)), compressed, kUnwatched).IsOk() &&
           ExpandText(compressed, expanded).IsOk() && expanded == text;
}

std::string Show(std::string_view text)
{
    std::string shown;
    const auto take = [&shown](std::string_view piece) { return shown += piece, true; };
    EXPECT_TRUE(CNodeView(take).Show(text));
    return shown;
}
} // namespace

TEST(Conversion, EveryInputComesBack)
{
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(OUTPOST_DIRECTORY))
        EXPECT_TRUE(!entry.is_regular_file() || RoundTrips(ReadBytes(entry.path()))) << entry.path();
    std::mt19937 random(20260101);
    const auto below = [&random](unsigned limit) { return static_cast<unsigned>(random() % limit); };
    for (int i = 0; i < 10'000; ++i)
    {
        // Few different letters make repeats, one makes a run.
        const unsigned letters = 1U << below(9);
        std::string text(i % 1000 == 0 ? 20'000 : below(400), ' ');
        for (char& letter : text)
            letter = static_cast<char>(below(letters));
        ASSERT_TRUE(RoundTrips(text)) << i;
        // A reader must end and stay within its bounds, whatever follows the header.
        std::string expanded;
        ASSERT_TRUE(ExpandText(std::string(4, '\0') + text, expanded).IsOk());
        ASSERT_LE(expanded.size(), text.size() * 9);
    }
}

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

    constexpr std::size_t kDepth = 100'000;
    const std::string shown = Show(std::string(kDepth, '(') + std::string(kDepth, ')'));
    EXPECT_EQ(std::count(shown.begin(), shown.end(), '('), kDepth);
    EXPECT_TRUE(shown.ends_with("\n  )\n)\n"));
    int pieces = 0;
    EXPECT_FALSE(CNodeView([&](std::string_view) { return ++pieces < 3; }).Show(std::string(kDepth, '(')));
    EXPECT_EQ(pieces, 3) << "a sink that takes no more is left alone";
}

// Each script of the golden folder, run in an empty directory with zrc on the path, must tell what lies
// beside it.
TEST(Zrc, ScriptsTellWhatTheyMust)
{
    int cases = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(GOLDEN_DIRECTORY))
    {
        if (entry.path().extension() != ".sh")
            continue;
        const CScratchDir scratch;
        const CScratchDir result;
        const std::string told = result.GetPath() / "told";
        const std::string command = "cd '" + scratch.GetPath().string() +
                                    "' && export LC_ALL=C TERM=dumb PATH='" +
                                    fs::path(ZRC_PROGRAM).parent_path().string() + "':$PATH && sh '" +
                                    entry.path().string() + "' >'" + told + "' 2>&1 </dev/null";
        EXPECT_EQ(std::system(command.c_str()), 0) << entry.path();
        EXPECT_EQ(ReadBytes(told), ReadBytes(fs::path(entry.path()).replace_extension(".out")))
            << entry.path();
        ++cases;
    }
    EXPECT_EQ(cases, 4);
}
