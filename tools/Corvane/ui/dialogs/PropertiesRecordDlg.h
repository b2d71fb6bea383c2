// The properties of a record, and the way to the records that it inherits from and that inherit from it.
#pragma once

#include "CorvaneRef.h"
#include "PropertiesBaseDlg.h"

class CCorvaneRecord;
class CRecordListModel;
class QListView;
class QToolButton;

class CPropertiesRecordDlg final : public CPropertiesBaseDlg
{
public:
    CPropertiesRecordDlg(const SPropertiesContext& context, CCorvaneRecord& record);
    ~CPropertiesRecordDlg() override;

    [[nodiscard]] bool Apply() override;
    void Refresh() override;
    void Forget() override;

private:
    [[nodiscard]] QLineEdit& AddReferencer();
    [[nodiscard]] QListView& AddReferencees();
    void ShowReferencer();

    CRef<CCorvaneRecord> m_pRecord;
    QToolButton* m_pOpen;
    CRecordListModel* m_pModel;
    QLineEdit& m_Name;
    CPathEdit& m_Path;
    QLineEdit& m_Referencer;
    QListView& m_Referencees;
    CPropertiesText& m_Comment;
};
