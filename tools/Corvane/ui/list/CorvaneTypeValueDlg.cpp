#include "CorvaneTypeValueDlg.h"

#include "CorvaneTypeView.h"
#include "QtText.h"
#include "Theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>
#include <qdrawutil.h>
#include <utility>
#include <vector>

CCorvaneTypeValueDlg::CCorvaneTypeValueDlg(CCorvaneTypeView& view, QWidget* parent)
    : QFrame(parent), m_View(view)
{
    setObjectName(QStringLiteral("ValueDialog"));
    setAccessibleName(ToQString(view.GetParentType().GetName()));
    setFont(CTheme::GetValueFont());
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setFocusPolicy(Qt::StrongFocus);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { OnFocusChanged(now); });
}

CCorvaneTypeValueDlg::~CCorvaneTypeValueDlg() = default;

CCorvaneTypeValueDlg::CKeepOpen::~CKeepOpen()
{
    if (m_pDialog)
        --m_pDialog->m_nKeepOpen;
}

void CCorvaneTypeValueDlg::SetText(std::u16string_view text)
{
    m_sGiven = text;
    ShowText(ToQString(text));
    m_sShown = ReadText();
}

std::u16string CCorvaneTypeValueDlg::GetText() const
{
    const QString text = ReadText();
    return text == m_sShown ? m_sGiven : ToText(text);
}

QLineEdit& CCorvaneTypeValueDlg::AddLineEdit(const QString& objectName)
{
    m_pLine = new QLineEdit(this);
    m_pLine->setObjectName(objectName);
    m_pLine->setAccessibleName(accessibleName());
    m_pLine->setFrame(false);
    m_pLine->setMaxLength(std::numeric_limits<int>::max());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(m_pLine);
    return *m_pLine;
}

void CCorvaneTypeValueDlg::ShowText(const QString& text)
{
    if (m_pLine)
        m_pLine->setText(text);
}

QString CCorvaneTypeValueDlg::ReadText() const
{
    return m_pLine ? m_pLine->text() : QString();
}

QRect CCorvaneTypeValueDlg::GetPlacement(const QRect& cell) const
{
    return cell;
}

void CCorvaneTypeValueDlg::TakeFocus(const QPoint&)
{
    if (!m_pLine)
    {
        setFocus();
        return;
    }
    m_pLine->setFocus();
    m_pLine->selectAll();
}

void CCorvaneTypeValueDlg::Dismiss()
{
    if (m_End == EEnd::Open)
        m_End = EEnd::Left;
    m_OnFinished = nullptr;
    hide();
    deleteLater();
}

void CCorvaneTypeValueDlg::Finish(EEnd end)
{
    if (m_End != EEnd::Open)
        return;
    m_End = end;
    if (const auto finished = std::exchange(m_OnFinished, nullptr))
        finished();
}

bool CCorvaneTypeValueDlg::Owns(const QObject* object) const
{
    for (; object != nullptr; object = object->parent())
    {
        if (object == this)
            return true;
    }
    return false;
}

void CCorvaneTypeValueDlg::OnFocusChanged(const QWidget* now)
{
    // A popup takes the keyboard for its own time; it gives it back.
    if (m_End != EEnd::Open || IsKeptOpen() || Owns(now) || QApplication::activePopupWidget() != nullptr)
        return;
    Finish(EEnd::Left);
}

void CCorvaneTypeValueDlg::keyPressEvent(QKeyEvent* event)
{
    // No key goes on to the list while a value is edited.
    event->accept();
    if (event->key() == Qt::Key_Escape)
        Cancel();
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Accept();
}

void CCorvaneTypeValueDlg::wheelEvent(QWheelEvent* event)
{
    event->accept();
}

void CCorvaneTypeValueDlg::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    // A pen would lie half outside at a scale of two, and half below the fields.
    qDrawPlainRect(&painter, rect(), CTheme::Get().GetColor(EThemeColor::Accent));
}

bool CCorvaneTypeValueDlg::focusNextPrevChild(bool next)
{
    std::vector<QWidget*> fields;
    for (QWidget* child : findChildren<QWidget*>())
    {
        if (child->focusPolicy() & Qt::TabFocus && child->isVisibleTo(this) && child->isEnabled())
            fields.push_back(child);
    }
    const auto current = std::find(fields.begin(), fields.end(), QApplication::focusWidget());
    if (next ? current == fields.end() || current + 1 == fields.end()
             : current == fields.end() || current == fields.begin())
    {
        Accept();
        return true;
    }
    (*(next ? current + 1 : current - 1))->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}
