#include "BuildFilter.h"
#include "GatedDatabase.h"
#include "Unicode.h"

using CBuildFilterTest = CGatedDatabase;

TEST_F(CBuildFilterTest, AnswersAsTheManagerInWhateverOrderTheRecordsCome)
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
        for (const char* record : {"/A", "/B", "/C"})
            AddRecord(name + record, name);
    }
    Open();
    // An entry that is alike in both records but has another one before it.
    const CRef<CCorvaneRecord> changed = m_pManager->FindRecord(u"Plain/C", nullptr);
    ASSERT_TRUE(changed);
    changed->GetAttributeList()[1]->SetBuild(12);
    changed->GetAttributeList()[2]->SetName(u"Pace");

    int counts[2] = {};
    const auto compare = [&](CBuildFilter& filter, const CCorvaneRecord& record, std::uint32_t build)
    {
        filter.TakeRecord(record);
        const auto attribs = record.GetAttributeList();
        for (std::size_t i = 0; i < attribs.size(); ++i)
        {
            const bool expected = m_pManager->IsAttributeAvailableForBuild(attribs[i].Get(), build);
            EXPECT_EQ(filter.IsAvailable(i), expected) << ToNarrow(record.GetName()) << i << ' ' << build;
            ++counts[expected ? 1 : 0];
        }
    };
    const auto compareAll = [&](CBuildFilter& filter, std::uint32_t build)
    {
        for (const auto* path : {u"Plain/A", u"Plain/B", u"Other/A", u"Plain/A", u"Plain/C", u"Plain/A",
                                 u"Short/A", u"Other/B", u"Short/B", u"Plain/B", u"Plain/C"})
            compare(filter, *m_pManager->FindRecord(path, nullptr), build);
    };
    for (const std::uint32_t build : {0U, 5U, 10U, 19U, 20U, 100U})
    {
        CBuildFilter filter(*m_pManager, build);
        compareAll(filter, build);
    }
    CBuildFilter filter(*m_pManager, 15);
    compareAll(filter, 15);
    changed->RemoveAttribute(0);
    compareAll(filter, 15);
    EXPECT_GT(std::min(counts[0], counts[1]), 20);
}
