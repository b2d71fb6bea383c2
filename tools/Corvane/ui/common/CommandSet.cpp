#include "CommandSet.h"

#include "Commands.h"
#include "IconSet.h"
#include "QtText.h"

#include <QAction>
#include <QMenu>
#include <QTimer>
#include <QToolBar>

namespace
{
QString RemoveMnemonic(QString label)
{
    return label.remove(u'&');
}

// The tip of a bar's button tells the keys too.
QString GetTip(const SCommand& command)
{
    const QString tip = ToQString(command.m_sTip);
    if (*command.m_sKeys == '\0')
        return tip;
    const QKeySequence keys(QString::fromLatin1(command.m_sKeys), QKeySequence::PortableText);
    return QStringLiteral("%1 (%2)").arg(tip, keys.toString(QKeySequence::NativeText));
}
} // namespace

CCommandSet::CCommandSet(QWidget& window) : QObject(&window), m_Window(window), m_pUpdate(new QTimer(this))
{
    m_pUpdate->setSingleShot(true);
    m_pUpdate->setInterval(0);
    connect(m_pUpdate, &QTimer::timeout, this, [this] { UpdateNow(); });
}

void CCommandSet::SetFrameTarget(ICommandTarget* target)
{
    m_pFrame = target;
    Touch();
}

void CCommandSet::SetActivePane(ICommandTarget* pane)
{
    m_pPane = pane;
    Touch();
}

QAction& CCommandSet::Get(int id)
{
    QAction*& action = m_Actions[id];
    if (action != nullptr)
        return *action;
    action = new QAction(this);
    if (const SCommand* command = FindCommand(id))
    {
        action->setObjectName(RemoveMnemonic(ToQString(command->m_sLabel)));
        action->setText(ToQString(command->m_sLabel));
        if (*command->m_sIcon != '\0')
            action->setIcon(GetIcon(command->m_sIcon));
        action->setShortcut(QKeySequence(QString::fromLatin1(command->m_sKeys), QKeySequence::PortableText));
        action->setStatusTip(ToQString(command->m_sTip));
        action->setToolTip(GetTip(*command));
    }
    action->setShortcutContext(Qt::WindowShortcut);
    connect(action, &QAction::triggered, this, [this, id] { Run(id); });
    m_Window.addAction(action);
    UpdateState(id, *action);
    return *action;
}

void CCommandSet::Fill(QMenu& menu, std::span<const int> ids)
{
    for (const int id : ids)
    {
        if (id == ID_SEPARATOR)
            menu.addSeparator();
        else
            menu.addAction(&Get(id));
    }
    menu.setToolTipsVisible(true);
    connect(&menu, &QMenu::aboutToShow, this, [this] { UpdateNow(); });
}

void CCommandSet::Fill(QToolBar& bar, std::span<const int> ids)
{
    for (const int id : ids)
    {
        if (id == ID_SEPARATOR)
            bar.addSeparator();
        else
            bar.addAction(&Get(id));
    }
}

void CCommandSet::Touch()
{
    if (!m_pUpdate->isActive())
        m_pUpdate->start();
}

void CCommandSet::UpdateNow()
{
    for (const auto& [id, action] : m_Actions)
        UpdateState(id, *action);
}

bool CCommandSet::Run(int id)
{
    SCommandState state;
    ICommandTarget* target = FindTarget(id, state);
    const bool ran = target != nullptr && state.m_bEnabled && target->RunCommand(id);
    Touch();
    return ran;
}

void CCommandSet::SetAcceleratorsEnabled(bool enabled)
{
    m_bAccelerators = enabled;
    UpdateNow();
}

ICommandTarget* CCommandSet::FindTarget(int id, SCommandState& state) const
{
    for (ICommandTarget* target : {m_pPane, m_pFrame})
        if (target != nullptr && target->GetCommandState(id, state))
            return target;
    return nullptr;
}

void CCommandSet::UpdateState(int id, QAction& action) const
{
    SCommandState state;
    const bool known = FindTarget(id, state) != nullptr;
    action.setEnabled(known && state.m_bEnabled && m_bAccelerators);
    action.setCheckable(state.m_bChecked.has_value());
    if (state.m_bChecked)
        action.setChecked(*state.m_bChecked);
    const SCommand* command = FindCommand(id);
    if (command == nullptr)
        return;
    action.setText(state.m_sLabel.isEmpty() ? ToQString(command->m_sLabel) : state.m_sLabel);
    const bool tellsWhy = !state.m_bEnabled && !state.m_sWhyNot.isEmpty();
    action.setToolTip(tellsWhy ? state.m_sWhyNot : GetTip(*command));
    action.setStatusTip(tellsWhy ? state.m_sWhyNot : ToQString(command->m_sTip));
}
