#include "stringid/CorvaneTypeStringIDValueDropListDlg.h"

#include "DropList.h"
#include "Profile.h"
#include "QtText.h"
#include "stringid/CorvaneTypeStringIDValueList.h"

#include <QAbstractListModel>
#include <QLineEdit>

namespace
{
constexpr std::u16string_view kSection = u"Dialogs\\StringIDValueDropList";
constexpr std::u16string_view kHeight = u"Height";
constexpr std::int32_t kUsualHeight = 200;
} // namespace

class CCorvaneTypeStringIDValueDropListDlg::CModel final : public QAbstractListModel
{
public:
    void Update(CGlossarState& glossar, const QString& prefix)
    {
        beginResetModel();
        m_List.Update(glossar, ToText(prefix));
        endResetModel();
    }
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_List.GetCount());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        if (!index.isValid() || role != Qt::DisplayRole)
            return {};
        return ToQString(m_List.GetIdentifier(static_cast<std::size_t>(index.row())));
    }

private:
    CCorvaneTypeStringIDValueList m_List;
};

CCorvaneTypeStringIDValueDropListDlg::CCorvaneTypeStringIDValueDropListDlg(QLineEdit& field,
                                                                           CProfile& profile)
    : m_pModel(std::make_unique<CModel>()), m_pDrop(new CDropList(field))
{
    m_pDrop->SetModel(m_pModel.get());
    m_pDrop->SetDropHeight(profile.GetInteger(kSection, kHeight, kUsualHeight));
    m_pDrop->m_OnResized = [&profile](int height) { profile.SetInteger(kSection, kHeight, height); };
}

CCorvaneTypeStringIDValueDropListDlg::~CCorvaneTypeStringIDValueDropListDlg() = default;

void CCorvaneTypeStringIDValueDropListDlg::Update(CGlossarState& glossar, const QString& prefix)
{
    m_pModel->Update(glossar, prefix);
    if (m_pModel->rowCount({}) > 0)
        m_pDrop->Open();
    else
        m_pDrop->Close();
}

void CCorvaneTypeStringIDValueDropListDlg::Close()
{
    m_pDrop->Close();
}

void CCorvaneTypeStringIDValueDropListDlg::SetPickCallback(std::function<void(const QString&)> callback)
{
    m_pDrop->m_OnPick = std::move(callback);
}
