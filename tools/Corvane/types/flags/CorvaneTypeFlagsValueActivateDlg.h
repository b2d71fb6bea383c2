// The flags of a mask as check boxes: one for each of the 32 bits, enabled where the schema gives the bit a
// name. A bit without a name stays what it is.
#pragma once

#include "flags/CorvaneTypeFlagsData.h"

#include <QDialog>
#include <span>
#include <string_view>

class QGridLayout;
class QLineEdit;

class CCorvaneTypeFlagsValueActivateDlg final : public QDialog
{
public:
    // `flags` are read during the call only.
    CCorvaneTypeFlagsValueActivateDlg(std::u16string_view attribute, std::span<const SFlag> flags,
                                      std::uint32_t mask, QWidget* parent);

    [[nodiscard]] std::uint32_t GetMask() const { return m_nMask; }

private:
    void MakeLayout(std::u16string_view attribute);
    void AddBoxes(QGridLayout& grid, std::span<const SFlag> flags);
    void SetBit(int bit, bool on);

    std::uint32_t m_nMask;
    QLineEdit* m_pMask;
    QGridLayout* m_pGrid;
};
