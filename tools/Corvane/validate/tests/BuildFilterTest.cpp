#include "BuildFilter.h"
#include "GatedDatabase.h"
#include "Unicode.h"

namespace
{
class CBuildFilterTest : public CGatedDatabase
{
protected:
    void SetUp() override
    {
        const std::string tail = "]\nType=Integer\nDefault=5\n";
        const std::string speed =
            "[Attrib.Speed.20" + tail + "[Attrib.Speed.10" + tail + "[Attrib.Speed.0" + tail;
        const std::string gone = "[Attrib.Gone.0" + tail + "Deleted=True\n";
        AddSchema("Plain", gone + speed);
        // The same names as in Plain at the same places, from other builds on.
        AddSchema("Other", "[Attrib.Gone.5" + tail + speed + gone);
        AddSchema("Short", "[Attrib.Speed.10" + tail);
        for (const std::string name : {"Plain", "Other", "Short"})
        {
            AddCategory(name, name);
            AddRecord(name + "/A", name);
            AddRecord(name + "/B", name);
        }
        Open();
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
    std::vector<CRef<CCorvaneRecord>> records;
    for (const auto* path :
         {u"Plain/A", u"Plain/B", u"Other/A", u"Plain/A", u"Short/A", u"Other/B", u"Short/B", u"Plain/B"})
        ASSERT_TRUE(records.emplace_back(m_pManager->FindRecord(path, nullptr)));
    for (const std::uint32_t build : {0U, 5U, 10U, 19U, 20U, 100U})
    {
        CBuildFilter filter(*m_pManager, build);
        for (const CRef<CCorvaneRecord>& record : records)
            Compare(filter, *record, build);
    }
    EXPECT_GT(std::min(m_nAvailable, m_nOthers), 20);
}

// An entry that is alike in both records but has another one before it.
TEST_F(CBuildFilterTest, SeesThatTheEntryBeforeIsMissing)
{
    const CRef<CCorvaneRecord> whole = m_pManager->FindRecord(u"Plain/A", nullptr);
    const CRef<CCorvaneRecord> changed = m_pManager->FindRecord(u"Plain/B", nullptr);
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
