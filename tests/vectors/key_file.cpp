// Key map files.

#include "core/tokenize.h"
#include "tests/support/memory_files.h"
#include "tests/vectors/json_keymap.h"

#include <array>

namespace ostrand::vectors {

namespace {

constexpr const char* kFile = "/map.key";
constexpr const char16_t* kPath = u"/map.key";

class Files {
public:
    Files() { Platform().files = &m_files; }

    bool Load(const Json& bytes, Keymap& keymap, IReportMessageParams& status)
    {
        const std::vector<uint8_t> content = ToBytes(bytes);
        m_files.contents[kFile].assign(content.begin(), content.end());
        return keymap.LoadFromFile(kPath, status);
    }
    Json Save(const Keymap& keymap, bool unicode)
    {
        if (!keymap.SaveToFile(kPath, unicode))
            return nullptr;
        const std::string& bytes = m_files.contents[kFile];
        return FromBytes({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()});
    }

private:
    VPlatformScope m_scope;
    test::MemoryFiles m_files;
};

Json Read(const Json& theCase)
{
    Keymap keymap;
    VReportMessageParams status;
    Json got = {{"result", Files().Load(theCase.at("file"), keymap, status)}, {"code", status.GetCode()}};
    const VUnicodeString detail = status.GetArgumentCount() > 1 ? status.GetArguments()[1] : u"";
    VStringArray messages;
    if (!detail.IsEmpty())
        Tokenize(detail, messages, u'\n');
    got["detail"] = FromText(detail);
    got["messages"] = FromList(messages);
    got["bindings"] = FromBindings(keymap);
    got["comment_seen"] = keymap.commentSeen;
    got["has_defaults"] = keymap.HasDefaults();
    got["lookups"] = Json::array();
    for (const Json& index : theCase.value("lookups", Json::array()))
        got["lookups"].push_back(FromBinding(keymap, ToNumber(index)));
    return got;
}

Json Write(const Json& theCase)
{
    Keymap keymap;
    SetBindings(theCase.at("bindings"), keymap);
    return {{"file", Files().Save(keymap, theCase.at("unicode"))}};
}

Json Rewrite(const Json& theCase)
{
    Keymap keymap;
    VReportMessageParams status;
    Files().Load(theCase.at("file"), keymap, status);
    return {{"file", Files().Save(keymap, theCase.at("unicode"))}};
}

constexpr std::array kKinds = {Kind{"read", Read}, Kind{"write", Write}, Kind{"rewrite", Rewrite}};

} // namespace

std::span<const Kind> KeyFileKinds() { return kKinds; }

} // namespace ostrand::vectors
