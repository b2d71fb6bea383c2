// Asks for the build from which on an attribute is deferred: the common part of both such dialogs.
#pragma once

#include <QDialog>
#include <cstdint>
#include <string_view>

class CBuildNumberEdit;

class CDeferAttribDlg : public QDialog
{
public:
    // The number that was typed; for a dialog that was accepted.
    [[nodiscard]] std::uint32_t GetBuild() const;

protected:
    struct STexts
    {
        std::u16string_view m_sTitle;
        std::u16string_view m_sLabel; // With '&' for the mnemonic.
        std::u16string_view m_sFirstNote;
        std::u16string_view m_sSecondNote;
    };
    // `build` is the number that stands in the field at first.
    CDeferAttribDlg(const STexts& texts, std::uint32_t build, QWidget* parent);

private:
    CBuildNumberEdit* m_pBuild;
};
