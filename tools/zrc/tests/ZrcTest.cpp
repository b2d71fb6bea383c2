// Conversion in memory, and the built program over files.
#include "Conversion.h"
#include "ScratchDir.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>
#include <sys/wait.h>

namespace fs = std::filesystem;

namespace
{
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

// "~" in commands and in what they tell stands for the scratch directory, in which they run.
class CZrc : public ::testing::Test
{
protected:
    static std::string Replace(std::string text, const std::string& old, const std::string& by)
    {
        for (std::size_t at = text.find(old); at != std::string::npos; at = text.find(old, at + by.size()))
            text.replace(at, old.size(), by);
        return text;
    }
    // What the shell's `command` told on both streams, and its status. "zrc" is the program.
    std::string Run(const std::string& command) const
    {
        const std::string whole = "cd ~ && export TERM=dumb && zrc() { '" ZRC_PROGRAM "' \"$@\"; }; (" +
                                  command + ") >~/told 2>&1 </dev/null";
        const int status = std::system(Replace(whole, "~", m_Scratch.GetPath()).c_str());
        const std::string told = Replace(m_Scratch.ReadBytes("told"), m_Scratch.GetPath(), "~");
        fs::remove(m_Scratch.GetPath() / "told");
        return told + std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : -1);
    }
    std::string Files() const
    {
        std::vector<std::string> names;
        for (const fs::directory_entry& entry : fs::directory_iterator(m_Scratch.GetPath()))
            names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        std::string text;
        for (const std::string& name : names)
            text += name + ' ';
        return text;
    }

    CScratchDir m_Scratch;
};
} // namespace

TEST(Conversion, EveryInputComesBack)
{
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(OUTPOST_DIRECTORY))
    {
        if (!entry.is_regular_file())
            continue;
        std::ostringstream text;
        text << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        EXPECT_TRUE(RoundTrips(text.str())) << entry.path();
    }
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
    std::string expanded;
    for (const std::string& wrong : {std::string(), std::string(3, '\0'), std::string("\0\0\0\1abc", 7)})
        EXPECT_EQ(ExpandText(wrong, expanded).m_Code, EFileError::InvalidData);
}

TEST_F(CZrc, FilesAreConvertedAndKept)
{
    const std::string text = "\n(a \"x\" \n\t(b 1 )\n)\n";
    m_Scratch.WriteBytes("one.Da", text);
    m_Scratch.WriteBytes("odd '\x1b\".A", text + text);
    m_Scratch.WriteBytes("other", "");
    EXPECT_EQ(Run("zrc compress one.Da missing.a 'other' . odd*"),
              "zrc: The file 'missing.a' could not be read: no such file or directory.\n"
              "zrc: The name 'other' does not end in 'a': name the target with '-o'.\n"
              "zrc: The name '.' does not end in 'a': name the target with '-o'.\n1");
    EXPECT_EQ(Files(), "odd '\x1b\".A odd '\x1b\".C one.Da one.Dc other ");
    EXPECT_EQ(m_Scratch.ReadBytes("one.Dc").substr(0, 4), std::string(4, '\0'));
    EXPECT_EQ(Run("zrc expand one.Dc odd*.C"),
              "zrc: The file 'one.Da' is already there; '--force' replaces it.\n"
              "zrc: The file 'odd '\\x1b\".A' is already there; '--force' replaces it.\n1");
    m_Scratch.WriteBytes("one.Da", "lost");
    EXPECT_EQ(Run("zrc expand one.Dc --force && zrc expand odd*.C -o back && cat one.Da back"),
              text + text + text + "0");
    EXPECT_EQ(Run("zrc compress - < one.Da | tee piped | zrc expand - && cmp piped one.Dc"), text + "0");
    EXPECT_EQ(Run("zrc expand other one.Da -- -x.c; zrc compress back -o back --force; ln -s one.Da l.c; "
                  "zrc compress one.Da --force -o l.c; zrc expand -o . one.Dc; zrc expand -o ./x/y one.Dc"),
              "zrc: The name 'other' does not end in 'c': name the target with '-o'.\n"
              "zrc: The name 'one.Da' does not end in 'c': name the target with '-o'.\n"
              "zrc: The file '-x.c' could not be read: no such file or directory.\n"
              "zrc: The file 'back' cannot be its own target.\n"
              "zrc: The file 'one.Da' cannot be its own target.\n"
              "zrc: The file '.' is already there; '--force' replaces it.\n"
              "zrc: The file './x/y' could not be written: no such file or directory.\n1");
    EXPECT_EQ(Run("zrc expand -o x one.Da; zrc expand --force -o . one.Dc; zrc compress .  -o x"),
              "zrc: The file 'one.Da' is not a compressed file.\n"
              "zrc: The file '.' could not be written: not a file of the wanted kind.\n"
              "zrc: The file '.' could not be read: not a file of the wanted kind.\n1");
    EXPECT_EQ(Files(), "back l.c odd '\x1b\".A odd '\x1b\".C one.Da one.Dc other piped ");
}

TEST_F(CZrc, AFullDiskLeavesTheOldFile)
{
    m_Scratch.WriteBytes("big.a", std::string(5000, 'x') + "\n");
    m_Scratch.WriteBytes("big.c", "old");
    ASSERT_EQ(Run("zrc compress big.a -o good.c"), "0");
    EXPECT_EQ(Run("ulimit -f 1; zrc expand good.c --force -o big.c; zrc expand good.c -o - >/dev/full; "
                  "zrc view good.c >/dev/full"),
              "zrc: The file 'big.c' could not be written: no space left on the disk.\n"
              "zrc: The file '-' could not be written: no space left on the disk.\n"
              "zrc: The output could not be written: no space left on the disk.\n1");
    EXPECT_EQ(Files(), "big.a big.c good.c ");
    EXPECT_EQ(m_Scratch.ReadBytes("big.c"), "old");
}

TEST_F(CZrc, AViewGoesThroughThePagerOfATerminal)
{
    m_Scratch.WriteBytes("one.a", "\n(a \"\x1b\" \n\t(b 1 )\n)\n");
    const std::string shown = "(a \"\\x1b\"\n  (b 1)\n)\n";
    EXPECT_EQ(Run("zrc compress one.a -o odd.a && zrc view odd.a && zrc view - <one.a"), shown + shown + "0");
    std::string lists;
    for (int i = 0; i < 50'000; ++i)
        lists += "(a )";
    m_Scratch.WriteBytes("long", lists);
    EXPECT_EQ(Run("(zrc view long; echo $? >&2) | head -n1"), "(a)\n0\n0");
    const auto onTerminal = [&](const std::string& environment, const std::string& file)
    {
        const std::string view = environment + " '" ZRC_PROGRAM "' view " + file;
        return Replace(Run("timeout 20 script -qec \"" + view + "\" /dev/null"), "\r", "");
    };
    EXPECT_EQ(onTerminal("PAGER='sed s/^/>/'", "one.a"), ">(a \"\\x1b\"\n>  (b 1)\n>)\n0");
    EXPECT_EQ(onTerminal("PAGER='head -n1'", "long"), "(a)\n0");
    EXPECT_EQ(onTerminal("PAGER=no-such-pager", "one.a"), shown + "0");
    EXPECT_EQ(onTerminal("PAGER= PATH=/no-such-directory", "one.a"), shown + "0");
}

TEST_F(CZrc, WrongUsageHasAStatusOfItsOwn)
{
    const std::string usage = "Usage: zrc COMMAND [ARGUMENTS]\n2";
    const std::string compress = "Usage: zrc compress FILE... [-o FILE] [--force]\n2";
    const std::string view = "Usage: zrc view FILE\n2";
    const std::pair<std::string, std::string> cases[] = {
        {"", "zrc: There is no command.\n" + usage},
        {"pack x", "zrc: There is no command 'pack'.\n" + usage},
        {"compress", "zrc: There is no file.\n" + compress},
        {"compress a b -o c", "zrc: The option '-o' names the target of one file.\n" + compress},
        {"compress a -o ''", "zrc: The option '-o' needs a file.\n" + compress},
        {"compress a -o", "zrc: The option '-o' needs a value.\n" + compress},
        {"compress a --fast", "zrc: There is no option '--fast'.\n" + compress},
        {"view a b", "zrc: One file can be viewed at a time.\n" + view},
        {"view a --force", "zrc: A view has no target.\n" + view},
    };
    for (const auto& [arguments, told] : cases)
        EXPECT_EQ(Run("zrc " + arguments), told);
    for (const char* command : {"--help", "compress --help", "expand --help", "view --help"})
        EXPECT_EQ(Run(std::string("zrc ") + command).substr(0, 11), "Usage: zrc ");
    EXPECT_EQ(Run("zrc --version | grep -c '^zrc [0-9.]*$'"), "1\n0");
}
