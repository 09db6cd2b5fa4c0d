// store dump, and the words for shell completion
#include "tools/commands.h"
#include "tools/config_folder.h"
#include "tools/global_record.h"
#include "tools/key_walk.h"
#include "tools/output.h"
#include "tools/value_json.h"

namespace ostrand::tool {

namespace {

/// One stored value: its kind and its JSON.
struct Stored {
    const char* kind;
    Json value;
};

Stored ReadDwordValue(const VProfileKey& key, const char16_t* name)
{
    unsigned value = 0;
    key.ReadDword(name, &value);
    return {"dword", value};
}

Stored ReadStringValue(const VProfileKey& key, const char16_t* name)
{
    VUnicodeString value;
    key.ReadString(name, value);
    return {"string", Lossless(value)};
}

Stored ReadBlockValue(const VProfileKey& key, const char16_t* name)
{
    VProfileBlob block;
    block.Load(&key, name);
    return {"block", ValueToJson(VValueClass::Blob, block)};
}

Stored ReadListValue(const VProfileKey& key, const char16_t* name)
{
    VProfileStringList list;
    list.SetName(name);
    list.Merge(&key);
    return {"strings", ValueToJson(VValueClass::Strings, list)};
}

Stored ReadStored(const VProfileKey& key, const char16_t* name, VProfileValueType type)
{
    switch (type) {
    case VProfileValueType::Dword:
        return ReadDwordValue(key, name);
    case VProfileValueType::String:
        return ReadStringValue(key, name);
    case VProfileValueType::Binary:
        return ReadBlockValue(key, name);
    case VProfileValueType::MultiSz:
        return ReadListValue(key, name);
    case VProfileValueType::Subkey:
    case VProfileValueType::Other:
        break;
    }
    return {"unknown", Json()};
}

Json ValuesOf(const VProfileKey& key)
{
    Json values = Json::array();
    VProfileKeyIterator names(&key, true);
    VUnicodeString name;
    int type = 0;
    while (names.NextValue(name, &type)) {
        const Stored stored = ReadStored(key, name.c_str(), static_cast<VProfileValueType>(type));
        Json entry = {{"name", Lossless(name)}, {"type", stored.kind}, {"value", stored.value}};
        if (stored.value.is_object())
            entry["value"] = stored.value["hex"];
        values.push_back(entry);
    }
    return values;
}

std::string StoredText(const Json& entry)
{
    if (entry["value"].is_null())
        return "(of a kind that this version doesn't know)";
    return entry["type"] == "block" ? "hex:" + entry["value"].get<std::string>() : ValueToText(entry["value"]);
}

std::string KeyText(const Json& key)
{
    std::string text = "[" + Plain(key["key"].get<std::string>()) + "]\n";
    for (const Json& entry : key["values"])
        text += Plain(entry["name"].get<std::string>()) + " = " + StoredText(entry) + "\n";
    return text;
}

} // namespace

Exit DumpStore(const Request& request)
{
    ConfigFolder folder;
    if (const Exit opened = folder.Open(request, Access::Read); opened != Exit::Done)
        return opened;
    std::unique_ptr<VProfileKey> key;
    if (const Exit found = folder.OpenKey(request.key, key); found != Exit::Done)
        return found;
    Json keys = Json::array();
    VUnicodeString path;
    FromUtf8(request.key, path);
    WalkKeys(*key, path, [&](const VProfileKey& at, const VUnicodeString& name) {
        folder.WarnOfBrokenLines(name.c_str());
        keys.push_back({{"key", Lossless(name)}, {"values", ValuesOf(at)}});
    });
    if (request.asJson)
        return Print(WriteJson(keys));
    std::string text;
    for (const Json& entry : keys)
        if (!entry["values"].empty() || !entry["key"].get_ref<const std::string&>().empty())
            text += (text.empty() ? "" : "\n") + KeyText(entry);
    return Print(text);
}

Exit CompleteValues(const Request& request)
{
    GlobalRecord record(GlobalDefaults(request.IsOrvane(), false));
    std::string text;
    for (const std::string& name : NamesOf(record))
        text += name + "\n";
    return Print(text);
}

Exit CompleteKeys(const Request& request)
{
    ConfigFolder folder;
    if (const Exit opened = folder.Open(request, Access::Read); opened != Exit::Done)
        return opened;
    std::string text;
    WalkKeys(folder.Root(), VUnicodeString(), [&](const VProfileKey&, const VUnicodeString& path) {
        if (!path.IsEmpty())
            text += Plain(Lossless(path)) + "\n";
    });
    return Print(text);
}

} // namespace ostrand::tool
