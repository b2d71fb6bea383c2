#include "file/CorvaneTypeFileValueDlg.h"

#include "CorvaneMgr.h"
#include "CorvaneTypeView.h"
#include "Editor.h"
#include "FileDialogs.h"
#include "Path.h"
#include "QtText.h"
#include "UiModule.h"
#include "file/CorvaneTypeFile.h"
#include "file/ResourcePath.h"
#include "host/Services.h"

#include <QLineEdit>
#include <algorithm>

namespace
{
constexpr std::u16string_view kAllFiles = u"All Files (*.*)|*.*|";
} // namespace

CCorvaneTypeFileValueDlg::CCorvaneTypeFileValueDlg(CCorvaneTypeView& view, CCorvaneTypeFile& attrib,
                                                   const char* executeIcon, QWidget* parent)
    : CCorvaneTypeButtonsValueDlg(view, QStringLiteral("FileValue"), parent), m_Attrib(attrib)
{
    AddButton("browse", QStringLiteral("Browse"), [this] { Browse(); });
    AddButton(executeIcon, QStringLiteral("Execute"), [this] { Execute(); });
}

std::u16string CCorvaneTypeFileValueDlg::GetTypedPath() const
{
    return ToFullPath(m_Attrib.GetResourceRoot(), ToText(GetLineEdit()->text()));
}

void CCorvaneTypeFileValueDlg::Browse()
{
    SFileDialog request;
    request.m_sTitle = u"Browse";
    request.m_sPath = GetTypedPath();
    const CCorvaneTypeFileData* attribData = m_Attrib.GetFileAttribData();
    request.m_sFilter = attribData && !attribData->GetFilter().empty() ? attribData->GetFilter() : kAllFiles;
    const std::u16string root(m_Attrib.GetResourceRoot());
    const QPointer<CCorvaneTypeFileValueDlg> alive(this);
    IEditorFrame& frame = GetView().GetList().GetFrame();
    const std::u16string chosen = frame.GetEditor().GetFileDialogs().OpenFile(frame.GetWindow(), request);
    if (!alive || chosen.empty())
        return;
    // A path below the root is written as the root is, so that a project reads alike on every system.
    std::u16string value(ToResourcePath(root, chosen));
    if (value.size() != chosen.size())
        std::replace(value.begin(), value.end(), u'/', GetSeparator(root));
    GetLineEdit()->setText(ToQString(value));
}

void CCorvaneTypeFileValueDlg::Execute()
{
    if (GetLineEdit()->text().isEmpty() || !m_Attrib.Execute(GetTypedPath()))
        GetView().GetList().GetFrame().GetEditor().GetApplication().GetContext().m_Services.Beep();
}
