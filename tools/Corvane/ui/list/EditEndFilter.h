// Watches the whole application while an attribute list exists: a press outside an open editor and a switch
// to another program end the edit with its value.
#pragma once

#include <QObject>

class CCorvaneListViewList;

class CEditEndFilter final : public QObject
{
public:
    static void Add(CCorvaneListViewList& list);
    static void Remove(CCorvaneListViewList& list);
    // Values changed somewhere: every list measures and draws its rows again.
    static void InvalidateAll();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    CEditEndFilter() = default;
    [[nodiscard]] static bool IsOutside(const CCorvaneListViewList& list, const QObject* watched);
};
