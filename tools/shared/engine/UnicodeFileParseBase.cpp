#include "UnicodeFileParseBase.h"

#include "NumberText.h"
#include "Unicode.h"
#include "zrassert.h"
#include "zrstrutils.h"

namespace
{
// The assertions carry the names that the interface gives its arguments.
std::u16string WidenSection(const char* szSection)
{
    ZRASSERT(szSection);
    return szSection != nullptr ? ToWide(szSection) : std::u16string();
}

std::u16string WidenName(const char* szName)
{
    ZRASSERT(szName);
    return szName != nullptr ? ToWide(szName) : std::u16string();
}

std::u16string WidenValue(const char* szValue)
{
    ZRASSERT(szValue);
    return szValue != nullptr ? ToWide(szValue) : std::u16string();
}

void CheckArguments(std::u16string_view section, std::u16string_view name)
{
    const char16_t* wszSection = section.data();
    const char16_t* wszName = name.data();
    ZRASSERT(wszSection);
    ZRASSERT(wszName);
}
} // namespace

bool CUnicodeFileParseBase::ReadString(const char* section, const char* name, char* out,
                                       std::size_t size) const
{
    std::string value;
    if (!ReadString(section, name, value))
        return false;
    ZRStrCpy(out, size, value.c_str());
    return true;
}

bool CUnicodeFileParseBase::ReadString(std::u16string_view section, std::u16string_view name, char16_t* out,
                                       std::size_t size) const
{
    std::u16string value;
    if (!ReadString(section, name, value))
        return false;
    ZRStrCpy(out, size, value.c_str());
    return true;
}

bool CUnicodeFileParseBase::ReadString(const char* section, const char* name, std::string& out) const
{
    std::u16string value;
    if (!ReadString(WidenSection(section), WidenName(name), value))
        return false;
    ToNarrow(value, out);
    return true;
}

bool CUnicodeFileParseBase::ReadString(std::u16string_view section, std::u16string_view name,
                                       std::u16string& out) const
{
    CheckArguments(section, name);
    const std::u16string_view value = FindText(section, name);
    if (value.data() == nullptr)
        return false;
    out = value;
    return true;
}

bool CUnicodeFileParseBase::WriteString(const char* section, const char* name, const char* value)
{
    return WriteString(WidenSection(section), WidenName(name), WidenValue(value));
}

std::int32_t CUnicodeFileParseBase::ReadInteger(const char* section, const char* name) const
{
    return ReadInteger(WidenSection(section), WidenName(name));
}

std::int32_t CUnicodeFileParseBase::ReadInteger(std::u16string_view section, std::u16string_view name) const
{
    CheckArguments(section, name);
    return ParseInteger(FindText(section, name));
}

bool CUnicodeFileParseBase::WriteInteger(const char* section, const char* name, std::int32_t value)
{
    return WriteInteger(WidenSection(section), WidenName(name), value);
}

bool CUnicodeFileParseBase::WriteInteger(std::u16string_view section, std::u16string_view name,
                                         std::int32_t value)
{
    return WriteString(section, name, FormatInteger(value));
}

float CUnicodeFileParseBase::ReadFloat(const char* section, const char* name) const
{
    return ReadFloat(WidenSection(section), WidenName(name));
}

float CUnicodeFileParseBase::ReadFloat(std::u16string_view section, std::u16string_view name) const
{
    CheckArguments(section, name);
    return ParseFloat(FindText(section, name));
}

bool CUnicodeFileParseBase::WriteFloat(const char* section, const char* name, float value)
{
    return WriteFloat(WidenSection(section), WidenName(name), value);
}

bool CUnicodeFileParseBase::WriteFloat(std::u16string_view section, std::u16string_view name, float value)
{
    // Files hold at most so many units of a float; the rest of a huge one has always been cut.
    constexpr std::size_t kLongest = 19;
    return WriteString(section, name, FormatFloat(static_cast<double>(value)).substr(0, kLongest));
}

bool CUnicodeFileParseBase::ReadBoolean(const char* section, const char* name) const
{
    return ReadBoolean(WidenSection(section), WidenName(name));
}

bool CUnicodeFileParseBase::ReadBoolean(std::u16string_view section, std::u16string_view name) const
{
    CheckArguments(section, name);
    return ParseBoolean(FindText(section, name));
}

bool CUnicodeFileParseBase::WriteBoolean(const char* section, const char* name, bool value)
{
    return WriteBoolean(WidenSection(section), WidenName(name), value);
}

bool CUnicodeFileParseBase::WriteBoolean(std::u16string_view section, std::u16string_view name, bool value)
{
    return WriteString(section, name, FormatBoolean(value));
}

bool CUnicodeFileParseBase::IsSection(const char* section, bool) const
{
    return IsSection(WidenSection(section), false);
}

bool CUnicodeFileParseBase::IsKey(const char* section, const char* name) const
{
    return IsKey(WidenSection(section), WidenName(name));
}

bool CUnicodeFileParseBase::IsKey(std::u16string_view section, std::u16string_view name) const
{
    CheckArguments(section, name);
    return FindText(section, name).data() != nullptr;
}

bool CUnicodeFileParseBase::DeleteKey(const char* section, const char* name)
{
    return DeleteKey(WidenSection(section), WidenName(name));
}

bool CUnicodeFileParseBase::DeleteSection(const char* section)
{
    return DeleteSection(WidenSection(section));
}
