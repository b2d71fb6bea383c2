#include "vectors/CorvaneTypeVector.h"

#include "RecordingCreator.h"
#include "TestAttribute.h"

#include <gtest/gtest.h>

TEST(Vector, TheDimensionComesWithAssign)
{
    CTestAttribute test(u"Vector4", {});
    CRef<CCorvaneTypeVector> blank(new CCorvaneTypeVector);
    CRecordingCreator creator;
    CreatorHandle handle = 5;
    EXPECT_FALSE(blank->SaveToDatabase(creator, 7, 0, handle, u""));
    EXPECT_EQ(handle, 0u);
    EXPECT_FALSE(blank->SaveToOverride(&creator, 9, u"", u""));
    EXPECT_TRUE(creator.m_Calls.empty());
    blank->Assign(test.Get());
    EXPECT_EQ(blank->GetSchemaTypeName(), u"Vector4");
}
