// Faults planted in a copy of the sample: each is found once, nothing else is.
#include "SampleCopy.h"
#include "Unicode.h"

#include <gtest/gtest.h>

#include <map>

namespace fs = std::filesystem;

namespace
{
constexpr const char* kCritical = "error";
constexpr const char* kWarning = "warning";

// One value that its type must not accept, and the finding that tells it. Each lies in a record from which no
// other one inherits it. A value that gives two findings stands here twice.
struct SFault
{
    const char* m_szRecord;
    const char16_t* m_szSection; // Behind "Attrib.".
    int m_nValue;
    const char16_t* m_szValue;
    const char* m_szSeverity; // As the text form names it.
    const char*
        m_szPlace; // The record's display path and the attribute; null for a value that is not looked at.
    const char* m_szMessage; // Title and text.
};

const SFault kFaults[] = {
    {"Actors/Enemies/Hollow/Frost Runner", u"Health", 0, u"-5", kCritical,
     "Actors/Enemies/Hollow/Fast/Frost Runner, Health",
     "Invalid Integer: The value '-5' is not within the valid range of (1, 50000)."},
    {"Items/Weapons/Pitchfork", u"Weight", 0, u"61.5", kCritical,
     "Items/Weapons/Melee/Heavy/Pitchfork, Weight",
     "Invalid Float: The value '61.500000' is not within the valid range of (0.000000, 60.000000)."},
    {"World/Difficulty/Story", u"EnemyDamageScale", 3, u"0.05", kCritical,
     "World/Difficulty/Story, EnemyDamageScale",
     "Invalid Float: The value '0.050000' is not within the valid range of (0.100000, 5.000000)."},
    {"Actors/Enemies/Raiders/Marksman", u"PackSize.10", 0, u"0.000000, 60.000000", kCritical,
     "Actors/Enemies/Raiders/Marksman, PackSize",
     "Invalid Range: The range (0.000000, 60.000000) is not within the allowed range of (1.000000, "
     "40.000000)."},
    {"Waves/Endless/Siege", u"GroupGap", 0, u"20.000000, 6.000000", kCritical,
     "Waves/Endless/Siege, GroupGap",
     "Invalid Range: The min value exceeds the max value. (20.000000, 6.000000)"},
    {"Items/Weapons/Machete", u"DamageKind", 0, u"Acid", kCritical,
     "Items/Weapons/Melee/Light/Machete, DamageKind", "Invalid Enum: The value 'Acid' is not a valid enum"},
    {"Actors/Colonists/Zoë Marchetti", u"Trade", 0, u"Baker", kCritical,
     "Actors/Colonists/Zoë Marchetti, Trade", "Invalid Enum: The value 'Baker' is not a valid enum"},
    {"Items/Weapons/Jäger Carbine", u"AmmoItem.10", 1, u"Items/Ammunition/Silver Bullet", kCritical,
     "Items/Weapons/Ranged/Long Guns/Jäger Carbine, AmmoItem",
     "Invalid Record Link: Invalid record 'Items/Ammunition/Silver Bullet'"},
    {"Perks/Ghost", u"Requires", 0, u"Items/Weapons/Machete", kCritical, "Perks/Scavenging/Ghost, Requires",
     "Invalid Record Link: Invalid record 'Items/Weapons/Machete'.  The record is of an invalid schema "
     "type."},
    {"World/Objectives/Errands/Winter Coat", u"GivenBy", 0, u"Actors/Enemies/Beasts/Wolf", kCritical,
     "World/Objectives/Errands/Winter Coat, GivenBy",
     "Invalid Record Link: Invalid record 'Actors/Enemies/Beasts/Wolf'.  The record is of an invalid schema "
     "type."},
    {"Items/Consumables/Food/Flatbread", u"Icon", 0, u"Icons/Bread.tga", kCritical,
     "Items/Consumables/Food/Flatbread, Icon",
     "Invalid Filename: The file 'Icons/Bread.tga' is not a valid file."},
    {"Items/Materials/Cloth", u"Icon", 0, u"Icons", kCritical, "Items/Materials/Cloth, Icon",
     "Invalid Filename: The file 'Icons' is not a valid file."},
    {"Items/Materials/Timber", u"Icon", 0, u"C:\\art\\timber.tga", kWarning, "Items/Materials/Timber, Icon",
     "Path Not Relative: The path 'C:\\art\\timber.tga' is not a relative path."},
    {"Items/Materials/Timber", u"Icon", 0, u"C:\\art\\timber.tga", kCritical, "Items/Materials/Timber, Icon",
     "Invalid Filename: The file 'C:\\art\\timber.tga' is not a valid file."},
    {"Actors/Enemies/Beasts/Carrion Crow", u"Voices", 0, u"Sounds/song.wav", kCritical,
     "Actors/Enemies/Beasts/Carrion Crow, Voices",
     "Invalid Filename: The file 'Sounds/song.wav' is not a valid file."},
    {"Actors/Enemies/Hollow/Bloater", u"DeathEffect", 0, u"confetti", kCritical,
     "Actors/Enemies/Hollow/Heavy/Bloater, DeathEffect", "Invalid Effect: Invalid effect 'confetti'"},
    {"Structures/Walls/Window Shutter", u"NameId", 0, u"STRUCTURE_SHUTTER", kWarning,
     "Structures/Walls/Window Shutter, NameId", "Invalid String ID: Invalid StringID 'STRUCTURE_SHUTTER'"},
    {"World/Objectives/Errands/Quiet Rescue", u"RadioLines", 1, u"RADIO_ROOF", kWarning,
     "World/Objectives/Errands/Quiet Rescue, RadioLines", "Invalid String ID: Invalid StringID 'RADIO_ROOF'"},
    {"Items/Ammunition/Nail Strip", u"Recipes.0.0.Noise", 0, u"Deafening", kCritical,
     "Items/Ammunition/Nail Strip, Noise", "Invalid Enum: The value 'Deafening' is not a valid enum"},
    {"Items/Consumables/Torch", u"Recipes.0.0.Costs.0.1.Amount", 0, u"0", kCritical,
     "Items/Consumables/Torch, Amount",
     "Invalid Integer: The value '0' is not within the valid range of (1, 900)."},
    {"Items/Weapons/Sawn-Off", u"Recipes.0.0.Costs.0.0.Material", 0, u"Items/Weapons/Pitchfork", kCritical,
     "Items/Weapons/Ranged/Sidearms/Sawn-Off, Material",
     "Invalid Record Link: Invalid record 'Items/Weapons/Pitchfork'.  The record is of an invalid schema "
     "type."},
    {"Actors/Enemies/Beasts/Bear", u"HitZones.0.1.Radius", 0, u"9", kCritical,
     "Actors/Enemies/Beasts/Bear, Radius",
     "Invalid Float: The value '9.000000' is not within the valid range of (0.050000, 3.000000)."},
    {"Actors/Enemies/Bosses/Captain Vance", u"Drops.0.1.Count", 0, u"0.000000, 4.000000", kCritical,
     "Actors/Enemies/Bosses/Captain Vance, Count",
     "Invalid Range: The range (0.000000, 4.000000) is not within the allowed range of (1.000000, "
     "200.000000)."},
    {"Actors/Enemies/Raiders/Sapper", u"Drops.0.1.Condition.10", 0, u"Shiny", kCritical,
     "Actors/Enemies/Raiders/Sapper, Condition", "Invalid Enum: The value 'Shiny' is not a valid enum"},
    {"Waves/Campaign/Night 12", u"EnemyPool.10.3.Enemy", 0, u"<gone>", kCritical,
     "Waves/Campaign/Act 3/Night 12, Enemy", "Invalid Record Link: Invalid record '<gone>'"},
    // An older entry, out of force at the build under test.
    {"Items/Weapons/Old Revolver", u"TradeValue", 0, u"-4", nullptr, nullptr, nullptr},
};

// One edit of a schema or of a file that it names, and what the load says about it.
struct SLoadFault
{
    const char* m_szFile;
    const char16_t* m_szSection; // Null: the file is removed.
    const char16_t* m_szKey;
    const char16_t* m_szValue;
    std::vector<const char*> m_Messages; // "title: text" up to the first line end.
};

const SLoadFault kLoadFaults[] = {
    {"Schemas/Shared/Rarity.enum",
     nullptr,
     nullptr,
     nullptr,
     {"Invalid Enum Path: Cannot locate the following enum file specified in schema 'Item', attribute "
      "'Rarity':",
      "Invalid Schema Default Value: The attribute 'Rarity' of schema 'Item' contains an invalid default "
      "enum of "
      "'Common'."}},
    {"Schemas/Shared/Condition.enum",
     nullptr,
     nullptr,
     nullptr,
     {"Invalid Enum Path: Cannot locate the following enum file declared as a struct attribute 'Condition':",
      "Invalid Schema Default Value: The attribute 'Condition' of a struct contains an invalid default enum "
      "of "
      "'Worn'."}},
    {"Schemas/Shared/SpawnRow.struct",
     nullptr,
     nullptr,
     nullptr,
     {"Invalid Struct Path: Cannot locate the following struct file specified in schema 'Wave', attribute "
      "'EnemyPool':"}},
    {"Schemas/Item.schema",
     u"Attrib.Recipes.0",
     u"Data",
     u"Shared/Recipe.txt",
     {"Invalid Data Field: The data field of the following 'Struct' attribute is invalid."}},
    {"Schemas/Difficulty.schema",
     u"Attrib.Rules.0",
     u"Data",
     u"Flag1=Hunger|Eat.;Flag2=Cold|Freeze.;Flag2=Rot|Spoil.",
     {"Duplicate Entries: Duplicate 'Flag2' descriptions have been detected."}},
    {"Schemas/Enemy.schema",
     u"Attrib.Behaviour.0",
     u"Data",
     u"Flag1=Howls|Calls.;Flag33=Flies|Soars.",
     {"Invalid Index: Invalid 'Flag33' index detected.  The valid index range is [1,32]."}},
    {"Schemas/Wave.schema",
     u"Attrib.GroupGap.0",
     u"Default",
     u"3.000000, 999.000000",
     {"Invalid Schema Default Value: The attribute 'GroupGap' of schema 'Wave' contains an invalid default "
      "range of "
      "'3.000000, 999.000000'."}},
    {"Schemas/Survivor.schema",
     u"Attrib.CarrySlots.0",
     u"Default",
     u"99",
     {"Invalid Schema Default Value: The attribute 'CarrySlots' of schema 'Survivor' contains an invalid "
      "default "
      "integer of '99'."}},
    {"Schemas/Perk.schema",
     u"Attrib.Branch.0",
     u"Default",
     u"Idling",
     {"Invalid Schema Default Value: The attribute 'Branch' of schema 'Perk' contains an invalid default "
      "enum of "
      "'Idling'."}},
    {"Schemas/Weapon.schema",
     u"Attrib.AttackSound.0",
     u"Default",
     u"Sounds/none.wav",
     {"Invalid Schema Default Value: The attribute 'AttackSound' of schema 'Weapon' contains an invalid "
      "default "
      "filename of 'Sounds/none.wav'."}},
    {"Schemas/Weather.schema",
     u"Attrib.SkyEffect.0",
     u"Default",
     u"frogs",
     {"Invalid Schema Default Value: The attribute 'SkyEffect' of schema 'Weather' contains an invalid "
      "default effect "
      "of 'frogs'."}},
};

std::size_t Count(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size()))
        ++count;
    return count;
}

// As the report in JSON writes a text.
std::string Quote(const std::string& text)
{
    std::string quoted = "\"";
    for (const char unit : text)
        quoted += unit == '\\' ? "\\\\" : std::string(1, unit);
    return quoted + "\"";
}

class CFaults : public ::testing::Test, protected CSampleCopy
{
protected:
    int Validate(const std::string& options) const
    {
        return RunShell("'" CORVANECTL_PROGRAM "' validate --build 10 " + options + " '" + GetRootFile() +
                        "'");
    }
    std::string GetReport() const { return m_Scratch.ReadBytes("output"); }
};
} // namespace

TEST_F(CFaults, EachPlantedValueIsFoundOnce)
{
    ASSERT_EQ(Validate("--strict"), 0) << GetReport();
    std::map<std::string, std::string> expected; // Line of the text form -> part of the JSON form.
    for (const SFault& fault : kFaults)
    {
        const std::string file = std::string(fault.m_szRecord) + ".record";
        const std::string index = std::to_string(fault.m_nValue);
        SetValue(file, u"Attrib." + std::u16string(fault.m_szSection), u"Value.000" + ToWide(index),
                 fault.m_szValue);
        if (!fault.m_szPlace)
            continue;
        const std::string message = fault.m_szMessage;
        expected[(GetDatabase() / file).string() + ": " + fault.m_szSeverity + ": " + fault.m_szPlace + "[" +
                 index + "]: " + message] = message.substr(message.find(": ") + 2);
    }
    EXPECT_EQ(Validate("--strict"), 2);
    const std::string text = GetReport();
    EXPECT_EQ(Validate("--format json"), 2);
    const std::string json = GetReport();
    for (const auto& [line, description] : expected)
    {
        EXPECT_EQ(Count(text, line + "\n"), 1U) << line;
        EXPECT_EQ(Count(json, "\"description\": " + Quote(description)), 1U) << description;
    }
    EXPECT_EQ(Count(text, "\n"), expected.size()) << text;
    EXPECT_EQ(Count(json, "\"severity\""), expected.size());
}

TEST_F(CFaults, EachPlantedSchemaFaultIsToldOnce)
{
    std::size_t expected = 0;
    for (const SLoadFault& fault : kLoadFaults)
    {
        expected += fault.m_Messages.size();
        if (fault.m_szSection)
            SetValue(fault.m_szFile, fault.m_szSection, fault.m_szKey, fault.m_szValue);
        else
            ASSERT_TRUE(fs::remove(GetDatabase() / fault.m_szFile));
    }
    // What the schemas lost makes values invalid, too; that is not looked at here.
    EXPECT_NE(Validate("--format json"), 3);
    const std::string json = GetReport();
    for (const SLoadFault& fault : kLoadFaults)
    {
        for (const std::string message : fault.m_Messages)
        {
            const std::size_t colon = message.find(": ");
            const std::string part =
                "\"title\": \"" + message.substr(0, colon) + "\", \"text\": \"" + message.substr(colon + 2);
            EXPECT_EQ(Count(json, part), 1U) << message;
        }
    }
    EXPECT_EQ(Count(json, "\"title\""), expected) << json.substr(json.find("\"messages\""));
}
