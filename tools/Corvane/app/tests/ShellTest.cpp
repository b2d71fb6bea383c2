// The program from end to end: real trees, real child processes, their output and their status.
#include "ShellRun.h"

#include <chrono>
#include <csignal>
#include <functional>
#include <sys/wait.h>
#include <thread>

using CShellTest = CShellRun;

namespace
{
constexpr const char* kPacked = "p/Db/Packed.Gamdb00p";
constexpr const char* kRoot = "~/p/Db/Root.Gamdb00s";
constexpr const char* kPackingFailed =
    "Packing Failed: The pack switch was detected on the command line but there is no valid document to "
    "pack.  The document either failed to load or was not specified at the command line.\n";

bool Has(const std::string& text, std::string_view part)
{
    return text.find(part) != std::string::npos;
}
} // namespace

TEST_F(CShellTest, APackSaysNothingAndWritesWhatIsInForce)
{
    const std::vector<std::vector<std::string>> runs = {
        {"-Pack", kRoot},
        {"-Silent", "-Pack", kRoot},
        {kRoot, "/PACK"},
        {"-unknown", "-pACK", "p/db\\root.gamdb00s"},
        {"-Window", "0x00", "-Pack", kRoot},
    };
    std::string first;
    for (const std::vector<std::string>& arguments : runs)
    {
        std::filesystem::remove(m_Scratch.GetPath() / kPacked);
        const SRunResult result = Run(arguments);
        EXPECT_EQ(result.m_nStatus, 0);
        EXPECT_EQ(result.m_sOutput, "");
        const std::string packed = m_Scratch.ReadBytes(kPacked);
        EXPECT_TRUE(Has(packed, "Count"));
        first = first.empty() ? packed : first;
        EXPECT_EQ(packed, first);
    }
    EXPECT_EQ(Run({"-Output", "a.bin", "-Pack", kRoot}).m_nStatus, 0);
    EXPECT_EQ(m_Scratch.ReadBytes("a.bin"), first);
    EXPECT_FALSE(m_Scratch.Exists("bin/corvane_Assert00.log"));
    for (const auto& [build, later] : {std::pair("9", false), {"10", true}, {"abc", false}, {" 12x", true}})
    {
        EXPECT_EQ(Run({"-Pack", "-BuildNumber", build, kRoot}).m_nStatus, 0);
        EXPECT_EQ(Has(m_Scratch.ReadBytes(kPacked), "Later"), later) << build;
    }
}

// Each way to fail: the status, the words with and without a console, and that the old output still stands.
TEST_F(CShellTest, AFailedPackTellsWhyAndTouchesNothing)
{
    struct SRow
    {
        std::vector<std::string> arguments;
        std::string told;
        bool packingFailed;
        std::function<void()> prepare = [] {};
    };
    const std::string invalid = "Invalid Game Database Root File: ";
    const SRow rows[] = {
        {{"-Pack"}, "", true},
        {{"-Pack", "~/p/Db/None.Gamdb00s"}, m_Scratch.GetPath().string() + "/p/Db/None.Gamdb00s", false},
        {{"-Pack", "None.Gamdb00s"}, "no such file", false},
        // The output is filled, so that the second is the root.
        {{"-Output", "a", "-Pack", "b.Gamdb00s"}, "/b.Gamdb00s", false},
        {{"-Pack", kRoot},
         "Error: Failed to locate the Game Database library.\n",
         false,
         [this] { WriteLocator("none.dll"); }},
        {{"-Pack", kRoot},
         invalid,
         true,
         [this] { m_Scratch.WriteUtf16("p/Db/Root.Gamdb00s", u"[General]\r\nName=x\r\n"); }},
        {{"-Pack", kRoot},
         invalid,
         true,
         [this] { m_Scratch.WriteBytes("p/Db/Root.Gamdb00s", "[General]\r\nName=x\r\n"); }},
        {{"-Pack", kRoot}, "Project Error: Failed to locate the locator file (*.proj00)", true, [this] {
             std::filesystem::remove(m_Scratch.GetPath() / "p/x.proj00");
         }}};
    for (const SRow& row : rows)
    {
        m_Scratch.WriteBytes(kPacked, "old");
        row.prepare();
        const SRunResult loud = Run(row.arguments);
        EXPECT_EQ(loud.m_nStatus, 5) << row.told;
        EXPECT_TRUE(Has(loud.m_sOutput, row.told)) << loud.m_sOutput;
        EXPECT_EQ(Has(loud.m_sOutput, kPackingFailed), row.packingFailed) << loud.m_sOutput;
        std::vector<std::string> arguments = row.arguments;
        arguments.insert(arguments.begin(), "-Silent");
        const SRunResult silent = Run(arguments);
        EXPECT_EQ(silent.m_nStatus, 5) << row.told;
        EXPECT_EQ(silent.m_sOutput, "") << row.told;
        EXPECT_EQ(m_Scratch.ReadBytes(kPacked), "old") << row.told;
    }
}

TEST_F(CShellTest, CriticalFindingsGiveOneWhenSilentAndStopOtherwise)
{
    WriteCount(u"99");
    SRunResult result = Run({"-Silent", "-Pack", "-Log", "findings.txt", kRoot});
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_EQ(result.m_sOutput, "");
    EXPECT_TRUE(m_Scratch.Exists(kPacked));
    EXPECT_NE(m_Scratch.ReadUtf16("findings.txt").find(u"Things/One"), std::u16string::npos);

    std::filesystem::remove(m_Scratch.GetPath() / kPacked);
    result = Run({"-Pack", kRoot});
    EXPECT_EQ(result.m_nStatus, 5);
    EXPECT_TRUE(Has(result.m_sOutput, "Continue Build?: ")) << result.m_sOutput;
    EXPECT_FALSE(m_Scratch.Exists(kPacked));
}

TEST_F(CShellTest, TheProfileIsWrittenAndAFailureKeepsTheRecentFiles)
{
    EXPECT_EQ(Run({"-Silent", "-Pack", "p/Db/Root.Gamdb00s"}).m_nStatus, 0);
    const std::u16string good = ReadProfile();
    EXPECT_NE(good.find(u"BasePath=" + m_Scratch.Text("p/") + u"\r\n"), std::u16string::npos);
    EXPECT_NE(good.find(u"OpenLast=1\r\nExpand=1\r\n"), std::u16string::npos);
    EXPECT_NE(good.find(u"File1=" + m_Scratch.Text("p/Db/Root.Gamdb00s") + u"\r\n"), std::u16string::npos);

    // A second root that loads and cannot be packed.
    std::filesystem::copy_file(m_Scratch.GetPath() / "p/Db/Root.Gamdb00s",
                               m_Scratch.GetPath() / "p/Db/Other.Gamdb00s");
    WriteLocator("none.dll");
    EXPECT_EQ(Run({"-Silent", "-Pack", "p/Db/Other.Gamdb00s"}).m_nStatus, 5);
    EXPECT_EQ(ReadProfile(), good);
}

TEST_F(CShellTest, MessagesOfTheOtherRuns)
{
    using Row = std::tuple<std::vector<std::string>, int, const char*>;
    for (const auto& [arguments, status, told] :
         {Row{{"-UpdateDependency", "p"}, 5, "Dependency output is not in this build of the program."},
          Row{{"-Window", "12", "-Pack", kRoot},
              0,
              "Cannot Find Window: The window handle '12' was specified at the command line but the window "
              "could not be found."},
          Row{{}, 5, "libcorvane-ui"}, Row{{kRoot}, 5, "-UpdateDependency"},
          Row{{"--help"}, 5, "-BuildNumber"}})
    {
        const SRunResult result = Run(arguments);
        EXPECT_EQ(result.m_nStatus, status) << told;
        EXPECT_TRUE(Has(result.m_sOutput, told)) << result.m_sOutput;
    }
    EXPECT_EQ(Run({"-Silent", "-UpdateDependency", "p", "-Window", "12"}).m_sOutput, "");
    const SRunResult both = Run({"-UpdateDependency", "p", "-Pack", kRoot});
    EXPECT_EQ(both.m_nStatus, 0) << "the pack goes first: " << both.m_sOutput;
}

TEST_F(CShellTest, SilentAloneWaitsForASignalAndClosesInOrder)
{
    for (const int signal : {SIGTERM, SIGINT})
    {
        const pid_t child = Start({"-Silent", kRoot});
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, WNOHANG), 0) << "it ended by itself";
        ::kill(child, signal);
        const SRunResult result = Finish(child);
        EXPECT_EQ(result.m_nStatus, 0);
        EXPECT_EQ(result.m_sOutput, "");
        const char* settings =
            "config/Harrowgate Works/ZORN/Corvane/{7C1D5B0E-3A94-4E27-9D5F-64B8A2F0C9AA}.ini";
        EXPECT_TRUE(m_Scratch.Exists(settings)) << "the close writes the user's settings";
        std::filesystem::remove(m_Scratch.GetPath() / settings);
    }
}

TEST_F(CShellTest, AnInteractiveRunHandsOverToItsModule)
{
    const std::filesystem::path module = m_Scratch.GetPath() / "bin/libcorvane-ui.so";
    std::filesystem::copy_file(CREATOR_LIBRARY, module);
    SRunResult result = Run({kRoot});
    EXPECT_EQ(result.m_nStatus, 5) << "a module without the factory";
    EXPECT_TRUE(Has(result.m_sOutput, "libcorvane-ui.so")) << result.m_sOutput;

    std::filesystem::copy_file(TEST_UI, module, std::filesystem::copy_options::overwrite_existing);
    EXPECT_EQ(Run({}).m_sOutput, "closed, 0 recent\nreleased\n");
    result = Run({kRoot});
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_EQ(result.m_sOutput, "open, 1 recent\nreleased\n");
    EXPECT_EQ(Run({}).m_sOutput, "open, 1 recent\nreleased\n") << "the last file is opened again";
    EXPECT_EQ(Run({"~/p/None.Gamdb00s"}).m_sOutput, "Open Failed asked\nreleased\n");
    EXPECT_EQ(Run({"-Pack", kRoot}).m_sOutput, "") << "a batch run needs no windows";

    std::u16string profile = ReadProfile();
    WriteProfile(profile.replace(profile.find(u"OpenLast=1"), 10, u"OpenLast=0"));
    EXPECT_EQ(Run({}).m_sOutput, "closed, 1 recent\nreleased\n");
}
