// The commands of one frame as actions: labels, keys and icons from the table, states from the targets. The
// active pane is asked ahead of the frame, so that one command may mean the pane's own thing.
//
// States are looked up again when a menu opens, when a command runs, and once per turn of the event loop
// after Touch.
#pragma once

#include "CommandTarget.h"

#include <QObject>
#include <map>
#include <span>

class QAction;
class QMenu;
class QTimer;
class QToolBar;
class QWidget;

class CCommandSet final : public QObject
{
public:
    // Keys work in `window`, which owns the set.
    explicit CCommandSet(QWidget& window);

    // Not owned; null for none.
    void SetFrameTarget(ICommandTarget* target);
    void SetActivePane(ICommandTarget* pane);
    [[nodiscard]] ICommandTarget* GetActivePane() const { return m_pPane; }

    // The action of a command, made at the first call.
    [[nodiscard]] QAction& Get(int id);
    // ID_SEPARATOR stands for a separator. A menu brings its states up to date when it opens.
    void Fill(QMenu& menu, std::span<const int> ids);
    void Fill(QToolBar& bar, std::span<const int> ids);

    // Something changed that states depend on.
    void Touch();
    void UpdateNow();
    // Runs the command when its target has it enabled now. False when it is not.
    bool Run(int id);

    // Keys pass to an editor while one is open.
    void SetAcceleratorsEnabled(bool enabled);
    [[nodiscard]] bool AreAcceleratorsEnabled() const { return m_bAccelerators; }

private:
    [[nodiscard]] ICommandTarget* FindTarget(int id, SCommandState& state) const;
    void UpdateState(int id, QAction& action) const;

    QWidget& m_Window;
    ICommandTarget* m_pFrame = nullptr;
    ICommandTarget* m_pPane = nullptr;
    std::map<int, QAction*> m_Actions;
    QTimer* m_pUpdate;
    bool m_bAccelerators = true;
};
