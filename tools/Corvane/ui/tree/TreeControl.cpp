#include "TreeControl.h"

#include "CorvaneTreeModel.h"
#include "Theme.h"
#include "TreeItemDelegate.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>
#include <QToolTip>
#include <algorithm>

namespace
{
constexpr int kTipDelay = 1000; // ms
constexpr int kScrollPeriod = 100;

// A tip shows any text as it stands.
QString MakePlainTip(const QString& text)
{
    constexpr qsizetype kMaxTip = 1024;
    QString shown = text.left(kMaxTip);
    if (shown.size() < text.size())
        shown += QStringLiteral("...");
    return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(shown.toHtmlEscaped());
}
} // namespace

CTreeControl::CTreeControl(CCorvaneTreeModel& model, QWidget* parent)
    : QTreeView(parent), m_Model(model), m_Delegate(*new CTreeItemDelegate(model, this)),
      m_pScroll(new QTimer(this)), m_pTip(new QTimer(this))
{
    setModel(&model);
    setItemDelegate(&m_Delegate);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setIndentation(CTheme::kIconSize);
    setMouseTracking(true);
    m_pScroll->setInterval(kScrollPeriod);
    connect(m_pScroll, &QTimer::timeout, this, [this] { AutoScroll(); });
    m_pTip->setSingleShot(true);
    connect(m_pTip, &QTimer::timeout, this, [this] { ShowTip(); });
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, this,
            [this]
            {
                m_PressedItem = {};
                CancelDrag();
            });
}

CTreeControl::~CTreeControl() = default;

void CTreeControl::SetTrackSelect(bool on)
{
    m_bTrackSelect = on;
    m_Delegate.m_bTrackSelect = on && !IsDragging();
    viewport()->update();
}

void CTreeControl::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint)
{
    // Tab in the editor ends it; it does not go on to the next row.
    QTreeView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    if (m_Hooks.m_EditClosed)
        m_Hooks.m_EditClosed(editor);
}

void CTreeControl::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    // What an editor of a name leaves over is not for the tree.
    if (state() == EditingState)
        QTreeView::keyPressEvent(event);
    else if (key == Qt::Key_Escape && IsDragging())
        CancelDrag();
    else if (key == Qt::Key_Escape && m_Hooks.m_Escape)
        m_Hooks.m_Escape();
    else if ((key == Qt::Key_Return || key == Qt::Key_Enter) && m_Hooks.m_Enter)
        m_Hooks.m_Enter();
    else
        QTreeView::keyPressEvent(event);
}

bool CTreeControl::focusNextPrevChild(bool next)
{
    if (!next || !m_Hooks.m_Tab)
        return QTreeView::focusNextPrevChild(next);
    m_Hooks.m_Tab();
    return true;
}

void CTreeControl::focusInEvent(QFocusEvent* event)
{
    QTreeView::focusInEvent(event);
    if (m_Hooks.m_Focus)
        m_Hooks.m_Focus();
}

void CTreeControl::hideEvent(QHideEvent* event)
{
    CancelDrag();
    QTreeView::hideEvent(event);
}

bool CTreeControl::viewportEvent(QEvent* event)
{
    switch (event->type())
    {
    case QEvent::ToolTip:
        // The toolkit has waited for a part of the delay.
        m_TipPosition = static_cast<QHelpEvent*>(event)->pos();
        m_TipIndex = indexAt(m_TipPosition);
        m_pTip->start(std::max(0, kTipDelay - style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay)));
        return true;
    case QEvent::MouseMove:
    case QEvent::Leave:
    case QEvent::Wheel:
    case QEvent::MouseButtonPress:
        m_pTip->stop();
        break;
    default:
        break;
    }
    return QTreeView::viewportEvent(event);
}

void CTreeControl::ShowTip()
{
    if (!m_TipIndex.isValid() || !m_Hooks.m_GetTip)
        return;
    const QString text = m_Hooks.m_GetTip(m_TipIndex, m_TipPosition);
    // The question may have gone to a server, and the row with it.
    if (!text.isEmpty() && m_TipIndex.isValid())
        QToolTip::showText(viewport()->mapToGlobal(m_TipPosition), MakePlainTip(text), viewport(),
                           visualRect(m_TipIndex));
}
