#include "text/CorvaneTypeStringValueDlg.h"

#include "LongText.h"

#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <algorithm>

CCorvaneTypeStringValueDlg::CCorvaneTypeStringValueDlg(CCorvaneTypeView& view, QWidget* parent)
    : CCorvaneTypeValueDlg(view, parent)
{
    AddLineEdit(QStringLiteral("TextValue"));
}

void CCorvaneTypeStringValueDlg::AddRows()
{
    GetLineEdit()->hide();
    m_pRows = new QPlainTextEdit(this);
    m_pRows->setObjectName(QStringLiteral("LongTextValue"));
    m_pRows->setAccessibleName(accessibleName());
    m_pRows->setFrameShape(QFrame::NoFrame);
    m_pRows->setTabChangesFocus(true);
    m_pRows->installEventFilter(this);
    layout()->addWidget(m_pRows);
}

void CCorvaneTypeStringValueDlg::ShowText(const QString& text)
{
    if (text.size() > kLongLine && m_pRows == nullptr)
        AddRows();
    if (m_pRows != nullptr)
        m_pRows->setPlainText(BreakLongLines(text));
    else
        CCorvaneTypeValueDlg::ShowText(text);
}

QString CCorvaneTypeStringValueDlg::ReadText() const
{
    if (m_pRows == nullptr)
        return CCorvaneTypeValueDlg::ReadText();
    return JoinLongLines(m_pRows->toPlainText()).replace(u'\n', u' '); // A pasted text may have lines.
}

QRect CCorvaneTypeStringValueDlg::GetPlacement(const QRect& cell) const
{
    constexpr int kHeight = 120;
    if (m_pRows == nullptr)
        return cell;
    const QRect surface = parentWidget()->rect();
    const int height = std::min(kHeight, surface.height());
    return {cell.left(), std::clamp(cell.top(), 0, surface.height() - height), cell.width(), height};
}

void CCorvaneTypeStringValueDlg::TakeFocus(const QPoint& click)
{
    if (m_pRows == nullptr)
        CCorvaneTypeValueDlg::TakeFocus(click);
    else
        m_pRows->setFocus();
}

bool CCorvaneTypeStringValueDlg::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_pRows || event->type() != QEvent::KeyPress)
        return CCorvaneTypeValueDlg::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    Accept();
    return true;
}
