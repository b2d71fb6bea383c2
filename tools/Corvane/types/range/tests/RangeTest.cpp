#include "range/CorvaneTypeRange.h"

#include "TestAttribute.h"

#include <gtest/gtest.h>

TEST(Range, IntegerOnlyNeedsTheWholeTokenAndTouchesNoValue)
{
    const std::pair<std::u16string, bool> rows[] = {
        {u"", false}, {u"INT", true}, {u"integer", false}, {u"int ", false}, {u"min=int", false}};
    for (const auto& [data, expected] : rows)
    {
        CTestAttribute test(u"Range", {u"Data=" + data, u"Default=1.7, 2.5"});
        auto& attrib = test.Get<CCorvaneTypeRange>();
        const CRef<CCorvaneSchemaAttribData> copy = attrib.GetAttribData()->Clone();
        EXPECT_EQ(attrib.GetRangeAttribData()->IsIntegerOnly(), expected);
        EXPECT_EQ(static_cast<const CCorvaneTypeRangeData&>(*copy).IsIntegerOnly(), expected);
        EXPECT_EQ(attrib.GetValue(0), u"1.700000, 2.500000");
        EXPECT_TRUE(attrib.SetRange(0, {9, 0.5F}));
        EXPECT_EQ(attrib.GetValue(0), u"9.000000, 0.500000");
        EXPECT_FALSE(attrib.SetRange(1, {}));
    }
}
