#include "QtFileDialogs.h"

#include "FileSystem.h"
#include "QtText.h"

#include <QFileDialog>
#include <QFileInfo>

QStringList MakeNameFilters(std::u16string_view filter)
{
    QStringList filters;
    const QStringList parts = ToQString(filter).split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
    {
        QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
        if (patterns.isEmpty())
            continue;
        patterns.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
        // The toolkit shows the patterns itself.
        const QString label = parts[i].section(u'(', 0, 0).trimmed();
        filters += QStringLiteral("%1 (%2)").arg(label, patterns.join(u' '));
    }
    return filters;
}

std::u16string CQtFileDialogs::OpenFile(QWidget* parent, const SFileDialog& dialog)
{
    QFileDialog window(parent);
    window.setAcceptMode(QFileDialog::AcceptOpen);
    window.setFileMode(QFileDialog::ExistingFile);
    Prepare(window, dialog);
    return Run(window);
}

std::u16string CQtFileDialogs::SaveFile(QWidget* parent, const SFileDialog& dialog)
{
    QFileDialog window(parent);
    window.setAcceptMode(QFileDialog::AcceptSave);
    window.setFileMode(QFileDialog::AnyFile);
    window.setDefaultSuffix(ToQString(dialog.m_sExtension));
    Prepare(window, dialog);
    return Run(window);
}

void CQtFileDialogs::Prepare(QFileDialog& window, const SFileDialog& dialog) const
{
    window.setObjectName(QStringLiteral("FileDialog"));
    window.setWindowTitle(ToQString(dialog.m_sTitle));
    window.setNameFilters(MakeNameFilters(dialog.m_sFilter));
    if (dialog.m_sPath.empty())
    {
        window.setDirectory(m_sLastDirectory);
        return;
    }
    const QFileInfo start(QString::fromStdString(m_Files.GetNativePath(dialog.m_sPath)));
    // A directory that is gone leaves the dialog where it would start without a path.
    window.setDirectory(start.isDir() ? start.absoluteFilePath() : start.absolutePath());
    if (!start.isDir())
        window.selectFile(start.fileName());
}

std::u16string CQtFileDialogs::Run(QFileDialog& window)
{
    if (window.exec() != QDialog::Accepted || window.selectedFiles().isEmpty())
        return {};
    const QString path = window.selectedFiles().constFirst();
    m_sLastDirectory = QFileInfo(path).absolutePath();
    return ToText(path);
}
