// The properties of a record of compare results, which exists in memory only.
#pragma once

#include "CorvaneRef.h"
#include "PropertiesBaseDlg.h"

class CCorvaneRecord;
class QCheckBox;

class CPropertiesCompareDlg final : public CPropertiesBaseDlg
{
public:
    CPropertiesCompareDlg(const SPropertiesContext& context, CCorvaneRecord& record);
    ~CPropertiesCompareDlg() override;

    [[nodiscard]] bool Apply() override { return true; }
    void Refresh() override;
    void Forget() override;

private:
    CRef<CCorvaneRecord> m_pRecord;
    QLineEdit& m_Name;
    CHtmlCtrl& m_Help;
    CPropertiesText& m_Comment;
    QCheckBox* m_pSystem;
};
