// Attributes of records as rows of a list: record, attribute, type, build, and whether it was changed after
// it had gone out of force.
#pragma once

#include "CorvaneAttrib.h"
#include "CorvaneRecord.h"

#include <QAbstractTableModel>
#include <vector>

struct SAttributeRow
{
    CRef<CCorvaneRecord> m_pRecord;
    CRef<CCorvaneAttrib> m_pAttrib;
    bool m_bModified = false;
};

class CAttributeUseModel final : public QAbstractTableModel
{
public:
    static constexpr int kColumnWidths[] = {280, 160, 100, 60, 80};

    using QAbstractTableModel::QAbstractTableModel;

    void SetRows(std::vector<SAttributeRow> rows);
    // Null when the record has left the database.
    [[nodiscard]] CCorvaneRecord* GetRecord(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<SAttributeRow> m_Rows;
};
