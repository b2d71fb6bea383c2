#include "PropertiesBaseDlg.h"

#include "CorvaneMgr.h"
#include "DialogParts.h"
#include "FileSystem.h"
#include "FormatText.h"
#include "HtmlCtrl.h"
#include "PathEdit.h"
#include "PropertiesText.h"
#include "QtText.h"
#include "Theme.h"
#include "TipText.h"
#include "host/Questions.h"
#include "host/Services.h"

#include <QFormLayout>
#include <QLineEdit>

std::u16string MakePathText(IFileSystem& files, std::u16string_view path)
{
    if (path.empty())
        return u"-- not saved --";
    return files.Exists(path) ? std::u16string(path) : FormatText(u"%s (NOT FOUND)", path);
}

CPropertiesBaseDlg::CPropertiesBaseDlg(const SPropertiesContext& context, const char* objectName)
    : m_Context(context), m_pForm(new QFormLayout(this))
{
    setObjectName(QString::fromLatin1(objectName));
    m_pForm->setContentsMargins(CTheme::kMargin, CTheme::kMargin, CTheme::kMargin, CTheme::kMargin);
    m_pForm->setSpacing(CTheme::kSpacing);
    m_pForm->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
}

void CPropertiesBaseDlg::AddField(const char* objectName, const QString& label, QWidget* field)
{
    SetNames(*field, objectName, QString(label).remove(u'&').remove(u':'));
    m_pForm->addRow(label, field);
}

void CPropertiesBaseDlg::AddWide(QWidget* field)
{
    m_pForm->addRow(field);
}

QLineEdit& CPropertiesBaseDlg::AddText(const char* objectName, const QString& label)
{
    auto* field = new QLineEdit;
    field->setReadOnly(true);
    AddField(objectName, label, field);
    return *field;
}

CPathEdit& CPropertiesBaseDlg::AddPath(const QString& label)
{
    auto* field = new CPathEdit([this] { ShowFolder(); });
    AddField("LocalPath", label, field);
    return *field;
}

CHtmlCtrl& CPropertiesBaseDlg::AddHelp(const QString& label)
{
    auto* field = new CHtmlCtrl(nullptr);
    field->SetServices(GetManager().GetContext().m_Services);
    field->setMinimumHeight(3 * CTheme::kRowHeight);
    AddField("Help", label, field);
    return *field;
}

CPropertiesText& CPropertiesBaseDlg::AddEdit(const char* objectName, const QString& label)
{
    auto* field = new CPropertiesText;
    connect(field, &QPlainTextEdit::modificationChanged, this,
            [this](bool changed)
            {
                if (changed)
                    SetModified();
            });
    AddField(objectName, label, field);
    return *field;
}

void CPropertiesBaseDlg::SetText(QLineEdit& field, std::u16string_view text)
{
    field.setText(MakeCellText(text));
    field.setCursorPosition(0);
    field.setToolTip(MakeTip(LimitText(ToQString(text))));
}

void CPropertiesBaseDlg::SetPath(CPathEdit& field, std::u16string_view path)
{
    m_sPath = path;
    field.SetPath(ToQString(MakePathText(GetManager().GetContext().m_Files, path)), !path.empty());
}

void CPropertiesBaseDlg::ShowFolder() const
{
    const CCorvaneContext& context = GetManager().GetContext();
    if (!context.m_Services.ShowInFolder(m_sPath))
        context.m_Questions.Tell(
            u"Open Folder",
            FormatText(u"The folder of the following file could not be opened:\n\n%s", m_sPath));
}
