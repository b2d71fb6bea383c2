// Asking the user for a file. Behind an interface, so that a test answers in the user's place.
#pragma once

#include <string>
#include <string_view>

class QWidget;

struct SFileDialog
{
    std::u16string m_sTitle;
    // Where the dialog starts: a file, or a directory with its last separator. Either separator serves. Empty
    // for the directory of the last choice.
    std::u16string m_sPath;
    // Without a point; added to a name that has none when a file is saved.
    std::u16string m_sExtension;
    // Pairs of a label and its patterns, each part ended by a bar, as BuildFileFilter makes them.
    std::u16string m_sFilter;
};

class IFileDialogs
{
public:
    // A full path with the separators of the operating system, or empty text when the user cancels. `parent`
    // is not owned and may be null.
    //
    // A file that exists.
    [[nodiscard]] virtual std::u16string OpenFile(QWidget* parent, const SFileDialog& dialog) = 0;
    // The user has agreed when the file exists.
    [[nodiscard]] virtual std::u16string SaveFile(QWidget* parent, const SFileDialog& dialog) = 0;

protected:
    ~IFileDialogs() = default;
};
