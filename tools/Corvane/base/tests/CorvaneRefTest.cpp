// Reference counting and the text form of identities.
#include "CorvaneRef.h"
#include "AssertCapture.h"
#include "Guid.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
class CThing : public CCorvaneRef
{
};
class CSpecialThing final : public CThing
{
};
} // namespace

TEST(CorvaneRef, TheLastReferenceDeletes)
{
    const std::int64_t alive = CCorvaneRef::GetLiveCount();
    {
        const CRef<CSpecialThing> first(new CSpecialThing);
        EXPECT_EQ(first->GetRefCount(), 1);
        CRef<CThing> base = first;
        EXPECT_EQ(first->GetRefCount(), 2);
        const CRef<CThing> moved = std::move(base);
        EXPECT_FALSE(base);
        EXPECT_EQ(first->GetRefCount(), 2);
        std::vector<CRef<CThing>> list(3, moved);
        EXPECT_EQ(first->GetRefCount(), 5);
        list[0] = list[1];
        const CThing* same = list[2].Get();
        list[2] = CRef<CThing>(list[2]);
        EXPECT_TRUE(list[2] == same);
        EXPECT_EQ(first->GetRefCount(), 5);
        list.clear();
        EXPECT_EQ(first->GetRefCount(), 2);
        EXPECT_EQ(CCorvaneRef::GetLiveCount(), alive + 1);
    }
    EXPECT_EQ(CCorvaneRef::GetLiveCount(), alive);
}

TEST(CorvaneRef, AReleaseTooManyIsReportedAndKeepsTheObject)
{
    const std::int64_t alive = CCorvaneRef::GetLiveCount();
    auto* thing = new CThing;
    CAssertCapture asserts;
    EXPECT_EQ(thing->Release(), -1);
    EXPECT_TRUE(asserts.Has("m_nRef > 0"));
    EXPECT_EQ(CCorvaneRef::GetLiveCount(), alive + 1);
    thing->AddRef();
    thing->AddRef();
    EXPECT_EQ(thing->Release(), 0);
    EXPECT_EQ(CCorvaneRef::GetLiveCount(), alive);
}

TEST(Guid, OnlyTheBracedTextIsRead)
{
    const auto guid = CGuid::Parse(u"{01234567-89ab-CDEF-0123-456789abcdef}");
    ASSERT_TRUE(guid);
    EXPECT_EQ(guid->ToText(), u"{01234567-89AB-CDEF-0123-456789ABCDEF}");
    EXPECT_EQ(guid->GetBytes()[0], 0x01);
    EXPECT_EQ(guid->GetBytes()[15], 0xEF);

    const std::u16string_view bad[] = {
        u"",
        u"{}",
        u"01234567-89ab-CDEF-0123-456789abcdef",
        u" {01234567-89ab-CDEF-0123-456789abcdef}",
        u"{01234567-89ab-CDEF-0123-456789abcdef} ",
        u"{0123456789ab-CDEF-0123-456789abcdef00}",
        u"{01234567-89ab-CDEF-0123-456789abcdeg}",
        u"{01234567-89ab-CDEF-01234-56789abcdef}",
        u"(01234567-89ab-CDEF-0123-456789abcdef)",
    };
    for (const std::u16string_view text : bad)
        EXPECT_FALSE(CGuid::Parse(text)) << std::string(text.begin(), text.end());
}

TEST(Guid, NewOnesDifferAndComeBackFromTheirText)
{
    const CGuid first = CGuid::Create();
    EXPECT_FALSE(first.IsNull());
    EXPECT_FALSE(first == CGuid::Create());
    EXPECT_EQ(CGuid::Parse(first.ToText()), first);
    EXPECT_TRUE(CGuid::Parse(u"{00000000-0000-0000-0000-000000000000}")->IsNull());
}
