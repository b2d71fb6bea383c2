// The form of flags: names with '|' between, 'none' for no flag, and hexadecimal numbers for bits without a
// name.
#pragma once

#include "OverrideForm.h"

class CFlagsForm final : public IOverrideForm
{
public:
    explicit CFlagsForm(const SOverrideAttribute& attribute);

    void Write(const SOverrideValue& value, std::string& out) const override;
    bool Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const override;
    bool Check(const SOverrideValue& value, const IOverrideUse& use, SOverrideError& error) const override;
    std::vector<std::string> Describe() const override;

private:
    struct SFlag
    {
        std::uint32_t bit = 0;
        std::string_view name;
        std::string_view description;
    };

    // A declaration "Flag3=Name|Description"; false for any other token.
    static bool ParseFlag(std::string_view token, SFlag& flag);
    const SFlag* FindFlag(std::string_view name) const;
    [[nodiscard]] bool ReadPiece(COverrideCursor& cursor, std::uint32_t& mask, SOverrideError& error) const;

    std::vector<SFlag> m_Flags;
    // The bits that have a name, and those that the attribute has already.
    std::uint32_t m_nAllowed = 0;
};
