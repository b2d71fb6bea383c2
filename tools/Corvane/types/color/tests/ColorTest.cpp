#include "color/CorvaneTypeColor.h"

#include "FormatText.h"
#include "TestAttribute.h"
#include "Unicode.h"

#include <gtest/gtest.h>

TEST(Color, ADefaultIsCutFromAboveInSilence)
{
    const std::tuple<std::u16string_view, std::u16string_view, std::uint32_t> rows[] = {
        {u"", u"255, 0, 0, 0", 0xFF000000},
        {u"300, 1, 2, 3", u"255, 1, 2, 3", 0xFF030201},
        {u"1, 2, 3", u"1, 2, 3, 0", 0x01000302},
        {u"254,255,256,99999999999", u"254, 255, 255, 255", 0xFEFFFFFF},
        {u"0, -1, -256, 7.5", u"0, -1, -256, 7", 0x000700FF},
        {u"red, 1", u"255, 0, 0, 0", 0xFF000000},
    };
    for (const auto& [text, expected, color] : rows)
    {
        CTestAttribute test(u"Color", {FormatText(u"Default=%s", text)});
        EXPECT_EQ(test.Get().GetValue(0), expected);
        EXPECT_EQ(test.Get<CCorvaneTypeColor>().GetColor(0), color) << ToNarrow(text);
        EXPECT_TRUE(test.GetDefaultMessages().empty());
    }
}

TEST(Color, OfStoredPartsTheLowByteCounts)
{
    CTestAttribute test(u"Color", {u"Default=1, 2, 3, 4"});
    auto& attrib = test.Get<CCorvaneTypeColor>();
    ASSERT_TRUE(attrib.SetValue(0, u"256, 257, -1, 99999999999"));
    EXPECT_EQ(attrib.GetColor(0), 0x00FFFF01U);
    EXPECT_EQ(attrib.GetValue(0), u"256, 257, -1, 99999999999");
    ASSERT_TRUE(attrib.SetColor(0, 0x80030201U));
    EXPECT_EQ(attrib.GetValue(0), u"128, 1, 2, 3");
    EXPECT_FALSE(attrib.SetColor(1, 0));
    EXPECT_EQ(attrib.GetColor(1), 0x01040302U);
}

TEST(Color, EveryEncodingInBothOutputs)
{
    // Red 1, green 2, blue 254, alpha 255.
    const std::tuple<std::u16string_view, std::string, std::string, std::string> rows[] = {
        {u"float_rgb", "7", "SetVector3", "0.00392156886,0.00784313772,0.996078491"},
        {u"Float_ARGB", "8", "SetVector4", "1,0.00392156886,0.00784313772,0.996078491"},
        {u"Float_RGBA", "8", "SetVector4", "0.00392156886,0.00784313772,0.996078491,1"},
        {u"Int_XRGB", "3", "SetInteger", std::to_string(0x000102FE)},
        {u"Int_ARGB", "3", "SetInteger", std::to_string(static_cast<std::int32_t>(0xFF0102FEU))},
        {u"Int_RGBA", "3", "SetInteger", std::to_string(0x0102FEFF)},
        {u"Int_RGBX", "3", "SetInteger", std::to_string(0x0102FE00)},
        {u"INT_XBGR", "3", "SetInteger", std::to_string(0x00FE0201)},
        {u"", "3", "SetInteger", std::to_string(static_cast<std::int32_t>(0xFFFE0201U))},
        {u"Int_BGRX;Int_ABGR;other;", "3", "SetInteger",
         std::to_string(static_cast<std::int32_t>(0xFFFE0201U))},
        {u"Int_BGRA", "3", "SetInteger", std::to_string(static_cast<std::int32_t>(0xFE0201FFU))},
        {u"Int_BGRX", "3", "SetInteger", std::to_string(static_cast<std::int32_t>(0xFE020100U))},
    };
    for (const auto& [data, code, setter, value] : rows)
    {
        CTestAttribute test(u"Color", {FormatText(u"Data=%s", data), u"Default=255, 1, 2, 254"});
        EXPECT_EQ(test.GetOutputs(), "CreateAttribute 7 Value " + code + " 0 1\n" + setter + " 42 0 " +
                                         value + "\nCreateAttribute 9  " + code + " Value " + ToNarrow(data) +
                                         " Color 1 1\n" + setter + " 42 " + value + "\n");
    }
}
