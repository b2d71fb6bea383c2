#include "sound/CorvaneTypeSound.h"

#include "TestAttribute.h"

#include <gtest/gtest.h>

TEST(Sound, IsPlayedAndIsAFileToTheOutputs)
{
    CTestAttribute test(u"Sound", {});
    auto& attrib = test.Get<CCorvaneTypeSound>();
    test.m_Services.m_bServe = true;
    EXPECT_FALSE(attrib.ExecuteValue(0));
    EXPECT_FALSE(attrib.Execute({}));
    ASSERT_TRUE(attrib.SetValue(0, test.m_Scratch.Text("Game/Data/a.wav")));
    EXPECT_TRUE(attrib.ExecuteValue(0));
    EXPECT_EQ(test.m_Services.m_Calls, std::vector{u"play " + test.m_Scratch.Text("Game/Data/a.wav")});

    EXPECT_EQ(test.GetOutputs(), "CreateAttribute 7 Value 4 1 1\nSetText 42 0 a.wav\n"
                                 "CreateAttribute 9  4 Value  File 1 1\nSetText 42 a.wav\n");
    EXPECT_EQ(test.GetDependencies(), "All/One a.wav Sound\n");
}
