// Fixed places of the platform, UTF-8, and how its paths are spelled.
#pragma once

namespace ostrand {

#if defined(_WIN32)
/// Where temporary files go when the environment names no folder.
inline constexpr const char* kFallbackTempFolder = "C:\\temp";
/// Settings that an administrator makes for all users.
inline constexpr const char* kMachineConfigFolder = "C:\\ProgramData";
/// The time zones, and the file of the machine's own.
inline constexpr const char* kZoneFolder = "";
inline constexpr const char* kLocalZoneFile = "";
/// Whether paths begin at a drive and have "\" between their folders; else they begin at "/".
inline constexpr bool kHasDrives = true;
#else
inline constexpr const char* kFallbackTempFolder = "/tmp";
inline constexpr const char* kMachineConfigFolder = "/etc/xdg";
inline constexpr const char* kZoneFolder = "/usr/share/zoneinfo";
inline constexpr const char* kLocalZoneFile = "/etc/localtime";
inline constexpr bool kHasDrives = false;
#endif

} // namespace ostrand
