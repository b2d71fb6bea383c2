#include "PathEdit.h"

#include "IconSet.h"
#include "Theme.h"
#include "TipText.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>

CPathEdit::CPathEdit(std::function<void()> openFolder, QWidget* parent)
    : QWidget(parent), m_pPath(new QLineEdit), m_pButton(new QToolButton)
{
    m_pPath->setObjectName(QStringLiteral("path"));
    m_pPath->setReadOnly(true);
    m_pButton->setObjectName(QStringLiteral("openFolder"));
    m_pButton->setIcon(GetIcon("folder"));
    m_pButton->setToolTip(QStringLiteral("Open the folder"));
    m_pButton->setAccessibleName(m_pButton->toolTip());
    m_pButton->setFocusPolicy(Qt::StrongFocus);
    connect(m_pButton, &QToolButton::clicked, this, std::move(openFolder));
    setFocusProxy(m_pPath);

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(CTheme::kGrid);
    layout->addWidget(m_pPath, 1);
    layout->addWidget(m_pButton);
}

void CPathEdit::SetPath(const QString& path, bool hasFolder)
{
    m_pPath->setText(path);
    m_pPath->setCursorPosition(0);
    m_pPath->setToolTip(MakeTip(path));
    m_pPath->setAccessibleName(accessibleName());
    m_pButton->setEnabled(hasFolder);
}

QString CPathEdit::GetPath() const
{
    return m_pPath->text();
}
