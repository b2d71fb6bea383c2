#include "ValidateModel.h"

#include "CorvaneRecord.h"
#include "DialogParts.h"
#include "FindingPlace.h"
#include "IconSet.h"
#include "NameCompare.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace
{
QString GetSeverityText(ESeverity severity)
{
    return severity == ESeverity::Critical ? CValidateModel::tr("Critical") : CValidateModel::tr("Warning");
}

// The key of a text column. Views live as long as the finding.
std::u16string_view GetKey(const CValidateError& error, const SFindingPlace& place, int column)
{
    switch (column)
    {
    case CValidateModel::ErrorColumn:
        return error.m_sType;
    case CValidateModel::TypeColumn:
        return place.m_sTypeName;
    case CValidateModel::RecordColumn:
        return place.m_sRecord;
    case CValidateModel::AttributeColumn:
        return place.m_sAttribute;
    default:
        return error.m_sDescription;
    }
}

template <class F> void SortRows(std::vector<std::uint32_t>& rows, Qt::SortOrder order, const F& isBefore)
{
    if (order == Qt::AscendingOrder)
        std::stable_sort(rows.begin(), rows.end(), isBefore);
    else
        std::stable_sort(rows.begin(), rows.end(), [&](auto a, auto b) { return isBefore(b, a); });
}
} // namespace

void CValidateModel::SetCore(const CValidateCore& core)
{
    beginResetModel();
    m_Core = core;
    m_Order.resize(m_Core.GetErrors().size());
    std::iota(m_Order.begin(), m_Order.end(), 0U);
    endResetModel();
}

CValidateCore CValidateModel::MakeSortedCore() const
{
    CValidateCore sorted(m_Core.GetBuild());
    for (int row = 0; row < rowCount(); ++row)
    {
        const CValidateError& error = GetError(row);
        sorted.AddError(error.m_Severity, error.m_sType, error.m_sDescription, error.m_pAttrib.Get(),
                        error.m_nValueIndex);
    }
    return sorted;
}

const CValidateError& CValidateModel::GetError(int row) const
{
    return m_Core.GetErrors()[m_Order[static_cast<std::size_t>(row)]];
}

CCorvaneRecord* CValidateModel::GetRecord(int row) const
{
    const CCorvaneAttrib* attrib = GetError(row).m_pAttrib.Get();
    CCorvaneRecord* record = attrib ? attrib->GetOwnerRecord() : nullptr;
    return record && record->IsInTree() ? record : nullptr;
}

int CValidateModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_Order.size());
}

int CValidateModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString CValidateModel::GetText(const CValidateError& error, int column)
{
    switch (column)
    {
    case SeverityColumn:
        return GetSeverityText(error.m_Severity);
    case ValueColumn:
        return error.m_pAttrib ? QString::number(error.m_nValueIndex + 1) : QString();
    case ErrorColumn:
    case DescriptionColumn:
        return MakeCellText(GetKey(error, {}, column));
    default:
        return MakeCellText(GetKey(error, DescribePlace(error.m_pAttrib.Get()), column));
    }
}

QVariant CValidateModel::data(const QModelIndex& index, int role) const
{
    const CValidateError& error = GetError(index.row());
    switch (role)
    {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return GetText(error, index.column());
    case Qt::DecorationRole:
        if (index.column() == SeverityColumn)
            return GetIcon(error.m_Severity == ESeverity::Critical ? "error" : "warning");
        return {};
    default:
        return {};
    }
}

QVariant CValidateModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const std::array<const char*, ColumnCount> titles{"",          "Error", "Type",       "Record",
                                                             "Attribute", "Value", "Description"};
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::DisplayRole)
        return tr(titles[static_cast<std::size_t>(section)]);
    if (role == Qt::AccessibleTextRole && section == SeverityColumn)
        return tr("Severity");
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    return {};
}

void CValidateModel::sort(int column, Qt::SortOrder order)
{
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    const std::vector<std::uint32_t> orderBefore = m_Order;
    if (column < 0)
        std::iota(m_Order.begin(), m_Order.end(), 0U);
    else if (column == SeverityColumn || column == ValueColumn)
        SortNumbers(column, order);
    else
        SortTexts(column, order);

    std::vector<int> rows(m_Order.size());
    for (std::size_t i = 0; i < m_Order.size(); ++i)
        rows[m_Order[i]] = static_cast<int>(i);
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& index : before)
        after += this->index(rows[orderBefore[static_cast<std::size_t>(index.row())]], index.column());
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

void CValidateModel::SortNumbers(int column, Qt::SortOrder order)
{
    const auto errors = m_Core.GetErrors();
    const auto getKey = [&](std::uint32_t entry) -> std::int64_t
    {
        const CValidateError& error = errors[entry];
        if (column == SeverityColumn)
            return static_cast<std::int64_t>(error.m_Severity);
        return error.m_pAttrib ? static_cast<std::int64_t>(error.m_nValueIndex) : -1;
    };
    SortRows(m_Order, order, [&](auto a, auto b) { return getKey(a) < getKey(b); });
}

void CValidateModel::SortTexts(int column, Qt::SortOrder order)
{
    const auto errors = m_Core.GetErrors();
    // A record's path is made anew for each question; the other texts are there.
    const bool needsPlace = column != ErrorColumn && column != DescriptionColumn;
    std::vector<SFindingPlace> places(errors.size());
    std::vector<std::u16string_view> keys(errors.size(), u"");
    for (std::size_t i = 0; i < errors.size(); ++i)
    {
        if (needsPlace)
            places[i] = DescribePlace(errors[i].m_pAttrib.Get());
        if (!needsPlace || errors[i].m_pAttrib)
            keys[i] = GetKey(errors[i], places[i], column);
    }
    SortRows(m_Order, order, [&](auto a, auto b) { return ZRStrICmp(keys[a], keys[b]) < 0; });
}
