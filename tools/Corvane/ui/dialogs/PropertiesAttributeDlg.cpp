#include "PropertiesAttributeDlg.h"

#include "CorvaneMgr.h"
#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "DeferState.h"
#include "DialogParts.h"
#include "DialogTable.h"
#include "FormatText.h"
#include "HtmlCtrl.h"
#include "NameCompare.h"
#include "NumberText.h"
#include "PropertiesText.h"
#include "QtText.h"
#include "RunState.h"
#include "Theme.h"
#include "host/Questions.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QStandardItemModel>
#include <algorithm>

namespace
{
constexpr int kBuildWidths[] = {100, 120, 120};

bool IsDeleted(const CCorvaneAttrib& entry)
{
    return entry.GetAttribData() != nullptr && entry.GetAttribData()->TestFlag(ATTRIB_FLAG_DELETED);
}

// All entries of the attribute's name, itself included, the newest first.
std::vector<const CCorvaneAttrib*> GetEntries(const CCorvaneType& attribute)
{
    std::vector<const CCorvaneAttrib*> entries;
    if (const CCorvaneRecord* record = attribute.GetParentRecord();
        record != nullptr && attribute.GetParentAttrib() == nullptr)
        for (const CRef<CCorvaneAttrib>& attrib : record->GetAttributeList())
            if (EqualNames(attrib->GetName(), attribute.GetName()))
                entries.push_back(attrib.Get());
    if (entries.empty())
        entries.push_back(&attribute);
    return entries;
}

std::u16string GetBuildText(const CCorvaneAttrib& entry)
{
    const SBuildRangeText text = GetBuildRangeText(entry);
    return text.m_sRange.empty() ? FormatInteger(entry.GetBuild()) : text.m_sRange;
}

std::u16string_view GetStateText(const CCorvaneAttrib& entry)
{
    return IsDeleted(entry) ? std::u16string_view(u"Deleted") : GetDeferStateText(GetDeferState(entry));
}
} // namespace

CPropertiesAttributeDlg::CPropertiesAttributeDlg(const SPropertiesContext& context, CCorvaneType& attribute)
    : CPropertiesBaseDlg(context, "PropertiesAttributeDlg"), m_pAttribute(&attribute),
      m_pModel(new QStandardItemModel(this)), m_Name(AddText("Name", tr("&Name:"))),
      m_Type(AddText("Type", tr("&Type:"))), m_Help(AddHelp(tr("&Help:"))),
      m_Comment(AddEdit("Comment", tr("&Comment:"))), m_Builds(AddBuilds())
{
    // What a member of a struct begins with is the struct file's.
    if (context.m_Manager.GetContext().m_Run.Test(APP_EXPERT) && attribute.GetParentAttrib() == nullptr)
        AddExpertFields();
    m_Help.setMaximumHeight(6 * CTheme::kRowHeight);
    CPropertiesAttributeDlg::Refresh();
}

CPropertiesAttributeDlg::~CPropertiesAttributeDlg() = default;

QTableView& CPropertiesAttributeDlg::AddBuilds()
{
    m_pModel->setHorizontalHeaderLabels({tr("Build"), tr("Type"), tr("State")});
    auto* table = new CDialogTable(*m_pModel, kBuildWidths);
    table->setMinimumHeight(4 * CTheme::kRowHeight);
    table->setMaximumHeight(5 * CTheme::kRowHeight);
    AddField("Builds", tr("&Builds:"), table);
    return *table;
}

void CPropertiesAttributeDlg::AddExpertFields()
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    m_pBuild = new CBuildNumberEdit;
    m_pDeleted = new QCheckBox(tr("&Deleted from this build on"));
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(CTheme::kSpacing);
    layout->addWidget(m_pBuild);
    layout->addWidget(m_pDeleted);
    layout->addStretch();
    row->setFocusProxy(m_pBuild);
    AddField("BuildRow", tr("B&uild Number:"), row);
    SetNames(*m_pBuild, "Build", tr("Build Number"));
    SetNames(*m_pDeleted, "Deleted", tr("Deleted from this build on"));
    connect(m_pBuild, &QLineEdit::textEdited, this, [this] { SetModified(); });
    connect(m_pDeleted, &QCheckBox::clicked, this, [this] { SetModified(); });
}

void CPropertiesAttributeDlg::Forget()
{
    m_pAttribute = nullptr;
}

void CPropertiesAttributeDlg::Refresh()
{
    if (!m_pAttribute)
        return;
    std::u16string help;
    m_pAttribute->GetHelp(0, help);
    const std::u16string_view type = m_pAttribute->GetTypeName();
    SetText(m_Name, m_pAttribute->GetName());
    SetText(m_Type, type.empty() ? kUnknownProperty : type);
    m_Help.SetHelp(help);
    m_Comment.SetText(m_pAttribute->GetComment(),
                      m_pAttribute->IsLocked() ? tr("The attribute is locked.") : QString());
    ShowBuilds();
    if (m_pBuild != nullptr)
    {
        m_pBuild->SetBuild(m_pAttribute->GetBuild());
        m_pDeleted->setChecked(IsDeleted(*m_pAttribute));
    }
    ClearModified();
}

void CPropertiesAttributeDlg::ShowBuilds()
{
    m_pModel->removeRows(0, m_pModel->rowCount());
    for (const CCorvaneAttrib* entry : GetEntries(*m_pAttribute))
        AppendBuild(*entry);
}

void CPropertiesAttributeDlg::AppendBuild(const CCorvaneAttrib& entry)
{
    const auto* typed = dynamic_cast<const CCorvaneType*>(&entry);
    const QString texts[] = {ToQString(GetBuildText(entry)),
                             ToQString(typed ? typed->GetTypeName() : kUnknownProperty),
                             ToQString(GetStateText(entry))};
    QList<QStandardItem*> row;
    for (const QString& text : texts)
    {
        row.append(new QStandardItem(text));
        QFont font = m_Builds.font();
        font.setBold(&entry == m_pAttribute.Get());
        row.last()->setFont(font);
    }
    m_pModel->appendRow(row);
}

bool CPropertiesAttributeDlg::IsBuildChanged() const
{
    return m_pBuild != nullptr && (m_pBuild->GetBuild() != m_pAttribute->GetBuild() ||
                                   m_pDeleted->isChecked() != IsDeleted(*m_pAttribute));
}

bool CPropertiesAttributeDlg::Apply()
{
    const CRef<CCorvaneType> attribute = m_pAttribute;
    if (!attribute || (m_Comment.IsChanged() && !attribute->EditComment(m_Comment.GetText())))
        return false;
    // A check-out may have ended the attribute.
    if (!m_pAttribute || (IsBuildChanged() && !ApplyBuild(*attribute)))
        return false;
    Refresh();
    return true;
}

bool CPropertiesAttributeDlg::ApplyBuild(CCorvaneType& attribute)
{
    const std::uint32_t build = m_pBuild->GetBuild();
    const std::vector<const CCorvaneAttrib*> entries = GetEntries(attribute);
    if (std::any_of(entries.begin(), entries.end(),
                    [&](const CCorvaneAttrib* entry)
                    { return entry != &attribute && entry->GetBuild() == build; }))
    {
        GetManager().GetContext().m_Questions.Tell(
            u"Invalid Build Number",
            FormatText(u"Another entry of the attribute '%s' begins with build %u already.",
                       attribute.GetName(), build));
        return false;
    }
    return GetManager().UpdateAttributeBuild(&attribute, build, m_pDeleted->isChecked());
}
