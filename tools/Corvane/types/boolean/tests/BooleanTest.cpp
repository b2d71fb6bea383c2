#include "boolean/CorvaneTypeBoolean.h"

#include "RecordingCreator.h"
#include "TestAttribute.h"

#include <gtest/gtest.h>

TEST(Boolean, DefaultIsOneOfTheTwoWords)
{
    const struct
    {
        std::u16string_view text;
        std::u16string_view expected;
        std::vector<std::u16string> messages;
    } rows[] = {
        {u"Default=", u"True", {}},
        {u"Default=true", u"True", {}},
        {u"Default=FALSE", u"False", {}},
        {u"Default=0",
         u"True",
         {u"The attribute 'Value' of schema 'Thing' contains an invalid boolean default value of '0'."}},
    };
    for (const auto& row : rows)
    {
        CTestAttribute test(u"Boolean", {row.text});
        EXPECT_EQ(test.Get().GetValue(0), row.expected);
        EXPECT_EQ(test.GetDefaultMessages(), row.messages);
    }
}

TEST(Boolean, StoredTextsStayAsTheyAre)
{
    CTestAttribute test(u"Boolean", {u"Default=True"});
    auto& attrib = test.Get<CCorvaneTypeBoolean>();
    ASSERT_TRUE(attrib.SetValue(0, u"yes"));
    EXPECT_FALSE(attrib.GetBoolean(0));
    EXPECT_EQ(attrib.GetValue(0), u"yes");
    ASSERT_TRUE(attrib.SetValue(0, u"tRUE"));
    EXPECT_TRUE(attrib.GetBoolean(0));
    EXPECT_TRUE(attrib.SetBoolean(0, false));
    EXPECT_EQ(attrib.GetValue(0), u"False");
    EXPECT_FALSE(attrib.SetBoolean(1, false));
    EXPECT_TRUE(attrib.GetBoolean(1));
}

TEST(Boolean, OutputsCarryTruthValues)
{
    CTestAttribute test(u"Boolean", {u"Default=False"});
    test.Get().SetOverride(true);
    CRecordingCreator packed;
    CreatorHandle handle = 0;
    ASSERT_TRUE(test.Get().SaveToDatabase(packed, 7, 0, handle, u""));
    EXPECT_EQ(packed.m_Calls,
              (std::vector<std::string>{"CreateAttribute 7 Value 1 0 1", "SetBoolean 42 0 false"}));
    CRecordingUnpackedCreator unpacked;
    ASSERT_TRUE(test.Get().SaveToOverride(&unpacked, 9, u"", u""));
    EXPECT_EQ(unpacked.m_Calls,
              (std::vector<std::string>{"CreateAttribute 9  1 Value  Boolean 1 1", "SetBoolean 42 false"}));
}
