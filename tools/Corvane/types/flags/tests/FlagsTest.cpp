#include "flags/CorvaneTypeFlags.h"

#include "FormatText.h"
#include "TestAttribute.h"
#include "common/SchemaName.h"

#include <gtest/gtest.h>
#include <random>

using namespace std::string_view_literals;

namespace
{
// "3=Name|Description;" for each flag.
std::u16string GetTable(const CCorvaneSchemaAttribData& data)
{
    std::u16string table;
    for (const SFlag& flag : static_cast<const CCorvaneTypeFlagsData&>(data).GetFlags())
        table += FormatText(u"%d=%s|%s;", flag.m_nIndex, flag.m_sName, flag.m_sDescription);
    return table;
}

std::u16string GetItems(CCorvaneMgr& manager)
{
    std::u16string names;
    for (const CCorvaneTypeFlagsData* data : manager.GetTypeState<CFlagsDataList>().GetItems())
        names += FormatText(u"%s.%s %s;", GetSchemaName(*data), data->GetName(), data->GetHelp());
    return names;
}
} // namespace

TEST(Flags, DeclarationsMakeTheTable)
{
    const std::u16string name(130, u'n');
    const std::u16string description(300, u'd');
    const std::u16string cutName(128, u'n');
    const std::pair<std::u16string, std::u16string> rows[] = {
        {u"Flag2=B|b \\r\\n c;Flag1=A", u"2=B|b \\r\\n c;1=A|;"},
        {u"Flag 3=A|x|y;;Flag+4= B |;", u"3=A|x|y;4= B |;"},
        {u"flag1=A;Flag1A;Flag=A;Flag1=;Flag1=|x; Flag1=A;Flag1 =A;FlagX=A;1=A", u""},
        {FormatText(u"Flag32=%s|x;Flag31=N|%s", name, description),
         FormatText(u"32=%s|;31=N|%s;", cutName, description.substr(0, 256))},
        {FormatText(u"Flag1=%s|x", cutName), FormatText(u"1=%s|x;", cutName)},
    };
    for (const auto& [data, expected] : rows)
    {
        CTestAttribute test(u"Flags", {FormatText(u"Data=%s", data)});
        EXPECT_EQ(GetTable(*test.Get().GetAttribData()), expected);
        EXPECT_EQ(GetTable(*test.Get().GetAttribData()->Clone()), expected);
        EXPECT_EQ(test.GetTitles(), "");
    }
}

TEST(Flags, HostileTokensKeepTheTableSound)
{
    CTestAttribute test(u"Flags", {});
    const CRef<CCorvaneSchemaAttribData> copy = test.Get().GetAttribData()->Clone();
    std::mt19937 random(5);
    constexpr std::u16string_view alphabet = u"0123333=|==||nm\n\\\xd800 -+Flag\0"sv;
    for (int i = 0; i < 5000; ++i)
    {
        std::u16string token = FormatText(u"Flag%d=", random() % 40);
        token.resize(random() % 3 == 0 ? random() % token.size() : token.size());
        for (std::size_t more = random() % 400; more > 0; --more)
            token += alphabet[random() % alphabet.size()];
        copy->ParseDataToken(token);
    }
    std::uint64_t seen = 0;
    for (const SFlag& flag : static_cast<const CCorvaneTypeFlagsData&>(*copy).GetFlags())
    {
        ASSERT_TRUE(flag.m_nIndex >= 1 && flag.m_nIndex <= 32);
        EXPECT_EQ(seen & std::uint64_t{1} << flag.m_nIndex, 0u);
        seen |= std::uint64_t{1} << flag.m_nIndex;
        EXPECT_TRUE(!flag.m_sName.empty() && flag.m_sName.size() <= 128);
        EXPECT_LE(flag.m_sDescription.size(), 256u);
        EXPECT_EQ(flag.m_sName.find(u'|'), std::u16string::npos);
        EXPECT_EQ(flag.m_sDescription.find(u'\n'), std::u16string::npos);
    }
    EXPECT_EQ(seen, 0x1FFFFFFFEU);
}

TEST(Flags, TheListHoldsAllDataOfOneDatabaseInOrderOfConstruction)
{
    CTestDatabase other;
    ASSERT_TRUE(other.Open());
    CTestDatabase test;
    test.AddSchema("A", "[Attrib.X.0]\nType=Flags\nHelp=old\n[Attrib.X.1]\nType=Flags\nHelp=new\n");
    test.AddSchema("B", "[Attrib.Y.0]\nType=Flags\n");
    ASSERT_TRUE(test.Open());
    EXPECT_EQ(GetItems(other.Get()), u"");
    const auto& items = test.Get().GetTypeState<CFlagsDataList>().GetItems();
    CRef<CCorvaneSchemaAttribData> copy = items.front()->Clone();
    const CRef<CCorvaneSchemaAttribData> second = copy->Clone();
    EXPECT_EQ(GetItems(test.Get()), u"A.X new;A.X old;B.Y ;A.X new;A.X new;");
    copy = nullptr;
    EXPECT_EQ(items.back(), second.Get());
    EXPECT_EQ(GetItems(test.Get()), u"A.X new;A.X old;B.Y ;A.X new;");
}
