#include "SampleValues.h"

#include "GameAttribute.h"
#include "GameRecord.h"
#include "NumberText.h"
#include "Unicode.h"
#include "UnicodeFileParse.h"

#include <gtest/gtest.h>

#include <functional>

namespace
{
struct SCase
{
    const CGameRecord& m_Packed;
    const CSampleFiles& m_Files;
    const CSampleFiles::SRecord& m_Source;
    std::uint32_t m_nBuild;
};

std::vector<float> ParseFloats(const std::u16string& text)
{
    std::vector<float> numbers;
    for (std::size_t at = 0; at < text.size();)
    {
        const std::size_t end = std::min(text.find(u", ", at), text.size());
        numbers.push_back(ParseFloat(text.substr(at, end - at)));
        at = end + 2;
    }
    return numbers;
}

template <std::size_t Dimension>
void ExpectVector(const std::array<float, Dimension>& packed, const std::vector<float>& parts)
{
    ASSERT_GE(parts.size(), Dimension);
    for (std::size_t i = 0; i < Dimension; ++i)
        EXPECT_EQ(packed[i], parts[i]);
}

// The letters behind the '_' of an encoding's name tell the order of its parts, the highest byte first.
void ExpectColor(const CGameAttribute& packed, std::size_t index, const SEntry& entry,
                 const std::u16string& text)
{
    const std::vector<float> argb = ParseFloats(text);
    const std::string encoding = entry.m_sData.empty() ? "Int_ABGR" : ToNarrow(entry.m_sData);
    std::vector<float> parts;
    std::uint32_t number = 0;
    for (const char letter : encoding.substr(encoding.find('_') + 1))
    {
        const std::size_t part = std::string("ARGB").find(letter);
        const float value = part == std::string::npos ? 0.0F : argb.at(part);
        parts.push_back(value * 0.003921569F);
        number = (number << 8U) | static_cast<std::uint32_t>(value);
    }
    if (encoding.starts_with("Int"))
        EXPECT_EQ(static_cast<std::uint32_t>(packed.GetInteger(index)), number);
    else if (parts.size() == 3)
        ExpectVector(packed.GetVector3(index), parts);
    else
        ExpectVector(packed.GetVector4(index), parts);
}

void ExpectText(const CGameAttribute& packed, std::size_t index, const SEntry& entry,
                const std::u16string& text)
{
    if (entry.m_bUnicode)
        EXPECT_EQ(packed.GetWideText(index), text);
    else
        EXPECT_EQ(packed.GetText(index), ToNarrow(text));
}

void ExpectValue(const SCase& at, const CGameAttribute& packed, std::size_t index, const SEntry& entry,
                 const std::u16string& text)
{
    const std::map<std::u16string, std::function<void()>> checks{
        {u"Integer", [&] { EXPECT_EQ(packed.GetInteger(index), ParseInteger(text)); }},
        {u"Time", [&] { EXPECT_EQ(packed.GetInteger(index), ParseInteger(text)); }},
        {u"Float", [&] { EXPECT_EQ(packed.GetFloat(index), ParseFloat(text)); }},
        {u"Boolean", [&] { EXPECT_EQ(packed.GetBoolean(index), text == u"True"); }},
        {u"Vector2", [&] { ExpectVector(packed.GetVector2(index), ParseFloats(text)); }},
        {u"Range", [&] { ExpectVector(packed.GetVector2(index), ParseFloats(text)); }},
        {u"Vector3", [&] { ExpectVector(packed.GetVector3(index), ParseFloats(text)); }},
        {u"Vector4", [&] { ExpectVector(packed.GetVector4(index), ParseFloats(text)); }},
        {u"Color", [&] { ExpectColor(packed, index, entry, text); }},
        {u"Flags",
         [&]
         {
             EXPECT_EQ(static_cast<std::uint32_t>(packed.GetInteger(index)),
                       std::stoul(ToNarrow(text), nullptr, 16));
         }},
        {u"RecordLink",
         [&]
         {
             const CGameRecord target = packed.GetRecordLink(index);
             EXPECT_EQ(target ? target.GetPath() : "", at.m_Files.FindPath(text));
             EXPECT_EQ(static_cast<bool>(target), text != u"<none>") << ToNarrow(text);
         }},
        {u"Memo", [&] { ExpectText(packed, index, entry, DecodeMultiLine(text)); }},
        {u"Effect", [&] { ExpectText(packed, index, entry, text == u"<none>" ? u"" : text); }},
    };
    const auto check = checks.find(entry.m_sType);
    if (check != checks.end())
        check->second();
    else
        ExpectText(packed, index, entry, text);
}

// Answers how many attributes were looked at, members included.
std::size_t ExpectEntries(const SCase& at, const Entries& entries, const std::string& packedPrefix,
                          const std::u16string& sectionPrefix)
{
    std::size_t seen = 0;
    for (const auto& [name, entry] : entries)
    {
        const std::string packedName = packedPrefix + ToNarrow(name);
        SCOPED_TRACE(packedName);
        const CGameAttribute packed = at.m_Packed.FindAttribute(packedName);
        const std::u16string section = CSampleFiles::GetSection(sectionPrefix, name, entry);
        EXPECT_TRUE(packed) << at.m_Packed.GetPath();
        if (!packed)
            continue;
        ++seen;
        if (entry.m_sType == u"Struct")
        {
            EXPECT_EQ(packed.GetCount(), CSampleFiles::GetRowCount(at.m_Source, section));
            for (std::size_t row = 0; row < packed.GetCount(); ++row)
            {
                const std::string number = std::to_string(row);
                seen += ExpectEntries(at, at.m_Files.GetMembers(entry, at.m_nBuild),
                                      packedName + "." + number + ".", section + u"." + ToWide(number));
            }
            continue;
        }
        const std::vector<std::u16string> values = CSampleFiles::GetValues(at.m_Source, section);
        EXPECT_EQ(packed.GetCount(), values.size());
        for (std::size_t i = 0; i < std::min(values.size(), packed.GetCount()); ++i)
            ExpectValue(at, packed, i, entry, values[i]);
    }
    return seen;
}
} // namespace

void ExpectRecord(const CGameRecord& packed, const CSampleFiles& files, const CSampleFiles::SRecord& source,
                  std::uint32_t build)
{
    SCOPED_TRACE(source.GetPath());
    EXPECT_EQ(packed.GetSchemaName(), ToNarrow(source.m_sSchema));
    const SCase at{packed, files, source, build};
    EXPECT_EQ(ExpectEntries(at, files.GetEntries(source.m_sSchema, build), "", u"Attrib"),
              packed.GetAttributeCount())
        << "attributes of another build";
}
