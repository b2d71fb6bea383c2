#include "DatabaseForms.h"

#include <algorithm>

namespace
{
using enum EForm;

constexpr SAttributeForm kThing[] = {
    {u"DisplayName", Text, 0, 60, 1, 0, false},
    {u"Description", Memo, 0, 400},
    {u"Tags", Text, 0, 60, -1},
    {u"Hidden", Boolean},
    {u"SortWeight", Integer, 0, 1000},
};

constexpr SAttributeForm kCreature[] = {
    {u"Health", Integer, 1, 5000},
    {u"WalkSpeed", Float, 0, 20},
    {u"RunSpeed", Float, 0, 40},
    {u"SightRange", Float, 0, 80},
    {u"AttackDamage", Integer, 0, 2000},
    {u"AttackInterval", Time, 0, 6000},
    {u"CanSwim", Boolean},
    {u"Nocturnal", Boolean},
    {u"VoicePitch", Float, 0, 2},
    {u"Voice", Text, 0, 60},
    {u"Behaviour", Memo, 0, 400},
    {u"RespawnDelay", Time, 0, 900000},
    {u"PackSize", Integer, 1, 40, 2},
    {u"Faction", Text, 0, 60},
    {u"Level", Integer, 1, 60},
};

constexpr SAttributeForm kItem[] = {
    {u"Weight", Float, 0, 90},         {u"Price", Integer, 0, 25000}, {u"StackSize", Integer, 1, 999},
    {u"Durability", Integer, 0, 1000}, {u"Fragile", Boolean},         {u"QuestItem", Boolean},
    {u"UseTime", Time, 0, 12000},      {u"Cooldown", Time, 0, 60000}, {u"UseLine", Text, 0, 60},
    {u"Lore", Memo, 0, 400},           {u"Icon", Text, 0, 60},        {u"Rarity", Integer, 0, 5},
    {u"Resistances", Float, 0, 1, 3},  {u"DropHeight", Float, 0, 3},  {u"Slot", Text, 0, 60},
};

// The upkeep counts in another way from build 5 on, so that it has two entries.
constexpr SAttributeForm kBuilding[] = {
    {u"BuildTime", Time, 0, 900000},
    {u"WallStrength", Integer, 0, 9000},
    {u"Upkeep", Integer, 0, 500, 1, 5},
    {u"Upkeep", Integer, 0, 100},
    {u"Height", Float, 1, 60},
    {u"Footprint", Float, 1, 80, 2},
    {u"Burns", Boolean},
    {u"NeedsRoad", Boolean},
    {u"Workers", Integer, 0, 40},
    {u"Produces", Text, 0, 60, -1},
    {u"Architect", Text, 0, 60},
    {u"PlacementNotes", Memo, 0, 400},
    {u"RepairDelay", Time, 0, 60000},
    {u"WarmthRadius", Float, 0, 30},
    {u"MaxCount", Integer, -1, 12},
};

constexpr SAttributeForm kEncounter[] = {
    {u"Budget", Integer, 1, 4000},
    {u"FirstNight", Integer, 1, 30},
    {u"Weight", Float, 0, 1},
    {u"Members", Text, 0, 60, -1},
    {u"Opening", Text, 0, 60},
    {u"Briefing", Memo, 0, 400},
    {u"Duration", Time, 0, 600000},
    {u"WarningTime", Time, 0, 9000},
    {u"Ambush", Boolean},
    {u"Repeatable", Boolean},
    {u"BlocksTravel", Boolean},
    {u"Reward", Integer, 0, 9000},
    {u"DifficultyScale", Float, 0, 5, 4},
    {u"SpawnRadius", Float, 5, 90},
    {u"Music", Text, 0, 60},
};

constexpr SAttributeForm kDialogue[] = {
    {u"Speaker", Text, 0, 60},
    {u"Line", Memo, 0, 400},
    {u"Answers", Text, 0, 60, -1},
    {u"Mood", Text, 0, 60},
    {u"Duration", Time, 0, 9000},
    {u"Pause", Time, 0, 3000},
    {u"Priority", Integer, 0, 100},
    {u"Chance", Float, 0, 1},
    {u"OnlyOnce", Boolean},
    {u"Interruptible", Boolean},
    {u"Subtitled", Boolean},
    {u"TrustNeeded", Integer, -100, 100},
    {u"TrustGiven", Integer, -10, 10},
    {u"Volume", Float, 0, 1},
    {u"StageNotes", Memo, 0, 400},
};

constexpr SSchemaForm kSchemas[] = {
    {u"Creature", u"Creatures", kCreature}, {u"Item", u"Items", kItem},
    {u"Building", u"Buildings", kBuilding}, {u"Encounter", u"Encounters", kEncounter},
    {u"Dialogue", u"Dialogues", kDialogue},
};

static_assert(std::all_of(std::begin(kSchemas), std::end(kSchemas),
                          [](const SSchemaForm& schema) {
                              return schema.m_Attributes.size() + std::size(kThing) == kAttributesPerRecord;
                          }));
} // namespace

std::span<const SAttributeForm> GetParentAttributes()
{
    return kThing;
}

std::span<const SSchemaForm> GetSchemaForms()
{
    return kSchemas;
}
