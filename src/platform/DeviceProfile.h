#pragma once
// The device profile: the screen that desktop Windows stands in for. The device reads its screen
// size and dots per inch from the system; on the desktop the program reads them from a profile
// chosen by the environment variable DIALDECK_PROFILE ("240x320@96", "480x640@192", ...), so the
// command line keeps its own meaning.

namespace device {

/// An emulated screen: size in pixels and logical dots per inch (the same on both axes).
struct Profile {
    int width;
    int height;
    int dpi;
    bool operator==(const Profile&) const = default;
};

/// The profile used when none (or a malformed one) is selected.
constexpr Profile kDefaultProfile{480, 640, 192};
/// The environment variable that selects the profile.
constexpr char kProfileVariable[] = "DIALDECK_PROFILE";

/// Parses "<width>x<height>@<dpi>" (decimal, 1..4096 pixels, 1..1024 dpi, nothing else around);
/// false, leaving out untouched, for anything else.
bool ParseProfile(const char* text, Profile& out);
/// The profile a variable's value selects: the parsed one, else the default (also for null).
Profile SelectProfile(const char* value);
/// The same screen turned a quarter: width and height swapped, dpi kept.
Profile Rotated(const Profile& profile);

/// The process-wide profile: selected from the environment on first use.
const Profile& CurrentProfile();
/// Replaces the process-wide profile (the rotation key swaps it).
void SetCurrentProfile(const Profile& profile);

}  // namespace device
