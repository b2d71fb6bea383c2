#include "InsertCategoryDlg.h"

#include "CorvaneMgr.h"
#include "DialogParts.h"
#include "HtmlCtrl.h"
#include "NameCompare.h"
#include "QtText.h"
#include "RatioSplitter.h"
#include "Theme.h"
#include "WindowPlacement.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

namespace
{
constexpr std::u16string_view kSection = u"Dialogs\\Insert Category";
constexpr std::u16string_view kSplitter = u"Splitter";
constexpr float kListShare = 0.4F;
constexpr QSize kFirstSize(560, 480);
} // namespace

CInsertCategoryDlg::CInsertCategoryDlg(CCorvaneMgr& manager, QWidget* parent)
    : QDialog(parent), m_Manager(manager), m_pSplitter(new CRatioSplitter(Qt::Horizontal)),
      m_pList(new QListWidget), m_pHelp(new CHtmlCtrl(nullptr))
{
    setObjectName(QStringLiteral("InsertCategoryDlg"));
    setWindowTitle(tr("Insert Category"));
    QBoxLayout& layout = MakeDialogLayout(*this);
    QRadioButton& virtualCategory =
        AddChoice(layout, "VirtualRelativeCategory",
                  u"&Virtual Relative Category\nCreates a category that exists only in the editor.  These "
                  u"categories are ideal for organizing records.");
    virtualCategory.setChecked(true);
    m_pSystem =
        &AddChoice(layout, "SystemCategory",
                   u"&System Category\nCreates a physical category that contains records of a certain "
                   u"schema type.  These categories are exposed to the game.");
    auto* label = new QLabel(tr("S&chemas:"));
    label->setBuddy(m_pList);
    layout.addWidget(label);
    SetNames(*m_pList, "Schemas", tr("Schemas"));
    SetNames(*m_pHelp, "SchemaHelp", tr("Help of the schema"));
    m_pSplitter->addWidget(m_pList);
    m_pSplitter->addWidget(m_pHelp);
    m_pSplitter->setChildrenCollapsible(false);
    layout.addWidget(m_pSplitter, 1);
    m_pOk = AddOkCancel(*this, layout).button(QDialogButtonBox::Ok);

    FillSchemas();
    connect(m_pSystem, &QRadioButton::toggled, this,
            [this](bool system)
            {
                // A choice that does not count is not shown as one.
                if (system)
                    m_pList->setCurrentRow(std::max(m_pList->currentRow(), 0));
                else
                    m_pList->clearSelection();
                Update();
            });
    connect(m_pList, &QListWidget::currentRowChanged, this, [this] { Update(); });
    connect(m_pList, &QListWidget::itemActivated, m_pOk, &QPushButton::click);
    Update();
    virtualCategory.setFocus();
    resize(kFirstSize);
    const CWindowPlacement placement(m_Manager.GetContext().m_Profile, kSection);
    placement.RestoreSplitter(*m_pSplitter, kSplitter, kListShare);
    placement.Keep(*this);
}

void CInsertCategoryDlg::FillSchemas()
{
    m_Schemas.assign(m_Manager.GetSchemas().begin(), m_Manager.GetSchemas().end());
    std::sort(m_Schemas.begin(), m_Schemas.end(),
              [](const auto& a, const auto& b) { return NameOrder(a->GetName(), b->GetName()); });
    for (const CRef<CCorvaneSchema>& schema : m_Schemas)
    {
        auto* item = new QListWidgetItem(MakeCellText(schema->GetName()), m_pList);
        item->setSizeHint(QSize(0, CTheme::kRowHeight));
    }
}

void CInsertCategoryDlg::Update()
{
    const bool system = m_pSystem->isChecked();
    const int row = m_pList->currentRow();
    m_pList->setEnabled(system);
    m_pHelp->setEnabled(system);
    m_pOk->setEnabled(!system || row >= 0);
    m_pHelp->SetHelp(system && row >= 0
                         ? std::u16string_view(m_Schemas[static_cast<std::size_t>(row)]->GetHelp())
                         : std::u16string_view());
}

void CInsertCategoryDlg::done(int result)
{
    CWindowPlacement(m_Manager.GetContext().m_Profile, kSection).StoreSplitter(*m_pSplitter, kSplitter);
    QDialog::done(result);
}

bool CInsertCategoryDlg::IsSystemCategory() const
{
    return m_pSystem->isChecked();
}

CCorvaneSchema* CInsertCategoryDlg::GetSchema() const
{
    if (!IsSystemCategory() || m_pList->currentRow() < 0)
        return nullptr;
    const CRef<CCorvaneSchema>& schema = m_Schemas[static_cast<std::size_t>(m_pList->currentRow())];
    const auto schemas = m_Manager.GetSchemas();
    return std::find(schemas.begin(), schemas.end(), schema) == schemas.end() ? nullptr : schema.Get();
}
