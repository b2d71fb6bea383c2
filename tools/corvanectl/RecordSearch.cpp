#include "RecordSearch.h"

#include "CorvaneMgr.h"
#include "NameCompare.h"
#include "Path.h"
#include "ProgramStart.h"

#include <algorithm>
#include <iterator>

namespace
{
template <class Fits>
std::vector<CCorvaneRecord*> Select(const std::vector<CCorvaneRecord*>& records, Fits fits)
{
    std::vector<CCorvaneRecord*> found;
    std::copy_if(records.begin(), records.end(), std::back_inserter(found),
                 [&](const CCorvaneRecord* record) { return fits(*record); });
    return found;
}

} // namespace

std::u16string GetDisplayPath(const CCorvaneRecord& record)
{
    std::u16string path;
    record.GetManager().GetRecordDisplayPath(&record, path);
    return path;
}

std::vector<CCorvaneRecord*> GetAllRecords(const CCorvaneMgr& manager)
{
    std::vector<CCorvaneRecord*> records;
    manager.EnumerateRecords(
        [&records](CCorvaneRecord& record)
        {
            records.push_back(&record);
            return true;
        });
    return records;
}

std::vector<CCorvaneRecord*> FindRecords(const CCorvaneMgr& manager, std::u16string_view name)
{
    if (CCorvaneRecord* record = manager.FindRecordByFile(MakeDocumentPath(name)))
        return {record};
    const std::vector<CCorvaneRecord*> records = GetAllRecords(manager);
    auto found = Select(records, [&](const CCorvaneRecord& record)
                        { return EqualNames(GetDisplayPath(record), name); });
    if (!found.empty())
        return found;
    const auto hasRecordPath = [&](const CCorvaneRecord& record)
    {
        std::u16string path;
        manager.GetRecordPath(&record, path);
        return EqualNames(path, name);
    };
    found = Select(records, hasRecordPath);
    if (!found.empty() || name.find(u'/') != name.npos)
        return found;
    return Select(records, [&](const CCorvaneRecord& record) { return EqualNames(record.GetName(), name); });
}
