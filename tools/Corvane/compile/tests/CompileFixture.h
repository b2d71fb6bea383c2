// A small database that compiles, the compiler over it, and what a test looks at afterwards.
#pragma once

#include "CorvaneSchemaAttribData.h"
#include "DatabaseCompiler.h"
#include "GatedDatabase.h"

#include <cstdlib>
#include <filesystem>
#include <vector>

// The names of the test creators are paths; the locator takes them as they are.
inline constexpr std::string_view kRecordingCreator = RECORDING_CREATOR;
inline constexpr std::string_view kEmptyCreator = EMPTY_CREATOR;
inline constexpr std::string_view kPacked = "Packed.Gamdb00p";
inline constexpr std::string_view kOldFile = "the packed file of yesterday";

class CCompileFixture : public CGatedDatabase
{
protected:
    void SetUp() override
    {
        SetCreatorMode("");
        WriteLocator(kRecordingCreator);
        WriteRoot();
        AddSchema("Vehicle", "[Attrib.Mass.10]\nType=Integer\nDefault=5\n\n"
                             "[Attrib.Mass.0]\nType=Integer\nData=min=0;max=100\nDefault=5\n\n"
                             "[Attrib.Ally.0]\nType=RecordLink\nData=Vehicle\nDefault=<none>\n");
        for (const auto& [path, schema] :
             {std::pair{"Land", "Vehicle"}, {"Land/Tracked", "Vehicle"}, {"Store", ""}})
            AddCategory(path, schema);
        AddVehicle("Land/Bike", "1", "Land/Tracked/Tank", "VirtualRelativeCategory=Light\n");
        AddVehicle("Land/Car", "2", "<none>");
        AddVehicle("Land/Tracked/Tank", "3", "Land/Bike");
        WriteBytes(kPacked, kOldFile);
    }
    void TearDown() override { SetCreatorMode(""); }

    void WriteRoot(const std::string& keys = {}) const
    {
        Write("Root.Gamdb00s", "[General]\nVersion=1\nName=Test\nBuild=Packed.Gamdb00p\n"
                               "Database={7C1D5B0E-3A94-4E27-9D5F-64B8A2F0C955}\n" +
                                   keys);
    }
    void WriteLocator(std::string_view creator) const
    {
        m_Scratch.WriteBytes("Game/Game.proj00",
                             "[Project Binaries]\nGameDatabase=" + std::string(creator) + "\n");
    }
    // Its mass is that in build 0, ten times as much from build 10 on.
    void AddVehicle(const char* path, const std::string& mass, const std::string& ally,
                    const char* keys = "") const
    {
        const std::string value = "]\nInherit=False\nValue.0000=";
        AddRecord(path, "Vehicle",
                  "[Attrib.Mass.10" + value + mass + "0\n[Attrib.Mass" + value + mass + "\n[Attrib.Ally" +
                      value + ally + "\n",
                  keys);
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

    [[nodiscard]] std::u16string GetTarget() const { return GetText(kPacked); }
    [[nodiscard]] std::string ReadPacked() const
    {
        return m_Scratch.ReadBytes("Game/Database/Packed.Gamdb00p");
    }
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
        const std::filesystem::directory_iterator entries(GetPath(""));
        return std::none_of(begin(entries), end(entries),
                            [](const auto& entry) { return entry.path().extension() == ".corvane-tmp"; });
    }

    // Events of the compile; event 9 is negative when it carries false.
    std::vector<int> m_Events;
    CObserverHandle m_Observer;
    CDatabaseCompiler m_Compiler{*m_pManager};
};
