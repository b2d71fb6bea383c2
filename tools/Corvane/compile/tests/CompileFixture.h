// A small database that compiles, the compiler over it, and what a test looks at afterwards.
#pragma once

#include "CorvaneSchemaAttribData.h"
#include "DatabaseCompiler.h"
#include "GatedDatabase.h"
#include "Unicode.h"

#include <algorithm>
#include <cstdlib>

inline constexpr std::string_view kPacked = "Packed.Gamdb00p";

class CCompileFixture : public CGatedDatabase, public ICompileView
{
protected:
    void SetUp() override
    {
        SetCreatorMode("");
        WriteLocator(RECORDING_CREATOR);
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
        WriteBytes(kPacked, "old");
    }
    void TearDown() override { SetCreatorMode(""); }

    void WriteRoot(const std::string& keys = {}) const
    {
        Write("Root.Gamdb00s", "[General]\nVersion=1\nName=Test\nBuild=Packed.Gamdb00p\n"
                               "Database={7C1D5B0E-3A94-4E27-9D5F-64B8A2F0C955}\n" +
                                   keys);
    }
    // The names of the creators are paths; the locator takes them as they are.
    void WriteLocator(const std::string& creator) const
    {
        m_Scratch.WriteBytes("Game/Game.proj00", "[Project Binaries]\nGameDatabase=" + creator + "\n");
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
    // "refuse <call>" or "throw <call>"; empty for a creator that behaves.
    static void SetCreatorMode(const std::string& mode) { ::setenv("CORVANE_TEST_CREATOR", mode.c_str(), 1); }

    // Compiles and tells what came of it: the packed file, the events (that of the end is negative when it
    // carries false) and whatever was shown.
    std::string Compile(std::uint32_t flags = 0, std::uint32_t build = 0)
    {
        if (!m_pManager->IsOpen())
            Open();
        m_sEvents.clear();
        m_sShown.clear();
        m_Questions.Clear();
        m_Observer = m_pManager->AddObserver([this](const CCorvaneEvent& event) { return Note(event); });
        const bool built = m_Compiler.CompileDatabase(flags, GetText(kPacked), build);
        const std::filesystem::directory_iterator files(GetPath(""));
        EXPECT_TRUE(std::none_of(begin(files), end(files),
                                 [](const auto& file) { return file.path().extension() == ".corvane-tmp"; }));
        EXPECT_TRUE(m_pManager->GetCompiledRecords().IsEmpty());
        EXPECT_TRUE(m_pManager->GetCompiledCategories().IsEmpty());
        for (const CQuestion& question : m_Questions.GetQuestions())
            m_sShown += "; " + ToNarrow(question.m_sTitle + u": " + question.m_sText);
        return (built ? "built " : "failed, ") + DescribePacked() + m_sEvents + m_sShown;
    }
    [[nodiscard]] std::string ReadPacked() const
    {
        return m_Scratch.ReadBytes("Game/Database/Packed.Gamdb00p");
    }

    void ShowFindings(const CValidateCore&, bool modal) override { m_sShown += modal ? " modal" : " pane"; }

    std::string m_sShown;
    CDatabaseCompiler m_Compiler{*m_pManager, this};

private:
    int Note(const CCorvaneEvent& event)
    {
        const int code = static_cast<int>(event.GetCode());
        if (code == 8 || code == 9 || (code >= 20 && code <= 25))
            m_sEvents += (code == 9 && !event.GetResult() ? " -" : " ") + std::to_string(code);
        return 0;
    }
    [[nodiscard]] std::string DescribePacked() const
    {
        if (!std::filesystem::is_regular_file(GetPath(kPacked)))
            return "none";
        const std::string packed = ReadPacked();
        return packed.starts_with("database 1\n") ? "new" : packed;
    }

    std::string m_sEvents;
    CObserverHandle m_Observer;
};
