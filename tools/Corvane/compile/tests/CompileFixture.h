// A small database that compiles, the compiler over it, and what a test looks at afterwards.
#pragma once

#include "CorvaneSchemaAttribData.h"
#include "DatabaseCompiler.h"
#include "DatabaseFixture.h"
#include "TestLink.h"

#include <cstdlib>
#include <filesystem>
#include <vector>

// The names of the test creators are paths; the locator takes them as they are.
inline constexpr std::u16string_view kRecordingCreator = RECORDING_CREATOR;
inline constexpr std::u16string_view kEmptyCreator = EMPTY_CREATOR;
inline constexpr std::string_view kOldFile = "the packed file of yesterday";

class CCompileFixture : public CDatabaseFixture
{
protected:
    void SetUp() override
    {
        SetCreatorMode("");
        m_Types.RegisterType(u"TestLink", &CreateCorvaneType<CTestLink>);
        m_AttribData.RegisterAttribData(u"TestLink", &CreateCorvaneAttribData<CCorvaneSchemaAttribData>);
        WriteLocator(kRecordingCreator);
        WriteRoot();
        WriteSchema("Vehicle", u"[Attrib.Mass.10]\nType=Integer\nDefault=5\n\n"
                               u"[Attrib.Mass.0]\nType=Integer\nData=min=0;max=100\nDefault=5\n\n"
                               u"[Attrib.Ally.0]\nType=TestLink\nDefault=<none>\n");
        WriteCategory("Land", u"Vehicle");
        WriteCategory("Land/Tracked", u"Vehicle");
        WriteCategory("Store", u"");
        WriteRecord("Land", "Bike", u"Vehicle", Values(u"1", u"Land/Tracked/Tank"), u"Light");
        WriteRecord("Land", "Car", u"Vehicle", Values(u"2", u"<none>"));
        WriteRecord("Land/Tracked", "Tank", u"Vehicle", Values(u"3", u"Land/Bike"));
        m_Scratch.WriteBytes("Db/Packed.Gamdb00p", kOldFile);
    }
    void TearDown() override { SetCreatorMode(""); }

    // Values of one vehicle: its mass in build 0 (ten times as much from build 10 on) and its ally.
    static std::u16string Values(const std::u16string& mass, const std::u16string& ally)
    {
        return u"[Attrib.Mass.10]\nInherit=False\nValue.0000=" + mass +
               u"0\n\n[Attrib.Mass]\nInherit=False\nValue.0000=" + mass +
               u"\n\n[Attrib.Ally]\nInherit=False\nValue.0000=" + ally + u"\n";
    }

    static void SetCreatorMode(const char* mode) { ::setenv("CORVANE_TEST_CREATOR", mode, 1); }

    // Opens the database, listens to the compile's events and builds as a pack run does.
    bool Compile(std::uint32_t flags = 0, std::uint32_t build = 0)
    {
        if (!m_pManager->IsOpen())
            Open();
        Listen();
        return m_Compiler.CompileDatabase(flags, GetTarget(), build);
    }
    void Listen()
    {
        m_Events.clear();
        m_Questions.Clear();
        m_Observer = m_pManager->AddObserver(
            [this](const CCorvaneEvent& event)
            {
                const int code = static_cast<int>(event.GetCode());
                if (event.GetCode() == ECorvaneEvent::CompileEnd)
                    m_Events.push_back(event.GetResult() ? code : -code);
                else if (code == 8 || (code >= 20 && code <= 25))
                    m_Events.push_back(code);
                return 0;
            });
    }

    [[nodiscard]] std::u16string GetTarget() const { return m_Scratch.Text("Db/Packed.Gamdb00p"); }
    [[nodiscard]] std::string ReadPacked() const { return m_Scratch.ReadBytes("Db/Packed.Gamdb00p"); }
    // Title and text of each box that was shown.
    [[nodiscard]] std::vector<std::u16string> GetBoxes() const
    {
        std::vector<std::u16string> boxes;
        for (const CQuestion& question : m_Questions.GetQuestions())
            boxes.push_back(question.m_sTitle + u": " + question.m_sText);
        return boxes;
    }
    // No temporary file lies beside the target.
    [[nodiscard]] bool IsClean() const
    {
        const std::filesystem::directory_iterator entries(m_Scratch.GetPath() / "Db");
        return std::none_of(begin(entries), end(entries),
                            [](const auto& entry) { return entry.path().extension() == ".corvane-tmp"; });
    }

    // Events of the compile; event 9 is negative when it carries false.
    std::vector<int> m_Events;
    CObserverHandle m_Observer;
    CDatabaseCompiler m_Compiler{*m_pManager};
};
