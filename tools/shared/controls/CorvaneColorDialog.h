// The colour picker: a field of hue and saturation, bars of value and alpha, number fields, the colour before
// and the new one, and the 24 custom colours, which are kept at once when they change.
//
// A packed colour has red in byte 0, green in byte 1, blue in byte 2 and alpha in byte 3.
#pragma once

#include "ColorChoice.h"
#include "CustomColors.h"

#include <QDialog>

class CColorBar;
class CColorButton;
class CColorField;
class CColorPalette;
class CNumberEdit;
class CProfile;
class QLayout;
class QLineEdit;

class CCorvaneColorDialog : public QDialog
{
public:
    // The profile outlives it. Begins with `packed`.
    CCorvaneColorDialog(CProfile& profile, std::uint32_t packed, QWidget* parent = nullptr);
    ~CCorvaneColorDialog() override;

    // After accepting, what the four number fields held; before, the colour shown.
    [[nodiscard]] std::uint32_t GetColor() const;

    void accept() override;

private:
    enum EField
    {
        FIELD_RED,
        FIELD_GREEN,
        FIELD_BLUE,
        FIELD_ALPHA,
        FIELD_COUNT
    };

    void MakeLayout();
    [[nodiscard]] QLayout* MakePicker();
    [[nodiscard]] QLayout* MakeNumbers();
    [[nodiscard]] QLayout* MakeCustom();
    void Connect();
    void TakeFields();
    void TakeHex();
    void TakeCustom(int index);
    void StoreCustom();
    // Brings everything up to date but the field that the user types in.
    void Show(const QWidget* typing = nullptr);

    CCustomColors m_Custom;
    CColorChoice m_Choice;
    CColorField* m_pField;
    CColorBar* m_pValue;
    CColorBar* m_pAlpha;
    CNumberEdit* m_Fields[FIELD_COUNT];
    QLineEdit* m_pHex;
    CColorButton* m_pOld;
    CColorButton* m_pNew;
    CColorPalette* m_pPalette;
    QLineEdit* m_pDescription;
};
