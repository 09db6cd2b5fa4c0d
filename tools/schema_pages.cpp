#include "tools/schema_pages.h"

#include "config/global/filter.h"
#include "config/global/firewall.h"
#include "tools/global_record.h"
#include "tools/session_record.h"

#include <string_view>

namespace ostrand::tool {

namespace {

const std::string kReading =
    "A value that is missing there, or of another kind, has its default. A number outside its range is corrected when "
    "it is read, and the next save writes the corrected one.";

/// The rows of a record that stands by itself.
template <class R>
SchemaPage PageOf(const char* title, const std::string& about, std::shared_ptr<R> record)
{
    SchemaPage page{title, about, {}, {R::Schema().View()}, {record}};
    for (const VSchemaRow<R>& row : R::Schema().Rows())
        if (!row.IsRule())
            page.values.push_back({row, row.member(*record), nullptr});
    return page;
}

/// A new session's values of one part: the terminal, or all but it.
SchemaPage PartOfSession(const char* title, const std::string& about, const VSchemaView& rules, bool isTerminal)
{
    const VUnknownPointer<GlobalConfig> global = GlobalDefaults(false, false);
    const auto record = std::make_shared<SessionRecord>(
        VUnknownPointer<SessionConfig>::Adopt(new SessionConfig(u"", nullptr, *global)));
    SchemaPage page{title, about, record->Values(), {rules}, {record}};
    std::erase_if(page.values, [isTerminal](const NamedValue& value) {
        return (std::string_view(value.part) == "terminal") != isTerminal;
    });
    return page;
}

} // namespace

SchemaPage GlobalPage()
{
    const auto record = std::make_shared<GlobalRecord>(GlobalDefaults(false, false));
    return {"Global settings",
            "Made by `ostrandcfg schema global --markdown`; don't edit. All values stand in the key `Global` of "
            "the store. " +
                kReading,
            record->Values(),
            {GlobalConfig::Schema().View()},
            {record}};
}

SchemaPage SessionPage()
{
    return PartOfSession("Settings of a session",
                         "Made by `ostrandcfg schema session --markdown`; don't edit. All values stand in the "
                         "session's key below `Sessions`, with those of its terminal (`schema terminal`) and of its "
                         "protocols, which their modules bring. " +
                             kReading,
                         SessionValues::Schema().View(), false);
}

SchemaPage TerminalPage()
{
    return PartOfSession("Settings of a session's terminal",
                         "Made by `ostrandcfg schema terminal --markdown`; don't edit. All values stand in the "
                         "session's key below `Sessions`, with the others of the session. " +
                             kReading,
                         TerminalConfig::Schema().View(), true);
}

SchemaPage FirewallPage()
{
    return PageOf("Firewalls", "Each in a key of its own below `Firewalls`. " + kReading,
                  std::make_shared<FirewallConfig>(u"", nullptr));
}

SchemaPage FilterPage()
{
    return PageOf("Filters", "Each in a key of its own below `Filters`. " + kReading,
                  std::make_shared<FilterConfig>(u"", nullptr));
}

} // namespace ostrand::tool
