// The forms of several numbers that are one value: they stand in parentheses.
#pragma once

#include "OverrideForm.h"

class CVectorForm : public IOverrideForm
{
public:
    explicit CVectorForm(EDatabaseValueType type);

    void Write(const SOverrideValue& value, std::string& out) const override;
    bool Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const override;
    bool Check(const SOverrideValue&, const IOverrideUse&, SOverrideError&) const override { return true; }
    std::vector<std::string> Describe() const override;

private:
    std::size_t m_nDimension;
};

// A minimum and a maximum.
class CRangeForm final : public CVectorForm
{
public:
    explicit CRangeForm(const SOverrideAttribute& attribute);

    bool Check(const SOverrideValue& value, const IOverrideUse& use, SOverrideError& error) const override;
    std::vector<std::string> Describe() const override;

private:
    float m_fMinimum;
    float m_fMaximum;
    bool m_bIntegerOnly = false;
};
