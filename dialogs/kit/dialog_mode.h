// How a dialog on a record was asked for.
#pragma once

namespace ostrand {

/// The numbers that applications pass; those without a name here are normal.
inline constexpr int kModeReadOnly = 2;
inline constexpr int kModeDefaultSession = 3;
inline constexpr int kModeSeveralSessions = 4;

constexpr bool VIsReadOnly(int mode) { return mode == kModeReadOnly; }

} // namespace ostrand
