// Asks for the two files of the override output.
#pragma once

#include "OverrideOutput.h"

#include <QDialog>
#include <span>

class IEditor;
class QBoxLayout;
class QComboBox;

class COverrideDlg final : public QDialog
{
public:
    // `editor` is not owned.
    COverrideDlg(IEditor& editor, QWidget* parent);
    // Stays open while a path cannot be a target, which is told.
    void accept() override;

    // What is in the fields. For an accepted dialog both can be targets.
    [[nodiscard]] SOverridePaths GetPaths() const;

private:
    void AddPath(QBoxLayout& layout, QComboBox& field, const char* objectName, const QString& label,
                 std::u16string_view text, std::span<const std::u16string> recent,
                 std::u16string_view extension, std::u16string_view filter);

    IEditor& m_Editor;
    COverrideOutput m_Output;
    QComboBox* m_pDatabase;
    QComboBox* m_pConstraints;
};
