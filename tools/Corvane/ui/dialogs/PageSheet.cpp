#include "PageSheet.h"

#include "DialogParts.h"
#include "SheetPage.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTabWidget>
#include <algorithm>

CPageSheet::CPageSheet(const char* objectName, const QString& title, QWidget* parent)
    : QDialog(parent), m_pTabs(new QTabWidget),
      m_pButtons(
          new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply))
{
    setObjectName(QString::fromLatin1(objectName));
    setWindowTitle(title);
    QBoxLayout& layout = MakeDialogLayout(*this);
    SetNames(*m_pTabs, "Pages", tr("Pages"));
    layout.addWidget(m_pTabs);
    layout.addWidget(m_pButtons);
    AddButtons();
}

void CPageSheet::AddPage(CSheetPage* page, const QString& title)
{
    page->m_OnModified = [this] { UpdateApply(); };
    m_pTabs->addTab(page, title);
    m_Pages.push_back(page);
}

void CPageSheet::AddButtons()
{
    SetNames(*m_pButtons->button(QDialogButtonBox::Ok), "Ok", tr("OK"));
    SetNames(*m_pButtons->button(QDialogButtonBox::Cancel), "Cancel", tr("Cancel"));
    SetNames(*m_pButtons->button(QDialogButtonBox::Apply), "Apply", tr("Apply"));
    m_pButtons->button(QDialogButtonBox::Ok)->setDefault(true);
    m_pButtons->button(QDialogButtonBox::Apply)->setEnabled(false);
    connect(m_pButtons, &QDialogButtonBox::accepted, this, &CPageSheet::accept);
    connect(m_pButtons, &QDialogButtonBox::rejected, this, &CPageSheet::reject);
    connect(m_pButtons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, &CPageSheet::Apply);
}

void CPageSheet::accept()
{
    if (Apply())
        QDialog::accept();
}

bool CPageSheet::Apply()
{
    bool good = true;
    for (CSheetPage* page : m_Pages)
    {
        if (!page->IsModified() || page->Apply())
            continue;
        good = false;
        m_pTabs->setCurrentWidget(page);
    }
    UpdateApply();
    return good;
}

void CPageSheet::UpdateApply()
{
    m_pButtons->button(QDialogButtonBox::Apply)
        ->setEnabled(std::any_of(m_Pages.begin(), m_Pages.end(),
                                 [](const CSheetPage* page) { return page->IsModified(); }));
}
