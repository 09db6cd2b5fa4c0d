// Records of named values as the commands see them, whichever record it is: the global one, or a session. What lists,
// shows, sets, resets and explains single values is written once, over these.
#pragma once

#include "core/report.h"
#include "profile/schema_entry.h"
#include "profile/value.h"
#include "tools/json_writer.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace ostrand::tool {

struct NamedValue {
    VSchemaEntry entry;
    VProfileData* value = nullptr; ///< with its name in the key; lent by the record until that changes a protocol
    const char* part = nullptr;    ///< of a record with several, which one it belongs to; else null
};

/// What rules make of an edit.
struct SettledEdit {
    const VSchemaEntry* refusedBy = nullptr; ///< the rule that took the edited value back; null: it stands
    std::vector<VUnicodeString> names;       ///< the edited value first, then what changed with it
};

class ValueRecord {
public:
    virtual ~ValueRecord() = default;

    /// In listing order; no two of one name.
    virtual std::vector<NamedValue> Values() = 0;
    /// From the store's root.
    virtual VUnicodeString KeyPath() const = 0;
    virtual std::unique_ptr<ValueRecord> Clone() const = 0;
    /// A record of nothing but defaults with the same values; where some depend on it, those of a store that has been
    /// in use as far as this one has, or of a new one.
    virtual std::unique_ptr<ValueRecord> Defaults(bool ofThisStore) const = 0;
    /// Whether the key, as it was read, holds the value under its name, in a form that the record takes.
    virtual bool IsStored(const NamedValue& value) const = 0;
    /// What a user should know of a name that no value has; empty for nothing.
    virtual std::string WhyUnknown(std::u16string_view name) = 0;
    /// SetFromWords of tools/value_json.h for a value of this record.
    virtual bool Set(const NamedValue& value, std::span<const std::string> words, std::string& problem);
    /// Takes the current value of another object of the class.
    virtual void Copy(const NamedValue& value, const VProfileData& other) { value.value->CopyValue(other); }
    /// Runs the rules after the value of this name changed; `before` is the record before that.
    virtual SettledEdit Settle(const VUnicodeString& edited, ValueRecord& before) = 0;
    /// Writes the named values and no others.
    virtual bool Save(std::span<const VUnicodeString> names, IReportMessageParams& report) = 0;
};

/// In any case.
std::optional<NamedValue> FindValue(ValueRecord& record, std::u16string_view name);
/// The same for a typed name. None after one line on stderr, with a near name where there is one.
std::optional<NamedValue> AskedValue(ValueRecord& record, const std::string& typed);
/// "no value is named 'Scrolback'; did you mean 'Scrollback'?", or with `why` where no name is near.
std::string UnknownName(const std::string& typed, std::span<const std::string> names, const std::string& why);

std::string NameOf(const NamedValue& value);
std::vector<std::string> NamesOf(ValueRecord& record);
Json JsonOf(const NamedValue& value);
std::string TextOf(const NamedValue& value);

/// Whether the store lacks the value, or one of a list's parts.
bool IsPending(const VProfileData& value);
/// clean, changed or pending.
const char* StateOf(const VProfileData& value);
/// Whether it is shown as set or empty, and never taken from arguments.
bool IsSecret(const VSchemaEntry& entry);

/// {"name", "type", "value", "state", "saved"}, and "part" for a record of several.
Json RowToJson(const NamedValue& value);

/// The default as text: a constant one, or how it is computed, in parentheses. `usual` is the value with its default;
/// without one there is none to tell.
std::string DefaultText(const VSchemaEntry& entry, const std::optional<NamedValue>& usual);
/// "0 to 9", "at least 20", empty without a bound.
std::string BoundText(const VBound& bound);

} // namespace ostrand::tool
