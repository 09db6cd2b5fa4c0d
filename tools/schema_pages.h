// What values each record has, as a table, as JSON, as a page for people: the schemas, with defaults to show.
#pragma once

#include "tools/request.h"
#include "tools/value_record.h"

#include <memory>
#include <string>
#include <vector>

namespace ostrand::tool {

struct SchemaPage {
    const char* title;
    std::string about; ///< where the values stand and how they are read
    std::vector<NamedValue> values;
    std::vector<VSchemaView> rules;          ///< schemas whose rules count
    std::vector<std::shared_ptr<void>> kept; ///< what the values belong to
};

// None opens a store.
SchemaPage GlobalPage();
SchemaPage SessionPage();
SchemaPage TerminalPage();
SchemaPage FirewallPage();
SchemaPage FilterPage();

Exit Describe(const Request& request, const SchemaPage& page);

/// As a command of its own: `DescribeAs<GlobalPage>`.
template <SchemaPage (*page)()>
Exit DescribeAs(const Request& request)
{
    return Describe(request, page());
}

} // namespace ostrand::tool
