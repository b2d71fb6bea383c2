#include "memo/CorvaneTypeMemoValueDlg.h"

#include "LongText.h"

#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QVBoxLayout>
#include <algorithm>

CCorvaneTypeMemoValueDlg::CCorvaneTypeMemoValueDlg(CCorvaneTypeView& view, int maximum, QWidget* parent)
    : CCorvaneTypeValueDlg(view, parent), m_pEdit(new QPlainTextEdit(this)), m_nMaximum(maximum)
{
    m_pEdit->setObjectName(QStringLiteral("MemoValue"));
    m_pEdit->setAccessibleName(accessibleName());
    m_pEdit->setPlaceholderText(QStringLiteral("Ctrl+Enter begins a new line"));
    m_pEdit->setFrameShape(QFrame::NoFrame);
    m_pEdit->setTabChangesFocus(true);
    m_pEdit->installEventFilter(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(m_pEdit);
    if (m_nMaximum < 0)
        return;
    connect(m_pEdit->document(), &QTextDocument::contentsChange, this,
            [this](int position, int, int added)
            {
                m_nPosition = position;
                m_nInserted = added;
            });
    connect(m_pEdit, &QPlainTextEdit::textChanged, this, [this] { TrimInsertion(); });
}

void CCorvaneTypeMemoValueDlg::TrimInsertion()
{
    const int length = m_pEdit->document()->characterCount() - 1; // The document's own end is none of it.
    const int excess = std::min(length - m_nMaximum, m_nInserted);
    if (m_bShowing || excess <= 0)
        return;
    QTextCursor cursor(m_pEdit->document());
    const int end = std::min(m_nPosition + m_nInserted, length);
    cursor.setPosition(end);
    cursor.setPosition(end - excess, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
}

void CCorvaneTypeMemoValueDlg::ShowText(const QString& text)
{
    m_bShowing = true;
    QString lines = text;
    m_pEdit->setPlainText(BreakLongLines(lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"))));
    m_bShowing = false;
}

QString CCorvaneTypeMemoValueDlg::ReadText() const
{
    return JoinLongLines(m_pEdit->toPlainText()).replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
}

QRect CCorvaneTypeMemoValueDlg::GetPlacement(const QRect& cell) const
{
    constexpr int kLines = 6;
    const QRect surface = parentWidget()->rect();
    const int wanted = std::max(cell.height(), kLines * fontMetrics().lineSpacing() + 12);
    QRect place(cell.left(), cell.top(), cell.width(), std::min(wanted, surface.height()));
    if (place.bottom() > surface.bottom())
        place.moveBottom(surface.bottom());
    if (place.top() < surface.top())
        place.moveTop(surface.top());
    return place;
}

void CCorvaneTypeMemoValueDlg::TakeFocus(const QPoint&)
{
    m_pEdit->setFocus();
    m_pEdit->selectAll();
}

bool CCorvaneTypeMemoValueDlg::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_pEdit || event->type() != QEvent::KeyPress)
        return CCorvaneTypeValueDlg::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
        return false;
    if (key->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier | Qt::AltModifier))
        m_pEdit->insertPlainText(QStringLiteral("\n"));
    else
        Accept();
    return true;
}
