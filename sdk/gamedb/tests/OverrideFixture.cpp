#include "OverrideFixture.h"

#include "GameDatabaseWriter.h"
#include "MemoryConverter.h"
#include "OverrideCursor.h"
#include "OverrideError.h"
#include "OverrideForm.h"
#include "OverrideNumbers.h"

#include <cstdlib>
#include <string_view>

namespace
{
struct SSetting
{
    const char* name;
    EDatabaseValueType type;
    const char* word;
    const char* data;
    int count;
    EOverrideLimits limits;
    float minimum;
    float maximum;
    const char* values;
};

constexpr EOverrideLimits kNo = EOverrideLimits::None;
constexpr SSetting kSettings[] = {
    {"Speed", DBVALUE_FLOAT, "Float", "", 3, EOverrideLimits::Float, 0.1F, 10, "0.1, 2, 12"},
    {"Health", DBVALUE_INTEGER, "Integer", "", 1, EOverrideLimits::Integer, -5, 100, "50"},
    {"Level", DBVALUE_INTEGER, "Integer", "", -1, kNo, 0, 0, "1, 2"},
    {"Sleep", DBVALUE_INTEGER, "Time", "", 1, kNo, 0, 0, "90000"},
    {"Drift", DBVALUE_INTEGER, "Time", "allownegative", 1, kNo, 0, 0, "-1"},
    {"IsBrave", DBVALUE_BOOLEAN, "Boolean", "", 2, kNo, 0, 0, "True, False"},
    {"Damage", DBVALUE_VECTOR2, "Range", "min=-9;max=9.5;INT", 1, kNo, 0, 0, "(1, 2)"},
    {"Place", DBVALUE_VECTOR3, "Vector", "", 2, kNo, 0, 0, "(1, 2, 3), (4, 5, 6)"},
    {"Tail.0.Turn", DBVALUE_VECTOR4, "Vector", "", 1, kNo, 0, 0, "(0, 0, 0, 1)"},
    {"Skin", DBVALUE_INTEGER, "Color", "", 1, kNo, 0, 0, "(1, 2, 3, 4)"},
    {"Hair", DBVALUE_INTEGER, "Color", "Int_RGBX;int_xrgb", 1, kNo, 0, 0, "(1, 2, 3)"},
    {"Eyes", DBVALUE_VECTOR3, "Color", "Float_RGB", 1, kNo, 0, 0, "(255, 128, 0)"},
    {"Rules", DBVALUE_INTEGER, "Flags", "Flag1=Friendly fire|Hurts;Flag3=none;Flag4=Late;Flag4=X;Flag33=Y", 1,
     kNo, 0, 0, "Late | 0x80000000"},
    {"Title", DBVALUE_TEXT, "Text", "", 1, EOverrideLimits::Text, 0, 8, "\"Orc\""},
    {"Lore", DBVALUE_TEXT, "Memo", "", 1, EOverrideLimits::Text, 0, -1, "\"wide\""},
    {"Model", DBVALUE_TEXT, "File", "", -1, kNo, 0, 0, ""},
    {"Rarity", DBVALUE_TEXT, "Enum", "Common;Very rare  ;;a,b", 1, kNo, 0, 0, "Common"},
    {"Origin", DBVALUE_TEXT, "Enum", "..\\Origin.ENUM", 1, kNo, 0, 0, "North"},
    {"Friend", DBVALUE_RECORDLINK, "RecordLink", "public Thing", 2, kNo, 0, 0, "Units/Elf, <none>"},
    {"Weapon", DBVALUE_RECORDLINK, "RecordLink", "private item", 1, kNo, 0, 0, "Items/Gone"},
    {"Od/d = \"name\" #1", DBVALUE_INTEGER, "Integer", "", 1, kNo, 0, 0, "1"},
};

void Require(bool condition)
{
    if (!condition)
        std::abort();
}

std::uint32_t BitsOf(const SSetting& setting, float limit)
{
    return setting.limits == EOverrideLimits::Float
               ? std::bit_cast<std::uint32_t>(limit)
               : static_cast<std::uint32_t>(static_cast<std::int32_t>(limit));
}

SOverrideAttribute Make(const SSetting& setting)
{
    SOverrideAttribute attribute;
    attribute.name = std::string("Units/Orc/") + setting.name;
    attribute.data = setting.data;
    attribute.typeWord = setting.word;
    attribute.type = setting.type;
    attribute.valueCount = setting.count;
    attribute.limits = setting.limits;
    attribute.minimum = BitsOf(setting, setting.minimum);
    attribute.maximum = BitsOf(setting, setting.maximum);
    COverrideCursor cursor(setting.values);
    SOverrideError error;
    Require(ReadOverrideValues(*MakeOverrideForm(attribute), cursor, attribute.values, error));
    return attribute;
}

// Texts of "Lore" are wide in the database.
void Set(CGameDatabaseWriter& writer, std::uint32_t record, const SOverrideAttribute& setting,
         std::uint32_t elf)
{
    const std::string name = setting.name.substr(sizeof("Units/Orc"));
    const EDatabaseValueType type = name == "Lore" ? DBVALUE_WIDETEXT : setting.type;
    const auto count = static_cast<std::int32_t>(setting.values.size());
    const std::uint32_t attribute = writer.AddAttribute(record, name, type, DBKIND_PLAIN, count);
    for (std::int32_t i = 0; i < count; ++i)
    {
        const SOverrideValue& value = setting.values[static_cast<std::size_t>(i)];
        const float floats[] = {AsFloat(value.words[0]), AsFloat(value.words[1]), AsFloat(value.words[2]),
                                AsFloat(value.words[3])};
        const bool isElf = value.text == "Units/Elf";
        const bool isSet =
            type == DBVALUE_BOOLEAN      ? writer.SetBoolean(attribute, i, value.words[0] != 0)
            : type == DBVALUE_FLOAT      ? writer.SetFloat(attribute, i, floats[0])
            : type == DBVALUE_INTEGER    ? writer.SetInteger(attribute, i, AsInteger(value.words[0]))
            : type == DBVALUE_TEXT       ? writer.SetText(attribute, i, value.text)
            : type == DBVALUE_WIDETEXT   ? writer.SetWideText(attribute, i, u"wide")
            : type == DBVALUE_RECORDLINK ? writer.SetRecordLink(attribute, i, isElf ? elf : writer.kNone)
                                         : writer.SetVector(attribute, i, type, floats);
        Require(isSet);
    }
}
} // namespace

std::vector<SOverrideAttribute> MakeOverrideSettings()
{
    std::vector<SOverrideAttribute> settings;
    for (const SSetting& setting : kSettings)
        settings.push_back(Make(setting));
    return settings;
}

std::vector<std::byte> MakeOverrideDatabase(const std::vector<SOverrideAttribute>& settings, int orcs)
{
    CGameDatabaseWriter writer;
    const std::uint32_t units = writer.AddCategory("Units", "Unit");
    const std::uint32_t items = writer.AddCategory("Items", "Item");
    const std::uint32_t food = writer.AddCategory("Items/Food", "Food");
    const std::uint32_t orc = writer.AddRecord(units, "Orc");
    const std::uint32_t elf = writer.AddRecord(units, "Elf");
    const std::uint32_t axe = writer.AddRecord(items, "Axe");
    static_cast<void>(writer.AddRecord(food, "Pie"));
    static_cast<void>(writer.AddAttribute(orc, "Tail", DBVALUE_STRUCT, DBKIND_PLAIN, 1));
    for (const SOverrideAttribute& setting : settings)
        Set(writer, orc, setting, elf);
    Require(writer.SetText(writer.AddAttribute(elf, "Origin", DBVALUE_TEXT, DBKIND_PLAIN, 1), 0, "South"));
    Require(writer.SetRecordLink(writer.AddAttribute(elf, "Friend", DBVALUE_RECORDLINK, DBKIND_PLAIN, 1), 0,
                                 axe));
    for (int i = 1; i < orcs; ++i)
    {
        const std::uint32_t other = writer.AddRecord(units, "Orc" + std::to_string(i));
        Require(
            writer.SetInteger(writer.AddAttribute(other, "Health", DBVALUE_INTEGER, DBKIND_PLAIN, 1), 0, i));
    }
    CMemoryConverter out;
    Require(writer.Save(out));
    return out.GetBytes();
}
