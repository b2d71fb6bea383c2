#include "DeferAttribDlg.h"

#include "DialogParts.h"
#include "QtText.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>

CDeferAttribDlg::CDeferAttribDlg(const STexts& texts, std::uint32_t build, QWidget* parent)
    : QDialog(parent), m_pBuild(new CBuildNumberEdit)
{
    setWindowTitle(ToQString(texts.m_sTitle));
    QBoxLayout& layout = MakeDialogLayout(*this);
    auto* row = new QHBoxLayout;
    auto* label = new QLabel(ToQString(texts.m_sLabel));
    label->setBuddy(m_pBuild);
    SetNames(*m_pBuild, "Build", label->text().remove(u'&'));
    m_pBuild->SetBuild(build);
    m_pBuild->selectAll();
    row->addWidget(label);
    row->addWidget(m_pBuild);
    row->addStretch();
    layout.addLayout(row);
    AddNote(layout, texts.m_sFirstNote);
    AddNote(layout, texts.m_sSecondNote);
    QPushButton* ok = AddOkCancel(*this, layout).button(QDialogButtonBox::Ok);
    layout.setSizeConstraint(QLayout::SetFixedSize);
    connect(m_pBuild, &QLineEdit::textChanged, ok,
            [ok](const QString& text) { ok->setEnabled(!text.isEmpty()); });
    m_pBuild->setFocus();
}

std::uint32_t CDeferAttribDlg::GetBuild() const
{
    return m_pBuild->GetBuild();
}
