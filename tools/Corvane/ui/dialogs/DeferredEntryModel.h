// The entries of a CDeferredList as rows with a box to tick.
#pragma once

#include <QAbstractTableModel>
#include <functional>

class CDeferredList;

class CDeferredEntryModel final : public QAbstractTableModel
{
public:
    static constexpr int kColumnWidths[] = {120, 200, 160, 60, 100, 80};

    // `list` is not owned. `onTick` is called when the user has ticked.
    CDeferredEntryModel(CDeferredList& list, std::function<void()> onTick, QObject* parent);

    // Before and after a change of the list.
    void BeginChange() { beginResetModel(); }
    void EndChange() { endResetModel(); }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    [[nodiscard]] QString GetText(std::size_t entry, int column) const;

    CDeferredList& m_List;
    std::function<void()> m_OnTick;
};
