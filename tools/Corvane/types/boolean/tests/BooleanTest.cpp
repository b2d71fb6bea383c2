#include "boolean/CorvaneTypeBoolean.h"

#include "TestAttribute.h"

#include <gtest/gtest.h>

TEST(Boolean, DefaultIsOneOfTheTwoWords)
{
    const std::tuple<std::u16string_view, std::u16string_view, std::vector<std::u16string>> rows[] = {
        {u"Default=", u"True", {}},
        {u"Default=true", u"True", {}},
        {u"Default=FALSE", u"False", {}},
        {u"Default=0",
         u"True",
         {u"The attribute 'Value' of schema 'Thing' contains an invalid boolean default value of '0'."}},
    };
    for (const auto& [text, expected, messages] : rows)
    {
        CTestAttribute test(u"Boolean", {text});
        EXPECT_EQ(test.Get().GetValue(0), expected);
        EXPECT_EQ(test.GetDefaultMessages(), messages);
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
    EXPECT_EQ(test.GetOutputs(), "CreateAttribute 7 Value 1 0 1\nSetBoolean 42 0 false\n"
                                 "CreateAttribute 9  1 Value  Boolean 1 1\nSetBoolean 42 false\n");
}
