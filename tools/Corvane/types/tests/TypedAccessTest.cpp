// The typed readers and setters of all types that have them.
#include "TestAttribute.h"
#include "boolean/CorvaneTypeBoolean.h"
#include "color/CorvaneTypeColor.h"
#include "flags/CorvaneTypeFlags.h"
#include "float/CorvaneTypeFloat.h"
#include "integer/CorvaneTypeInteger.h"
#include "range/CorvaneTypeRange.h"
#include "time/CorvaneTypeTime.h"
#include "vectors/CorvaneTypeVector.h"

#include <gtest/gtest.h>

// A setter writes the system's form of the value `set`; behind the end it refuses, and the reader gives the
// value `fallback` of the default.
template <class T, class V, class A>
void CheckAccess(V (T::*get)(std::size_t) const, bool (T::*setter)(std::size_t, A), const V& set,
                 std::string_view written, const std::u16string& text, const V& fallback)
{
    const std::u16string type(T().GetSchemaTypeName());
    CTestAttribute test(type, {u"Default=" + text});
    T& attrib = test.Get<T>();
    EXPECT_TRUE((attrib.*setter)(0, set));
    EXPECT_EQ(ShowValues(attrib), written);
    EXPECT_TRUE((attrib.*get)(0) == set) << written;
    EXPECT_FALSE((attrib.*setter)(1, set)) << written;
    EXPECT_TRUE((attrib.*get)(1) == fallback) << written;
}

TEST(TypedAccess, WritesOneFormAndStaysInsideTheList)
{
    CheckAccess<CCorvaneTypeBoolean>(&CCorvaneTypeBoolean::GetBoolean, &CCorvaneTypeBoolean::SetBoolean,
                                     false, "False", u"true", true);
    CheckAccess<CCorvaneTypeColor>(&CCorvaneTypeColor::GetColor, &CCorvaneTypeColor::SetColor, 0x80030201U,
                                   "128, 1, 2, 3", u"1, 2, 3, 4", 0x01040302U);
    CheckAccess<CCorvaneTypeFlags>(&CCorvaneTypeFlags::GetFlags, &CCorvaneTypeFlags::SetFlags, 0x80000001U,
                                   "0x80000001", u"0x7", 7U);
    CheckAccess<CCorvaneTypeFloat>(&CCorvaneTypeFloat::GetFloat, &CCorvaneTypeFloat::SetFloat, 1.5F,
                                   "1.500000", u"0.25", 0.25F);
    CheckAccess<CCorvaneTypeInteger>(&CCorvaneTypeInteger::GetInteger, &CCorvaneTypeInteger::SetInteger,
                                     INT32_MIN, "-2147483648", u"3", 3);
    CheckAccess<CCorvaneTypeTime>(&CCorvaneTypeTime::GetTime, &CCorvaneTypeTime::SetTime, -1500, "-1500",
                                  u"10", 10);
    CheckAccess<CCorvaneTypeVector>(&CCorvaneTypeVector::GetVector, &CCorvaneTypeVector::SetVector,
                                    {1, 2, 3, 4}, "1.000000, 2.000000, 3.000000, 4.000000", u"7, 8",
                                    {7, 8, 0, 0});
}
