#include "BuildDlg.h"

#include "CorvaneMgr.h"
#include "DatabaseCompiler.h"
#include "DialogParts.h"
#include "Editor.h"
#include "FileDialogs.h"
#include "FileFilter.h"
#include "PathCombo.h"
#include "QtText.h"
#include "Theme.h"
#include "UiModule.h"
#include "WarningAdvancedSettingsDlg.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

CBuildDlg::CBuildDlg(IEditor& editor, std::uint32_t flags, std::int64_t build, std::u16string_view target,
                     QWidget* parent)
    : QDialog(parent), m_Editor(editor),
      m_Options(editor.GetApplication().GetManager(), flags, build, target), m_pTarget(new CPathCombo),
      m_pBuild(new CBuildNumberEdit), m_pAdvanced(MakeAdvanced()), m_pMore(new QPushButton(tr("&Advanced >")))
{
    setObjectName(QStringLiteral("BuildDlg"));
    setWindowTitle(tr("Compile"));
    QBoxLayout& layout = MakeDialogLayout(*this);
    AddTarget(layout);
    m_pAdvanced->hide();
    layout.addWidget(m_pAdvanced);
    SetNames(*m_pMore, "Advanced", tr("Advanced"));
    connect(m_pMore, &QPushButton::clicked, this, [this] { ToggleAdvanced(); });
    AddOkCancel(*this, layout).addButton(m_pMore, QDialogButtonBox::ResetRole);
    layout.setSizeConstraint(QLayout::SetFixedSize);
    m_pTarget->setFocus();
}

void CBuildDlg::AddTarget(QBoxLayout& layout)
{
    auto* label = new QLabel(tr("&Database:"));
    label->setBuddy(m_pTarget);
    SetNames(*m_pTarget, "Target", tr("Database"));
    for (const std::u16string& path : m_Options.GetTargets())
        m_pTarget->addItem(ToQString(path));
    m_pTarget->setEditText(ToQString(m_Options.m_sTarget));
    layout.addWidget(label);
    AddWithBrowse(layout, *m_pTarget, "BrowseTarget", [this] { Browse(); });
}

QWidget* CBuildDlg::MakeAdvanced()
{
    auto* advanced = new QWidget;
    auto* layout = new QVBoxLayout(advanced);
    layout->setContentsMargins(0, CTheme::kGrid, 0, 0);
    layout->setSpacing(CTheme::kSpacing);
    auto* form = new QFormLayout;
    AddBuilds(*form);
    layout->addLayout(form);

    QBoxLayout& choices = AddGroup(*layout, tr("Purpose"));
    auto* local = new QRadioButton(tr("&Local - Overwrite for local testing"));
    m_pServer = new QRadioButton(tr("S&erver - Check Out for submission"));
    SetNames(*local, "Local", tr("Local - Overwrite for local testing"));
    SetNames(*m_pServer, "Server", tr("Server - Check Out for submission"));
    const bool server = (m_Options.m_dwFlags & COMPILE_SERVER) != 0;
    (server ? m_pServer : local)->setChecked(true);
    choices.addWidget(local);
    choices.addWidget(m_pServer);

    QBoxLayout& boxes = AddGroup(*layout, tr("Options"));
    AddOption(boxes, COMPILE_SYNCHRONIZE, "Synchronize", tr("S&ynchronize to server database"));
    AddOption(boxes, COMPILE_SUBMIT, "Submit", tr("S&ubmit all changes to source control"));
    AddOption(boxes, COMPILE_SAVE, "Save", tr("&Save local database"));
    AddOption(boxes, COMPILE_SHOW_MODIFIED, "DisplayModified", tr("Display &modified attributes dialog"));
    m_Boxes.back().m_pBox->setVisible(m_Options.IsModifiedOffered());
    return advanced;
}

void CBuildDlg::AddBuilds(QFormLayout& form)
{
    const auto addFixed = [&form](const char* objectName, const QString& text, std::uint32_t build)
    {
        // No field: it would look as if one could type there.
        auto* field = new QLabel(QString::number(build));
        SetNames(*field, objectName, text + u' ' + field->text());
        field->setTextInteractionFlags(Qt::TextSelectableByMouse);
        form.addRow(text + u':', field);
    };
    addFixed("ActiveBuild", tr("Active Build Number"), m_Options.GetActiveBuild());
    addFixed("GameBuild", tr("Game Build Number"), m_Options.GetGameBuild());
    SetNames(*m_pBuild, "CompileBuild", tr("Compile Build Number"));
    m_pBuild->SetBuild(m_Options.m_nBuild);
    form.addRow(tr("&Compile Build Number:"), m_pBuild);
}

void CBuildDlg::AddOption(QBoxLayout& layout, std::uint32_t flag, const char* objectName, const QString& text)
{
    auto* box = new QCheckBox(text);
    SetNames(*box, objectName, QString(text).remove(u'&'));
    box->setChecked((m_Options.m_dwFlags & flag) != 0);
    layout.addWidget(box);
    m_Boxes.push_back({flag, box});
}

void CBuildDlg::Browse()
{
    SFileDialog dialog{u"Compile", ToText(m_pTarget->currentText()), u"Gamdb00p", {}};
    BuildFileFilter(dialog.m_sFilter, {FILE_FILTER_DATABASE_PACKED, FILE_FILTER_ALL});
    const std::u16string path = m_Editor.GetFileDialogs().SaveFile(this, dialog);
    if (!path.empty())
        m_pTarget->setEditText(ToQString(path));
}

void CBuildDlg::ToggleAdvanced()
{
    const bool grow = m_pAdvanced->isHidden();
    if (grow && !CWarningAdvancedSettingsDlg::Confirm(m_Editor.GetApplication().GetContext().m_Profile, this))
        return;
    m_pAdvanced->setVisible(grow);
    m_pMore->setText(grow ? tr("< &Hide") : tr("&Advanced >"));
}

void CBuildDlg::accept()
{
    m_Options.m_sTarget = ToText(m_pTarget->currentText().trimmed());
    // An emptied field leaves the number that the dialog began with.
    if (!m_pBuild->text().isEmpty())
        m_Options.m_nBuild = m_pBuild->GetBuild();
    const auto set = [this](std::uint32_t flag, bool on)
    { m_Options.m_dwFlags = on ? m_Options.m_dwFlags | flag : m_Options.m_dwFlags & ~flag; };
    set(COMPILE_SERVER, m_pServer->isChecked());
    for (const SOption& option : m_Boxes)
        set(option.m_nFlag, option.m_pBox->isChecked());
    m_Options.Accept();
    QDialog::accept();
}
