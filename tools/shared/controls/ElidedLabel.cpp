#include "ElidedLabel.h"

#include "TipText.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QStyleOption>
#include <QToolTip>

namespace
{
constexpr int kInset = 2; // Room for the frame of the focus.
constexpr int kLongestLine = 2000;
} // namespace

CElidedLabel::CElidedLabel(QWidget* parent, Qt::TextElideMode mode) : QFrame(parent), m_Mode(mode)
{
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void CElidedLabel::SetText(const QString& text)
{
    if (text == m_sText)
        return;
    m_sText = text;
    m_sLine = LimitText(text, kLongestLine);
    for (QChar& unit : m_sLine)
    {
        if (unit == u'\n' || unit == u'\r' || unit == u'\t')
            unit = u' ';
    }
    setAccessibleDescription(m_sLine);
    updateGeometry();
    update();
}

QRect CElidedLabel::GetTextRect() const
{
    return contentsRect().adjusted(kInset, 0, -kInset, 0);
}

bool CElidedLabel::IsElided() const
{
    return m_sText.size() > kLongestLine || fontMetrics().horizontalAdvance(m_sLine) > GetTextRect().width();
}

QSize CElidedLabel::sizeHint() const
{
    constexpr int widest = 480;
    const int frame = 2 * frameWidth();
    const int width = std::min(fontMetrics().horizontalAdvance(m_sLine), widest) + 2 * kInset;
    return {width + frame, fontMetrics().height() + 2 * kInset + frame};
}

QSize CElidedLabel::minimumSizeHint() const
{
    return {fontMetrics().horizontalAdvance(u'M') * 4, sizeHint().height()};
}

bool CElidedLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !IsElided())
        return QFrame::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), MakeTip(m_sText), this);
    return true;
}

void CElidedLabel::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    const QRect rect = GetTextRect();
    painter.drawText(rect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     fontMetrics().elidedText(m_sLine, m_Mode, rect.width()));
    if (!hasFocus())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect = contentsRect();
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void CElidedLabel::Copy() const
{
    QApplication::clipboard()->setText(m_sText);
}

void CElidedLabel::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy))
        Copy();
    else
        QFrame::keyPressEvent(event);
}

void CElidedLabel::contextMenuEvent(QContextMenuEvent* event)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(QStringLiteral("&Copy"), this, [this] { Copy(); });
    menu->popup(event->globalPos());
}
