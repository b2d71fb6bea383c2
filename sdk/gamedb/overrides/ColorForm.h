// The form of colours: (red, green, blue), or with an alpha behind, each from 0 to 255, however the game's
// encoding packs them.
#pragma once

#include "OverrideForm.h"

#include <array>

class CColorForm final : public IOverrideForm
{
public:
    // `attribute` fits.
    explicit CColorForm(const SOverrideAttribute& attribute);
    // The encoding of the attribute has the attribute's type.
    static bool Fits(const SOverrideAttribute& attribute);

    void Write(const SOverrideValue& value, std::string& out) const override;
    bool Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const override;
    bool Check(const SOverrideValue&, const IOverrideUse&, SOverrideError&) const override { return true; }
    std::vector<std::string> Describe() const override;

private:
    // Red, green, blue, alpha.
    using Parts = std::array<std::uint32_t, 4>;

    std::size_t GetPartCount() const;
    Parts Decode(const SOverrideValue& value) const;
    SOverrideValue Encode(const Parts& parts) const;

    // The parts in the order of the packed value, from the highest byte or the first float on; X is none.
    std::string_view m_sLetters;
    bool m_bInteger;
};
