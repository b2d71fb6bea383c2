// The real program with its real module: what happens where windows cannot be, and what both share.
#include "DiskFileSystem.h"
#include "Module.h"
#include "QtText.h"
#include "ScratchDir.h"
#include "UiServices.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace
{
namespace fs = std::filesystem;

class CProgramTest : public ::testing::Test
{
protected:
    CProgramTest()
    {
        m_Scratch.WriteBytes("p/x.proj00", "[General]\n");
        m_Scratch.WriteUtf16("p/Db/Root.Gamdb00s", u"[General]\r\nName=Shell\r\n"
                                                   u"Database={7C1D5B0E-3A94-4E27-9D5F-64B8A2F0C9AA}\r\n");
        m_Scratch.WriteBytes("fonts.conf", "<?xml version=\"1.0\"?><fontconfig></fontconfig>");
    }
    // "~" stands for the scratch directory. The status, a blank and what standard error got.
    std::string Run(const std::string& environment, const std::string& command) const
    {
        std::string line =
            "cd ~ && env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM XDG_CONFIG_HOME=~/config "
            "XDG_STATE_HOME=~/state XDG_RUNTIME_DIR=~ " +
            environment + ' ' + command + " </dev/null >~/output.txt 2>&1";
        for (std::size_t at = line.find('~'); at != std::string::npos; at = line.find('~', at + 1))
            line.replace(at, 1, m_Scratch.GetPath().string());
        const int status = std::system(line.c_str());
        return std::to_string(WIFEXITED(status) ? WEXITSTATUS(status) : -1) + ' ' +
               m_Scratch.ReadBytes("output.txt");
    }

    CScratchDir m_Scratch;
};
} // namespace

TEST_F(CProgramTest, TellsWhyThereAreNoWindows)
{
    const std::string head = "5 Corvane: The user interface could not be started: ";
    struct SCase
    {
        const char* m_sEnvironment;
        const char* m_sTold;
    };
    for (const SCase& entry :
         {SCase{"", "there is no display, neither DISPLAY nor WAYLAND_DISPLAY is set.\n"},
          {"DISPLAY=:4711", "could not connect to display :4711\n"},
          {"QT_QPA_PLATFORM=none-such", "Could not find the Qt platform plugin \"none-such\" in \"\"\n"},
          {"QT_QPA_PLATFORM=offscreen FONTCONFIG_FILE=~/fonts.conf", "There is no font"}})
        EXPECT_EQ(Run(entry.m_sEnvironment, CORVANE_PROGRAM " p/Db/Root.Gamdb00s").find(head + entry.m_sTold),
                  0U)
            << entry.m_sEnvironment << '\n'
            << m_Scratch.ReadBytes("output.txt");
    EXPECT_NE(Run("", "ldd " CORVANE_PROGRAM).find("libicuuc"), std::string::npos);
    EXPECT_EQ(m_Scratch.ReadBytes("output.txt").find("Qt6"), std::string::npos)
        << "a build machine has no toolkit";
}

// The window is there, a signal closes it in order, and batch runs do without it.
TEST_F(CProgramTest, OpensItsWindowAndClosesItAtASignal)
{
    const std::string interrupted =
        "timeout --preserve-status -s TERM 2 " CORVANE_PROGRAM " p/Db/Root.Gamdb00s";
    EXPECT_EQ(Run("QT_QPA_PLATFORM=offscreen", interrupted)[0], '0') << m_Scratch.ReadBytes("output.txt");
    const std::u16string profile = m_Scratch.ReadUtf16("config/Harrowgate Works/ZORN/Corvane.ini");
    EXPECT_NE(profile.find(u"[ControlBars\\MainBarState]"), std::u16string::npos);
    EXPECT_NE(profile.find(m_Scratch.Text("p/Db/Root.Gamdb00s")), std::u16string::npos);
}

// Two copies of the core would have two assertion hooks and two sets of everything that is there once.
TEST_F(CProgramTest, TheModuleUsesTheProgramsCore)
{
    m_Scratch.WriteBytes(
        "core.sh",
        "list() { nm -D --defined-only $1 | awk '$2 ~ /[TDB]/ && $3 ~ /^_Z/ {print $3}' | sort; }\n"
        "list $1 >program; list $2 | comm -12 program - >twice\n"
        "LD_DEBUG=bindings LD_DEBUG_OUTPUT=bindings timeout -s TERM 2 $1\n"
        "grep -h 'libcorvane-ui.so .* to [^ ]*/corvane ' bindings.* >shared\n");
    Run("QT_QPA_PLATFORM=offscreen", "sh core.sh " CORVANE_PROGRAM " " UI_MODULE);
    EXPECT_EQ(m_Scratch.ReadBytes("twice"), "");
    const std::string shared = m_Scratch.ReadBytes("shared");
    EXPECT_NE(shared.find("_ZN11CCorvaneMgr12SaveDatabase"), std::string::npos);
    EXPECT_NE(shared.find("zrassert7Handler"), std::string::npos)
        << "assertions of windows go to the log as well";
}

// A sound that cannot be played, or a player that crashes, must not matter to the program.
TEST_F(CProgramTest, SoundsArePlayedByAProcessOfTheirOwn)
{
    EXPECT_EQ(Run("QT_QPA_PLATFORM=offscreen", SOUND_PROGRAM), "1 Usage: corvane-sound FILE\n");
    m_Scratch.WriteBytes("bad.wav", "no sound");
    EXPECT_EQ(Run("", "timeout 20 " SOUND_PROGRAM " bad.wav")[0], '1');
    CDiskFileSystem files;
    const std::u16string programs =
        ToText(QString::fromStdString(fs::path(SOUND_PROGRAM).parent_path())) + u'/';
    const CModuleFinder modules(files, programs, programs);
    CUiServices services(files, modules);
    EXPECT_FALSE(services.PlaySoundFile(m_Scratch.Text("none.wav")));
    EXPECT_TRUE(services.PlaySoundFile(m_Scratch.Text("bad.wav")));
    EXPECT_TRUE(services.PlaySoundFile(m_Scratch.Text("bad.wav"))) << "one ends the other";
    const CModuleFinder nowhere(files, m_Scratch.Text("p/"), m_Scratch.Text("p/"));
    EXPECT_FALSE(CUiServices(files, nowhere).PlaySoundFile(m_Scratch.Text("bad.wav")));
}
