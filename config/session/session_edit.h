// Single values of a session, whichever of its records they belong to, for tools that show and change one by name.
#pragma once

#include "config/session/session_config.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace ostrand {

/// Which part of a session a value belongs to.
enum class VSessionPart { Session, TerminalProtocol, TransferProtocol, Terminal };

/// One value with what its schema says; of a module's own values only name and class are known. Its object is lent by
/// the session, and valid until the session or its protocol changes.
struct SessionLeaf {
    VSchemaEntry entry; ///< `name` is the one in the session's key
    VSessionPart part = VSessionPart::Session;
    VProfileData* value = nullptr;
};

/// All values: the session's, with the protocols' names where the table has them; those of both active protocols; those
/// of the terminal. No two have one name, in any case: the first one counts.
OSTRAND_API std::vector<SessionLeaf> SessionLeaves(SessionConfig& session);
/// In any case.
OSTRAND_API const SessionLeaf* FindSessionLeaf(const std::vector<SessionLeaf>& leaves, std::u16string_view name);

/// The class of a value object, and whether it is one that this version knows.
OSTRAND_API std::optional<VValueClass> ClassOfValue(const VProfileData& value);

/// Runs the record's rules after a change of one value, named as in its key, and answers the rule that took the change
/// back, if one did.
OSTRAND_API const VSchemaEntry* SettleSessionEdit(SessionConfig& session, std::u16string_view editedName);

/// Runs the record's rules, for an edit of several values; who needs to know compares.
OSTRAND_API void RunSessionRules(SessionConfig& session);

/// Writes the named values, and no others, and flushes the key.
OSTRAND_API bool SaveSessionValues(SessionConfig& session, std::span<const VUnicodeString> names, VProfileKey& key,
                                   IReportMessageParams& report);

/// Names of the values that two sessions hold otherwise, in the order of the second; also of those that one lacks, such
/// as a protocol's.
OSTRAND_API std::vector<VUnicodeString> SessionDifferences(SessionConfig& before, SessionConfig& after);

/// All defaults, for the protocols of another session: what its values are compared with.
OSTRAND_API VUnknownPointer<SessionConfig> SessionDefaults(const SessionConfig& like);

} // namespace ostrand
