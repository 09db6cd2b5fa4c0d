// Sessions. The input says what a session's key holds, one value a line; whatever it is, the session opens, what it
// then saves opens as the same, and a second save has nothing to write.
//
//   input = [ "D" ] { line "\n" }       "D": the session is called Default
//   line  = place place kind content    the two characters name one of the record's values; kind, content:
//                                       fuzz/typed_values.h
#include "config/session/none_config.h"
#include "config/session/session_edit.h"
#include "core/entry.h"
#include "core/product.h"
#include "fuzz/typed_values.h"
#include "platform/platform.h"
#include "tests/support/memory_files.h"

#include <algorithm>
#include <cstddef>
#include <vector>

using namespace ostrand;
using namespace ostrand::fuzz;

namespace {

constexpr std::u16string_view kKey = u"Sessions\\Default";

MemoryStoreFactory* g_factory = nullptr;

/// One protocol for each side, without settings: the default session's empty name would become "None" at a second
/// reading.
void AddProtocols()
{
    for (const auto& [product, name] : {std::pair(kProductTessaly, u"SSH2"), std::pair(kProductOrvane, u"SFTP")}) {
        ConnectProtocolTableElement row;
        row.productId = product;
        row.name = name;
        row.createConfig = [](const VProfileKey*, ICommonConfig*, ConnectProtocolTableElement*) -> ConnectConfig* {
            return new NoneConfig;
        };
        GetConnectProtocolTable().Append(row);
    }
}

const std::vector<std::u16string>& Names()
{
    static const auto& names = *[] {
        auto* const all = new std::vector<std::u16string>{u"Login Script",
                                                          u"Chat Window",
                                                          u"Keymap",
                                                          u"Printer Font",
                                                          u"Normal Font",
                                                          u"Narrow Font",
                                                          u"Enable 80/132 Column Switching"};
        const auto session = VUnknownPointer<SessionConfig>::Adopt(new SessionConfig(u"", nullptr));
        for (const SessionLeaf& leaf : SessionLeaves(*session))
            all->push_back(leaf.entry.name);
        return all;
    }();
    return names;
}

void FillFrom(std::string_view input, MemoryStoreFactory& factory)
{
    while (!input.empty()) {
        const std::string_view line = input.substr(0, input.find('\n'));
        input.remove_prefix(std::min(line.size() + 1, input.size()));
        if (line.size() < 3)
            continue;
        const size_t place = static_cast<uint8_t>(line[0]) * size_t{64} + static_cast<uint8_t>(line[1]);
        factory.Fill({{std::u16string(kKey), Names()[place % Names().size()], ValueOf(line[2], line.substr(3))}});
    }
}

VUnknownPointer<SessionConfig> Open(const char16_t* name)
{
    const VProfileStore store(true);
    const VProfileKey key(store.GetRootKey(), kKey.data());
    return VUnknownPointer<SessionConfig>::Adopt(new SessionConfig(name, &key));
}

void Save(SessionConfig& session, bool force)
{
    const VProfileStore store;
    VProfileKey key(store.GetRootKey(), kKey.data());
    session.Save(&key, force);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    std::string_view input(reinterpret_cast<const char*>(data), size);
    const VPlatformScope scope;
    // A value that names a file must not read this machine's. The trace log is opened there once and for all.
    static auto& noFiles = *new test::MemoryFiles;
    Platform().files = &noFiles;
    MemoryStoreFactory factory;
    g_factory = &factory;
    OstrandUiInitProfileFactory([]() -> VProfileStoreFactory* { return g_factory; });
    if (GetConnectProtocolTable().IsEmpty())
        AddProtocols();
    GlobalConfig* config = nullptr;
    ResetGlobalConfig(config);
    const bool isDefault = input.starts_with('D');
    FillFrom(input.substr(isDefault ? 1 : 0), factory);
    factory.Fill({{std::u16string(kKey), u"Is Session", 0u}});

    const char16_t* const name = isDefault ? u"Default" : u"S";
    const auto first = Open(name);
    VUnicodeString summary;
    first->GetConnectionSummary(summary);
    Save(*first, true);
    const auto second = Open(name);
    Check(SessionDifferences(*first, *second).empty());
    Check(!second->IsModified());
    factory.Log().clear();
    Save(*second, false);
    Check(factory.Log().empty());
    Check(SettleSessionEdit(*second, u"Idle Timeout") == nullptr);
    return 0;
}
