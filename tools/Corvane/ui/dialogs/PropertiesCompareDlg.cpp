#include "PropertiesCompareDlg.h"

#include "CorvaneCategory.h"
#include "CorvaneRecord.h"
#include "HtmlCtrl.h"
#include "PropertiesText.h"

#include <QCheckBox>
#include <QLineEdit>

CPropertiesCompareDlg::CPropertiesCompareDlg(const SPropertiesContext& context, CCorvaneRecord& record)
    : CPropertiesBaseDlg(context, "PropertiesCompareDlg"), m_pRecord(&record),
      m_Name(AddText("Name", tr("&Name:"))), m_Help(AddHelp(tr("&Help:"))),
      m_Comment(AddEdit("Comment", tr("&Comment:"))), m_pSystem(new QCheckBox)
{
    m_pSystem->setEnabled(false);
    AddField("System", tr("System:"), m_pSystem);
    CPropertiesCompareDlg::Refresh();
}

CPropertiesCompareDlg::~CPropertiesCompareDlg() = default;

void CPropertiesCompareDlg::Forget()
{
    m_pRecord = nullptr;
}

void CPropertiesCompareDlg::Refresh()
{
    if (!m_pRecord)
        return;
    const CCorvaneCategory* category = m_pRecord->GetCategory();
    SetText(m_Name, m_pRecord->GetName());
    m_Help.SetHelp(category ? std::u16string_view(category->GetHelp()) : std::u16string_view());
    m_Comment.SetText(m_pRecord->GetComment(), tr("The result of a compare is never saved."));
    m_pSystem->setChecked(category != nullptr && category->IsSystem());
}
