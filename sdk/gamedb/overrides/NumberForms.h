// The forms of single numbers.
#pragma once

#include "OverrideForm.h"

// True and False, in any case, and the other words that people write.
class CBooleanForm final : public IOverrideForm
{
public:
    void Write(const SOverrideValue& value, std::string& out) const override;
    bool Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const override;
    bool Check(const SOverrideValue&, const IOverrideUse&, SOverrideError&) const override { return true; }
    std::vector<std::string> Describe() const override;
};

class CIntegerForm : public IOverrideForm
{
public:
    explicit CIntegerForm(const SOverrideAttribute& attribute);

    void Write(const SOverrideValue& value, std::string& out) const override;
    bool Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const override;
    bool Check(const SOverrideValue& value, const IOverrideUse& use, SOverrideError& error) const override;
    std::vector<std::string> Describe() const override;

protected:
    std::int32_t m_nMinimum;
    std::int32_t m_nMaximum;
};

// Milliseconds.
class CTimeForm final : public CIntegerForm
{
public:
    explicit CTimeForm(const SOverrideAttribute& attribute);
    std::vector<std::string> Describe() const override;
};

class CFloatForm final : public IOverrideForm
{
public:
    explicit CFloatForm(const SOverrideAttribute& attribute);

    void Write(const SOverrideValue& value, std::string& out) const override;
    bool Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const override;
    bool Check(const SOverrideValue& value, const IOverrideUse& use, SOverrideError& error) const override;
    std::vector<std::string> Describe() const override;

private:
    float m_fMinimum;
    float m_fMaximum;
};
