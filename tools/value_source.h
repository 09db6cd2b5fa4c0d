// Where a global value came from: a line of the store, an old name, a bound or rule that corrected it, or nowhere.
#pragma once

#include "tools/config_folder.h"
#include "tools/json_writer.h"

#include <string>

namespace ostrand::tool {

struct ValueSource {
    const char* kind; ///< "stored", "old name", "corrected" or "not stored"
    ValuePlace place; ///< of what is stored; line 0 for nothing
    std::string detail;
};

/// Looks at the record and the files of an opened folder, which it borrows.
class ValueSources {
public:
    explicit ValueSources(ConfigFolder& folder);

    ValueSource SourceOf(const GlobalRow& row);
    /// Whether the value differs from its default. A default that is computed has no lasting value of its own: only
    /// what is stored can differ from it, and a stored moment can't be told from the default of that moment.
    bool IsDifferent(const GlobalRow& row);
    /// The same, or what is stored differs and was corrected.
    bool IsWorthTelling(const GlobalRow& row);
    GlobalConfig& Defaults() { return *m_defaults; }

private:
    ValuePlace StoredPlace(const GlobalRow& row) const;
    std::string Correction(const GlobalRow& row);
    bool HasLastingDefault(const GlobalRow& row) const;

    const ConfigFolder& m_folder;
    GlobalConfig& m_config;
    const VUnknownPointer<GlobalConfig> m_defaults;
    const VUnknownPointer<GlobalConfig> m_stored; // the record without what bounds and rules changed
};

/// Adds "from", and where they are told, "file", "line" and "detail".
void AddSource(Json& entry, const ValueSource& source);

} // namespace ostrand::tool
