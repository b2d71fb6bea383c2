// Random databases against a model that answers every question by a linear scan.
#include "CreatorLibrary.h"

#include <algorithm>
#include <random>

namespace
{
struct SAttribModel
{
    std::string name;
    std::int32_t type;
    // The values as numbers; what each stands for is told by the functions below.
    std::vector<int> values;
};

struct SRecordModel
{
    std::string path;
    std::string schema;
    CreatorHandle handle = 0;
    std::vector<SAttribModel> attribs;
};

std::string TextOf(int value)
{
    return value == 0 ? "" : std::string(static_cast<std::size_t>(value % 40), 'a') + std::to_string(value);
}
std::u16string WideOf(int value)
{
    const std::string text = TextOf(value);
    return {text.begin(), text.end()};
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
        SAttribModel attrib{Name(12), static_cast<std::int32_t>(1 + Below(9)), std::vector<int>(Below(4))};
        const auto count = static_cast<std::int32_t>(attrib.values.size());
        const CreatorHandle handle =
            m_Creator.CreateAttribute(record.handle, attrib.name.c_str(), attrib.type, DBKIND_PLAIN, count);
        ASSERT_NE(handle, 0U);
        for (std::int32_t i = 0; i < count; ++i)
        {
            int& value = attrib.values[static_cast<std::size_t>(i)];
            value = static_cast<int>(Below(m_Records.size() + 1));
            if (value != 0)
                Set(handle, attrib.type, i, value);
        }
        record.attribs.push_back(std::move(attrib));
    }

    void Set(CreatorHandle handle, std::int32_t type, std::int32_t i, int value)
    {
        const auto number = static_cast<float>(value);
        const float parts[] = {number, number + 1, number + 2, number + 3};
        switch (type)
        {
        case DBVALUE_BOOLEAN:
            return m_Creator.SetBoolean(handle, i, true);
        case DBVALUE_FLOAT:
            return m_Creator.SetFloat(handle, i, number);
        case DBVALUE_INTEGER:
            return m_Creator.SetInteger(handle, i, value);
        case DBVALUE_TEXT:
            return m_Creator.SetText(handle, i, TextOf(value).c_str());
        case DBVALUE_WIDETEXT:
            return m_Creator.SetWideText(handle, i, WideOf(value).c_str());
        case DBVALUE_VECTOR2:
            return m_Creator.SetVector2(handle, i, parts);
        case DBVALUE_VECTOR3:
            return m_Creator.SetVector3(handle, i, parts);
        case DBVALUE_VECTOR4:
            return m_Creator.SetVector4(handle, i, parts);
        default:
            return m_Creator.SetRecordLink(handle, i, m_Records[static_cast<std::size_t>(value - 1)].handle);
        }
    }

    std::mt19937 m_Random;
    IDatabaseCreatorMgr& m_Creator = LoadCreator();
    CreatorHandle m_hDatabase;
    std::vector<SRecordModel> m_Records;
};

bool HasValue(const CGameAttribute& attrib, std::size_t i, int value, const CGameDatabase& database)
{
    const auto number = static_cast<float>(value);
    const auto isVector = [&](const auto& vector)
    {
        return vector.front() == number &&
               vector.back() == (value == 0 ? 0 : number + static_cast<float>(vector.size() - 1));
    };
    switch (attrib.GetType())
    {
    case DBVALUE_BOOLEAN:
        return attrib.GetBoolean(i) == (value != 0);
    case DBVALUE_FLOAT:
        return attrib.GetFloat(i) == number;
    case DBVALUE_INTEGER:
        return attrib.GetInteger(i) == value;
    case DBVALUE_TEXT:
        return attrib.GetText(i) == TextOf(value);
    case DBVALUE_WIDETEXT:
        return attrib.GetWideText(i) == WideOf(value);
    case DBVALUE_VECTOR2:
        return isVector(attrib.GetVector2(i));
    case DBVALUE_VECTOR3:
        return isVector(attrib.GetVector3(i));
    case DBVALUE_VECTOR4:
        return isVector(attrib.GetVector4(i));
    default:
        return attrib.GetRecordLink(i) == database.GetRecord(static_cast<std::size_t>(value) - 1);
    }
}

void ExpectRecord(const CGameRecord& record, const SRecordModel& model, const CGameDatabase& database)
{
    EXPECT_EQ(record.GetPath(), model.path);
    EXPECT_EQ(record.GetSchemaName(), model.schema);
    ASSERT_EQ(record.GetAttributeCount(), model.attribs.size());
    for (std::size_t i = 0; i < model.attribs.size(); ++i)
    {
        const CGameAttribute attrib = record.GetAttribute(i);
        ASSERT_EQ(attrib.GetName(), model.attribs[i].name);
        ASSERT_EQ(attrib.GetType(), model.attribs[i].type);
        ASSERT_EQ(attrib.GetCount(), model.attribs[i].values.size());
        for (std::size_t j = 0; j < attrib.GetCount(); ++j)
            EXPECT_TRUE(HasValue(attrib, j, model.attribs[i].values[j], database)) << attrib.GetName();
    }
    for (int name = 0; name < 14; ++name)
    {
        const std::string wanted = "n" + std::to_string(name);
        const auto first = std::find_if(model.attribs.begin(), model.attribs.end(),
                                        [&](const SAttribModel& attrib) { return attrib.name == wanted; });
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
