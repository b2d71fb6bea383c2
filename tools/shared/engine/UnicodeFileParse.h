// The interface of all source files: section files, UTF-16 text in the manner of an initialisation file.
// The form is described in docs/formats/section-files.md.
//
// Names are compared without regard to case, the first match wins, values are taken as they stand. Narrow
// forms convert from UTF-8 and are for rare uses. A null (data-less) section, name or value fires an
// assertion and the operation goes on with the empty text. A parser belongs to one thread at a time.
#pragma once

#include "FileSystem.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// Export formats (the low two bits of the flags).
enum EExportFlags : std::uint32_t
{
    EXPORT_UTF16LE = 1,
    EXPORT_UTF16BE = 2,
};

class IUnicodeFileParse
{
public:
    // `file` is a full path text. Flags of Import are ignored. After a false result GetLastError tells the
    // cause; InvalidData means that the file is not UTF-16 with a mark.
    [[nodiscard]] virtual bool Import(std::u16string_view file, std::uint32_t flags) = 0;
    [[nodiscard]] virtual bool Export(std::u16string_view file, std::uint32_t flags) = 0;
    virtual void Clear() = 0;
    [[nodiscard]] virtual bool IsEmpty() const = 0;

    // False leaves `out` as it was, so that a caller may prepare a default. The buffer form's size counts
    // characters, the terminator included; a text that does not fit is cut and fires an assertion.
    virtual bool ReadString(const char* section, const char* name, char* out, std::size_t size) const = 0;
    virtual bool ReadString(std::u16string_view section, std::u16string_view name, char16_t* out,
                            std::size_t size) const = 0;
    virtual bool ReadString(const char* section, const char* name, std::string& out) const = 0;
    virtual bool ReadString(std::u16string_view section, std::u16string_view name,
                            std::u16string& out) const = 0;
    virtual bool WriteString(const char* section, const char* name, const char* value) = 0;
    virtual bool WriteString(std::u16string_view section, std::u16string_view name,
                             std::u16string_view value) = 0;
    // 0 for a missing key and for a text that is no number.
    [[nodiscard]] virtual std::int32_t ReadInteger(const char* section, const char* name) const = 0;
    [[nodiscard]] virtual std::int32_t ReadInteger(std::u16string_view section,
                                                   std::u16string_view name) const = 0;
    virtual bool WriteInteger(const char* section, const char* name, std::int32_t value) = 0;
    virtual bool WriteInteger(std::u16string_view section, std::u16string_view name, std::int32_t value) = 0;
    [[nodiscard]] virtual float ReadFloat(const char* section, const char* name) const = 0;
    [[nodiscard]] virtual float ReadFloat(std::u16string_view section, std::u16string_view name) const = 0;
    virtual bool WriteFloat(const char* section, const char* name, float value) = 0;
    virtual bool WriteFloat(std::u16string_view section, std::u16string_view name, float value) = 0;
    // True if and only if the value equals "True" without regard to case.
    [[nodiscard]] virtual bool ReadBoolean(const char* section, const char* name) const = 0;
    [[nodiscard]] virtual bool ReadBoolean(std::u16string_view section, std::u16string_view name) const = 0;
    virtual bool WriteBoolean(const char* section, const char* name, bool value) = 0;
    virtual bool WriteBoolean(std::u16string_view section, std::u16string_view name, bool value) = 0;
    // With `partial`, true when a section's name begins with the text. The narrow form ignores the flag and
    // compares whole names; older callers rely on that.
    [[nodiscard]] virtual bool IsSection(const char* section, bool partial) const = 0;
    [[nodiscard]] virtual bool IsSection(std::u16string_view section, bool partial) const = 0;
    [[nodiscard]] virtual bool IsKey(const char* section, const char* name) const = 0;
    [[nodiscard]] virtual bool IsKey(std::u16string_view section, std::u16string_view name) const = 0;
    virtual bool DeleteKey(const char* section, const char* name) = 0;
    virtual bool DeleteKey(std::u16string_view section, std::u16string_view name) = 0;
    virtual bool DeleteSection(const char* section) = 0;
    virtual bool DeleteSection(std::u16string_view section) = 0;

    virtual ~IUnicodeFileParse() = default;

    // Cause of the last failed Import or Export.
    [[nodiscard]] const CFileError& GetLastError() const { return m_LastError; }

protected:
    CFileError m_LastError;
};

// Multi-line text on one line and back. The steps replace over the whole text one after the other, so that a
// backslash in front of an n comes back as a backslash and a line end: older files rely on it.
[[nodiscard]] std::u16string EncodeMultiLine(std::u16string_view text);
[[nodiscard]] std::u16string DecodeMultiLine(std::u16string_view text);
