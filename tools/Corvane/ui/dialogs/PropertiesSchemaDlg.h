// The properties of a schema.
#pragma once

#include "CorvaneRef.h"
#include "PropertiesBaseDlg.h"

class CCorvaneSchema;

class CPropertiesSchemaDlg final : public CPropertiesBaseDlg
{
public:
    CPropertiesSchemaDlg(const SPropertiesContext& context, CCorvaneSchema& schema);
    ~CPropertiesSchemaDlg() override;

    [[nodiscard]] bool Apply() override { return true; }
    void Refresh() override;
    void Forget() override;

private:
    CRef<CCorvaneSchema> m_pSchema;
    QLineEdit& m_Name;
    CPathEdit& m_Path;
    QLineEdit& m_Parent;
    CHtmlCtrl& m_Help;
};
