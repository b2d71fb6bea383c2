// What the attributes of a type share must be that of the database that is open. Two databases with other
// files under the same paths are loaded one after the other, and each must give the findings that it gives
// alone.
#include "TestAttribute.h"
#include "Unicode.h"
#include "effect/tests/EffectBytes.h"

#include <gtest/gtest.h>

namespace
{
constexpr const char* kSchema = "[Attrib.Burst.0]\nType=Effect\nDefault=Spark\n\n"
                                "[Attrib.Trade.0]\nType=Enum\nData=Trades.enum\nDefault=Smith\n\n"
                                "[Attrib.Kit.0]\nType=Struct\nData=Kit.struct\n\n"
                                "[Attrib.Ally.0]\nType=RecordLink\nData=public Base\nDefault=All/One\n\n"
                                "[Attrib.Title.0]\nType=StringID\nDefault=IDS_MENU\n";

constexpr const char* kRecord = "[Attrib.Burst.0]\nInherit=False\nValue.0000=Spark\n\n"
                                "[Attrib.Trade.0]\nInherit=False\nValue.0000=Smith\n\n"
                                "[Attrib.Kit.0]\nInherit=False\n\n"
                                "[Attrib.Kit.0.0.Part.0]\nInherit=False\nValue.0000=4\n\n"
                                "[Attrib.Title.0]\nInherit=False\nValue.0000=IDS_GONE\n";

struct SVariant
{
    const char* effect;
    const char* words;
    const char* member;
    const char* parent;
    const char* table;
};

constexpr SVariant kFirst = {"Spark", "Smith\nCook\n", "Type=Integer\nData=max=5\nDefault=5\n", "Base",
                             "Strings.mo"};
constexpr SVariant kSecond = {"Smoke", "Cook\nGuard\n", "Type=Enum\nData=Trades.enum\nDefault=Smith\n",
                              "Other", "Missing.mo"};

void Write(const CTestDatabase& database, const SVariant& variant)
{
    database.m_Scratch.WriteBytes("Game/Data/VisualFX/a.Fx00p", MakeEffectFile({variant.effect}));
    database.Write(
        "Root.Gamdb00s",
        std::string("[General]\nDatabase={11111111-2222-3333-4444-555555555555}\nStringDatabase=") +
            variant.table + "\n");
    database.Write("Schemas/Trades.enum", variant.words);
    database.Write("Schemas/Kit.struct", std::string("[Attrib.Part.0]\n") + variant.member);
    database.AddSchema("Base", "");
    database.AddSchema("Other", "");
    database.AddSchema("Thing", kSchema, variant.parent);
    database.AddCategory("All", "Thing");
    database.AddRecord("All/One", "Thing", kRecord);
    const std::filesystem::path library = database.m_Scratch.GetPath() / "modules/libGlossarRuntime.so";
    std::filesystem::create_directories(library.parent_path());
    std::filesystem::copy_file(GLOSSAR_LIBRARY, library, std::filesystem::copy_options::skip_existing);
    std::filesystem::copy_file(GLOSSAR_CATALOGUE, database.GetPath("Strings.mo"),
                               std::filesystem::copy_options::skip_existing);
}

// Loads what is written, and tells what was told and what each attribute reports.
std::string Load(CTestDatabase& database)
{
    database.m_Questions.Clear();
    EXPECT_TRUE(database.Open());
    std::string findings;
    for (const CRef<CCorvaneAttrib>& attrib : database.Record("All/One").GetAttributeList())
    {
        CRecordingSink sink;
        attrib->Validate(&sink);
        findings += ToNarrow(attrib->GetName()) + ":\n" + sink.m_sLines;
    }
    return findings + database.GetTitles();
}

std::string LoadAlone(const SVariant& variant)
{
    CTestDatabase database;
    Write(database, variant);
    return Load(database);
}
} // namespace

TEST(SharedState, IsThatOfTheOpenDatabase)
{
    const std::string first = LoadAlone(kFirst);
    const std::string second = LoadAlone(kSecond);
    EXPECT_EQ(first, "Burst:\nTrade:\nKit:\nAlly:\nTitle:\n"
                     "0 Invalid String ID 0: Invalid StringID 'IDS_GONE'\n");
    EXPECT_EQ(second,
              "Burst:\n1 Invalid Effect 0: Invalid effect 'Spark'\n"
              "Trade:\n1 Invalid Enum 0: The value 'Smith' is not a valid enum\n"
              "Kit:\n1 Invalid Enum 0: The value '4' is not a valid enum\n"
              "Ally:\n1 Invalid Record Link 0: Invalid record 'All/One'.  The record is of an invalid "
              "schema type.\nTitle:\n"
              "Invalid Schema Default Value;Invalid Schema Default Value;Invalid Schema Default Value;"
              "File Not Found;");

    CTestDatabase database;
    for (const SVariant& variant : {kFirst, kSecond, kSecond, kFirst})
    {
        Write(database, variant);
        EXPECT_EQ(Load(database), variant.effect == kFirst.effect ? first : second);
    }
}
