#include "RecordListModel.h"

#include "CorvaneMgr.h"
#include "CorvaneRecord.h"
#include "DialogParts.h"
#include "IconSet.h"

#include <QIcon>

CRecordListModel::CRecordListModel(QObject* parent) : QAbstractListModel(parent) {}

CRecordListModel::~CRecordListModel() = default;

void CRecordListModel::SetRecords(std::span<const CRef<CCorvaneRecord>> records)
{
    beginResetModel();
    m_Records.assign(records.begin(), records.end());
    endResetModel();
}

CCorvaneRecord* CRecordListModel::GetRecord(int row) const
{
    return row >= 0 && row < rowCount() ? m_Records[static_cast<std::size_t>(row)].Get() : nullptr;
}

int CRecordListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_Records.size());
}

QVariant CRecordListModel::data(const QModelIndex& index, int role) const
{
    const CCorvaneRecord* record = GetRecord(index.row());
    if (record == nullptr)
        return {};
    if (role == Qt::DecorationRole)
        return GetIcon("record");
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    std::u16string path;
    record->GetManager().GetRecordDisplayPath(record, path);
    return MakeCellText(path);
}
