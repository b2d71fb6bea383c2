// The settings that are switches: where the profile keeps each, and what it is without an entry there.
#pragma once

#include <cstdint>
#include <string_view>

class CProfile;

struct SSettingsOption
{
    std::u16string_view m_sSection;
    std::u16string_view m_sKey;
    std::int32_t m_nDefault;      // Also what a page shows where the profile has nothing.
    std::u16string_view m_sLabel; // With '&' for the mnemonic.
    const char* m_sObjectName;
};

inline constexpr SSettingsOption kOpenLast{u"General", u"OpenLast", 1, u"&Open last database on start up",
                                           "OpenLast"};
inline constexpr SSettingsOption kExpand{
    u"General", u"Expand", 1, u"When opening a new record e&xpand all attributes by default", "Expand"};
inline constexpr SSettingsOption kSingleClickActivate{u"Tree Control", u"Single.Click.Activate", 1,
                                                      u"Single Click &Activate", "SingleClickActivate"};
inline constexpr SSettingsOption kSingleClickExpand{u"Tree Control", u"Single.Click.Expand", 0,
                                                    u"Single Click &Expand", "SingleClickExpand"};
inline constexpr SSettingsOption kTrackSelect{u"Tree Control", u"Track.Select", 0, u"&Track Select",
                                              "TrackSelect"};
inline constexpr SSettingsOption kDefaultGameBuild{
    u"Build", u"Default.Game.Build", 1, u"Always &default to game build number", "DefaultGameBuild"};
inline constexpr SSettingsOption kForceSave{u"Build", u"Force.Save", 1, u"Always &force save before compile",
                                            "ForceSave"};
inline constexpr SSettingsOption kDisplayModified{u"Build", u"Display.Modified", 0,
                                                  u"Display &modified attributes dialog", "DisplayModified"};
inline constexpr SSettingsOption kNoWarning{u"General", u"Warning.Advanced.Settings", 0,
                                            u"Do not &warn me about advanced settings again.", "NoWarning"};
// Simple mode without it.
inline constexpr SSettingsOption kExpertMode{u"Build", u"User.Interface", 0, u"&Expert Mode", "ExpertMode"};

[[nodiscard]] bool ReadOption(const CProfile& profile, const SSettingsOption& option);
void WriteOption(CProfile& profile, const SSettingsOption& option, bool on);
