// Where a value came from: a line of the store, an old name, a bound or rule that corrected it, or nowhere.
#pragma once

#include "tools/config_folder.h"
#include "tools/json_writer.h"
#include "tools/value_record.h"

#include <string>

namespace ostrand::tool {

struct ValueSource {
    const char* kind; ///< "stored", "old name", "corrected" or "not stored"
    ValuePlace place; ///< of what is stored; line 0 for nothing
    std::string detail;
};

/// Looks at a record as it was read, and at the files of its folder; borrows both.
class ValueSources {
public:
    ValueSources(const ConfigFolder& folder, ValueRecord& record);

    ValueSource SourceOf(const NamedValue& value);
    /// Whether the value differs from its default. A default that is computed has no lasting value of its own: only
    /// what is stored can differ from it, and a stored moment can't be told from the default of that moment.
    bool IsDifferent(const NamedValue& value);
    /// The same, or what is stored differs and was corrected.
    bool IsWorthTelling(const NamedValue& value);
    /// The same value with its default.
    std::optional<NamedValue> DefaultOf(const NamedValue& value) { return FindValue(*m_defaults, value.value->name); }

private:
    ValuePlace StoredPlace(const NamedValue& value) const;
    std::string Correction(const NamedValue& value);
    bool HasLastingDefault(const NamedValue& value) const;

    const ConfigFolder& m_folder;
    ValueRecord& m_record;
    const VUnicodeString m_key;
    const std::unique_ptr<ValueRecord> m_defaults;
    const std::unique_ptr<ValueRecord> m_stored; // the record without what bounds and rules changed
};

/// Adds "from", and where they are told, "file", "line" and "detail".
void AddSource(Json& entry, const ValueSource& source);

} // namespace ostrand::tool
