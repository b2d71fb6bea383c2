// Values of attributes: where they come from, how files hold them, how they change.
#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "TestDatabase.h"
#include "UndoScope.h"
#include "Unicode.h"

#include <gtest/gtest.h>

#include <random>

namespace
{
// Top <- Middle <- Bottom, with one value, three values, and any number of them.
void WriteChain(const CTestDatabase& database)
{
    database.AddSchema("S", "[Attrib.One.0]\nType=Text\nDefault=d1\n\n"
                            "[Attrib.Three.0]\nType=Text\nDefault=d3\nValues=3\n\n"
                            "[Attrib.Any.0]\nType=Text\nDefault=dx\nValues=-1\n\n");
    database.AddCategory("C", "S");
    database.AddRecord("C/Top", "S",
                       "[Attrib.One]\nValue.0000=top\n\n[Attrib.Three]\nValue.0001=t1\n\n"
                       "[Attrib.Any]\nValue.0000=x0\nValue.0001=x1\n\n");
    const auto child = [&](std::string_view path, std::string_view parent, std::string_view sections)
    {
        database.AddRecord(path, "S",
                           "[Hierarchy]\nRecord=" + std::string(parent) + "\n\n" + std::string(sections));
    };
    child("C/Middle", "C/Top",
          "[Attrib.One]\nInherit=TRUE\nValue.0000=own\n\n[Attrib.Any]\nInherit=True\n\n");
    child("C/Bottom", "C/Middle", "[Attrib.One]\nInherit=True\n\n[Attrib.Three]\nValue.0000=b0\n\n");
    database.AddRecord("C/Other", "S",
                       "[Attrib.Three]\nValue.0000=o0\nValue.0002=lost\n\n[Attrib.Any]\nInherit=False\n\n");
}

// All values and one past the end, with a mark behind those that are set.
std::string Show(const CCorvaneType& attrib)
{
    std::string text = " [";
    for (std::size_t i = 0; i <= attrib.GetValueCount(); ++i)
        text += ToNarrow(attrib.GetValue(i)) + (attrib.IsValueSet(i) ? " " : "?]");
    return text;
}

class ValueFile : public testing::Test, protected CTestDatabase
{
};

class ValueChain : public ValueFile
{
protected:
    void SetUp() override
    {
        WriteChain(*this);
        ASSERT_TRUE(Open());
    }
};
} // namespace

TEST_F(ValueChain, ResolvesThroughParentsAndDefaults)
{
    std::string text;
    for (const char* record : {"C/Top", "C/Middle", "C/Bottom", "C/Other"})
    {
        text += record;
        for (const char* name : {"One", "Three", "Any"})
            text += Show(Attrib(record, name));
        text += "\n";
    }
    // The first missing key ends the values of a file, and the default takes the place of what is missing. No
    // section is inherited, and one without values has none.
    EXPECT_EQ(text, "C/Top [top d1?] [d3 d3 d3 d3?] [x0 x1 dx?]\n"
                    "C/Middle [top d1?] [d3 d3 d3 d3?] [x0 x1 dx?]\n"
                    "C/Bottom [top d1?] [b0 d3 d3 d3?] [x0 x1 dx?]\n"
                    "C/Other [d1 d1?] [o0 d3 d3 d3?] [dx?]\n");
    // A parent with fewer values lends its own default; so does a change of the schema's default to all.
    CCorvaneType& top = Attrib("C/Top", "Any");
    ASSERT_TRUE(top.RemoveValue(0) && top.RemoveValue(0));
    EXPECT_EQ(Value("C/Bottom", "Any"), "dx");
    static_cast<CCorvaneType&>(const_cast<CCorvaneAttrib&>(*top.GetDefault())).ReplaceValues({});
    EXPECT_EQ(Attrib("C/Bottom", "Any").GetValue(0), u"");
}

TEST(ValueList, AListKeepsWhatAVectorWould)
{
    // Around the length that lies inside the object, with texts that lie in the list itself.
    const std::u16string texts[] = {u"", u"x", std::u16string(11, u'i'), std::u16string(12, u'h'),
                                    std::u16string(99, u'l')};
    std::mt19937 random(5);
    CCorvaneValueList list;
    std::vector<std::u16string> expected;
    for (int step = 0; step < 5000; ++step)
    {
        const std::size_t at = expected.empty() ? 0 : random() % expected.size();
        const bool own = !expected.empty() && random() % 3 == 0;
        const std::u16string text = own ? expected[at] : texts[random() % std::size(texts)];
        const std::u16string_view source = own ? list.Get(at) : std::u16string_view(text);
        const auto place = expected.begin() + static_cast<std::ptrdiff_t>(at);
        const std::size_t what = random() % (expected.empty() ? 2 : 6);
        if (what == 0)
            list = CCorvaneValueList(list);
        else if (what == 1)
            list.Insert(at, source), expected.insert(place, text);
        else if (what == 2)
            list.Add(source), expected.push_back(text);
        else if (what == 3)
            list.Set(expected.size() - 1 - at, source), expected[expected.size() - 1 - at] = text;
        else
            list.Remove(at), expected.erase(place);
        ASSERT_EQ(list.GetCount(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i)
            ASSERT_EQ(list.Get(i), expected[i]) << step;
    }
}

TEST_F(ValueFile, ReadsTextsMarksAndValuesInAnyOrder)
{
    AddSchema("S", "[Attrib.A.0]\nType=Text\nDefault=d\nValues=-1\n\n[Attrib.B.0]\nType=Text\n\n");
    AddCategory("C", "S");
    AddRecord(
        "C/R", "S",
        "[attrib.a.0]\nVALUE.0001=1\nLock=mia\nTodo=True\nComment=C:\\\\dir\\nnext\\r\\nlast\nValue.0000=0\n"
        "Value.0000=again\nvalue.0002=2\nValue.0004=4\nOverride=true\nModified=yes\nPlaceHolder=TRUE\n\n"
        "[Attrib.A]\nValue.0000=form without a build\n\n[Attrib.B]\nLock=\n\n",
        "Comment=a\\rb\n");
    ASSERT_TRUE(Open());
    const CCorvaneType& a = Attrib("C/R", "A");
    EXPECT_EQ(Show(a), " [0 1 2 d?]");
    EXPECT_EQ(a.GetComment(), u"C:\\dir\r\nnext\r\nlast");
    EXPECT_EQ(Record("C/R").GetComment(), u"a\r\nb");
    EXPECT_TRUE(a.IsLocked() && a.IsTodo() && a.GetOverride() && a.IsPlaceHolder());
    EXPECT_FALSE(a.IsModified() || a.GetInherit());
    EXPECT_EQ(a.GetLockUser(), u"mia");
    EXPECT_FALSE(Attrib("C/R", "B").IsLocked());
    EXPECT_EQ(Value("C/R", "B"), "");
}

TEST_F(ValueFile, NewEntriesBeginWithOlderValues)
{
    AddSchema(
        "S",
        "[Attrib.M.0]\nType=Integer\nDefault=1\n\n[Attrib.M.20]\nType=Integer\nDefault=3\n\n"
        "[Attrib.M.10]\nType=Integer\nDefault=2\n\n[Attrib.N.30]\nType=Integer\nDefault=4\nDeleted=True\n\n");
    AddCategory("C", "S");
    AddRecord("C/Old", "S", "[Attrib.M]\nValue.0000=100\nInherit=False\n\n");
    AddRecord("C/Mid", "S", "[Attrib.M.10]\nValue.0000=200\n\n[Attrib.M.0]\nValue.0000=100\n\n");
    AddRecord("C/Child", "S", "[Hierarchy]\nRecord=C/Old\n\n[Attrib.M.20]\nValue.0000=5\n\n");
    ASSERT_TRUE(Open());
    EXPECT_EQ(GetTemplateList("S"), "M.20 M.10 M.0 N.30 ");
    const auto values = [&](const char* record)
    { return Value(record, "M", 20) + " " + Value(record, "M", 10) + " " + Value(record, "M", 0); };
    EXPECT_EQ(values("C/Old"), "100 100 100");
    EXPECT_EQ(values("C/Mid"), "200 200 100");
    EXPECT_EQ(values("C/Child"), "5 100 100");
    EXPECT_TRUE(Attrib("C/Child", "M", 10).GetInherit());
}

TEST_F(ValueChain, ChangesEndInheritanceAndReachTheDirtyMarks)
{
    CCorvaneType& middle = Attrib("C/Middle", "One");
    std::size_t told = 0;
    auto& observers = Record("C/Middle").GetChangeObservers();
    const CObserverHandle observer =
        observers.Add([&](CCorvaneAttrib& attrib, std::size_t index)
                      { return told += &attrib == &middle && index == 0 ? 1 : 100, 0; });
    ASSERT_TRUE(middle.SetValue(0, u"mine"));
    EXPECT_EQ(told, 1U);
    EXPECT_FALSE(middle.GetInherit());
    EXPECT_EQ(Value("C/Bottom", "One"), "mine");
    EXPECT_TRUE(Record("C/Middle").TestFlag(RECORD_FLAG_MODIFIED) && Get().IsDirty());

    CCorvaneType& any = Attrib("C/Top", "Any");
    ASSERT_TRUE(any.AddValue(any.GetValue(0)) && any.InsertValue(0, u"first") && any.MoveValueDown(0) &&
                any.MoveValueUp(3));
    EXPECT_EQ(Show(any), " [x0 first x0 x1 dx?]");
    EXPECT_FALSE(any.MoveValueUp(0) || any.MoveValueDown(3) || any.RemoveValue(4) || any.InsertValue(9, u""));
}

TEST_F(ValueChain, AClosedGateLeavesEverythingAsItWas)
{
    m_Gate.m_bConnected = true;
    m_Gate.m_bGrant = false;
    const CUndoScope scope(m_Undo);
    CCorvaneRecord& record = Record("C/Middle");
    CCorvaneType& one = Attrib("C/Middle", "One");
    CCorvaneType& any = Attrib("C/Middle", "Any");
    EXPECT_FALSE(one.SetValue(0, u"x") || any.AddValue(u"x") || one.SetComment(u"x") ||
                 one.SetModified(true));
    EXPECT_FALSE(record.SetName(u"x") || record.SetComment(u"x") || record.SetCategory(nullptr, false));
    EXPECT_EQ(m_Gate.m_nAsked, 7);
    EXPECT_EQ(Value("C/Middle", "One") + Value("C/Middle", "Any", 0, 1), "topx1");
    EXPECT_TRUE(one.GetInherit() && one.GetComment().empty());
    // With an open gate too, a fixed size and a wrong index change nothing.
    m_Gate.m_bGrant = true;
    CCorvaneType& fixed = Attrib("C/Middle", "Three");
    EXPECT_FALSE(fixed.AddValue(u"x") || fixed.RemoveValue(0) || fixed.SetValue(3, u"x") ||
                 fixed.MoveValueUp(1));
    EXPECT_FALSE(record.TestFlag(RECORD_FLAG_MODIFIED) || Get().IsDirty() || m_Undo.Refers(one) ||
                 m_Undo.Refers(fixed));
    EXPECT_TRUE(record.SetName(u"Middle"));
    EXPECT_EQ(m_Gate.m_nAsked, 7) << "the same name asks nobody";
}

TEST_F(ValueChain, MarksPassTheGateAndHaveNoUndo)
{
    CCorvaneRecord& record = Record("C/Middle");
    CCorvaneType& one = Attrib("C/Middle", "One");
    const std::function<bool(bool)> edits[] = {
        [&](bool on) { return one.EditComment(on ? u"text" : u""); },
        [&](bool on) { return one.EditLock(on, false); },
        [&](bool on) { return one.EditInherit(!on); },
        [&](bool on) { return one.EditOverride(on); },
        [&](bool on) { return one.EditTodo(on); },
        [&](bool on) { return one.EditPlaceHolder(on); },
    };
    m_Gate.m_bConnected = true;
    m_Questions.Prepare(u"Confirm Unlock", {EAnswer::No, EAnswer::Yes});
    const CUndoScope scope(m_Undo);
    std::string states;
    const auto edit = [&](const std::function<bool(bool)>& change, bool on, bool grant)
    {
        m_Gate.m_bGrant = grant;
        record.SetModified(false);
        const bool done = change(on);
        EXPECT_EQ(record.TestFlag(RECORD_FLAG_MODIFIED), done);
        states += ToNarrow(one.GetComment()) + ToNarrow(one.GetLockUser()) + (one.IsLocked() ? "L" : "") +
                  (one.GetInherit() ? "I" : "") + (one.GetOverride() ? "O" : "") + (one.IsTodo() ? "T" : "") +
                  (one.IsPlaceHolder() ? "P" : "") + (done ? " " : "! ");
    };
    for (const std::function<bool(bool)>& change : edits)
    {
        edit(change, true, false);
        edit(change, true, true);
        EXPECT_TRUE(change(true)) << "what stands is left without asking";
        edit(change, false, true);
    }
    edit(edits[1], false, true);
    // The first question about the lock was answered with a no.
    EXPECT_EQ(states, "I! textI I I! testerLI testerLI! testerLI! testerL testerLI "
                      "testerLI! testerLIO testerLI testerLI! testerLIT testerLI "
                      "testerLI! testerLIP testerLI I ");
    EXPECT_FALSE(m_Undo.Refers(one));
    EXPECT_EQ(ToNarrow(m_Questions.GetQuestions()[0].m_sText),
              "This attribute has been locked by the following user.\n\nAttribute: \tOne\nLock "
              "User:\ttester\n\nAre you sure you want to unlock this attribute?");
    EXPECT_FALSE(Attrib("C/Top", "One").EditInherit(true)) << "no parent to inherit from";
}

TEST_F(ValueChain, UndoExchangesValues)
{
    CCorvaneType& one = Attrib("C/Top", "One");
    CCorvaneType& any = Attrib("C/Top", "Any");
    CCorvaneRecord& record = Record("C/Top");
    {
        CUndoScope scope(m_Undo);
        ASSERT_TRUE(one.SetValue(0, u"new"));
        scope.Accept(u"");
    }
    EXPECT_TRUE(m_Undo.Refers(one) && !m_Undo.Refers(any));
    {
        CUndoScope scope(m_Undo);
        ASSERT_TRUE(any.AddValue(u"x2"));
        scope.Accept(u"");
    }
    for (int round = 0; round < 2; ++round)
    {
        EXPECT_TRUE(m_Undo.Undo(2));
        EXPECT_EQ(Value("C/Top", "One"), "top");
        EXPECT_EQ(any.GetValueCount(), 2U);
        record.SetModified(false);
        EXPECT_TRUE(m_Undo.Redo(1));
        EXPECT_TRUE(record.TestFlag(RECORD_FLAG_MODIFIED)) << "what was done again must be saved";
        EXPECT_TRUE(m_Undo.Redo(1));
        EXPECT_EQ(Value("C/Top", "One") + ToNarrow(any.GetValue(2)), "newx2");
    }
    // What the point would take back is gone.
    ASSERT_TRUE(any.RemoveValue(2));
    EXPECT_FALSE(m_Undo.Undo(1));
}

TEST_F(ValueChain, CopiesReferencesAndOrphans)
{
    CCorvaneRecord& top = Record("C/Top");
    const CRef<CCorvaneRecord> child = top.CreateReference();
    const CRef<CCorvaneRecord> grandchild = child->CreateReference();
    EXPECT_EQ(child->GetParent(), &top);
    EXPECT_EQ(child->GetAttributeList()[0]->GetGuid(), top.GetAttributeList()[0]->GetGuid());
    const CCorvaneAttrib& one = *grandchild->GetAttributeList()[0];
    ASSERT_TRUE(Attrib("C/Top", "One").SetValue(0, u"changed"));
    EXPECT_EQ(one.GetValue(0), u"changed");
    // The end of a parent orphans its referencees: they keep their own values.
    child->Clear();
    EXPECT_FALSE(grandchild->GetParent() || one.GetInherit());
    EXPECT_EQ(one.GetValue(0), u"top");
    EXPECT_EQ(top.GetReferencees().size(), 1U);
    // A disconnected one keeps its marks.
    CCorvaneRecord& middle = Record("C/Middle");
    EXPECT_TRUE(top.DisconnectReferencee(middle));
    EXPECT_FALSE(top.DisconnectReferencee(middle));
    EXPECT_TRUE(middle.GetAttributeList()[0]->GetInherit());
    EXPECT_EQ(Value("C/Middle", "One"), "own");
    grandchild->Clear();
}
