// Faults planted in a copy of the sample: each is found once, nothing else is.
#include "SampleCopy.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace fs = std::filesystem;

namespace
{
constexpr const char* kCritical = "error";
constexpr const char* kWarning = "warning";

struct SFinding
{
    const char* m_szSeverity; // As the text form names it.
    const char* m_szPlace;    // Record, attribute, value and title.
    const char* m_szText;
};

// One value that its type must not accept. Each lies in a record from which no other one inherits it.
struct SFault
{
    const char* m_szRecord;
    const char16_t* m_szSection;
    const char16_t* m_szKey;
    const char16_t* m_szValue;
    std::vector<SFinding> m_Findings;
};

const SFault kFaults[] = {
    {"Actors/Enemies/Hollow/Frost Runner",
     u"Attrib.Health",
     u"Value.0000",
     u"-5",
     {{kCritical, "Actors/Enemies/Hollow/Fast/Frost Runner, Health[0]: Invalid Integer",
       "The value '-5' is not within the valid range of (1, 50000)."}}},
    {"Items/Weapons/Pitchfork",
     u"Attrib.Weight",
     u"Value.0000",
     u"61.5",
     {{kCritical, "Items/Weapons/Melee/Heavy/Pitchfork, Weight[0]: Invalid Float",
       "The value '61.500000' is not within the valid range of (0.000000, 60.000000)."}}},
    {"World/Difficulty/Story",
     u"Attrib.EnemyDamageScale",
     u"Value.0003",
     u"0.05",
     {{kCritical, "World/Difficulty/Story, EnemyDamageScale[3]: Invalid Float",
       "The value '0.050000' is not within the valid range of (0.100000, 5.000000)."}}},
    {"Actors/Enemies/Raiders/Marksman",
     u"Attrib.PackSize.10",
     u"Value.0000",
     u"0.000000, 60.000000",
     {{kCritical, "Actors/Enemies/Raiders/Marksman, PackSize[0]: Invalid Range",
       "The range (0.000000, 60.000000) is not within the allowed range of (1.000000, 40.000000)."}}},
    {"Waves/Endless/Siege",
     u"Attrib.GroupGap",
     u"Value.0000",
     u"20.000000, 6.000000",
     {{kCritical, "Waves/Endless/Siege, GroupGap[0]: Invalid Range",
       "The min value exceeds the max value. (20.000000, 6.000000)"}}},
    {"Items/Weapons/Machete",
     u"Attrib.DamageKind",
     u"Value.0000",
     u"Acid",
     {{kCritical, "Items/Weapons/Melee/Light/Machete, DamageKind[0]: Invalid Enum",
       "The value 'Acid' is not a valid enum"}}},
    {"Actors/Colonists/Zoë Marchetti",
     u"Attrib.Trade",
     u"Value.0000",
     u"Baker",
     {{kCritical, "Actors/Colonists/Zoë Marchetti, Trade[0]: Invalid Enum",
       "The value 'Baker' is not a valid enum"}}},
    {"Items/Weapons/Jäger Carbine",
     u"Attrib.AmmoItem.10",
     u"Value.0001",
     u"Items/Ammunition/Silver Bullet",
     {{kCritical, "Items/Weapons/Ranged/Long Guns/Jäger Carbine, AmmoItem[1]: Invalid Record Link",
       "Invalid record 'Items/Ammunition/Silver Bullet'"}}},
    {"Perks/Ghost",
     u"Attrib.Requires",
     u"Value.0000",
     u"Items/Weapons/Machete",
     {{kCritical, "Perks/Scavenging/Ghost, Requires[0]: Invalid Record Link",
       "Invalid record 'Items/Weapons/Machete'.  The record is of an invalid schema type."}}},
    {"World/Objectives/Errands/Winter Coat",
     u"Attrib.GivenBy",
     u"Value.0000",
     u"Actors/Enemies/Beasts/Wolf",
     {{kCritical, "World/Objectives/Errands/Winter Coat, GivenBy[0]: Invalid Record Link",
       "Invalid record 'Actors/Enemies/Beasts/Wolf'.  The record is of an invalid schema type."}}},
    {"Items/Consumables/Food/Flatbread",
     u"Attrib.Icon",
     u"Value.0000",
     u"Icons/Bread.tga",
     {{kCritical, "Items/Consumables/Food/Flatbread, Icon[0]: Invalid Filename",
       "The file 'Icons/Bread.tga' is not a valid file."}}},
    {"Items/Materials/Cloth",
     u"Attrib.Icon",
     u"Value.0000",
     u"Icons",
     {{kCritical, "Items/Materials/Cloth, Icon[0]: Invalid Filename",
       "The file 'Icons' is not a valid file."}}},
    {"Items/Materials/Timber",
     u"Attrib.Icon",
     u"Value.0000",
     u"C:\\art\\timber.tga",
     {{kWarning, "Items/Materials/Timber, Icon[0]: Path Not Relative",
       "The path 'C:\\art\\timber.tga' is not a relative path."},
      {kCritical, "Items/Materials/Timber, Icon[0]: Invalid Filename",
       "The file 'C:\\art\\timber.tga' is not a valid file."}}},
    {"Actors/Enemies/Beasts/Carrion Crow",
     u"Attrib.Voices",
     u"Value.0000",
     u"Sounds/song.wav",
     {{kCritical, "Actors/Enemies/Beasts/Carrion Crow, Voices[0]: Invalid Filename",
       "The file 'Sounds/song.wav' is not a valid file."}}},
    {"Actors/Enemies/Hollow/Bloater",
     u"Attrib.DeathEffect",
     u"Value.0000",
     u"confetti",
     {{kCritical, "Actors/Enemies/Hollow/Heavy/Bloater, DeathEffect[0]: Invalid Effect",
       "Invalid effect 'confetti'"}}},
    {"Structures/Walls/Window Shutter",
     u"Attrib.NameId",
     u"Value.0000",
     u"STRUCTURE_SHUTTER",
     {{kWarning, "Structures/Walls/Window Shutter, NameId[0]: Invalid String ID",
       "Invalid StringID 'STRUCTURE_SHUTTER'"}}},
    {"World/Objectives/Errands/Quiet Rescue",
     u"Attrib.RadioLines",
     u"Value.0001",
     u"RADIO_ROOF",
     {{kWarning, "World/Objectives/Errands/Quiet Rescue, RadioLines[1]: Invalid String ID",
       "Invalid StringID 'RADIO_ROOF'"}}},
    // An older entry, out of force at the build under test.
    {"Items/Weapons/Old Revolver", u"Attrib.TradeValue", u"Value.0000", u"-4", {}},
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
    std::vector<std::string> expected;
    for (const SFault& fault : kFaults)
    {
        const std::string file = std::string(fault.m_szRecord) + ".record";
        SetValue(file, fault.m_szSection, fault.m_szKey, fault.m_szValue);
        for (const SFinding& finding : fault.m_Findings)
            expected.push_back((GetDatabase() / file).string() + ": " + finding.m_szSeverity + ": " +
                               finding.m_szPlace + ": " + finding.m_szText);
    }
    EXPECT_EQ(Validate("--strict"), 2);
    const std::string text = GetReport();
    for (const std::string& line : expected)
        EXPECT_EQ(Count(text, line + "\n"), 1U) << line;
    EXPECT_EQ(Count(text, "\n"), expected.size()) << text;

    EXPECT_EQ(Validate("--format json"), 2);
    const std::string json = GetReport();
    EXPECT_EQ(Count(json, "\"severity\""), expected.size());
    for (const SFault& fault : kFaults)
    {
        for (const SFinding& finding : fault.m_Findings)
            EXPECT_EQ(Count(json, "\"description\": " + Quote(finding.m_szText)), 1U) << finding.m_szText;
    }
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
