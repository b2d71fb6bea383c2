#include "stringid/CorvaneTypeStringIDValueDlg.h"

#include "CorvaneMgr.h"
#include "CorvaneTypeView.h"
#include "Editor.h"
#include "QtText.h"
#include "UiModule.h"
#include "stringid/CorvaneTypeStringID.h"
#include "stringid/CorvaneTypeStringIDValueDropListDlg.h"
#include "stringid/GlossarState.h"
#include "zrassert.h"

#include <QLineEdit>
#include <algorithm>

namespace
{
constexpr int kLongestTyped = 64;
}

CCorvaneTypeStringIDValueDlg::CCorvaneTypeStringIDValueDlg(CCorvaneTypeView& view, QWidget* parent)
    : CCorvaneTypeButtonsValueDlg(view, QStringLiteral("StringIDValue"), parent),
      m_Manager(view.GetList().GetFrame().GetEditor().GetApplication().GetManager()),
      m_pDropList(std::make_unique<CCorvaneTypeStringIDValueDropListDlg>(*GetLineEdit(),
                                                                         m_Manager.GetContext().m_Profile))
{
    AddButton("clear", QStringLiteral("Clear"),
              [this]
              {
                  ShowText(ToQString(kNoStringID));
                  Accept();
              });
    connect(GetLineEdit(), &QLineEdit::textEdited, this, [this](const QString& typed) { Update(typed); });
    m_pDropList->SetPickCallback([this](const QString& identifier) { ShowText(identifier); });
}

CCorvaneTypeStringIDValueDlg::~CCorvaneTypeStringIDValueDlg() = default;

void CCorvaneTypeStringIDValueDlg::ShowText(const QString& text)
{
    // The limit is one of typing: an identifier that is longer is not cut.
    GetLineEdit()->setMaxLength(std::max(kLongestTyped, static_cast<int>(text.size())));
    CCorvaneTypeButtonsValueDlg::ShowText(text);
}

QString CCorvaneTypeStringIDValueDlg::ReadText() const
{
    const QString text = GetLineEdit()->text();
    return text.isEmpty() ? ToQString(kNoStringID) : text;
}

void CCorvaneTypeStringIDValueDlg::Update(const QString& typed)
{
    const QPointer<CCorvaneTypeStringIDValueDlg> alive(this);
    if (typed.isEmpty() || !FindTable())
    {
        if (alive)
            m_pDropList->Close();
        return;
    }
    m_pDropList->Update(m_Manager.GetTypeState<CGlossarState>(), typed);
}

bool CCorvaneTypeStringIDValueDlg::FindTable()
{
    // A database without a string table is none that lacks it.
    if (m_bSearched || m_Manager.GetRootFile().m_sStringDatabase.empty())
        return m_bHasTable;
    m_bSearched = true;
    const QPointer<CCorvaneTypeStringIDValueDlg> alive(this);
    const CKeepOpen keep(*this); // For the messages.
    CGlossarState& glossar = m_Manager.GetTypeState<CGlossarState>();
    const HGLOSSAR table = glossar.GetGlossarDatabase();
    if (!alive)
        return false;
    m_bHasTable = table != 0;
    if (m_bHasTable)
        return true;
    GetLineEdit()->setFocus();
    if (glossar.GetIGlossarMgr() == nullptr)
        ZRASSERT_FORCED("Failed to get IGlossarMgr interface!");
    else
        ZRASSERT_FORCED("Failed to get HGLOSSAR database handle");
    return false;
}
