// The properties of an attribute: its comment can be changed, and in expert mode the build that its entry in
// the schema begins with.
#pragma once

#include "CorvaneRef.h"
#include "PropertiesBaseDlg.h"

class CBuildNumberEdit;
class CCorvaneAttrib;
class CCorvaneType;
class QCheckBox;
class QStandardItemModel;
class QTableView;

class CPropertiesAttributeDlg final : public CPropertiesBaseDlg
{
public:
    CPropertiesAttributeDlg(const SPropertiesContext& context, CCorvaneType& attribute);
    ~CPropertiesAttributeDlg() override;

    [[nodiscard]] bool Apply() override;
    void Refresh() override;
    void Forget() override;

private:
    [[nodiscard]] QTableView& AddBuilds();
    void AddExpertFields();
    void ShowBuilds();
    void AppendBuild(const CCorvaneAttrib& entry);
    [[nodiscard]] bool IsBuildChanged() const;
    [[nodiscard]] bool ApplyBuild(CCorvaneType& attribute);

    CRef<CCorvaneType> m_pAttribute;
    QStandardItemModel* m_pModel;
    QLineEdit& m_Name;
    QLineEdit& m_Type;
    CHtmlCtrl& m_Help;
    CPropertiesText& m_Comment;
    QTableView& m_Builds;
    CBuildNumberEdit* m_pBuild = nullptr; // Null outside expert mode.
    QCheckBox* m_pDeleted = nullptr;
};
