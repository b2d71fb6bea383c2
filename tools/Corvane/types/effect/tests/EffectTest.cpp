#include "effect/CorvaneTypeEffect.h"

#include "EffectBytes.h"
#include "TestAttribute.h"
#include "Unicode.h"
#include "effect/EffectList.h"

#include <gtest/gtest.h>

namespace
{
constexpr const char* kFolder = "Game/Data/visualfx/";

// The list's names and then the titles of what a load of the root file told.
std::string Load(CTestDatabase& test, const char* root = "Game/Database/Root.Gamdb00s")
{
    test.m_Questions.Clear();
    EXPECT_TRUE(test.Get().OpenDatabase(test.m_Scratch.Text(root)));
    std::string names;
    for (const std::u16string& name : test.Get().GetTypeState<CEffectList>().GetNames())
        names += ToNarrow(name) + ';';
    return names + ' ' + test.GetTitles();
}
} // namespace

TEST(EffectList, IsThatOfTheFilesInTheirOrder)
{
    CTestDatabase test;
    EXPECT_EQ(Load(test), "<none>; ") << "there is no folder";
    std::string other = MakeEffectFile({"Other"});
    PutNumber(other, 4, 3);
    const std::pair<const char*, std::string> files[] = {
        {"b.Fx00p", MakeEffectFile({"Smoke", "", "spark", "Fl\xC3\xA4mmchen"})},
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
    EXPECT_EQ(Load(test), "<none>;Spark;Fire;NoPoint; File Open Failed;File Open Failed;");
    test.m_Failure = nullptr;
    EXPECT_EQ(Load(test), "<none>;Spark;Fire;Smoke;;spark;Fl\xC3\xA4mmchen;NoPoint; File Open Failed;");
    auto& list = test.Get().GetTypeState<CEffectList>();
    EXPECT_EQ(list.Find(u"SPARK"), 1u);
    EXPECT_EQ(list.Find(u"<NONE>"), 0u);
    EXPECT_FALSE(list.Find(u"Gone"));
}

// The list is asked for before the new project is known: it must not be that of the project before.
TEST(EffectList, EachDatabaseHasItsOwnProjectsEffects)
{
    CTestAttribute test(u"Effect", {u"Default=Mine"});
    test.m_Scratch.WriteBytes(std::string(kFolder).append("a.Fx00p"), MakeEffectFile({"MINE"}));
    std::filesystem::copy(test.m_Scratch.GetPath() / "Game", test.m_Scratch.GetPath() / "Second",
                          std::filesystem::copy_options::recursive);
    test.m_Scratch.WriteBytes("Second/Data/VisualFX/a.Fx00p", MakeEffectFile({"Theirs"}));
    std::filesystem::remove_all(test.m_Scratch.GetPath() / "Second/Data/visualfx");
    EXPECT_EQ(Load(test), "<none>;MINE; ");
    EXPECT_EQ(test.GetTemplate().GetOwnValues().Get(0), u"Mine");
    EXPECT_EQ(Load(test, "Second/Database/Root.Gamdb00s"), "<none>;Theirs; Invalid Schema Default Value;");
}

TEST(Effect, NoEffectHasManySpellings)
{
    CTestAttribute test(u"Effect", {u"Values=-1"});
    test.m_Scratch.WriteBytes(std::string(kFolder).append("a.Fx00p"), MakeEffectFile({"Spark"}));
    ASSERT_TRUE(test.Open());
    test.Set({u"<NONE>", u"<NONE>", u"sPARK", u"Gone"});
    EXPECT_EQ(test.CTestAttribute::Get().GetOwnValues().Get(0), u"");
    EXPECT_EQ(test.Check(), "1 Invalid Effect 3: Invalid effect 'Gone'\n");
}
