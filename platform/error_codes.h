// Codes of the platform's failures, as reports carry them. The numbers are those of the original platform on every
// system; a back end maps its own errors to them at its edge.
#pragma once

namespace ostrand {

inline constexpr unsigned kErrorSuccess = 0;
inline constexpr unsigned kErrorFileNotFound = 2;
inline constexpr unsigned kErrorPathNotFound = 3;
inline constexpr unsigned kErrorAccessDenied = 5;
inline constexpr unsigned kErrorInvalidData = 13;
inline constexpr unsigned kErrorGeneralFailure = 31;
inline constexpr unsigned kErrorSharingViolation = 32;
inline constexpr unsigned kErrorLockViolation = 33;
inline constexpr unsigned kErrorHandleEof = 38;
inline constexpr unsigned kErrorNotSupported = 50;
inline constexpr unsigned kErrorInvalidParameter = 87;
inline constexpr unsigned kErrorDiskFull = 112;
inline constexpr unsigned kErrorInsufficientBuffer = 122;
inline constexpr unsigned kErrorAlreadyExists = 183;
inline constexpr unsigned kErrorMoreData = 234;
inline constexpr unsigned kErrorMessageNotFound = 317;
inline constexpr unsigned kErrorUnsupportedType = 1629;

} // namespace ostrand
