// Codes of every message that the library knows by name. The first byte tells the kind: 0xe1 error, 0xa1 warning,
// 0x61 notice. The texts of the library's own codes (0x..38....) stand in one table in messages.cpp; those of the
// other groups belong to the application.
#pragma once

#include "platform/export.h"

#include <span>

namespace ostrand {

// The library's own.
inline constexpr unsigned kApplyToAllSessions = 0xe1380001;
inline constexpr unsigned kSessionsReadOnly = 0xa1380002;
inline constexpr unsigned kScriptingDisabled = 0xa1380003;
inline constexpr unsigned kLaunchFailed = 0xe1380004;
inline constexpr unsigned kColumnsOutOfRange = 0xe1380005;
inline constexpr unsigned kAutoSessionMissing = 0xe1380006;
inline constexpr unsigned kNameInUse = 0xe1380007;
inline constexpr unsigned kSessionLocked = 0x61380008;
inline constexpr unsigned kDoNotDisplayAgain = 0x61380009;
inline constexpr unsigned kCommandLineFolderInvalid = 0xe138000a;
inline constexpr unsigned kNameMissing = 0xe138000b;
inline constexpr unsigned kNameIllegalCharacter = 0xe138000c;
inline constexpr unsigned kNameReserved = 0xe138000d;
inline constexpr unsigned kNameExists = 0xe138000e;
inline constexpr unsigned kComponentNotInstalled = 0xe138000f;
inline constexpr unsigned kAntiIdleStringEmpty = 0xe1380010;
inline constexpr unsigned kKeymapFileNameEmpty = 0xe1380011;
inline constexpr unsigned kKeymapFileNotFound = 0xe1380012;
inline constexpr unsigned kMidnightLogNeedsDay = 0xe1380013;

// What operations beyond the applications' own tell.
/// %1 value: of a kind that this version doesn't know.
inline constexpr unsigned kValueNotCopied = 0xe1380060;
/// %1 kind of definition, %2 name.
inline constexpr unsigned kNameUnknown = 0xe1380061;
/// %1 protocol, %2 module file, %3 operation, %4 what the exception says.
inline constexpr unsigned kModuleThrew = 0xe1380062;
inline constexpr unsigned kNothingToUndo = 0xe1380063;
inline constexpr unsigned kLogonActionsUnread = 0x61380064;

// Texts that the application's table brings.
inline constexpr unsigned kParserHasNoOpinion = 0xe1040040;
inline constexpr unsigned kProtectionFailed = 0xe1040045;
inline constexpr unsigned kUnprotectionFailed = 0xe1040046;
inline constexpr unsigned kProtectedTextCut = 0xe1040047;
inline constexpr unsigned kStringIndexOutOfRange = 0xe104004a;
inline constexpr unsigned kPathTokenUnknown = 0xe1040065;
inline constexpr unsigned kPathTokenIncomplete = 0xe1040066;
inline constexpr unsigned kNoVariantConversion = 0xe104006a;
inline constexpr unsigned kVariantNotConvertible = 0xe104006b;
inline constexpr unsigned kOctalInvalidDigit = 0xe104006c;
inline constexpr unsigned kOctalAboveMaximum = 0xe104006d;
inline constexpr unsigned kOctalOverflow = 0xe104006e;
inline constexpr unsigned kModuleMissing = 0x61370003;
inline constexpr unsigned kModuleNotLoaded = 0xe1370004;       // path, the platform's text or the missing function
inline constexpr unsigned kModuleContractDiffers = 0xe1370006; // path
inline constexpr unsigned kModuleLoadingStopped = 0xe1370007;
inline constexpr unsigned kNoModuleLoaded = 0xe1370008;       // folder, application
inline constexpr unsigned kModuleFailed = 0xe1370009;         // path, product, protocol, the cause's text
inline constexpr unsigned kProtocolNotAvailable = 0xe137000b; // protocol
inline constexpr unsigned kKeymapFileFailed = 0xe1370001;     // path, reasons
inline constexpr unsigned kKeymapFileHasErrors = 0xa1370002;  // path, reasons; the good lines are taken

/// One row of the library's own table.
struct VMessageText {
    unsigned code;
    const char16_t* text;
};

/// All rows, by code.
OSTRAND_API std::span<const VMessageText> MessageTable();
/// Texts of a layer above, found behind the library's own. One such table; its rows live as long as the process.
void SetFurtherMessages(std::span<const VMessageText> rows);
/// The text of one of the library's own codes; null for any other.
OSTRAND_API const char16_t* FindMessageText(unsigned code);

} // namespace ostrand
