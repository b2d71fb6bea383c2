// Feeds bytes to both override files. The first byte says which: an even one makes the rest a text against
// sound limits, an odd one makes it the content of a limits file with its checksum put right. Whatever is
// accepted is written and read again, with the same outcome.
#include "GameAttribute.h"
#include "GameDatabase.h"
#include "GameOverrides.h"
#include "OverrideCursor.h"
#include "OverrideFixture.h"
#include "OverrideForm.h"
#include "OverrideLimitsFile.h"
#include "OverrideTextFile.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <optional>

namespace
{
void Require(bool condition)
{
    if (!condition)
        std::abort();
}

struct SGame
{
    std::vector<SOverrideAttribute> settings = MakeOverrideSettings();
    std::vector<std::byte> bytes = MakeOverrideDatabase(settings);
    std::string limits = WriteOverrideLimits(settings);
    std::optional<CGameDatabase> database;

    SGame()
    {
        std::string error;
        database = CGameDatabase::OpenMemory(bytes, error);
        Require(database.has_value());
    }
};

std::span<const std::byte> BytesOf(const std::string& text)
{
    return std::as_bytes(std::span(text));
}

// The values of the overridden attributes, as lines of a text.
std::string WriteOverridden(const SGame& game)
{
    std::string text;
    const CGameRecord record = game.database->FindRecord("Units/Orc");
    for (const SOverrideAttribute& setting : game.settings)
    {
        const CGameAttribute attribute = record.FindAttribute(setting.name.substr(sizeof("Units/Orc")));
        if (!attribute.IsOverridden() || attribute.GetType() == DBVALUE_WIDETEXT)
            continue;
        std::vector<SOverrideValue> values(attribute.GetCount());
        for (std::size_t i = 0; i < values.size(); ++i)
        {
            const auto vector = attribute.GetVector3(i);
            values[i].words[0] =
                static_cast<std::uint32_t>(attribute.GetInteger(i)) | attribute.GetBoolean(i);
            if (attribute.GetType() == DBVALUE_FLOAT)
                values[i].words[0] = std::bit_cast<std::uint32_t>(attribute.GetFloat(i));
            for (std::size_t j = 0; j < vector.size() && attribute.GetType() == DBVALUE_VECTOR3; ++j)
                values[i].words[j] = std::bit_cast<std::uint32_t>(vector[j]);
            values[i].text = attribute.GetText(i);
            if (attribute.GetType() == DBVALUE_RECORDLINK && attribute.GetRecordLink(i))
                values[i].text = attribute.GetRecordLink(i).GetPath();
        }
        if (attribute.GetType() == DBVALUE_VECTOR2 || attribute.GetType() == DBVALUE_VECTOR4)
            continue;
        AppendText(text, setting.name);
        text += " = " + WriteOverrideValues(*MakeOverrideForm(setting), values) + "\n";
    }
    return text;
}

void ReadText(SGame& game, const std::string& text)
{
    const CGameOverrides first =
        CGameOverrides::ApplyMemory(*game.database, BytesOf(text), BytesOf(game.limits));
    Require(first.GetCount() <= game.settings.size());
    const std::string written = WriteOverridden(game);
    const CGameOverrides second =
        CGameOverrides::ApplyMemory(*game.database, BytesOf(written), BytesOf(game.limits));
    Require(second.GetReports().empty());
    Require(WriteOverridden(game) == written);
}

void ReadValues(SGame& game, const std::string& content)
{
    std::string text;
    for (std::size_t begin = 0; begin < content.size();)
    {
        const std::size_t end = std::min(content.find('\n', begin), content.size());
        const auto choice = static_cast<unsigned char>(content[begin]);
        AppendText(text, game.settings[choice % game.settings.size()].name);
        text += " = " + content.substr(begin + 1, end - begin - 1) + '\n';
        begin = end + 1;
    }
    ReadText(game, text);
}

void ReadLimits(SGame& game, std::string file)
{
    SealOverrideLimits(std::as_writable_bytes(std::span(file)));
    std::vector<SOverrideAttribute> attributes;
    if (!ReadOverrideLimits(BytesOf(file), attributes).empty())
        return;
    Require(WriteOverrideLimits(attributes) == file);
    const std::string text = WriteOverrideText(attributes, "Limits.dat");
    const CGameOverrides overrides =
        CGameOverrides::ApplyMemory(*game.database, BytesOf(text), BytesOf(file));
    Require(overrides.GetCount() == 0);
    for (const SOverrideReport& report : overrides.GetReports())
        Require(report.cause != EOverrideCause::BrokenLine && report.cause != EOverrideCause::BadValue);
}

// Each change is a place in two bytes and what stands there then.
std::string Change(std::string file, const std::string& changes)
{
    for (std::size_t i = 0; i + 2 < changes.size(); i += 3)
    {
        const std::size_t place = static_cast<unsigned char>(changes[i]) * std::size_t{256} +
                                  static_cast<unsigned char>(changes[i + 1]);
        file[16 + place % (file.size() - 16)] = changes[i + 2];
    }
    return file;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static SGame game;
    if (size == 0)
        return 0;
    const std::string content(reinterpret_cast<const char*>(data) + 1, size - 1);
    switch (data[0] % 4)
    {
    case 0:
        ReadText(game, content);
        break;
    case 1:
        ReadValues(game, content);
        break;
    case 2:
        ReadLimits(game, game.limits.substr(0, 16) + content);
        break;
    default:
        ReadLimits(game, Change(game.limits, content));
        break;
    }
    return 0;
}
