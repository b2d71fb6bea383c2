// What every type owes the system, run over each word of the registry. A new type gets these tests with its
// line in the list of types; what is special to it has tests in its own folder.
#include "CorvaneRecord.h"
#include "CorvaneSchema.h"
#include "CorvaneSchemaAttribData.h"
#include "NameCompare.h"
#include "RecordingCreator.h"
#include "RegisterTypes.h"
#include "TestAttribute.h"
#include "UndoScope.h"
#include "Unicode.h"
#include "UnicodeFileParse_ReadOnly.h"
#include "UnicodeFileParse_ReadWrite.h"

#include <algorithm>
#include <cstdio>
#include <gtest/gtest.h>
#include <iterator>
#include <typeinfo>

namespace
{
constexpr std::u16string_view kAllWords[] = {u"Text",    u"Memo",    u"Boolean", u"Integer",    u"Float",
                                             u"Vector2", u"Vector3", u"Vector4", u"File",       u"Sound",
                                             u"Enum",    u"Range",   u"Time",    u"RecordLink", u"Color",
                                             u"Flags",   u"Effect",  u"Struct",  u"StringID"};
// A struct holds rows of other attributes and no text of its own; what is asked here of texts is asked there
// of a member of each type.
constexpr std::u16string_view kWordWithoutTexts = u"Struct";

// A schema's Data line and three values that fit it, for a type that does not take any text.
struct SSample
{
    std::u16string_view m_sWord;
    std::u16string_view m_sData;
    std::u16string_view m_Values[3];
};
constexpr SSample kSamples[] = {
    {u"Enum", u"Data=one;two;three", {u"one", u"two", u"THREE"}},
    {u"RecordLink", u"Data=Thing", {u"All/One", u"all/one", u"All/One"}},
};

SSample GetSample(std::u16string_view word)
{
    const auto found = std::find_if(std::begin(kSamples), std::end(kSamples),
                                    [&](const SSample& sample) { return sample.m_sWord == word; });
    return found != std::end(kSamples) ? *found : SSample{word, u"Data=", {u"1", u"1", u"1"}};
}

std::vector<std::u16string> GetRegisteredWords()
{
    CCorvaneTypeMgr types;
    CorvaneSchemaAttribDataMgr attribData;
    RegisterCorvaneTypes(types, attribData);
    std::vector<std::u16string> words;
    for (const CCorvaneTypeMgr::SEntry& entry : types.GetEntries())
        words.push_back(entry.m_sName);
    return words;
}

std::vector<std::u16string> GetWordsOfTexts()
{
    std::vector<std::u16string> words = GetRegisteredWords();
    std::erase(words, kWordWithoutTexts);
    return words;
}

// The setter that fits a value type code.
std::string GetSetter(std::int32_t code)
{
    static const char* const kSetters[] = {"SetBoolean", "SetFloat",    "SetInteger",
                                           "SetText",    "SetWideText", "SetVector2",
                                           "SetVector3", "SetVector4",  "SetRecordLink"};
    return code >= 1 && code <= 9 ? kSetters[code - 1] : "";
}

class TypeConformance : public testing::TestWithParam<std::u16string>
{
protected:
    // A variable list of `count` values, at most four: the default's and then the sample's.
    void Fill(CCorvaneType& attrib, std::size_t count)
    {
        for (std::size_t i = attrib.GetValueCount(); i < count; ++i)
            ASSERT_TRUE(attrib.AddValue(m_Sample.m_Values[i - 1]));
    }

    const SSample m_Sample = GetSample(GetParam());
    CTestAttribute m_Fixed{GetParam(), {std::u16string(m_Sample.m_sData), u"Values=2"}};
    CTestAttribute m_Variable{GetParam(), {std::u16string(m_Sample.m_sData), u"Values=-1"}};
};
} // namespace

TEST(TypeRegistry, HoldsEachWordOnceInTheOrderOfTheList)
{
    EXPECT_EQ(GetRegisteredWords(), std::vector<std::u16string>(std::begin(kAllWords), std::end(kAllWords)));
    EXPECT_EQ(GetWordsOfTexts().size(), std::size(kAllWords) - 1);
}

TEST(TypeRegistry, EachTypeHasItsOwnIdentityAndAnyLetterCase)
{
    EXPECT_EQ(CTestAttribute(u"tEXT", {}).Get().GetTypeName(), u"Text");
    EXPECT_THROW(CTestAttribute(u"Texts", {}), std::runtime_error);
    std::vector<std::pair<CGuid, std::u16string>> seen;
    for (const std::u16string& word : GetRegisteredWords())
    {
        CTestAttribute test(word, {});
        EXPECT_FALSE(test.Get().GetTypeGuid().IsNull());
        seen.emplace_back(test.Get().GetTypeGuid(), test.Get().GetTypeName());
        for (const auto& [guid, name] : seen)
            EXPECT_EQ(guid == seen.back().first, name == seen.back().second) << ToNarrow(word);
    }
}

TEST_P(TypeConformance, TakesItsOwnDefaultAsItStands)
{
    EXPECT_EQ(m_Fixed.Get().GetValueCount(), 2u);
    const std::u16string text(m_Fixed.GetTemplate().GetOwnValues().Get(0));
    CTestAttribute again(GetParam(), {std::u16string(m_Sample.m_sData), u"Default=" + text});
    EXPECT_EQ(again.GetTemplate().GetOwnValues().Get(0), text);
    EXPECT_EQ(again.Get().GetOwnValues().Get(0), text);
    EXPECT_EQ(again.Get().GetValueCount(), 1u);
    EXPECT_TRUE(EqualNames(again.Get().GetSchemaTypeName(), GetParam()));
    CRecordingSink sink;
    static_cast<void>(m_Fixed.Get().Validate(&sink)); // A type may have nothing to check against.
    EXPECT_EQ(sink.m_sLines, "");
}

TEST_P(TypeConformance, ClonesAreOfTheSameClassWithTheSameFields)
{
    CCorvaneType& source = m_Fixed.Get();
    ASSERT_TRUE(source.SetValue(1, m_Sample.m_Values[1]));
    const CRef<CCorvaneType> copy = source.Clone(nullptr);
    const CCorvaneType& clone = *copy;
    EXPECT_TRUE(typeid(clone) == typeid(source));
    EXPECT_TRUE(clone.IsSameAttribute(source) && clone.IsSameAttribute(m_Fixed.GetTemplate()));
    EXPECT_EQ(clone.GetAttribData(), source.GetAttribData());
    EXPECT_EQ(ShowValues(clone), ShowValues(source));
    EXPECT_EQ(clone.GetParentRecord(), nullptr);

    const CCorvaneSchemaAttribData& data = *source.GetAttribData();
    const CRef<CCorvaneSchemaAttribData> dataCopy = data.Clone();
    const CCorvaneSchemaAttribData& dataClone = *dataCopy;
    EXPECT_TRUE(typeid(dataClone) == typeid(data));
    EXPECT_EQ(dataClone.GetName(), u"Value");
    EXPECT_EQ(dataClone.GetValues(), 2);
    EXPECT_EQ(dataClone.GetSchema(), data.GetSchema());
}

TEST_P(TypeConformance, OnlyAVariableListGrowsAndShrinks)
{
    EXPECT_FALSE(m_Fixed.Get().AddValue(m_Sample.m_Values[2]));
    EXPECT_FALSE(m_Fixed.Get().RemoveValue(0));
    EXPECT_EQ(m_Fixed.Get().GetValueCount(), 2u);
    CCorvaneType& attrib = m_Variable.Get();
    EXPECT_TRUE(attrib.AddValue(m_Sample.m_Values[2]));
    EXPECT_EQ(attrib.GetValueCount(), 2u);
    EXPECT_TRUE(m_Variable.Record("All/One").TestFlag(RECORD_FLAG_MODIFIED));
    // Behind the end stands the default.
    EXPECT_TRUE(attrib.RemoveValue(1) && attrib.RemoveValue(0));
    EXPECT_EQ(attrib.GetValue(0), m_Variable.GetTemplate().GetValue(0));
    EXPECT_FALSE(attrib.IsValueSet(0));
    EXPECT_FALSE(attrib.SetValue(0, m_Sample.m_Values[0]));
}

// An edit passes the gate, is recorded, marks the record and then stands; undo and redo bring back the file's
// very bytes.
TEST_P(TypeConformance, AnEditIsGatedRecordedUndoneAndRedone)
{
    for (CTestAttribute* test : {&m_Fixed, &m_Variable})
    {
        CCorvaneType& attrib = test->Get();
        CCorvaneRecord& record = *attrib.GetParentRecord();
        const auto save = [&]
        {
            EXPECT_TRUE(record.GetManager().SaveRecord(&record, false));
            return ShowValues(attrib) + test->Read("All/One.record");
        };
        const std::string before = save();
        std::string steps;
        const auto step = [&]
        {
            steps += test->m_Undo.Refers(attrib) ? "recorded " : "";
            steps += record.TestFlag(RECORD_FLAG_MODIFIED) ? "marked " : "";
            steps += ShowValues(attrib) == ShowValues(test->GetTemplate()) ? "old;" : "new;";
            return 0;
        };
        test->m_Gate.m_bConnected = true;
        test->m_Gate.m_OnAsked = step;
        const CObserverHandle listener =
            record.GetChangeObservers().Add([&](CCorvaneAttrib&, std::size_t) { return step(); });
        {
            CUndoScope scope(test->m_Undo);
            ASSERT_TRUE(attrib.SetValue(0, before[0] == '1' ? u"0" : m_Sample.m_Values[2]));
            test->m_Gate.m_OnAsked = nullptr;
            EXPECT_EQ(steps, "old;recorded marked new;");
            ASSERT_EQ(attrib.AddValue(m_Sample.m_Values[1]), test == &m_Variable);
            scope.Accept(u"");
        }
        const std::string after = save();
        for (int round = 0; round < 2; ++round)
        {
            EXPECT_TRUE(test->m_Undo.Undo(1));
            EXPECT_EQ(save(), before);
            EXPECT_TRUE(test->m_Undo.Redo(1));
            EXPECT_EQ(save(), after);
        }
    }
}

TEST_P(TypeConformance, ARecordFileBringsTheValuesBack)
{
    CCorvaneType& attrib = m_Variable.Get();
    Fill(attrib, 3);
    ASSERT_TRUE(attrib.SetComment(u"a\r\nb"));
    CUnicodeFileParse_ReadWrite writer(m_Variable.m_Files);
    ASSERT_TRUE(attrib.SaveToFile(writer, u""));
    const std::u16string file = m_Variable.GetText("saved.txt");
    ASSERT_TRUE(writer.Export(file, EXPORT_UTF16LE));

    CUnicodeFileParse_ReadOnly parser(m_Variable.m_Files);
    ASSERT_TRUE(parser.Import(file, 0));
    CCorvaneType& loaded = m_Variable.GetChild();
    std::u16string name;
    loaded.GetSectionName(name, u"");
    const std::ptrdiff_t section = parser.FindSection(name);
    ASSERT_GE(section, 0);
    ASSERT_TRUE(
        loaded.LoadFromFile(*loaded.GetParentRecord(), nullptr, parser, static_cast<std::size_t>(section)));
    EXPECT_EQ(loaded.GetOwnValues().GetCount(), 3u);
    EXPECT_EQ(ShowValues(loaded), ShowValues(attrib));
    EXPECT_EQ(loaded.GetComment(), u"a\r\nb");
}

TEST_P(TypeConformance, CompileSendsTheEffectiveValues)
{
    // The child owns one value and shows the three of its parent.
    CCorvaneType& child = m_Variable.GetChild();
    Fill(m_Variable.Get(), 3);
    ASSERT_TRUE(m_Variable.Get().SetValue(0, m_Sample.m_Values[0]));
    ASSERT_EQ(child.GetOwnValues().GetCount(), 1u);
    CRecordingCreator creator;
    CreatorHandle handle = 0;
    ASSERT_TRUE(child.SaveToDatabase(creator, 7, 0, handle, u"Row.0"));
    EXPECT_EQ(handle, 42u);
    ASSERT_EQ(creator.m_Calls.size(), 4u);
    int code = 0, kind = 0, count = 0;
    std::sscanf(creator.m_Calls[0].c_str(), "CreateAttribute 7 Row.0.Value %d %d %d", &code, &kind, &count);
    EXPECT_EQ(count, 3);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_TRUE(creator.m_Calls[i + 1].starts_with(GetSetter(code) + " 42 " + std::to_string(i)));

    CRecordingCreator refusing;
    refusing.m_nRefusedCall = 0;
    EXPECT_FALSE(m_Fixed.Get().SaveToDatabase(refusing, 7, 0, handle, u""));
    EXPECT_EQ(handle, 0u);
    EXPECT_EQ(refusing.m_Calls.size(), 1u);
}

TEST_P(TypeConformance, OverrideOutputNeedsTheMarkAndAManagerAndEndsWithARefusal)
{
    CCorvaneType& attrib = m_Variable.Get();
    Fill(attrib, 3);
    CRecordingCreator taken;
    EXPECT_FALSE(attrib.SaveToOverride(&taken, 9, u"Category/", u"Row.0"));
    attrib.SetOverride(true);
    m_Variable.m_nExpectedAsserts = 2;
    EXPECT_FALSE(attrib.SaveToOverride(nullptr, 9, u"", u""));
    EXPECT_FALSE(attrib.SaveToOverride(&taken, 0, u"", u""));
    EXPECT_TRUE(taken.m_Calls.empty());

    ASSERT_TRUE(attrib.SaveToOverride(&taken, 9, u"Category/", u"Row.0"));
    int code = 0;
    std::sscanf(taken.m_Calls[0].c_str(), "CreateAttribute 9 %d", &code);
    EXPECT_NE(taken.m_Calls[0].find(" Category/Row.0.Value "), std::string::npos);
    EXPECT_TRUE(taken.m_Calls[0].ends_with(" 1 -1"));
    // A record is taken by its path.
    const std::string setter = GetSetter(code == DBVALUE_RECORDLINK ? DBVALUE_TEXT : code) + " ";
    EXPECT_EQ(std::count_if(taken.m_Calls.begin(), taken.m_Calls.end(),
                            [&](const std::string& call) { return call.starts_with(setter); }),
              3);
    for (std::size_t refused = 0; refused < taken.m_Calls.size(); ++refused)
    {
        CRecordingCreator creator;
        creator.m_nRefusedCall = refused;
        EXPECT_FALSE(attrib.SaveToOverride(&creator, 9, u"Category/", u"Row.0")) << taken.m_Calls[refused];
        EXPECT_EQ(creator.m_Calls.size(), refused + 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Types, TypeConformance, testing::ValuesIn(GetWordsOfTexts()),
                         [](const auto& entry) { return ToNarrow(entry.param); });
