#include "OverrideDlg.h"

#include "DialogParts.h"
#include "Editor.h"
#include "FileDialogs.h"
#include "PathCombo.h"
#include "QtText.h"
#include "UiModule.h"

#include <QBoxLayout>
#include <QLabel>

COverrideDlg::COverrideDlg(IEditor& editor, QWidget* parent)
    : QDialog(parent), m_Editor(editor), m_Output(editor.GetApplication().GetManager()),
      m_pDatabase(new CPathCombo), m_pConstraints(new CPathCombo)
{
    setObjectName(QStringLiteral("OverrideDlg"));
    setWindowTitle(tr("Create Override Output"));
    QBoxLayout& layout = MakeDialogLayout(*this);
    AddNote(layout,
            u"Creates files required for multiplayer overrides that allow the administrator of a multiplayer "
            u"game server to customize many aspects of the game using a standard text editor.");
    const SOverridePaths paths = m_Output.GetDefaultPaths();
    AddPath(layout, *m_pDatabase, "Database", tr("&Database Path:"), paths.m_sDatabase,
            m_Output.GetRecentDatabases(), u"txt", u"Text Files (*.txt)|*.txt|All Files (*.*)|*.*|");
    AddPath(layout, *m_pConstraints, "Constraints", tr("C&onstraints Path:"), paths.m_sConstraints,
            m_Output.GetRecentConstraints(), u"dat", u"Data Files (*.dat)|*.dat|All Files (*.*)|*.*|");
    AddOkCancel(*this, layout);
    layout.setSizeConstraint(QLayout::SetFixedSize);
    m_pDatabase->setFocus();
}

void COverrideDlg::AddPath(QBoxLayout& layout, QComboBox& field, const char* objectName, const QString& label,
                           std::u16string_view text, std::span<const std::u16string> recent,
                           std::u16string_view extension, std::u16string_view filter)
{
    auto* title = new QLabel(label);
    title->setBuddy(&field);
    layout.addWidget(title);
    SetNames(field, objectName, QString(label).remove(u'&').remove(u':'));
    for (const std::u16string& path : recent)
        field.addItem(ToQString(path));
    field.setEditText(ToQString(text));
    const auto browse = [this, &field, extension, filter]
    {
        const SFileDialog dialog{ToText(windowTitle()), ToText(field.currentText()),
                                 std::u16string(extension), std::u16string(filter)};
        const std::u16string path = m_Editor.GetFileDialogs().SaveFile(this, dialog);
        if (!path.empty())
            field.setEditText(ToQString(path));
    };
    AddWithBrowse(layout, field, (QByteArray("Browse") + objectName).constData(), browse);
}

SOverridePaths COverrideDlg::GetPaths() const
{
    return {ToText(m_pDatabase->currentText().trimmed()), ToText(m_pConstraints->currentText().trimmed())};
}

void COverrideDlg::accept()
{
    if (m_Output.AcceptPaths(GetPaths()))
        QDialog::accept();
}
