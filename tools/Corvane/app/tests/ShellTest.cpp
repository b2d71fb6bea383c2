// The program from end to end: real trees, real child processes, their output and their status.
#include "ScratchDir.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sys/wait.h>

namespace
{
namespace fs = std::filesystem;

const std::string kPacked = "p/Db/Packed.Gamdb00p";
const std::string kRoot = "p/Db/Root.Gamdb00s";
constexpr const char* kProfile = "config/Harrowgate Works/ZORN/Corvane.ini";

// A project in the scratch directory and a copy of the program that has no modules beside it. "~" stands for
// that directory in commands and in what they print.
class CShellTest : public ::testing::Test
{
protected:
    CShellTest()
    {
        fs::create_directories(m_Scratch.GetPath() / "bin");
        fs::copy_file(CORVANE_PROGRAM, m_Scratch.GetPath() / "bin/corvane");
        WriteLocator(CREATOR_LIBRARY);
        m_Scratch.WriteUtf16(kRoot, u"[General]\r\nName=Shell\r\nBuild=Packed.Gamdb00p\r\n"
                                    u"Database={7C1D5B0E-3A94-4E27-9D5F-64B8A2F0C9AA}\r\n");
        m_Scratch.WriteUtf16("p/Db/Thing.schema",
                             u"[Schema]\r\nName=Thing\r\n[Attrib.Count.0]\r\nType=Integer\r\n"
                             u"Data=min=0;max=10\r\n[Attrib.Later.10]\r\nType=Integer\r\n");
        m_Scratch.WriteUtf16("p/Db/Things/cvd.category", u"[Category]\r\nSchema=Thing\r\nSystem=True\r\n");
        WriteCount(u"3");
    }
    void WriteLocator(const std::string& creator) const
    {
        m_Scratch.WriteBytes("p/x.proj00", "[Project Binaries]\nGameDatabase=" + creator + "\n");
    }
    // The value of the one record's one attribute, whose range is 0 to 10.
    void WriteCount(std::u16string_view value) const
    {
        m_Scratch.WriteUtf16("p/Db/Things/One.record",
                             u"[Record]\r\nSchema=Thing\r\nName=One\r\n[Attrib.Count]\r\nValue.0000=" +
                                 std::u16string(value) + u"\r\n");
    }

    // The status and the output of a run; one that hangs ends with a signal.
    std::string Run(const std::string& arguments, const std::string& timeout = "20") const
    {
        const std::string command =
            "cd ~ && env -u DISPLAY -u WAYLAND_DISPLAY XDG_CONFIG_HOME=~/config XDG_STATE_HOME=~/state "
            "timeout --preserve-status " +
            timeout + " bin/corvane " + arguments + " </dev/null >~/output.txt 2>&1";
        const int status = std::system(Replace(command, "~", m_Scratch.GetPath()).c_str());
        return std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : -1) + ' ' +
               Replace(m_Scratch.ReadBytes("output.txt"), m_Scratch.GetPath(), "~");
    }
    static std::string Replace(std::string text, const std::string& old, const std::string& by)
    {
        for (std::size_t at = text.find(old); at != std::string::npos; at = text.find(old, at + by.size()))
            text.replace(at, old.size(), by);
        return text;
    }
    // What a successful pack writes.
    std::string Pack(const std::string& arguments) const
    {
        fs::remove(m_Scratch.GetPath() / kPacked);
        EXPECT_EQ(Run(arguments), "0 ");
        return m_Scratch.ReadBytes(kPacked);
    }

    CScratchDir m_Scratch;
};
} // namespace

TEST_F(CShellTest, APackSaysNothingAndWritesWhatIsInForce)
{
    const std::string first = Pack("-Pack " + kRoot);
    EXPECT_NE(first.find("Count"), std::string::npos);
    for (const char* arguments :
         {"-Silent -Pack ~/p/Db/Root.Gamdb00s", "p/Db/Root.Gamdb00s /PACK",
          "-unknown -pACK 'p/Db\\root.gamdb00s'", "-Window 0x00 -Pack p/Db/Root.Gamdb00s",
          "-UpdateDependency p -Pack p/Db/Root.Gamdb00s"})
        EXPECT_EQ(Pack(arguments), first) << arguments;
    EXPECT_EQ(Run("-Output a.bin -Pack " + kRoot), "0 ");
    EXPECT_EQ(m_Scratch.ReadBytes("a.bin"), first);
    EXPECT_FALSE(m_Scratch.Exists("bin/corvane_Assert00.log"));
    for (const auto& [build, later] : {std::pair("9", false), {"10", true}, {"abc", false}, {"' 12x'", true}})
        EXPECT_EQ(Pack(std::string("-BuildNumber ") + build + " -Pack " + kRoot).find("Later") !=
                      std::string::npos,
                  later)
            << build;
}

// Each way to fail, with its words; without a console there are none. The old output still stands.
TEST_F(CShellTest, AFailedPackTellsWhyAndTouchesNothing)
{
    const auto expectFailure = [&](const std::string& arguments, const std::string& told)
    {
        m_Scratch.WriteBytes(kPacked, "old");
        EXPECT_EQ(Run(arguments), "5 " + told) << arguments;
        EXPECT_EQ(Run("-Silent " + arguments), "5 ") << arguments;
        EXPECT_EQ(m_Scratch.ReadBytes(kPacked), "old") << arguments;
    };
    const std::string failed =
        "Packing Failed: The pack switch was detected on the command line but there is no valid document to "
        "pack.  The document either failed to load or was not specified at the command line.\n";
    const auto missing = [](const std::string& path)
    { return "Open Failed: The file '" + path + "' could not be opened: no such file or directory.\n"; };
    const std::string invalid = "Invalid Game Database Root File: The following file is not a valid game "
                                "database root file (*.Gamdb00s) or the file may be corrupt\n\n~/" +
                                kRoot + '\n' + failed;
    const std::string homeless =
        "Project Error: Failed to locate the locator file (*.proj00) for the following project.  The project "
        "could not be loaded.\n\n~/" +
        kRoot + '\n' + failed;
    expectFailure("-Pack", failed);
    expectFailure("-Pack None.Gamdb00s", missing("~/None.Gamdb00s"));
    // The output is filled, so that the second is the root.
    expectFailure("-Output a -Pack b.Gamdb00s", missing("~/b.Gamdb00s"));
    WriteLocator("none.dll");
    expectFailure("-Pack " + kRoot, "Error: Failed to locate the Game Database library.\n");
    m_Scratch.WriteBytes(kRoot, "[General]\r\nName=x\r\n");
    expectFailure("-Pack " + kRoot, invalid);
    m_Scratch.WriteUtf16(kRoot, u"[General]\r\nName=x\r\n");
    expectFailure("-Pack " + kRoot, invalid);
    fs::remove(m_Scratch.GetPath() / "p/x.proj00");
    expectFailure("-Pack " + kRoot, homeless);
}

TEST_F(CShellTest, CriticalFindingsGiveOneWhenSilentAndStopOtherwise)
{
    WriteCount(u"99");
    EXPECT_EQ(Run("-Silent -Pack -Log findings.txt " + kRoot), "1 ");
    EXPECT_NE(m_Scratch.ReadUtf16("findings.txt").find(u"Things/One"), std::u16string::npos);
    fs::remove(m_Scratch.GetPath() / kPacked);
    EXPECT_NE(Run("-Pack " + kRoot).find("\nContinue Build?: "), std::string::npos);
    EXPECT_FALSE(m_Scratch.Exists(kPacked));
}

TEST_F(CShellTest, TheProfileIsWrittenAndAFailureKeepsTheRecentFiles)
{
    Pack("-Silent -Pack " + kRoot);
    const std::u16string good = m_Scratch.ReadUtf16(kProfile);
    EXPECT_EQ(good, u"[General]\r\nBasePath=" + m_Scratch.Text("p/") +
                        u"\r\nOpenLast=1\r\nExpand=1\r\n\r\n[Recent File List]\r\nFile1=" +
                        m_Scratch.Text(kRoot) + u"\r\n\r\n");
    // A second root that loads and cannot be packed.
    fs::copy_file(m_Scratch.GetPath() / kRoot, m_Scratch.GetPath() / "p/Db/Other.Gamdb00s");
    WriteLocator("none.dll");
    EXPECT_EQ(Run("-Silent -Pack p/Db/Other.Gamdb00s"), "5 ");
    EXPECT_EQ(m_Scratch.ReadUtf16(kProfile), good);
}

TEST_F(CShellTest, MessagesOfTheOtherRuns)
{
    EXPECT_EQ(Run("-Window 12 -Pack " + kRoot),
              "0 Cannot Find Window: The window handle '12' was specified at the command line but the window "
              "could not be found.\n");
    const std::string noWindows = Run("--help");
    EXPECT_EQ(noWindows.find("5 Corvane: The user interface could not be started: "), 0U) << noWindows;
    EXPECT_NE(noWindows.find("-BuildNumber"), std::string::npos) << noWindows;
}

TEST_F(CShellTest, TheDependencyRunGoesOnAndNamesWhatFails)
{
    m_Scratch.WriteBytes("p/Db/Bad.Gamdb00s", "x");
    m_Scratch.WriteBytes("p/Db/Bad.Gamdb00dc", "old");
    fs::create_directories(m_Scratch.GetPath() / "p/Db/Full/Other.Gamdb00dc");
    fs::copy_file(m_Scratch.GetPath() / kRoot, m_Scratch.GetPath() / "p/Db/Full/OTHER.gamdb00S");
    fs::create_directory_symlink(".", m_Scratch.GetPath() / "p/Loop");
    EXPECT_EQ(Run("-UpdateDependency p/"),
              "0 Invalid Game Database Root File: The following file is not a valid game database root file "
              "(*.Gamdb00s) or the file may be corrupt\n\n~/p/Db/Bad.Gamdb00s\n"
              "Update Dependency: The root file '~/p/Db/Bad.Gamdb00s' could not be loaded. "
              "'~/p/Db/Bad.Gamdb00dc' was not written.\n"
              "Update Dependency: The file '~/p/Db/Full/OTHER.Gamdb00dc' could not be written: not a file of "
              "the wanted kind.\n"
              "Update Dependency: The file '~/p/Db/Root.Gamdb00dc' was written.\n");
    EXPECT_EQ(m_Scratch.ReadBytes("p/Db/Bad.Gamdb00dc"), "old");
    const std::string list = m_Scratch.ReadBytes("p/Db/Root.Gamdb00dc");
    EXPECT_EQ(list.substr(0, 4), std::string(4, '\0')) << "the mark of a compressed file";
    fs::remove(m_Scratch.GetPath() / "p/Db/Root.Gamdb00dc");
    EXPECT_EQ(Run("-Silent -UpdateDependency ~/p/Db"),
              "0 Update Dependency: The root file '~/p/Db/Bad.Gamdb00s' could not be loaded. "
              "'~/p/Db/Bad.Gamdb00dc' was not written.\n"
              "Update Dependency: The file '~/p/Db/Full/OTHER.Gamdb00dc' could not be written: not a file of "
              "the wanted kind.\n");
    EXPECT_EQ(m_Scratch.ReadBytes("p/Db/Root.Gamdb00dc"), list);
    EXPECT_EQ(Run("-UpdateDependency none"), "0 Update Dependency: The directory '~/none' could not be read: "
                                             "no such file or directory.\n");
}

TEST_F(CShellTest, SilentAloneWaitsForASignalAndClosesInOrder)
{
    const fs::path settings = m_Scratch.GetPath() / "config/Harrowgate Works/ZORN/Corvane" /
                              "{7C1D5B0E-3A94-4E27-9D5F-64B8A2F0C9AA}.ini";
    for (const std::string signal : {"TERM", "INT"})
    {
        const std::string told = Run("-Silent " + kRoot, "-v -s " + signal + " 0.6");
        // The only line is the sender's and shows that the program did not end by itself.
        EXPECT_EQ(told.find("0 timeout: sending signal " + signal), 0U) << told;
        EXPECT_EQ(told.find('\n'), told.size() - 1) << told;
        EXPECT_TRUE(fs::remove(settings)) << "the close writes the user's settings";
    }
}

TEST_F(CShellTest, AnInteractiveRunHandsOverToItsModule)
{
    const fs::path module = m_Scratch.GetPath() / "bin/libcorvane-ui.so";
    fs::copy_file(CREATOR_LIBRARY, module);
    const std::string refused = Run(kRoot);
    EXPECT_EQ(
        refused.find("5 Corvane: The user interface could not be started: libcorvane-ui.so made no windows."),
        0U)
        << refused;

    fs::copy_file(TEST_UI, module, fs::copy_options::overwrite_existing);
    // The user's interface asks for changes at its close, and no step behind it asks again.
    const std::string kAsked = "Save Changes asked\nSave Changes asked\nreleased\n";
    EXPECT_EQ(Run(""), "0 closed, 0 recent\n" + kAsked);
    EXPECT_EQ(Run(kRoot), "0 open, 1 recent\n" + kAsked);
    EXPECT_EQ(Run(""), "0 open, 1 recent\n" + kAsked) << "the last file is opened again";
    EXPECT_EQ(Run("p/None.Gamdb00s"), "5 Open Failed asked\nreleased\n");
    EXPECT_EQ(Run("-Pack " + kRoot), "0 ") << "a batch run needs no windows";
    std::u16string profile = m_Scratch.ReadUtf16(kProfile);
    m_Scratch.WriteUtf16(kProfile, profile.replace(profile.find(u"OpenLast=1"), 10, u"OpenLast=0"));
    EXPECT_EQ(Run(""), "0 closed, 1 recent\n" + kAsked);
}
