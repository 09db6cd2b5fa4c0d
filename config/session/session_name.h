// The rules for names of sessions, and the messages that tell of a broken one.
#pragma once

#include "core/format.h"
#include "core/prompts.h"
#include "core/strings.h"
#include "platform/export.h"

#include <optional>
#include <string_view>

namespace ostrand {

/// Whether a session may have this name, wherever it lies; else what to tell the user.
OSTRAND_API bool CheckSessionName(std::u16string_view name, VUnicodeString& reason);

/// What to tell the user of a name that can't be used.
struct SessionNameFault {
    const char16_t* format = nullptr; ///< takes the insert as %1; dialogs translate it
    VUnicodeString insert;
    VPromptIcon icon = VPromptIcon::None;
    unsigned code = 0; ///< of a text that has one

    VUnicodeString GetText() const { return Format(format, insert); }
};
/// The same, and that the name isn't taken in the store; nothing for a name that can be used. `path` is the folder of a
/// new session, the path of an existing one. An existing one may keep its name, or change it in case alone.
OSTRAND_API std::optional<SessionNameFault> FindSessionNameFault(std::u16string_view path, std::u16string_view oldName,
                                                                 std::u16string_view newName, bool isNew);
/// Shows a message where it answers false.
OSTRAND_API bool ValidateSessionName(std::u16string_view path, std::u16string_view oldName, std::u16string_view newName,
                                     bool isNew);

} // namespace ostrand
