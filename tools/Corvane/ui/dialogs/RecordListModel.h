// Records by their display paths, for a list. A path is made when its row is looked at.
#pragma once

#include "CorvaneRef.h"

#include <QAbstractListModel>
#include <span>
#include <vector>

class CCorvaneRecord;

class CRecordListModel final : public QAbstractListModel
{
public:
    explicit CRecordListModel(QObject* parent);
    ~CRecordListModel() override;

    void SetRecords(std::span<const CRef<CCorvaneRecord>> records);
    // Null for a row that is not there.
    [[nodiscard]] CCorvaneRecord* GetRecord(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<CRef<CCorvaneRecord>> m_Records;
};
