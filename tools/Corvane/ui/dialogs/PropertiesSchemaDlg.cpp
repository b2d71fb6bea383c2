#include "PropertiesSchemaDlg.h"

#include "CorvaneSchema.h"
#include "FormatText.h"
#include "HtmlCtrl.h"

#include <QLineEdit>

CPropertiesSchemaDlg::CPropertiesSchemaDlg(const SPropertiesContext& context, CCorvaneSchema& schema)
    : CPropertiesBaseDlg(context, "PropertiesSchemaDlg"), m_pSchema(&schema),
      m_Name(AddText("Name", tr("&Name:"))), m_Path(AddPath(tr("&Local Path:"))),
      m_Parent(AddText("Parent", tr("&Parent:"))), m_Help(AddHelp(tr("&Help:")))
{
    CPropertiesSchemaDlg::Refresh();
}

CPropertiesSchemaDlg::~CPropertiesSchemaDlg() = default;

void CPropertiesSchemaDlg::Forget()
{
    m_pSchema = nullptr;
}

void CPropertiesSchemaDlg::Refresh()
{
    if (!m_pSchema)
        return;
    const std::u16string& parent = m_pSchema->GetParentName();
    const bool missing = !parent.empty() && m_pSchema->GetParent() == nullptr;
    SetText(m_Name, m_pSchema->GetName());
    SetPath(m_Path, m_pSchema->GetFile());
    SetText(m_Parent, missing ? FormatText(u"%s (NOT FOUND)", parent) : parent);
    m_Help.SetHelp(m_pSchema->GetHelp());
}
