#include "vectors/CorvaneTypeVector.h"

#include "FormatText.h"
#include "RecordingCreator.h"
#include "TestAttribute.h"
#include "Unicode.h"

#include <gtest/gtest.h>

TEST(Vector, ADefaultIsCompletedToFourNumbersInSilence)
{
    const std::tuple<std::u16string_view, std::u16string_view> rows[] = {
        {u"", u"0.000000, 0.000000, 0.000000, 0.000000"},
        {u"1.0, 2.0", u"1.000000, 2.000000, 0.000000, 0.000000"},
        {u"1,-2e1,\t+.5,4,5", u"1.000000, -20.000000, 0.500000, 4.000000"},
        {u"1 ,2", u"1.000000, 0.000000, 0.000000, 0.000000"},
        {u"1,,3", u"1.000000, 0.000000, 0.000000, 0.000000"},
        {u"nan, 2", u"0.000000, 0.000000, 0.000000, 0.000000"},
        {u"1, inf, 3", u"1.000000, 0.000000, 0.000000, 0.000000"},
        {u"0x10, 2", u"0.000000, 0.000000, 0.000000, 0.000000"},
        {u"1e3, 1e, 3", u"1000.000000, 1.000000, 0.000000, 0.000000"},
        {u"0.1, 16777217", u"0.100000, 16777216.000000, 0.000000, 0.000000"},
    };
    for (const auto& [text, expected] : rows)
    {
        CTestAttribute test(u"Vector2", {u"Data=min=5", FormatText(u"Default=%s", text)});
        EXPECT_EQ(test.Get().GetValue(0), expected) << ToNarrow(text);
        EXPECT_TRUE(test.GetDefaultMessages().empty());
    }
}

TEST(Vector, StoredTextsStayUntilTheyAreEdited)
{
    CTestAttribute test(u"Vector2", {u"Default=7, 8", u"Values=2"});
    auto& attrib = test.Get<CCorvaneTypeVector>();
    ASSERT_TRUE(attrib.SetValue(0, u"1.0, 2.0"));
    EXPECT_EQ(attrib.GetValue(0), u"1.0, 2.0");
    EXPECT_EQ(attrib.GetVector(0), (VectorValue{1, 2, 0, 0}));
    ASSERT_TRUE(attrib.SetVector(0, {1, 2, 3, 4}));
    EXPECT_EQ(attrib.GetValue(0), u"1.000000, 2.000000, 3.000000, 4.000000");
    EXPECT_FALSE(attrib.SetVector(2, {}));
    EXPECT_EQ(attrib.GetVector(2), (VectorValue{7, 8, 0, 0}));
}

TEST(Vector, EachWordSendsAsManyNumbersAsItHasDimensions)
{
    const std::tuple<std::u16string_view, std::string, std::string> rows[] = {
        {u"Vector2", "6", "SetVector2 42 %1,2\n"},
        {u"vector3", "7", "SetVector3 42 %1,2,3\n"},
        {u"Vector4", "8", "SetVector4 42 %1,2,3,4\n"},
    };
    for (const auto& [word, code, setter] : rows)
    {
        CTestAttribute test(word, {u"Default=1, 2, 3, 4", u"Data=x"});
        std::string packed = setter;
        std::string unpacked = setter;
        packed.replace(packed.find('%'), 1, "0 ");
        unpacked.replace(unpacked.find('%'), 1, "");
        EXPECT_EQ(test.GetOutputs(), "CreateAttribute 7 Value " + code + " 0 1\n" + packed +
                                         "CreateAttribute 9  " + code + " Value x Vector 1 1\n" + unpacked);
    }
}

TEST(Vector, TheDimensionComesWithAssign)
{
    CTestAttribute test(u"Vector4", {});
    CRef<CCorvaneTypeVector> blank(new CCorvaneTypeVector);
    CRecordingCreator creator;
    CRecordingUnpackedCreator unpacked;
    CreatorHandle handle = 5;
    EXPECT_FALSE(blank->SaveToDatabase(creator, 7, 0, handle, u""));
    EXPECT_EQ(handle, 0u);
    EXPECT_FALSE(blank->SaveToOverride(&unpacked, 9, u"", u""));
    EXPECT_TRUE(creator.m_Calls.empty() && unpacked.m_Calls.empty());
    EXPECT_EQ(blank->GetSchemaTypeName(), u"Vector3");
    blank->Assign(test.Get());
    EXPECT_EQ(blank->GetSchemaTypeName(), u"Vector4");
}
