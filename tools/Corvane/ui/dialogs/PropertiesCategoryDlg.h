// The properties of a category. Those of a system category can be changed where its file can be.
#pragma once

#include "CorvaneRef.h"
#include "PropertiesBaseDlg.h"

class CCorvaneCategory;
class QCheckBox;

class CPropertiesCategoryDlg final : public CPropertiesBaseDlg
{
public:
    CPropertiesCategoryDlg(const SPropertiesContext& context, CCorvaneCategory& category);
    ~CPropertiesCategoryDlg() override;

    [[nodiscard]] bool Apply() override;
    void Refresh() override;
    void Forget() override;

private:
    [[nodiscard]] QString FindWhyFixed() const;

    CRef<CCorvaneCategory> m_pCategory;
    QLineEdit& m_Name;
    CPropertiesText& m_Help;
    CPropertiesText& m_Comment;
    QCheckBox* m_pSystem;
};
