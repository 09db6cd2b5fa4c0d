// The terminal's record: read. Its map files.
#include "config/session/terminal_config.h"

#include "config/global/global_config.h"
#include "tests/support/memory_files.h"
#include "tests/vectors/json_store.h"
#include "tests/vectors/json_values.h"

#include <array>
#include <stdexcept>

namespace ostrand::vectors {

namespace {

/// "limits" of a case: {"Max Columns": {"value", "dirty"}, ...}; a pair may stand for the object.
void SetLimit(VProfile<int>& limit, const Json& limits)
{
    limit.dirty = false;
    const std::string name = FromText(limit.name);
    if (!limits.contains(name))
        return;
    const Json& told = limits.at(name);
    FromJson(told.is_array() ? told.at(0) : told.at("value"), limit.value);
    limit.dirty = told.is_array() ? told.at(1) : told.at("dirty");
}

VUnknownPointer<GlobalConfig> GlobalOf(const Json& theCase)
{
    auto global = VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(nullptr, false));
    const Json limits = theCase.value("limits", Json::object());
    SetLimit(global->maxColumns, limits);
    SetLimit(global->maxScrollbackBufferSize, limits);
    global->selectedTermcapEntries = ToList(theCase.value("termcap", Json::array()));
    return global;
}

/// Any value, also one outside the record's table.
const VProfileData& ValueOf(TerminalConfig& terminal, const std::string& name)
{
    const VUnicodeString wanted = ToText(name);
    for (const auto& row : TerminalConfig::Schema().Rows())
        if (!row.IsRule() && wanted == row.name)
            return *row.member(terminal);
    Unknown("value", name);
}

Json Read(const Json& theCase)
{
    auto store = StoreOf(theCase);
    const auto global = GlobalOf(theCase);
    TerminalConfig terminal(store ? store->Key() : nullptr, theCase.value("has_nerith", true), global.Get());
    Json states = Json::object();
    for (const std::string name : theCase.at("show"))
        states[name] = StateOf(ValueOf(terminal, name));
    return {{"values", states}};
}

Json ReadMap(const Json& theCase)
{
    const VPlatformScope scope;
    test::MemoryFiles files;
    Platform().files = &files;
    const std::vector<uint8_t> bytes = ToBytes(theCase.at("file"));
    files.contents["/map"].assign(bytes.begin(), bytes.end());
    std::vector<uint16_t> entries(theCase.at("size").get<size_t>());
    VReportMessageParams report;
    if (!ReadMapFile(u"/map", entries, report))
        throw std::runtime_error("the map can't be read");
    return {{"entries", entries}};
}

constexpr std::array kKinds = {Kind{"read", Read}, Kind{"map file", ReadMap}};

} // namespace

std::span<const Kind> TerminalConfigKinds() { return kKinds; }

} // namespace ostrand::vectors
