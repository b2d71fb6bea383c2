// The list of identifiers below the field of a StringID editor; the user's height of it is kept in the
// profile.
#pragma once

#include <QPointer>
#include <QString>
#include <functional>
#include <memory>

class CDropList;
class CGlossarState;
class CProfile;
class QLineEdit;

class CCorvaneTypeStringIDValueDropListDlg
{
public:
    // Both outlive the list.
    CCorvaneTypeStringIDValueDropListDlg(QLineEdit& field, CProfile& profile);
    ~CCorvaneTypeStringIDValueDropListDlg();
    CCorvaneTypeStringIDValueDropListDlg(const CCorvaneTypeStringIDValueDropListDlg&) = delete;
    CCorvaneTypeStringIDValueDropListDlg& operator=(const CCorvaneTypeStringIDValueDropListDlg&) = delete;

    // Opens with what begins with `prefix`; closes where nothing does.
    void Update(CGlossarState& glossar, const QString& prefix);
    void Close();
    void SetPickCallback(std::function<void(const QString& identifier)> callback);

private:
    class CModel;

    std::unique_ptr<CModel> m_pModel;
    QPointer<CDropList> m_pDrop; // The field's.
};
