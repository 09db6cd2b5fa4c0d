// Which application runs, and which of its siblings are installed beside it. One state for the process, set at start-up
// on the main thread; afterwards it is only read.
#pragma once

#include "core/strings.h"

namespace ostrand {

inline constexpr int kProductNone = -1;
inline constexpr int kProductQuillo = 1;
inline constexpr int kProductTessaly = 3;
inline constexpr int kProductOrvane = 6;

/// Empty for a number that is no product.
OSTRAND_API VUnicodeString GetProductName(int productId);

/// The application's name, which products and stores go by.
OSTRAND_API VUnicodeString VGetAppName();
using VAppNameFunction = VUnicodeString (*)();
/// Replaces VGetAppName; null brings back the base name of the executable without ".exe".
OSTRAND_API void SetAppNameFunction(VAppNameFunction function);
/// The product whose name the application has, without regard to case; else kProductNone.
OSTRAND_API int GetProductFromAppName();

/// A second number beside that of the name, which only IsIntegrated and the saving of the configuration path read.
OSTRAND_API void SetCurrentAppProductID(int productId);
OSTRAND_API int GetCurrentAppProductID();

/// Looks for the executables in the folder. One that fails the test counts as absent, and its path stays as computed.
/// Null changes nothing. Always true.
OSTRAND_API bool OstrandUiInitClientApplications(const char16_t* folder);

OSTRAND_API bool IsQuilloInstalled();
OSTRAND_API bool IsTessalyInstalled();
OSTRAND_API bool IsOrvaneInstalled();
OSTRAND_API bool IsTessalyOrQuilloInstalled();
OSTRAND_API void SetTessalyInstalled(bool installed);
OSTRAND_API void SetOrvaneInstalled(bool installed);

/// The full path, empty while the product counts as absent. Valid until the next detection.
OSTRAND_API const char16_t* GetQuilloPath();
OSTRAND_API const char16_t* GetTessalyPath();
OSTRAND_API const char16_t* GetOrvanePath();

// On purpose: Tessaly alone, though LaunchTerminalApp starts Quillo, too. Held by Product.TheTerminalIsTessalyFirst.
OSTRAND_API bool CanLaunchTerminalApp();
OSTRAND_API bool CanLaunchFileTransferApp();

/// Whether Tessaly and Orvane work as a pair, which Quillo's presence rules out. When true, `other` becomes the one of
/// the pair that isn't the current product; else it stays.
OSTRAND_API bool IsIntegrated();
OSTRAND_API bool IsIntegrated(VUnicodeString& other);

/// Starts the sibling with these arguments, which are parted by blanks and grouped by double quotes. A failure is shown
/// to the user.
OSTRAND_API void LaunchTerminalApp(const char16_t* arguments);
OSTRAND_API void LaunchFileTransferApp(const char16_t* arguments);

} // namespace ostrand
