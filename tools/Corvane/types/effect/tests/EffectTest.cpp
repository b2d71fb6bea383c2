#include "effect/CorvaneTypeEffect.h"

#include "EffectBytes.h"
#include "TestAttribute.h"
#include "Unicode.h"
#include "effect/EffectList.h"

#include <gtest/gtest.h>

namespace
{
constexpr const char* kFolder = "Game/Data/visualfx/";

std::string GetNames(CTestDatabase& test)
{
    std::string names;
    for (const std::u16string& name : test.Get().GetTypeState<CEffectList>().GetNames())
        names += ToNarrow(name) + ';';
    return names;
}
} // namespace

TEST(EffectList, IsThatOfTheFilesInTheirOrder)
{
    CTestAttribute test(u"Effect", {});
    EXPECT_EQ(GetNames(test), "<none>;") << "there is no folder";
    std::string other = MakeEffectFile({"Other"});
    PutNumber(other, 4, 3);
    const std::pair<const char*, std::string> files[] = {
        {"b.Fx00p", MakeEffectFile({"Smoke", "spark"})},
        {"A.FX00P", MakeEffectFile({"Spark", "Fire"})},
        {"xFx00p", MakeEffectFile({"NoPoint"})},
        {"Fx00p", MakeEffectFile({"NameTooShort"})},
        {"c.Fx00", MakeEffectFile({"OtherEnding"})},
        {"sub.Fx00p/d.Fx00p", MakeEffectFile({"Deep"})},
        {"other.Fx00p", other},
        {"cut.Fx00p", MakeEffectFile({"Cut"}).substr(0, 47)},
    };
    for (const auto& [name, bytes] : files)
        test.m_Scratch.WriteBytes(std::string(kFolder) + name, bytes);
    test.m_Failure = [](EFileOperation operation, std::u16string_view path)
    {
        return operation == EFileOperation::ReadFile && path.ends_with(u"b.Fx00p") ? EFileError::AccessDenied
                                                                                   : EFileError::None;
    };
    ASSERT_TRUE(test.Open());
    EXPECT_EQ(GetNames(test), "<none>;Spark;Fire;NoPoint;");
    EXPECT_EQ(test.GetTitles(), "File Open Failed;File Open Failed;") << "one is closed, one is cut";

    test.m_Failure = nullptr;
    EXPECT_EQ(GetNames(test), "<none>;Spark;Fire;NoPoint;") << "only a load reads anew";
    ASSERT_TRUE(test.Open());
    EXPECT_EQ(GetNames(test), "<none>;Spark;Fire;Smoke;spark;NoPoint;");
    auto& list = *test.Get<CCorvaneTypeEffect>().GetEffectList();
    EXPECT_EQ(list.Find(u"SPARK"), 1u);
    EXPECT_EQ(list.Find(u"<NONE>"), 0u);
    EXPECT_FALSE(list.Find(u""));
}

// The list is asked for before the new project is known: it must not be that of the project before.
TEST(EffectList, EachDatabaseHasItsOwnProjectsEffects)
{
    CTestAttribute test(u"Effect", {u"Default=Mine"});
    EXPECT_EQ(test.GetDefaultMessages().size(), 1u);
    test.m_Scratch.WriteBytes(std::string(kFolder) + "a.Fx00p", MakeEffectFile({"Mine"}));
    std::filesystem::copy(test.m_Scratch.GetPath() / "Game", test.m_Scratch.GetPath() / "Second",
                          std::filesystem::copy_options::recursive);
    test.m_Scratch.WriteBytes("Second/Data/VisualFX/a.Fx00p", MakeEffectFile({"Theirs"}));
    std::filesystem::remove_all(test.m_Scratch.GetPath() / "Second/Data/visualfx");
    test.m_Questions.Clear();
    ASSERT_TRUE(test.Open());
    EXPECT_EQ(GetNames(test), "<none>;Mine;");
    EXPECT_TRUE(test.GetDefaultMessages().empty());
    ASSERT_TRUE(test.CTestDatabase::Get().OpenDatabase(test.m_Scratch.Text("Second/Database/Root.Gamdb00s")));
    EXPECT_EQ(GetNames(test), "<none>;Theirs;");
    EXPECT_EQ(test.GetDefaultMessages().size(), 1u);
}

TEST(Effect, ADefaultThatIsNotListedIsNone)
{
    CTestAttribute test(u"Effect", {u"Default=Spark"});
    EXPECT_EQ(test.GetDefaultMessages(),
              std::vector<std::u16string>{u"The attribute 'Value' of schema 'Thing' contains an invalid "
                                          u"default effect of 'Spark'."});
    EXPECT_EQ(test.GetTemplate().GetOwnValues().Get(0), u"<none>");
    test.m_Scratch.WriteBytes(std::string(kFolder) + "a.Fx00p", MakeEffectFile({"SPARK"}));
    test.m_Questions.Clear();
    ASSERT_TRUE(test.Open());
    EXPECT_TRUE(test.GetDefaultMessages().empty());
    EXPECT_EQ(test.GetTemplate().GetOwnValues().Get(0), u"Spark");
}

TEST(Effect, NoEffectHasManySpellingsAndOneOutput)
{
    CTestAttribute test(u"Effect", {u"Values=-1"});
    test.m_Scratch.WriteBytes(std::string(kFolder) + "a.Fx00p", MakeEffectFile({"Spark"}));
    ASSERT_TRUE(test.Open());
    CCorvaneType& attrib = test.CTestAttribute::Get<>();
    EXPECT_EQ(attrib.GetValue(0), u"<none>");
    ASSERT_TRUE(attrib.SetValue(0, u"<NONE>"));
    EXPECT_EQ(attrib.GetOwnValues().Get(0), u"");
    for (const std::u16string_view value : {u"<NONE>", u"sPARK", u"Gone"})
        ASSERT_TRUE(attrib.AddValue(value));
    EXPECT_EQ(test.Check({}), "1 Invalid Effect 3: Invalid effect 'Gone'\n");
    EXPECT_EQ(test.GetOutputs(), "CreateAttribute 7 Value 4 2 4\nSetText 42 0 \nSetText 42 1 \n"
                                 "SetText 42 2 sPARK\nSetText 42 3 Gone\n"
                                 "CreateAttribute 9  4 Value  Effect 1 -1\nSetText 42 \nSetText 42 \n"
                                 "SetText 42 sPARK\nSetText 42 Gone\n");
    EXPECT_EQ(test.GetDependencies(), "All/One sPARK Effect\nAll/One Gone Effect\n");
}
