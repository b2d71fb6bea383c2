// The forms of texts, of words from a list, and of links to records.
#pragma once

#include "OverrideForm.h"

class CTextForm : public IOverrideForm
{
public:
    explicit CTextForm(const SOverrideAttribute& attribute);

    void Write(const SOverrideValue& value, std::string& out) const override;
    bool Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const override;
    bool Check(const SOverrideValue& value, const IOverrideUse& use, SOverrideError& error) const override;
    std::vector<std::string> Describe() const override;

private:
    std::string m_sTypeWord;
    // In UTF-16 units; no maximum is the largest number.
    std::uint32_t m_nMinimum = 0;
    std::uint32_t m_nMaximum = 0xFFFFFFFF;
};

// One of the words of the schema. The words of an enum file are not in the limits file: of those, the words
// that the packed database uses are allowed.
class CEnumForm final : public IOverrideForm
{
public:
    explicit CEnumForm(const SOverrideAttribute& attribute);

    void Write(const SOverrideValue& value, std::string& out) const override;
    bool Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const override;
    bool Check(const SOverrideValue& value, const IOverrideUse& use, SOverrideError& error) const override;
    std::vector<std::string> Describe() const override;

private:
    std::vector<std::string_view> m_Words;
    bool m_bFile;
};

// The path of a record, or <none>. The schema's names say which records are allowed; how schemas derive from
// one another is not in the packed database, so that of "public" ones those that it uses are allowed too.
class CLinkForm final : public IOverrideForm
{
public:
    explicit CLinkForm(const SOverrideAttribute& attribute);

    // No record.
    static bool IsNone(std::string_view path);

    void Write(const SOverrideValue& value, std::string& out) const override;
    bool Read(COverrideCursor& cursor, SOverrideValue& value, SOverrideError& error) const override;
    bool Check(const SOverrideValue& value, const IOverrideUse& use, SOverrideError& error) const override;
    std::vector<std::string> Describe() const override;

private:
    std::vector<std::string_view> m_Schemas;
};
