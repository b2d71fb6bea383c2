#include "EditMeasurement.h"

#include "BenchHost.h"
#include "CorvaneType.h"
#include "Measurement.h"
#include "UndoScope.h"
#include "UndoText.h"

#include <algorithm>
#include <chrono>
#include <vector>

namespace
{
constexpr std::size_t kEdits = 1000;
constexpr int kBatches = 5;

// One value of each record that neither inherits nor hands its values on: what an edit tells relatives grows
// with their number and not with the database.
std::vector<CCorvaneType*> FindValues(const CCorvaneMgr& manager)
{
    std::vector<CCorvaneType*> values;
    manager.EnumerateRecords(
        [&](CCorvaneRecord& record)
        {
            if (record.GetParent() == nullptr && record.GetReferencees().empty())
                values.push_back(static_cast<CCorvaneType*>(record.GetAttributeList().front().Get()));
            return true;
        });
    return values;
}

bool EditAndUndo(CUndoMgr& undo, CCorvaneType& attrib)
{
    CUndoScope scope(undo);
    if (!attrib.SetValue(0, u"4711"))
        return false;
    scope.Accept(GetValueUndoText(kUndoValueModified, attrib.GetName(), u"4711"));
    return undo.Undo(1);
}

// Microseconds for each edit of `values` one after the other, over and over; negative when one failed.
double MeasureBatches(CUndoMgr& undo, const std::vector<CCorvaneType*>& values)
{
    double least = -1;
    for (int batch = 0; batch < kBatches; ++batch)
    {
        const auto start = std::chrono::steady_clock::now();
        for (std::size_t i = 0; i < kEdits; ++i)
        {
            if (!EditAndUndo(undo, *values[i * values.size() / kEdits % values.size()]))
                return -1;
        }
        const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
        least = least < 0 ? time.count() : std::min(least, time.count());
    }
    return least / kEdits;
}
} // namespace

bool MeasureEdits(CBenchHost& host, SMeasurement& out)
{
    const std::vector<CCorvaneType*> values = FindValues(host.GetManager());
    if (values.empty())
        return false;
    out.m_nEditUs = MeasureBatches(host.GetUndo(), {values[values.size() / 2]});
    out.m_nFarEditUs = MeasureBatches(host.GetUndo(), values);
    host.GetUndo().Clear();
    host.GetManager().SetDirty(false);
    return out.m_nEditUs > 0 && out.m_nFarEditUs > 0;
}
