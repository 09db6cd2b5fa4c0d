// Named definitions, whatever they are: firewalls, filters, colour schemes. The commands are written once, over these.
#pragma once

#include "core/report.h"
#include "tools/config_folder.h"
#include "tools/json_writer.h"

#include <memory>
#include <string>
#include <vector>

namespace ostrand::tool {

/// One definition, read and on its way back.
class Definition {
public:
    virtual ~Definition() = default;
    /// All fields in their order; secrets as <set> or <empty>, or with `reveal` as they are.
    virtual Json Fields(bool reveal) = 0;
    /// Whether the field's words are kept out of arguments.
    virtual bool IsSecret(const std::string&) const { return false; }
    /// Sets a field, by its name in any case. False, with the problem, for an unknown one and for words it doesn't
    /// take.
    virtual bool Set(const std::string& field, const std::string& word, std::string& problem) = 0;
    virtual bool Save(IReportMessageParams& report) = 0;
};

/// A list of definitions in a folder whose global record was read.
struct DefinitionKind {
    const char* noun;
    const char16_t* alwaysThere;      ///< a name that can't be made, renamed or deleted; null for none
    bool isFixed;                     ///< nor can its fields be changed
    std::vector<const char*> columns; ///< fields that a list shows

    std::vector<VUnicodeString> (*names)(ConfigFolder&);
    /// Null where there is none of the name.
    std::unique_ptr<Definition> (*load)(ConfigFolder&, const VUnicodeString& name);
    std::unique_ptr<Definition> (*make)(ConfigFolder&, const VUnicodeString& name);
    bool (*checkNewName)(ConfigFolder&, const VUnicodeString& name, IReportMessageParams& report);
    bool (*rename)(ConfigFolder&, const VUnicodeString& from, const VUnicodeString& to, IReportMessageParams& report);
    bool (*remove)(ConfigFolder&, const VUnicodeString& name, IReportMessageParams& report);
};

const DefinitionKind& FirewallKind();
const DefinitionKind& FilterKind();
const DefinitionKind& SchemeKind();

// The commands, which read the names and FIELD=VALUE words of the request.
Exit ListDefinitions(const Request& request, const DefinitionKind& kind);
Exit ShowDefinition(const Request& request, const DefinitionKind& kind);
Exit SetDefinition(const Request& request, const DefinitionKind& kind);
Exit NewDefinition(const Request& request, const DefinitionKind& kind);
/// To the name in `tail`.
Exit RenameDefinition(const Request& request, const DefinitionKind& kind);
Exit DeleteDefinition(const Request& request, const DefinitionKind& kind);
Exit CompleteDefinitions(const Request& request, const DefinitionKind& kind);

} // namespace ostrand::tool
