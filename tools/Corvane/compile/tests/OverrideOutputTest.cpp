// Override output: which calls a creator library gets, in which order, and how the output ends.
#include "OverrideOutput.h"
#include "CorvaneType.h"
#include "OverrideWorker.h"
#include "RecentPaths.h"
#include "RunState.h"
#include "TestDatabase.h"
#include "Unicode.h"
#include "Worker.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <tuple>

namespace
{
class COverrideOutputTest : public ::testing::Test, protected CTestDatabase
{
protected:
    void SetUp() override
    {
        SetCreatorMode("");
        m_Scratch.WriteBytes("Game/Game.proj00", "[Project Binaries]\nGameDatabase=" RECORDING_CREATOR "\n");
        Write("Schemas/Row.struct", "[Attrib.Chance.0]\nType=Float\nData=min=0;max=1\nDefault=0.5\n\n"
                                    "[Attrib.Plain.0]\nType=Integer\n");
        std::string sections;
        for (const auto& [word, data, value] : kTypes)
            sections += std::string("[Attrib.") + word + "X.0]\nType=" + word + "\nData=" + data +
                        "\nDefault=" + value +
                        "\nValues=" + (word == std::string_view("Struct") ? "2" : "1") + "\nHelp=" + word +
                        "!\n\n";
        AddSchema("All", sections + "[Attrib.Late.10]\nType=Integer\nValues=-1\n");
        AddCategory("All", "All");
        std::string marks;
        for (const auto& type : kTypes)
            marks += std::string("[Attrib.") + std::get<0>(type) + "X]\nOverride=True\n";
        AddRecord("All/Every", "All",
                  marks +
                      "[Attrib.StructX.0.1.Chance]\nOverride=True\nValue.0000=0.25\n"
                      "[Attrib.StructX.0.0]\n[Attrib.Late.10]\nOverride=True\nValue.0000=1\nValue.0001=2\n",
                  "VirtualRelativeCategory=Some/Virtual\n");
        AddRecord("All/Second", "All", "[Attrib.IntegerX]\nOverride=True\nValue.0000=9\n");
    }

    static void SetCreatorMode(const std::string& mode) { ::setenv("CORVANE_TEST_CREATOR", mode.c_str(), 1); }
    // What came of an output: the calls, and whatever was shown.
    std::string Output(std::uint32_t build = 0, const char* database = "Over.txt")
    {
        EXPECT_TRUE(Get().IsOpen() || Open());
        m_Questions.Clear();
        COverrideOutput output(Get());
        const bool done = output.CreateOverrideOutput({GetText(database), GetText("Limits.dat")}, build);
        std::string told = done ? "done" : "failed";
        for (const CQuestion& question : m_Questions.GetQuestions())
            told += "; " + ToNarrow(question.m_sTitle + u": " + question.m_sText);
        return told;
    }
    [[nodiscard]] std::string ReadText() const { return m_Scratch.ReadBytes("Game/Database/Over.txt"); }

    static constexpr std::tuple<const char*, const char*, const char*> kTypes[] = {
        {"Text", "max=4", "ab"},
        {"Memo", "max=9", "a b"},
        {"Boolean", "", "True"},
        {"Integer", "min=-1;max=9", "3"},
        {"Float", "min=0;max=2", "1.5"},
        {"Vector2", "", "1, 2"},
        {"Vector3", "", "1, 2, 3"},
        {"Vector4", "", "1, 2, 3, 4"},
        {"File", "", ""},
        {"Sound", "", ""},
        {"Enum", "one;two", "two"},
        {"Range", "min=0;max=9", "2, 3"},
        {"Time", "", "1500"},
        {"RecordLink", "public All", "All/Second"},
        {"Color", "Float_ARGB", "255, 0, 51, 255"},
        {"Flags", "Flag1=A;Flag2=B", "0x3"},
        {"Effect", "", ""},
        {"Struct", "Row.struct", ""},
        {"StringID", "", ""},
    };
};

const std::string kFailed =
    "failed; Compile Error: There were one or more errors encountered. Failed to compile the "
    "override ouput.";

TEST_F(COverrideOutputTest, EveryTypeSendsItsCalls)
{
    constexpr const char* kCalls = R"(
All/Second/IntegerX: Integer 3 1 1 "min=-1;max=9" "Integer!"
 limits -1 9
 int 9
All/Every/TextX: Text 4 1 1 "max=4" "Text!"
 text limits 0 4
 text ab
All/Every/MemoX: Memo 4 1 1 "max=9" "Memo!"
 text limits 0 9
 text a b
All/Every/BooleanX: Boolean 1 1 1 "" "Boolean!"
 true
All/Every/IntegerX: Integer 3 1 1 "min=-1;max=9" "Integer!"
 limits -1 9
 int 3
All/Every/FloatX: Float 2 1 1 "min=0;max=2" "Float!"
 float limits 0.000000 2.000000
 floats 1.500000
All/Every/Vector2X: Vector 6 1 1 "" "Vector2!"
 floats 1.000000 2.000000
All/Every/Vector3X: Vector 7 1 1 "" "Vector3!"
 floats 1.000000 2.000000 3.000000
All/Every/Vector4X: Vector 8 1 1 "" "Vector4!"
 floats 1.000000 2.000000 3.000000 4.000000
All/Every/FileX: File 4 1 1 "" "File!"
 text 
All/Every/SoundX: File 4 1 1 "" "Sound!"
 text 
All/Every/EnumX: Enum 4 1 1 "one;two" "Enum!"
 text two
All/Every/RangeX: Range 6 1 1 "min=0;max=9" "Range!"
 floats 2.000000 3.000000
All/Every/TimeX: Time 3 1 1 "" "Time!"
 int 1500
All/Every/RecordLinkX: RecordLink 9 1 1 "public All" "RecordLink!"
 text All/Second
All/Every/ColorX: Color 8 1 1 "Float_ARGB" "Color!"
 floats 1.000000 0.000000 0.200000 1.000000
All/Every/FlagsX: Flags 3 1 1 "Flag1=A;Flag2=B" "Flags!"
 int 3
All/Every/EffectX: Effect 4 1 1 "" "Effect!"
 text 
All/Every/StructX.1.Chance: Float 2 1 1 "min=0;max=1" ""
 float limits 0.000000 1.000000
 floats 0.250000
All/Every/StringIDX: StringID 4 1 1 "" "StringID!"
 text <none>
save 7
)";
    ;
    for (const bool window : {false, true})
    {
        m_Questions.m_bWindow = window;
        EXPECT_EQ(Output(), "done");
        EXPECT_EQ('\n' + ReadText(), kCalls);
        EXPECT_EQ(m_Scratch.ReadBytes("Game/Database/Limits.dat"), "constraints\n");
    }
}

TEST_F(COverrideOutputTest, OnlyMarkedAttributesOfTheBuildGoIn)
{
    ASSERT_TRUE(Open());
    Attrib("All/Second", "IntegerX").SetOverride(false);
    for (const CRef<CCorvaneAttrib>& attrib : Record("All/Every").GetAttributeList())
        attrib->SetOverride(false);
    Attrib("All/Every", "StructX").GetChildAttributeAt(1, 0)->SetOverride(false);
    EXPECT_EQ(Output(), "done");
    EXPECT_EQ(ReadText(), "save 7\n");
    Attrib("All/Every", "Late", 10).SetOverride(true);
    EXPECT_EQ(Output(9), "done");
    EXPECT_EQ(ReadText(), "save 7\n");
    std::filesystem::permissions(GetPath("Over.txt"), std::filesystem::perms::owner_read);
    EXPECT_EQ(Output(10), "done") << "a read-only target is made writable";
    EXPECT_EQ(ReadText(),
              "All/Every/Late: Integer 3 1 -1 \"\" \"\"\n limits -2147483648 2147483647\n int 1\n int 2\n"
              "save 7\n");
}

TEST_F(COverrideOutputTest, RefusalsCancelsAndMissingLibrariesEndInTheSameBox)
{
    for (const char* call :
         {"override export", "override database", "override attribute", "override value", "override save"})
    {
        for (const std::string verb : {"refuse ", "throw "})
        {
            SetCreatorMode(verb + call);
            EXPECT_EQ(Output(), kFailed) << verb << call;
        }
    }
    SetCreatorMode("");
    WriteBytes("Over.txt", "old");
    m_Questions.m_Cancel = [](std::u16string_view) { return true; };
    EXPECT_EQ(Output(), kFailed);
    EXPECT_EQ(m_Scratch.ReadBytes("Game/Database/Over.txt"), "old");
    const auto work = [](IWorkerEvents& events) { return SaveOverrides(nullptr, events); };
    EXPECT_EQ(RunWorker(m_Questions, u"", work), kResultNoParameters);
}

TEST_F(COverrideOutputTest, AcceptedPathsCanBeTargetsAndAreTheNewest)
{
    ASSERT_TRUE(Open());
    COverrideOutput output(Get());
    EXPECT_EQ(output.GetDefaultPaths().m_sDatabase, GetText("MPCustomizations.txt"));
    EXPECT_EQ(output.GetDefaultPaths().m_sConstraints, GetText("DBConstraints.dat"));
    const std::u16string bad = GetText("No/Such/file");
    EXPECT_FALSE(output.AcceptPaths({bad, GetText("a.dat")}));
    EXPECT_FALSE(output.AcceptPaths({GetText("a.txt"), bad}));
    const std::string text =
        "The following path is invalid and cannot be used as a target file.\n\n" + ToNarrow(bad);
    EXPECT_EQ(GetQuestion("Invalid Database Path"), text);
    EXPECT_EQ(GetQuestion("Invalid Constraints Path"), text);
    EXPECT_TRUE(std::filesystem::is_empty(GetPath("a.txt"))) << "the test leaves a file behind";
    m_Run.m_bSilent = true;
    EXPECT_FALSE(output.AcceptPaths({bad, bad}));
    EXPECT_EQ(GetTitles(), "Invalid Database Path;Invalid Constraints Path;");
    EXPECT_TRUE(output.GetRecentDatabases().empty());

    for (const char* name : {"1", "2", "3", "4", "5", "6", "7", "8", "9", "A", "4", "a"})
        EXPECT_TRUE(output.AcceptPaths({GetText(name), GetText("a.dat")}));
    std::string names;
    for (const std::u16string& path : output.GetRecentDatabases())
        names += static_cast<char>(path.back());
    EXPECT_EQ(names, "a4987653");
    EXPECT_EQ(output.GetRecentConstraints(), std::vector{GetText("a.dat")});
    EXPECT_NE(GetPerUserFile().find("[Override.Database]\nFile0=" + GetPath("a").string() + "\nFile1="),
              std::string::npos)
        << GetPerUserFile();
}
} // namespace
