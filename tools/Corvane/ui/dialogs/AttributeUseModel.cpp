#include "AttributeUseModel.h"

#include "CorvaneMgr.h"
#include "CorvaneType.h"
#include "DialogParts.h"

#include <array>

namespace
{
constexpr std::array kTitles{"Record", "Attribute", "Type", "Build", "Modified"};
} // namespace

void CAttributeUseModel::SetRows(std::vector<SAttributeRow> rows)
{
    beginResetModel();
    m_Rows = std::move(rows);
    endResetModel();
}

CCorvaneRecord* CAttributeUseModel::GetRecord(int row) const
{
    CCorvaneRecord* record = m_Rows[static_cast<std::size_t>(row)].m_pRecord.Get();
    return record->IsInTree() ? record : nullptr;
}

int CAttributeUseModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_Rows.size());
}

int CAttributeUseModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(kTitles.size());
}

QVariant CAttributeUseModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const SAttributeRow& row = m_Rows[static_cast<std::size_t>(index.row())];
    switch (index.column())
    {
    case 0:
    {
        std::u16string path;
        row.m_pRecord->GetManager().GetRecordDisplayPath(row.m_pRecord.Get(), path);
        return MakeCellText(path);
    }
    case 1:
        return MakeCellText(row.m_pAttrib->GetName());
    case 2:
    {
        const auto* type = dynamic_cast<const CCorvaneType*>(row.m_pAttrib.Get());
        return type ? MakeCellText(type->GetTypeName()) : QString();
    }
    case 3:
        return QString::number(row.m_pAttrib->GetBuild());
    default:
        return row.m_bModified ? tr("True") : tr("False");
    }
}

QVariant CAttributeUseModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    return role == Qt::DisplayRole ? tr(kTitles[static_cast<std::size_t>(section)]) : QVariant();
}
