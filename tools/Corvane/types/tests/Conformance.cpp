// What every type owes the system, run over each word of the registry. A new type gets these tests with its
// line in the list of types; what is special to it has tests in its own folder.
#include "AssertCapture.h"
#include "CorvaneRecord.h"
#include "CorvaneSchema.h"
#include "CorvaneSchemaAttribData.h"
#include "NameCompare.h"
#include "RecordingCreator.h"
#include "RegisterTypes.h"
#include "TestAttribute.h"
#include "Unicode.h"
#include "UnicodeFileParse_ReadOnly.h"
#include "UnicodeFileParse_ReadWrite.h"

#include <algorithm>
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

// The same for the override output, which takes a record by its path.
std::string GetOverrideSetter(std::int32_t code)
{
    return code == DBVALUE_RECORDLINK ? "SetText" : GetSetter(code);
}

std::vector<std::string> Split(const std::string& call)
{
    std::vector<std::string> words(1);
    for (const char c : call)
    {
        if (c == ' ')
            words.emplace_back();
        else
            words.back() += c;
    }
    return words;
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
    CTestAttribute m_Fixed{GetParam(), {m_Sample.m_sData, u"Values=2"}};
    CTestAttribute m_Variable{GetParam(), {m_Sample.m_sData, u"Values=-1"}};
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
    CTestAttribute again(GetParam(), {m_Sample.m_sData, u"Default=" + text});
    EXPECT_EQ(again.GetTemplate().GetOwnValues().Get(0), text);
    EXPECT_EQ(again.Get().GetOwnValues().Get(0), text);
    EXPECT_EQ(again.Get().GetValueCount(), 1u);
    EXPECT_TRUE(EqualNames(again.Get().GetSchemaTypeName(), GetParam()));
    CRecordingSink sink;
    static_cast<void>(m_Fixed.Get().Validate(&sink)); // A type may have nothing to check against.
    EXPECT_EQ(sink.m_sErrors, "");
}

TEST_P(TypeConformance, ClonesAreTheSameAttributeOfTheSameClass)
{
    CCorvaneType& source = m_Fixed.Get();
    ASSERT_TRUE(source.SetValue(1, m_Sample.m_Values[1]));
    const CRef<CCorvaneType> copy = source.Clone(nullptr);
    const CCorvaneType& clone = *copy;
    EXPECT_TRUE(typeid(clone) == typeid(source));
    EXPECT_TRUE(copy->IsSameAttribute(source));
    EXPECT_TRUE(copy->IsSameAttribute(m_Fixed.GetTemplate()));
    EXPECT_EQ(copy->GetAttribData(), source.GetAttribData());
    EXPECT_EQ(copy->GetValueCount(), 2u);
    EXPECT_EQ(copy->GetValue(1), source.GetValue(1));
    EXPECT_EQ(copy->GetParentRecord(), nullptr);
}

TEST_P(TypeConformance, DataClonesAreOfTheSameClassWithTheSameFields)
{
    const CCorvaneSchemaAttribData& data = *m_Variable.Get().GetAttribData();
    const CRef<CCorvaneSchemaAttribData> copy = data.Clone();
    ASSERT_TRUE(copy);
    const CCorvaneSchemaAttribData& clone = *copy;
    EXPECT_TRUE(typeid(clone) == typeid(data));
    EXPECT_EQ(copy->GetName(), u"Value");
    EXPECT_EQ(copy->GetValues(), kVariableValues);
    EXPECT_EQ(copy->GetSchema(), data.GetSchema());
}

TEST_P(TypeConformance, AnIndexPastTheEndReadsTheDefault)
{
    CCorvaneType& attrib = m_Variable.Get();
    const std::u16string text(m_Variable.GetTemplate().GetValue(0));
    ASSERT_TRUE(attrib.SetValue(0, m_Sample.m_Values[0]));
    EXPECT_EQ(attrib.GetValue(1), text);
    EXPECT_FALSE(attrib.IsValueSet(1));
    ASSERT_TRUE(attrib.RemoveValue(0));
    EXPECT_EQ(attrib.GetValueCount(), 0u);
    EXPECT_EQ(attrib.GetValue(0), text);
    EXPECT_FALSE(attrib.SetValue(0, m_Sample.m_Values[0]));
}

TEST_P(TypeConformance, OnlyAVariableListGrowsAndShrinks)
{
    EXPECT_FALSE(m_Fixed.Get().AddValue(m_Sample.m_Values[2]));
    EXPECT_FALSE(m_Fixed.Get().RemoveValue(0));
    EXPECT_EQ(m_Fixed.Get().GetValueCount(), 2u);
    EXPECT_TRUE(m_Variable.Get().AddValue(m_Sample.m_Values[2]));
    EXPECT_EQ(m_Variable.Get().GetValueCount(), 2u);
    EXPECT_TRUE(m_Variable.Record("All/One").TestFlag(RECORD_FLAG_MODIFIED));
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
    CCorvaneType& loaded = m_Variable.AddChild();
    std::u16string name;
    loaded.GetSectionName(name, u"");
    const std::ptrdiff_t section = parser.FindSection(name);
    ASSERT_GE(section, 0);
    ASSERT_TRUE(
        loaded.LoadFromFile(*loaded.GetParentRecord(), nullptr, parser, static_cast<std::size_t>(section)));
    EXPECT_EQ(loaded.GetOwnValues().GetCount(), 3u);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(loaded.GetOwnValues().Get(i), attrib.GetValue(i));
    EXPECT_EQ(loaded.GetComment(), u"a\r\nb");
}

TEST_P(TypeConformance, CompileSendsTheEffectiveValues)
{
    // The child owns one value and shows the three of its parent.
    CCorvaneType& child = m_Variable.AddChild();
    Fill(m_Variable.Get(), 3);
    ASSERT_TRUE(m_Variable.Get().SetValue(0, m_Sample.m_Values[0]));
    ASSERT_EQ(child.GetOwnValues().GetCount(), 1u);

    CRecordingCreator creator;
    CreatorHandle handle = 0;
    ASSERT_TRUE(child.SaveToDatabase(creator, 7, 0, handle, u"Row.0"));
    EXPECT_NE(handle, 0u);
    ASSERT_EQ(creator.m_Calls.size(), 4u);
    const std::vector<std::string> create = Split(creator.m_Calls[0]);
    ASSERT_EQ(create.size(), 6u);
    EXPECT_EQ(create[0] + ' ' + create[1] + ' ' + create[2], "CreateAttribute 7 Row.0.Value");
    EXPECT_EQ(create[5], "3");
    for (std::size_t i = 0; i < 3; ++i)
    {
        const std::vector<std::string> set = Split(creator.m_Calls[i + 1]);
        EXPECT_EQ(set[0], GetSetter(std::stoi(create[3])));
        EXPECT_EQ(set[1], std::to_string(handle));
        EXPECT_EQ(set[2], std::to_string(i));
    }
}

TEST_P(TypeConformance, ARefusingCreatorEndsTheCompile)
{
    CRecordingCreator creator;
    creator.m_bRefuse = true;
    CreatorHandle handle = 5;
    EXPECT_FALSE(m_Fixed.Get().SaveToDatabase(creator, 7, 0, handle, u""));
    EXPECT_EQ(handle, 0u);
    EXPECT_EQ(creator.m_Calls.size(), 1u);
}

TEST_P(TypeConformance, OverrideOutputNeedsTheMarkAndAManager)
{
    CRecordingUnpackedCreator creator;
    CCorvaneType& attrib = m_Fixed.Get();
    EXPECT_FALSE(attrib.SaveToOverride(&creator, 9, u"", u""));
    attrib.SetOverride(true);
    CAssertCapture asserts;
    EXPECT_FALSE(attrib.SaveToOverride(nullptr, 9, u"", u""));
    EXPECT_FALSE(attrib.SaveToOverride(&creator, 0, u"", u""));
    EXPECT_EQ(asserts.GetEntries().size(), 2u);
    EXPECT_TRUE(creator.m_Calls.empty());
}

TEST_P(TypeConformance, EachRefusalEndsTheOverrideOutput)
{
    CCorvaneType& attrib = m_Variable.Get();
    attrib.SetOverride(true);
    Fill(attrib, 3);
    CRecordingUnpackedCreator taken;
    ASSERT_TRUE(attrib.SaveToOverride(&taken, 9, u"Category/", u"Row.0"));
    const std::vector<std::string> create = Split(taken.m_Calls[0]);
    ASSERT_EQ(create.size(), 9u);
    EXPECT_EQ(create[4], "Category/Row.0.Value");
    EXPECT_EQ(create[7] + ' ' + create[8], "1 -1");
    const std::string setter = GetOverrideSetter(std::stoi(create[3]));
    EXPECT_EQ(std::count_if(taken.m_Calls.begin(), taken.m_Calls.end(),
                            [&](const std::string& call) { return Split(call)[0] == setter; }),
              3);

    for (std::size_t refused = 0; refused < taken.m_Calls.size(); ++refused)
    {
        CRecordingUnpackedCreator creator;
        creator.m_nRefusedCall = refused;
        EXPECT_FALSE(attrib.SaveToOverride(&creator, 9, u"Category/", u"Row.0")) << taken.m_Calls[refused];
        EXPECT_EQ(creator.m_Calls.size(), refused + 1);
    }
}

INSTANTIATE_TEST_SUITE_P(Types, TypeConformance, testing::ValuesIn(GetWordsOfTexts()),
                         [](const auto& entry) { return ToNarrow(entry.param); });
