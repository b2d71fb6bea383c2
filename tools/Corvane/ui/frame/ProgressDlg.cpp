#include "ProgressDlg.h"

#include "Theme.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{
constexpr int kWidth = 400;
constexpr int kLongestText = 200; // Characters; a file's name in a text may have any length.
} // namespace

CProgressDlg::CProgressDlg(const QString& title, QWidget* parent)
    : QDialog(parent), m_pText(new QLabel(tr("Performing operation..."), this)),
      m_pBar(new QProgressBar(this))
{
    setObjectName(QStringLiteral("CProgressDlg"));
    setWindowTitle(title);
    m_pText->setObjectName(QStringLiteral("text"));
    m_pText->setTextFormat(Qt::PlainText);
    m_pText->setWordWrap(true);
    m_pBar->setObjectName(QStringLiteral("bar"));
    m_pBar->setAccessibleName(title);
    m_pBar->setRange(0, 100);
    m_pBar->setValue(0);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    m_pCancel = buttons->button(QDialogButtonBox::Cancel);
    m_pCancel->setObjectName(QStringLiteral("cancel"));
    connect(buttons, &QDialogButtonBox::rejected, this, &CProgressDlg::Cancel);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(CTheme::kMargin, CTheme::kMargin, CTheme::kMargin, CTheme::kMargin);
    layout->setSpacing(CTheme::kSpacing);
    layout->addWidget(m_pText);
    layout->addWidget(m_pBar);
    layout->addStretch();
    layout->addWidget(buttons);
    setMinimumWidth(kWidth);
}

void CProgressDlg::SetText(const QString& text)
{
    m_pText->setText(text.size() > kLongestText ? text.left(kLongestText) + QChar(0x2026) : text);
}

void CProgressDlg::SetPercent(int percent)
{
    m_pBar->setValue(percent);
}

void CProgressDlg::Cancel()
{
    if (m_bCancelled)
        return;
    m_bCancelled = true;
    m_pCancel->setEnabled(false);
    m_pCancel->setText(tr("Cancelling..."));
}
