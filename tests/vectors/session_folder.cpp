// Folders of sessions: which subkeys are listed, the merge with a stored order, insertion.

#include "config/global/global_config.h"
#include "config/session/folder_data.h"
#include "config/session/session_paths.h"
#include "core/module_state.h"
#include "stores/store_key.h"
#include "tests/vectors/json_store.h"

#include <array>

namespace ostrand::vectors {

namespace {

/// The key `Sessions` of a store that keeps the order and the case of its subkeys: the case's "subkeys", each with the
/// mark of a session or without. Nothing else can be read, and nothing written.
class GivenKeys : public FailedKey {
public:
    explicit GivenKeys(const Json& subkeys, bool isSession = false)
        : FailedKey(kErrorFileNotFound),
          m_subkeys(subkeys),
          m_isSession(isSession)
    {
    }
    bool ReadDword(const char16_t* name, unsigned* out) override
    {
        *out = 1;
        return m_isSession && std::u16string_view(name) == kIsSession;
    }
    bool KeyExists(const char16_t* name) override { return std::u16string_view(name) == kSessionsKey; }
    VProfilePrivateKey* OpenKey(const char16_t* name, VSecurityDescriptor*) override
    {
        for (const Json& subkey : m_subkeys)
            if (ToText(subkey.at("name")) == name)
                return new GivenKeys(Json::array(), subkey.at("is_session"));
        return new GivenKeys(m_subkeys);
    }
    VProfilePrivateKeyIterator* CreateIterator(bool) override
    {
        auto names = std::make_unique<SnapshotIterator>();
        for (const Json& subkey : m_subkeys)
            names->Add(ToText(subkey.at("name")), VProfileValueType::Subkey);
        return names.release();
    }

private:
    Json m_subkeys;
    bool m_isSession;
};

struct GivenStore : VProfilePrivateStore {
    explicit GivenStore(const Json& keys) : subkeys(keys) {}
    VProfilePrivateKey* OpenRootKey(bool) override { return new GivenKeys(subkeys); }
    const Json& subkeys;
};

struct GivenFactory : VProfileStoreFactory {
    explicit GivenFactory(const Json& keys) : subkeys(keys) {}
    VProfilePrivateStore* CreateStore() override { return new GivenStore(subkeys); }
    const Json& subkeys;
};

Json Classify(const Json& theCase)
{
    const DefaultStore defaults;
    const auto config = VUnknownPointer<GlobalConfig>::Adopt(new GlobalConfig(nullptr, false));
    config->hideDotSessionFiles = theCase.at("hide_dot").get<bool>();
    ModuleState().globalConfig = config;
    GivenFactory factory(theCase.at("subkeys"));
    const DefaultStore given(&factory);
    const ProfileFolderData folder(u"", false);
    ModuleState().globalConfig.Reset();
    return {{"sessions", FromList(folder.foundSessions)}, {"folders", FromList(folder.foundFolders)}};
}

Json Merge(const Json& theCase)
{
    VStringArray ordered;
    const bool isChanged = MergeFolderList(ToText(theCase.at("stored")), ToList(theCase.at("found")), ordered);
    const size_t known = theCase.at("expect").at("first_in_order").size();
    Json first = Json::array();
    Json others = Json::array();
    for (size_t i = 0; i < ordered.GetCount(); ++i)
        (i < known ? first : others).push_back(FromText(ordered[i]));
    Json expected = theCase.at("expect").at("then_in_any_order");
    if (std::ranges::is_permutation(others, expected))
        others = expected;
    return {{"first_in_order", first}, {"then_in_any_order", others}, {"changed", isChanged}};
}

Json Join(const Json& theCase) { return {{"text", FromText(JoinFolderList(ToList(theCase.at("names"))))}}; }

Json Insert(const Json& theCase)
{
    VStringArray names = ToList(theCase.at("names"));
    InsertName(names, ToText(theCase.at("insert")), ToText(theCase.at("anchor")), false,
               theCase.at("sort_alphabetical"));
    return {{"names", FromList(names)}};
}

constexpr std::array kKinds = {Kind{"classify", Classify}, Kind{"merge", Merge}, Kind{"join", Join},
                               Kind{"insert", Insert}};

} // namespace

std::span<const Kind> SessionFolderKinds() { return kKinds; }

} // namespace ostrand::vectors
