// Fixed places of the platform.
#pragma once

namespace ostrand {

/// Where temporary files go when the environment names no folder; UTF-8.
#if defined(_WIN32)
inline constexpr const char* kFallbackTempFolder = "C:\\temp";
#else
inline constexpr const char* kFallbackTempFolder = "/tmp";
#endif

} // namespace ostrand
