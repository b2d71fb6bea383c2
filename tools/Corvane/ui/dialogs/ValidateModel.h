// The findings of a validation as rows of a list, in an order of the user's choice. Nothing is copied for a
// row: its texts are looked up when it is drawn, so that a hundred thousand rows cost little and a renamed
// record shows its new name.
#pragma once

#include "ValidateCore.h"

#include <QAbstractTableModel>
#include <cstdint>
#include <span>
#include <vector>

class CValidateModel final : public QAbstractTableModel
{
public:
    enum EColumn
    {
        SeverityColumn,
        ErrorColumn,
        TypeColumn,
        RecordColumn,
        AttributeColumn,
        ValueColumn,
        DescriptionColumn,
        ColumnCount
    };

    using QAbstractTableModel::QAbstractTableModel;

    // Takes a copy, in the order of reporting.
    void SetCore(const CValidateCore& core);
    [[nodiscard]] const CValidateCore& GetCore() const { return m_Core; }
    // The findings in the order of the rows.
    [[nodiscard]] CValidateCore MakeSortedCore() const;
    // The record of a row's attribute; null when there is none or it has left the database.
    [[nodiscard]] CCorvaneRecord* GetRecord(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    // Keeps the order of equal rows; column -1 is the order of reporting. The severity and the value sort as
    // numbers, the rest as texts without regard to case.
    void sort(int column, Qt::SortOrder order) override;

private:
    [[nodiscard]] const CValidateError& GetError(int row) const;
    [[nodiscard]] static QString GetText(const CValidateError& error, int column);
    void SortNumbers(int column, Qt::SortOrder order);
    void SortTexts(int column, Qt::SortOrder order);

    CValidateCore m_Core;
    std::vector<std::uint32_t> m_Order; // Of the core's entries, by row.
};
