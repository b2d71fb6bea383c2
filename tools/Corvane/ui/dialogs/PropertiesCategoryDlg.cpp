#include "PropertiesCategoryDlg.h"

#include "CorvaneCategory.h"
#include "CorvaneMgr.h"
#include "FileSystem.h"
#include "PropertiesText.h"
#include "SourceGate.h"

#include <QCheckBox>
#include <QLineEdit>

CPropertiesCategoryDlg::CPropertiesCategoryDlg(const SPropertiesContext& context, CCorvaneCategory& category)
    : CPropertiesBaseDlg(context, "PropertiesCategoryDlg"), m_pCategory(&category),
      m_Name(AddText("Name", tr("&Name:"))), m_Help(AddEdit("Help", tr("&Help:"))),
      m_Comment(AddEdit("Comment", tr("&Comment:"))), m_pSystem(new QCheckBox)
{
    m_pSystem->setEnabled(false);
    AddField("System", tr("System:"), m_pSystem);
    CPropertiesCategoryDlg::Refresh();
}

CPropertiesCategoryDlg::~CPropertiesCategoryDlg() = default;

void CPropertiesCategoryDlg::Forget()
{
    m_pCategory = nullptr;
}

// A category without a file keeps no texts. A save passes over a file that is meant to stay as it is, which a
// check-out would change.
QString CPropertiesCategoryDlg::FindWhyFixed() const
{
    if (!m_pCategory->IsSystem() || m_pCategory->GetCategoryType() != 0)
        return tr("Only a category with a directory keeps its texts.");
    SFileInfo info;
    const bool readOnly =
        GetManager().GetContext().m_Files.GetInfo(m_pCategory->GetFile(), info).IsOk() && info.m_bReadOnly;
    return readOnly && !GetManager().GetGate().IsConnected() ? tr("The file of the category is read-only.")
                                                             : QString();
}

void CPropertiesCategoryDlg::Refresh()
{
    if (!m_pCategory)
        return;
    const QString whyFixed = FindWhyFixed();
    SetText(m_Name, m_pCategory->GetName());
    m_Help.SetText(m_pCategory->GetHelp(), whyFixed);
    m_Comment.SetText(m_pCategory->GetComment(), whyFixed);
    m_pSystem->setChecked(m_pCategory->IsSystem());
    ClearModified();
}

bool CPropertiesCategoryDlg::Apply()
{
    const CRef<CCorvaneCategory> category = m_pCategory;
    CSourceGate& gate = GetManager().GetGate();
    if (!category || (gate.IsConnected() && !category->GetFile().empty() && !gate.CheckOutForEdit(*category)))
        return false;
    // The check-out may have taken a newer file over.
    if (m_Help.IsChanged())
        category->SetHelp(m_Help.GetText());
    if (m_Comment.IsChanged())
        category->SetComment(m_Comment.GetText());
    GetManager().SetDirty(true);
    Refresh();
    return true;
}
