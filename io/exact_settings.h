#pragma once

#include "io/profile_text.h"
#include "io/settings_reader.h"

namespace kelvro {

/// The version that WriteExact writes; higher where what stands in the section changes its meaning.
inline constexpr int kSettingsVersion = 1;

/// The version that a settings file was written in; 1 where it does not say.
int VersionOf(const ProfileText& profile);

/// Puts everything that a design needs into a section of its own: inputs and switches under the
/// names of their controls with all digits, components and what their fields show, preferences.
void WriteExact(const Settings& settings, ProfileText& profile);

/// Takes what the section holds; keys that are missing or unreadable leave the settings as they
/// are. Inputs are clamped like typed ones, unless they stand in the rounded texts too, with which
/// they are to be compared. False without such a section.
bool ReadExact(const ProfileText& profile, Settings& settings);

}  // namespace kelvro
