// Asks how and where to the database is to be compiled. Starts small, with the target alone.
#pragma once

#include "BuildOptions.h"

#include <QDialog>
#include <vector>

class CBuildNumberEdit;
class IEditor;
class QBoxLayout;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QPushButton;
class QRadioButton;

class CBuildDlg final : public QDialog
{
public:
    // The parameters of CBuildOptions. `editor` is not owned.
    CBuildDlg(IEditor& editor, std::uint32_t flags, std::int64_t build, std::u16string_view target,
              QWidget* parent);
    void accept() override;

    // For a dialog that was accepted.
    [[nodiscard]] std::uint32_t GetFlags() const { return m_Options.m_dwFlags; }
    [[nodiscard]] std::uint32_t GetBuild() const { return m_Options.m_nBuild; }
    [[nodiscard]] const std::u16string& GetTarget() const { return m_Options.m_sTarget; }

private:
    struct SOption
    {
        std::uint32_t m_nFlag;
        QCheckBox* m_pBox;
    };

    void AddTarget(QBoxLayout& layout);
    [[nodiscard]] QWidget* MakeAdvanced();
    void AddBuilds(QFormLayout& form);
    void AddOption(QBoxLayout& layout, std::uint32_t flag, const char* objectName, const QString& text);
    void Browse();
    void ToggleAdvanced();

    IEditor& m_Editor;
    CBuildOptions m_Options;
    QComboBox* m_pTarget;
    CBuildNumberEdit* m_pBuild;
    QRadioButton* m_pServer = nullptr;
    std::vector<SOption> m_Boxes;
    QWidget* m_pAdvanced;
    QPushButton* m_pMore;
};
