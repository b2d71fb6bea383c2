#include "ScratchDir.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <dlfcn.h>
#include <string>
#include <sys/wait.h>

namespace
{
int RunPostBuild(const std::string& arguments)
{
    std::string command = "'";
    command.append(OUTPOST_POSTBUILD).append("' ").append(arguments).append(" >/dev/null 2>&1");
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string Quote(const std::string& text)
{
    return "'" + text + "'";
}

constexpr const char* g_szPacked = "my game/Outpost.Gamdb00p";
constexpr const char* g_szManifest = "my game/Outpost.manifest";
} // namespace

TEST(OutpostServer, TellsBuildSevenUnderItsPlainName)
{
    void* const library = dlopen(OUTPOST_LIBRARY, RTLD_NOW);
    ASSERT_NE(library, nullptr) << dlerror();
    using BuildFunction = std::uint32_t (*)();
    const auto function = reinterpret_cast<BuildFunction>(dlsym(library, "GetBuildNumber"));
    ASSERT_NE(function, nullptr);
    EXPECT_EQ(function(), 7U);
    dlclose(library);
}

TEST(OutpostPostBuild, DescribesThePackedFileByItsBytesAlone)
{
    const CScratchDir scratch;
    // The nine digits are the CRC's published check value.
    scratch.WriteBytes(g_szPacked, "123456789");
    const std::string directory = Quote((scratch.GetPath() / "my game").string());
    EXPECT_EQ(RunPostBuild(directory + " --silent 1"), 0);
    EXPECT_EQ(scratch.ReadBytes(g_szManifest), "Manifest=1\nFile=Outpost.Gamdb00p\nSize=9\nCrc32=cbf43926\n");

    // Longer than one block of the reader, with every byte value.
    std::string large;
    for (int i = 0; i < 200000; ++i)
        large.push_back(static_cast<char>(i % 256));
    scratch.WriteBytes(g_szPacked, large);
    EXPECT_EQ(RunPostBuild(directory + " --silent 0"), 0);
    EXPECT_EQ(scratch.ReadBytes(g_szManifest),
              "Manifest=1\nFile=Outpost.Gamdb00p\nSize=200000\nCrc32=2032eaa1\n");
    EXPECT_FALSE(scratch.Exists("my game/Outpost.manifest.tmp"));
}

TEST(OutpostPostBuild, TakesEitherSeparator)
{
    const CScratchDir scratch;
    scratch.WriteBytes(g_szPacked, "x");
    EXPECT_EQ(RunPostBuild(Quote(scratch.GetPath().string() + "\\my game") + " --silent 1"), 0);
    EXPECT_TRUE(scratch.Exists(g_szManifest));
}

TEST(OutpostPostBuild, NothingPackedIsNoFailure)
{
    const CScratchDir scratch;
    scratch.WriteBytes("my game/README.md", "x");
    EXPECT_EQ(RunPostBuild(Quote((scratch.GetPath() / "my game").string()) + " --silent 1"), 0);
    EXPECT_FALSE(scratch.Exists(g_szManifest));
    EXPECT_EQ(RunPostBuild(Quote((scratch.GetPath() / "none").string()) + " --silent 1"), 0);
}

TEST(OutpostPostBuild, AManifestThatCannotBeReplacedIsAFailure)
{
    const CScratchDir scratch;
    scratch.WriteBytes(g_szPacked, "x");
    scratch.WriteBytes("my game/Outpost.manifest/in the way", "x");
    EXPECT_EQ(RunPostBuild(Quote((scratch.GetPath() / "my game").string()) + " --silent 1"), 1);
    EXPECT_FALSE(scratch.Exists("my game/Outpost.manifest.tmp"));
}

TEST(OutpostPostBuild, AnUnreadablePackedFileIsAFailure)
{
    const CScratchDir scratch;
    scratch.WriteBytes("my game/Outpost.Gamdb00p/a directory", "x");
    EXPECT_EQ(RunPostBuild(Quote((scratch.GetPath() / "my game").string()) + " --silent 1"), 1);
    EXPECT_FALSE(scratch.Exists(g_szManifest));
}

TEST(OutpostPostBuild, WrongArgumentsTellTheUsage)
{
    for (const char* arguments :
         {"", "''", "--silent 1", "dir --silent", "dir --silent 2", "dir --loud 1", "a b"})
        EXPECT_EQ(RunPostBuild(arguments), 2) << arguments;
}
