#include "OverrideLimitsFile.h"

#include "ContentHash.h"
#include "OverrideNumbers.h"
#include "PackedLayout.h"
#include "Utf8.h"

#include <cmath>
#include <cstring>

namespace
{
// The checksum covers what stands behind it.
constexpr std::string_view kIdentifier = "CVOL";
constexpr std::uint32_t kVersion = 1;
constexpr std::size_t kChecksumOffset = 8;
constexpr std::size_t kHeaderBytes = 16;

template <class T> void Append(std::string& out, T value)
{
    char bytes[sizeof(T)];
    std::memcpy(bytes, &value, sizeof(T));
    out.append(bytes, sizeof(T));
}

void AppendString(std::string& out, std::string_view text)
{
    Append(out, static_cast<std::uint32_t>(text.size()));
    out += text;
}

bool IsText(EDatabaseValueType type)
{
    return type == DBVALUE_TEXT || type == DBVALUE_RECORDLINK;
}

bool IsFloat(EDatabaseValueType type)
{
    return type == DBVALUE_FLOAT || packed::Dimension(static_cast<std::uint32_t>(type)) != 0;
}

std::size_t WordsOf(EDatabaseValueType type)
{
    const std::size_t dimension = packed::Dimension(static_cast<std::uint32_t>(type));
    return dimension == 0 ? 1 : dimension;
}

void AppendAttribute(std::string& out, const SOverrideAttribute& attribute)
{
    AppendString(out, attribute.name);
    AppendString(out, attribute.typeWord);
    AppendString(out, attribute.data);
    Append(out, static_cast<std::uint32_t>(attribute.type));
    Append(out, attribute.valueCount);
    Append(out, static_cast<std::uint32_t>(attribute.limits));
    Append(out, attribute.minimum);
    Append(out, attribute.maximum);
    Append(out, static_cast<std::uint32_t>(attribute.values.size()));
    for (const SOverrideValue& value : attribute.values)
    {
        if (IsText(attribute.type))
            AppendString(out, value.text);
        for (std::size_t i = 0; i < WordsOf(attribute.type) && !IsText(attribute.type); ++i)
            Append(out, value.words[i]);
    }
}

// Takes numbers and texts off the bytes; false at the first that does not fit.
class CLimitsReader
{
public:
    explicit CLimitsReader(std::span<const std::byte> bytes)
        : m_sRest(reinterpret_cast<const char*>(bytes.data()), bytes.size())
    {
    }

    bool IsAtEnd() const { return m_sRest.empty(); }
    template <class T> [[nodiscard]] bool Take(T& value)
    {
        if (m_sRest.size() < sizeof(T))
            return false;
        std::memcpy(&value, m_sRest.data(), sizeof(T));
        m_sRest.remove_prefix(sizeof(T));
        return true;
    }
    [[nodiscard]] bool TakeString(std::string& text)
    {
        std::uint32_t size = 0;
        if (!Take(size) || size > m_sRest.size())
            return false;
        text = m_sRest.substr(0, size);
        m_sRest.remove_prefix(size);
        return text.find('\0') == std::string::npos && IsUtf8(text);
    }
    [[nodiscard]] bool TakeAttribute(SOverrideAttribute& attribute)
    {
        std::uint32_t type = 0;
        std::uint32_t limits = 0;
        std::uint32_t count = 0;
        const bool isWhole = TakeString(attribute.name) && TakeString(attribute.typeWord) &&
                             TakeString(attribute.data) && Take(type) && Take(attribute.valueCount) &&
                             Take(limits) && Take(attribute.minimum) && Take(attribute.maximum) &&
                             Take(count);
        if (!isWhole || type < DBVALUE_BOOLEAN || type > DBVALUE_RECORDLINK || type == DBVALUE_WIDETEXT ||
            limits > static_cast<std::uint32_t>(EOverrideLimits::Text) || attribute.valueCount < -1)
            return false;
        attribute.type = static_cast<EDatabaseValueType>(type);
        attribute.limits = static_cast<EOverrideLimits>(limits);
        return AreLimitsSound(attribute) && TakeValues(attribute, count);
    }

private:
    static bool AreLimitsSound(const SOverrideAttribute& attribute)
    {
        return attribute.limits != EOverrideLimits::Float ||
               (std::isfinite(AsFloat(attribute.minimum)) && std::isfinite(AsFloat(attribute.maximum)));
    }
    [[nodiscard]] bool TakeValues(SOverrideAttribute& attribute, std::uint32_t count)
    {
        // A value has four bytes at least, so that a false count asks for no more memory than the file has.
        if (count > m_sRest.size() / sizeof(std::uint32_t) || count > kMaxOverrideValues)
            return false;
        attribute.values.resize(count);
        for (SOverrideValue& value : attribute.values)
        {
            if (!TakeValue(attribute.type, value))
                return false;
        }
        return true;
    }
    [[nodiscard]] bool TakeValue(EDatabaseValueType type, SOverrideValue& value)
    {
        if (IsText(type))
            return TakeString(value.text);
        for (std::size_t i = 0; i < WordsOf(type); ++i)
        {
            if (!Take(value.words[i]) || (IsFloat(type) && !std::isfinite(AsFloat(value.words[i]))))
                return false;
        }
        return type != DBVALUE_BOOLEAN || value.words[0] <= 1;
    }

    std::string_view m_sRest;
};
} // namespace

std::string WriteOverrideLimits(std::span<const SOverrideAttribute> attributes)
{
    std::string out(kIdentifier);
    Append(out, kVersion);
    Append(out, std::uint64_t{0});
    Append(out, static_cast<std::uint32_t>(attributes.size()));
    for (const SOverrideAttribute& attribute : attributes)
        AppendAttribute(out, attribute);
    SealOverrideLimits(std::as_writable_bytes(std::span(out)));
    return out;
}

std::string ReadOverrideLimits(std::span<const std::byte> bytes, std::vector<SOverrideAttribute>& attributes)
{
    attributes.clear();
    if (bytes.size() < kHeaderBytes || std::memcmp(bytes.data(), kIdentifier.data(), kIdentifier.size()) != 0)
        return "it is not a limits file";
    CLimitsReader header(bytes.subspan(kIdentifier.size()));
    CLimitsReader reader(bytes.subspan(kHeaderBytes));
    std::uint32_t version = 0;
    std::uint64_t checksum = 0;
    std::uint32_t count = 0;
    if (!header.Take(version) || version != kVersion)
        return "it has version " + std::to_string(version) + " of the format, not " +
               std::to_string(kVersion);
    if (!header.Take(checksum) || checksum != ContentHash(bytes.subspan(kHeaderBytes)) || !reader.Take(count))
        return "it is damaged";
    for (std::uint32_t i = 0; i < count; ++i)
    {
        if (!reader.TakeAttribute(attributes.emplace_back()))
            return "it is damaged";
    }
    return reader.IsAtEnd() ? "" : "it is damaged";
}

void SealOverrideLimits(std::span<std::byte> bytes)
{
    const std::uint64_t checksum = ContentHash(bytes.subspan(kHeaderBytes));
    std::memcpy(bytes.data() + kChecksumOffset, &checksum, sizeof(checksum));
}
