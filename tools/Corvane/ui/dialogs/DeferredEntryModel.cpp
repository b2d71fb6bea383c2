#include "DeferredEntryModel.h"

#include "DeferredList.h"
#include "DialogParts.h"

#include <array>

namespace
{
constexpr std::array kTitles{"Schema / Struct", "Object", "Attribute", "Build", "Type", "Modified"};
} // namespace

CDeferredEntryModel::CDeferredEntryModel(CDeferredList& list, std::function<void()> onTick, QObject* parent)
    : QAbstractTableModel(parent), m_List(list), m_OnTick(std::move(onTick))
{
}

int CDeferredEntryModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_List.GetEntries().size());
}

int CDeferredEntryModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(kTitles.size());
}

QString CDeferredEntryModel::GetText(std::size_t entry, int column) const
{
    const SDeferredEntry& shown = m_List.GetEntries()[entry];
    switch (column)
    {
    case 0:
        return shown.m_pSchema ? tr("Schema") : tr("Struct");
    case 1:
        return MakeCellText(shown.m_sOwner);
    case 2:
        return MakeCellText(shown.m_pData->GetName());
    case 3:
        return QString::number(shown.m_pData->GetBuild());
    case 4:
        return MakeCellText(shown.m_sType);
    default:
        return shown.m_bModified ? tr("True") : tr("False");
    }
}

QVariant CDeferredEntryModel::data(const QModelIndex& index, int role) const
{
    const auto entry = static_cast<std::size_t>(index.row());
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return GetText(entry, index.column());
    if (role == Qt::CheckStateRole && index.column() == 0)
        return static_cast<int>(m_List.IsTicked(entry) ? Qt::Checked : Qt::Unchecked);
    return {};
}

bool CDeferredEntryModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != 0)
        return false;
    m_List.Tick(static_cast<std::size_t>(index.row()), value.toInt() == Qt::Checked);
    Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
    m_OnTick();
    return true;
}

Qt::ItemFlags CDeferredEntryModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == 0 ? flags | Qt::ItemIsUserCheckable : flags;
}

QVariant CDeferredEntryModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    return role == Qt::DisplayRole ? tr(kTitles[static_cast<std::size_t>(section)]) : QVariant();
}
