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

TEST(CorvaneRef, TheLastReferenceDeletesAndOneTooManyIsReported)
{
    const std::int64_t alive = CCorvaneRef::GetLiveCount();
    {
        const CRef<CSpecialThing> first(new CSpecialThing);
        CRef<CThing> base = first;
        const CRef<CThing> moved = std::move(base);
        EXPECT_TRUE(!base && first->GetRefCount() == 2);
        std::vector<CRef<CThing>> list(3, moved);
        list[0] = list[1];
        list[2] = CRef<CThing>(list[2]);
        EXPECT_EQ(first->GetRefCount(), 5);
        list.clear();
        EXPECT_EQ(first->GetRefCount(), 2);
        EXPECT_EQ(CCorvaneRef::GetLiveCount(), alive + 1);
    }
    EXPECT_EQ(CCorvaneRef::GetLiveCount(), alive);
    auto* thing = new CThing;
    CAssertCapture asserts;
    EXPECT_EQ(thing->Release(), -1);
    EXPECT_TRUE(asserts.Has("m_nRef > 0"));
    EXPECT_EQ(CCorvaneRef::GetLiveCount(), alive + 1) << "the object is kept";
    thing->AddRef();
    thing->AddRef();
    EXPECT_EQ(thing->Release(), 0);
    EXPECT_EQ(CCorvaneRef::GetLiveCount(), alive);
}

TEST(Guid, OnlyTheBracedTextIsReadAndNewOnesDiffer)
{
    const auto guid = CGuid::Parse(u"{01234567-89ab-CDEF-0123-456789abcdef}");
    ASSERT_TRUE(guid);
    EXPECT_EQ(guid->ToText(), u"{01234567-89AB-CDEF-0123-456789ABCDEF}");
    EXPECT_TRUE(guid->GetBytes()[0] == 0x01 && guid->GetBytes()[15] == 0xEF);
    for (const char* bad :
         {"", "{}", "01234567-89ab-CDEF-0123-456789abcdef", " {01234567-89ab-CDEF-0123-456789abcdef}",
          "{01234567-89ab-CDEF-0123-456789abcdef} ", "{0123456789ab-CDEF-0123-456789abcdef00}",
          "{01234567-89ab-CDEF-0123-456789abcdeg}", "{01234567-89ab-CDEF-01234-56789abcdef}",
          "(01234567-89ab-CDEF-0123-456789abcdef)"})
    {
        const std::string_view text = bad;
        EXPECT_FALSE(CGuid::Parse(std::u16string(text.begin(), text.end()))) << bad;
    }
    const CGuid first = CGuid::Create();
    EXPECT_FALSE(first.IsNull() || first == CGuid::Create());
    EXPECT_EQ(CGuid::Parse(first.ToText()), first);
    EXPECT_TRUE(CGuid::Parse(u"{00000000-0000-0000-0000-000000000000}")->IsNull());
}
