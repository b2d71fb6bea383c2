// What both section parsers do alike: the narrow forms, which convert and call the wide ones, and the typed
// reads and writes, which stand on one look-up and one write of text.
#pragma once

#include "UnicodeFileParse.h"

class CUnicodeFileParseBase : public IUnicodeFileParse
{
public:
    bool ReadString(const char* section, const char* name, char* out, std::size_t size) const override;
    bool ReadString(std::u16string_view section, std::u16string_view name, char16_t* out,
                    std::size_t size) const override;
    bool ReadString(const char* section, const char* name, std::string& out) const override;
    bool ReadString(std::u16string_view section, std::u16string_view name,
                    std::u16string& out) const override;
    bool WriteString(const char* section, const char* name, const char* value) override;
    using IUnicodeFileParse::WriteString;
    [[nodiscard]] std::int32_t ReadInteger(const char* section, const char* name) const override;
    [[nodiscard]] std::int32_t ReadInteger(std::u16string_view section,
                                           std::u16string_view name) const override;
    bool WriteInteger(const char* section, const char* name, std::int32_t value) override;
    bool WriteInteger(std::u16string_view section, std::u16string_view name, std::int32_t value) override;
    [[nodiscard]] float ReadFloat(const char* section, const char* name) const override;
    [[nodiscard]] float ReadFloat(std::u16string_view section, std::u16string_view name) const override;
    bool WriteFloat(const char* section, const char* name, float value) override;
    bool WriteFloat(std::u16string_view section, std::u16string_view name, float value) override;
    [[nodiscard]] bool ReadBoolean(const char* section, const char* name) const override;
    [[nodiscard]] bool ReadBoolean(std::u16string_view section, std::u16string_view name) const override;
    bool WriteBoolean(const char* section, const char* name, bool value) override;
    bool WriteBoolean(std::u16string_view section, std::u16string_view name, bool value) override;
    [[nodiscard]] bool IsSection(const char* section, bool partial) const override;
    using IUnicodeFileParse::IsSection;
    [[nodiscard]] bool IsKey(const char* section, const char* name) const override;
    [[nodiscard]] bool IsKey(std::u16string_view section, std::u16string_view name) const override;
    bool DeleteKey(const char* section, const char* name) override;
    using IUnicodeFileParse::DeleteKey;
    bool DeleteSection(const char* section) override;
    using IUnicodeFileParse::DeleteSection;

protected:
    // The first value of the first section of that name; a view without data when either is missing. It
    // lives until the content changes.
    [[nodiscard]] virtual std::u16string_view FindText(std::u16string_view section,
                                                       std::u16string_view name) const = 0;
};
