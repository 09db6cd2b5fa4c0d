// Logon actions: what a session waits for and sends right after its connection is up. Kept as one protected text,
// "Login Script V2"; the older form of it, "Login Script", is read and never written.
//
//   text   = { action }
//   action = hide US expect US send US          US is the unit separator 0x1F; hide is "0" or, if set, "1"
//
// The older form is an encoded text (profile/xor_text.h) of a block that is encoded once more. A "u" behind the digits
// says that its strings have 16-bit characters, little-endian; otherwise they are in the 8-bit code page.
//
//   block = flags { expect zero send zero }
//   flags = hide of rows 0 to 6 in bits 7, 6, 5, 4, 3, 1, 0; bit 2 is "Send Initial Carriage Return"
#pragma once

#include "core/array.h"
#include "core/strings.h"
#include "platform/export.h"
#include "profile/encoded_string.h"
#include "profile/values.h"

namespace ostrand {

/// One action; `hide` says that the text to send is a secret, to be shown masked.
struct LogonAction {
    bool hide = false;
    VUnicodeString expect;
    VUnicodeString send;
};
using LogonActionList = VArray<LogonAction>;

/// Appends the actions of a text; any hide but "0" counts as set. VArray's OutOfRange for an incomplete last action, as
/// soon as the complete ones are in the list. Texts of a secret are secrets.
OSTRAND_API void ReadLogonActions(const VUnicodeString& text, LogonActionList& list);
/// Marked sensitive.
OSTRAND_API VUnicodeString WriteLogonActions(const LogonActionList& list);

struct ConvertedLoginScript {
    LogonActionList actions;
    bool sendInitialCarriageReturn = false;
};
/// From the older form, of which the outer encoding is off. Empty rows with a clear flag are dropped; rows behind the
/// seventh have none. False for a text without a block.
bool ConvertLoginScript(const VUnicodeString& decoded, ConvertedLoginScript& out);

/// Reads "Login Script V2", with `sendInitialCarriageReturn` loaded before; takes both from "Login Script" where only
/// that is stored, as changes. While it can't be decoded here, an empty script isn't written over the chance to convert
/// it later. `key` may be null.
OSTRAND_API void LoadLogonActions(const VProfileKey* key, VProfileEncodedString& script,
                                  VProfile<bool>& sendInitialCarriageReturn);

} // namespace ostrand
