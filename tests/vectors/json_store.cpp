#include "tests/vectors/json_store.h"

#include <utility>

namespace ostrand::vectors {

namespace {

StoreValue ToStored(const Json& value)
{
    const std::string kind = value.size() == 1 ? value.begin().key() : value.dump();
    const Json& content = *value.begin();
    if (kind == "dword")
        return ToNumber(content);
    if (kind == "string")
        return ToText(content);
    if (kind == "list")
        return ToList(content);
    if (kind == "block")
        return ToBytes(content);
    Unknown("kind of stored value", kind);
}

Json FromStored(const StoreValue& value)
{
    if (const auto* const number = std::get_if<unsigned>(&value))
        return {{"dword", *number}};
    if (const auto* const text = std::get_if<VUnicodeString>(&value))
        return {{"string", FromText(*text)}};
    if (const auto* const list = std::get_if<VStringArray>(&value))
        return {{"list", FromList(*list)}};
    return {{"block", FromBytes(std::get<StoreBlock>(value))}};
}

} // namespace

JsonStore::JsonStore(const Json& values, const char16_t* keyName) : m_keyName(keyName)
{
    for (const auto& [name, value] : values.items())
        m_factory.Fill({{m_keyName, std::u16string(ToText(name).View()), ToStored(value)}});
    m_store.emplace(&m_factory);
    m_key.emplace(m_store->GetRootKey(), keyName);
    TakeWrote();
}

Json JsonStore::Values() const
{
    Json values = Json::object();
    for (const StoreEntry& entry : m_factory.Dump())
        if (entry.key == m_keyName)
            values[FromText(entry.name).get<std::string>()] = FromStored(entry.value);
    return values;
}

Json JsonStore::Value(const VUnicodeString& name) const
{
    const Json values = Values();
    return values.value(FromText(name).get<std::string>(), Json());
}

DefaultStore::DefaultStore(VProfileStoreFactory* factory)
{
    s_factory = factory ? factory : &m_empty;
    SetProfileStoreFactoryGetter([] { return s_factory; });
}

DefaultStore::~DefaultStore() { SetProfileStoreFactoryGetter(nullptr); }

bool JsonStore::TakeWrote() { return !std::exchange(m_factory.Log(), {}).empty(); }

std::optional<JsonStore> StoreOf(const Json& step, const char* member)
{
    if (!step.contains(member) || step.at(member).is_null())
        return std::nullopt;
    return std::optional<JsonStore>(std::in_place, step.at(member));
}

} // namespace ostrand::vectors
