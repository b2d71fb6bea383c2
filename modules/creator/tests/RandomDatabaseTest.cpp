// Random databases against a model that answers every question by a linear scan.
#include "CreatorLibrary.h"

#include <algorithm>
#include <random>

namespace
{
struct SRecordModel
{
    std::string path;
    std::string schema;
    CreatorHandle handle = 0;
    // Names, and the type with the values as the functions below print them.
    std::vector<std::pair<std::string, std::string>> attribs;
};

// What Print gives for the value that the setter of the type makes of this number.
std::string Expect(std::int32_t type, int n)
{
    std::ostringstream out;
    const auto own = [&](EDatabaseValueType wanted) { return n != 0 && type == wanted; };
    out << own(DBVALUE_BOOLEAN) << ' ' << (own(DBVALUE_FLOAT) ? n : 0) << ' '
        << (own(DBVALUE_INTEGER) ? n : 0) << ' '
        << std::string(own(DBVALUE_TEXT) ? static_cast<std::size_t>(n) : 0, 'a') << ' '
        << std::string(own(DBVALUE_WIDETEXT) ? static_cast<std::size_t>(n) : 0, 'b');
    for (const auto& [wanted, size] :
         {std::pair{DBVALUE_VECTOR2, 2}, {DBVALUE_VECTOR3, 3}, {DBVALUE_VECTOR4, 4}})
    {
        for (int part = 0; part < size; ++part)
            out << ' ' << (own(wanted) ? n + part : 0);
    }
    return out.str();
}

// The place of the linked record.
std::string PrintLink(const CGameRecord& record, const CGameDatabase& database)
{
    std::size_t place = 0;
    while (record && !(database.GetRecord(place) == record))
        ++place;
    return record ? " " + std::to_string(place) : " none";
}

class CRandomDatabase
{
public:
    explicit CRandomDatabase(unsigned seed) : m_Random(seed), m_hDatabase(m_Creator.CreateDatabase())
    {
        AddRecords();
        // Some databases come record by record, others mixed.
        const bool isMixed = Below(2) == 0;
        for (std::size_t i = 0; i < m_Records.size() * 6; ++i)
            AddAttrib(m_Records[isMixed ? Below(m_Records.size()) : i / 6]);
    }
    ~CRandomDatabase() { m_Creator.ReleaseDatabase(m_hDatabase); }

    CSavedDatabase Save() { return {m_Creator, m_hDatabase}; }
    const std::vector<SRecordModel>& GetRecords() const { return m_Records; }

private:
    std::size_t Below(std::size_t limit) { return m_Random() % limit; }
    // Few different names, so that equal ones occur.
    std::string Name(std::size_t variety) { return "n" + std::to_string(Below(variety)); }

    void AddRecords()
    {
        for (std::size_t i = 0, count = Below(8); i < count; ++i)
        {
            const std::string path = Name(4) + (Below(2) == 0 ? "/" + Name(4) : "");
            const std::string schema = Below(3) == 0 ? "" : Name(3);
            const CreatorHandle category =
                m_Creator.CreateCategory(m_hDatabase, path.c_str(), schema.c_str());
            for (std::size_t j = 0, records = Below(20); j < records; ++j)
            {
                const std::string name = Name(40);
                const CreatorHandle record = m_Creator.CreateRecord(category, name.c_str());
                m_Records.push_back({path + "/" + name, schema, record, {}});
            }
        }
    }
    void AddAttrib(SRecordModel& record)
    {
        const std::string name = Name(12);
        const auto type = static_cast<std::int32_t>(1 + Below(9));
        const auto count = static_cast<std::int32_t>(Below(4));
        const CreatorHandle handle =
            m_Creator.CreateAttribute(record.handle, name.c_str(), type, DBKIND_PLAIN, count);
        std::string values = std::to_string(type);
        for (std::int32_t i = 0; i < count; ++i)
        {
            const std::size_t n = Below(m_Records.size() + 1);
            values += "; " + Expect(type, static_cast<int>(n));
            if (type == DBVALUE_RECORDLINK)
                values += n == 0 ? " none" : " " + std::to_string(n - 1);
            if (n != 0 && type == DBVALUE_RECORDLINK)
                m_Creator.SetRecordLink(handle, i, m_Records[n - 1].handle);
            else if (n != 0)
                SetNumber(m_Creator, handle, type, i, static_cast<int>(n));
        }
        record.attribs.emplace_back(name, values);
    }

    std::mt19937 m_Random;
    IDatabaseCreatorMgr& m_Creator = LoadCreator();
    CreatorHandle m_hDatabase;
    std::vector<SRecordModel> m_Records;
};
void ExpectRecord(const CGameRecord& record, const SRecordModel& model, const CGameDatabase& database)
{
    EXPECT_EQ(record.GetPath() + " " + std::string(record.GetSchemaName()), model.path + " " + model.schema);
    ASSERT_EQ(record.GetAttributeCount(), model.attribs.size());
    for (std::size_t i = 0; i < model.attribs.size(); ++i)
    {
        const CGameAttribute attrib = record.GetAttribute(i);
        std::string values = std::to_string(attrib.GetType());
        for (std::size_t j = 0; j < attrib.GetCount(); ++j)
        {
            values += "; " + Print(attrib, j);
            if (attrib.GetType() == DBVALUE_RECORDLINK)
                values += PrintLink(attrib.GetRecordLink(j), database);
        }
        EXPECT_EQ(attrib.GetName(), model.attribs[i].first);
        EXPECT_EQ(values, model.attribs[i].second);
    }
    for (int name = 0; name < 14; ++name)
    {
        const std::string wanted = "n" + std::to_string(name);
        const auto first = std::find_if(model.attribs.begin(), model.attribs.end(),
                                        [&](const auto& attrib) { return attrib.first == wanted; });
        const auto place = static_cast<std::size_t>(first - model.attribs.begin());
        EXPECT_EQ(record.FindAttribute(wanted), record.GetAttribute(place)) << wanted;
    }
}
} // namespace

TEST(RandomDatabase, AnswersAsALinearScanWouldAndGivesTheSameBytesTwice)
{
    for (unsigned seed = 0; seed < 200; ++seed)
    {
        SCOPED_TRACE(seed);
        CRandomDatabase random(seed);
        CSavedDatabase saved = random.Save();
        EXPECT_EQ(CRandomDatabase(seed).Save().GetBytes(), saved.GetBytes());
        EXPECT_EQ(random.Save().GetBytes(), saved.GetBytes());
        const std::vector<SRecordModel>& records = random.GetRecords();
        ASSERT_EQ(saved->GetRecordCount(), records.size());
        for (std::size_t i = 0; i < records.size(); ++i)
        {
            ExpectRecord(saved->GetRecord(i), records[i], *saved.operator->());
            const auto first = std::find_if(records.begin(), records.end(),
                                            [&](const SRecordModel& r) { return r.path == records[i].path; });
            EXPECT_EQ(saved->FindRecord(records[i].path),
                      saved->GetRecord(static_cast<std::size_t>(first - records.begin())));
            EXPECT_FALSE(saved->FindRecord(records[i].path + "x"));
        }
    }
}
