// File dialogs of the toolkit, which are those of the desktop where it has its own.
#pragma once

#include "FileDialogs.h"

#include <QString>
#include <QStringList>

class IFileSystem;
class QFileDialog;

class CQtFileDialogs final : public IFileDialogs
{
public:
    // `files` turns path texts into the system's; not owned.
    explicit CQtFileDialogs(IFileSystem& files) : m_Files(files) {}

    [[nodiscard]] std::u16string OpenFile(QWidget* parent, const SFileDialog& dialog) override;
    [[nodiscard]] std::u16string SaveFile(QWidget* parent, const SFileDialog& dialog) override;

private:
    void Prepare(QFileDialog& window, const SFileDialog& dialog) const;
    [[nodiscard]] std::u16string Run(QFileDialog& window);

    IFileSystem& m_Files;
    QString m_sLastDirectory;
};

// A bar-separated filter in the toolkit's form. A pair without patterns is left out; "*.*" stands for all
// files, also those without a point.
[[nodiscard]] QStringList MakeNameFilters(std::u16string_view filter);
