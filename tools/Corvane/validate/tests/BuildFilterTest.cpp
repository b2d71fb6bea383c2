#include "BuildFilter.h"
#include "DatabaseFixture.h"
#include "Unicode.h"

namespace
{
class CBuildFilterTest : public CDatabaseFixture
{
protected:
    void SetUp() override
    {
        const std::u16string speed = u"[Attrib.Speed.20]\nType=Integer\nDefault=5\n\n"
                                     u"[Attrib.Speed.10]\nType=Integer\nDefault=5\n\n"
                                     u"[Attrib.Speed.0]\nType=Integer\nDefault=5\n\n";
        const std::u16string gone = u"[Attrib.Gone.0]\nType=Integer\nDefault=5\nDeleted=True\n\n";
        WriteLocator(u"");
        WriteRoot();
        WriteSchema("Plain", gone + speed);
        // The same names as in Plain at the same places, from other builds on.
        WriteSchema("Other", u"[Attrib.Gone.5]\nType=Integer\nDefault=5\n\n" + speed + gone);
        WriteSchema("Short", u"[Attrib.Speed.10]\nType=Integer\nDefault=5\n");
        for (const auto* schema : {u"Plain", u"Other", u"Short"})
        {
            const std::string name = ToNarrow(schema);
            WriteCategory(name, schema);
            WriteRecord(name, name + "A", schema, u"");
            WriteRecord(name, name + "B", schema, u"");
        }
    }

    // How many attributes the filter and the manager judge in one way, and how many in another.
    void Compare(CBuildFilter& filter, const CCorvaneRecord& record, std::uint32_t build)
    {
        filter.TakeRecord(record);
        const auto attribs = record.GetAttributeList();
        for (std::size_t i = 0; i < attribs.size(); ++i)
        {
            const bool expected = m_pManager->IsAttributeAvailableForBuild(attribs[i].Get(), build);
            EXPECT_EQ(filter.IsAvailable(i), expected)
                << ToNarrow(record.GetName()) << ' ' << i << ' ' << build;
            ++(expected ? m_nAvailable : m_nOthers);
        }
    }

    int m_nAvailable = 0;
    int m_nOthers = 0;
};

TEST_F(CBuildFilterTest, AnswersAsTheManagerInWhateverOrderTheRecordsCome)
{
    Open();
    std::vector<CRef<CCorvaneRecord>> records;
    for (const auto* path : {u"Plain/PlainA", u"Plain/PlainB", u"Other/OtherA", u"Plain/PlainA",
                             u"Short/ShortA", u"Other/OtherB", u"Short/ShortB", u"Plain/PlainB"})
    {
        records.emplace_back(m_pManager->FindRecord(path, nullptr));
        ASSERT_TRUE(records.back());
    }
    for (const std::uint32_t build : {0U, 5U, 10U, 19U, 20U, 100U})
    {
        CBuildFilter filter(*m_pManager, build);
        for (const CRef<CCorvaneRecord>& record : records)
            Compare(filter, *record, build);
    }
    EXPECT_GT(m_nAvailable, 20);
    EXPECT_GT(m_nOthers, 20);
}

// An entry that is alike in both records but has another one before it.
TEST_F(CBuildFilterTest, SeesThatTheEntryBeforeIsMissing)
{
    Open();
    const CRef<CCorvaneRecord> whole = m_pManager->FindRecord(u"Plain/PlainA", nullptr);
    const CRef<CCorvaneRecord> changed = m_pManager->FindRecord(u"Plain/PlainB", nullptr);
    ASSERT_TRUE(whole && changed);
    changed->GetAttributeList()[1]->SetBuild(12);
    changed->GetAttributeList()[2]->SetName(u"Pace");
    CBuildFilter filter(*m_pManager, 15);
    Compare(filter, *whole, 15);
    Compare(filter, *changed, 15);
    Compare(filter, *whole, 15);
    changed->RemoveAttribute(0);
    Compare(filter, *changed, 15);
}
} // namespace
