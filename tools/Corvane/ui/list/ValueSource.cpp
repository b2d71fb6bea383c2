#include "ValueSource.h"

#include "CorvaneMgr.h"
#include "CorvaneRecord.h"
#include "CorvaneSchema.h"
#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "FormatText.h"

#include <vector>

namespace
{
bool HasSameValues(const CCorvaneValueList& a, const CCorvaneValueList& b)
{
    if (a.GetCount() != b.GetCount())
        return false;
    for (std::size_t i = 0; i < a.GetCount(); ++i)
    {
        if (a.Get(i) != b.Get(i))
            return false;
    }
    return true;
}

// The records from the one above the attribute's own up to the one whose own value is shown.
std::vector<const CCorvaneRecord*> GetChain(const CCorvaneType& attrib)
{
    std::vector<const CCorvaneRecord*> chain;
    const CCorvaneAttrib* current = &attrib;
    const CCorvaneRecord* record = attrib.GetOwnerRecord();
    while (current != nullptr && record != nullptr && current->GetInherit() && record->GetParent() != nullptr)
    {
        record = record->GetParent();
        chain.push_back(record);
        current = current->FindCounterpart(*record);
    }
    return chain;
}

std::u16string GetPath(const CCorvaneRecord& record)
{
    std::u16string path;
    record.GetManager().GetRecordDisplayPath(&record, path);
    return path;
}

bool IsDefault(const CCorvaneType& attrib)
{
    CCorvaneSchemaAttribData* data = attrib.GetAttribData();
    const CCorvaneAttrib* fallback = attrib.GetDefault();
    if (data == nullptr || data->GetMemberStore() != nullptr || fallback == nullptr || fallback == &attrib)
        return false;
    return HasSameValues(attrib.GetOwnValues(), fallback->GetOwnValues());
}
} // namespace

std::u16string DescribeValueSource(const CCorvaneType& attrib)
{
    const std::vector<const CCorvaneRecord*> chain = GetChain(attrib);
    if (chain.empty())
    {
        if (!IsDefault(attrib))
            return u"Own value";
        const CCorvaneSchema* schema = attrib.GetAttribData()->GetSchema();
        return schema ? FormatText(u"Default of the schema '%s'", schema->GetName())
                      : std::u16string(u"Default of the struct");
    }
    std::u16string text = u"Inherited from " + GetPath(*chain.back());
    for (std::size_t i = chain.size() - 1; i-- > 0;)
        text.append(i + 2 == chain.size() ? u" via " : u", ").append(GetPath(*chain[i]));
    return text;
}
