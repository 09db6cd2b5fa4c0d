#include "imports/putty_keys.h"

#include "core/fold.h"
#include "core/utf8.h"
#include "imports/import_text.h"

#include <unordered_map>
#include <utility>

namespace ostrand {

namespace {

constexpr std::u16string_view kSessions = u"\\PuTTY\\Sessions\\";

int HexValue(char16_t c)
{
    if (c >= u'0' && c <= u'9')
        return c - u'0';
    c |= 0x20;
    return c >= u'a' && c <= u'f' ? c - u'a' + 10 : -1;
}

/// The bytes of a name with its "%XX" decoded. Where bytes were written that way, they are UTF-8 or the code page.
VUnicodeString DecodeName(std::u16string_view encoded)
{
    std::string bytes;
    for (size_t at = 0; at < encoded.size();) {
        const int high = encoded[at] == u'%' && at + 2 < encoded.size() ? HexValue(encoded[at + 1]) : -1;
        const int low = high >= 0 ? HexValue(encoded[at + 2]) : -1;
        if (low >= 0) {
            bytes.push_back(static_cast<char>(high << 4 | low));
            at += 3;
        } else {
            PutUtf8(TakeUtf16(encoded, at), bytes);
        }
    }
    return DecodeNarrow(bytes);
}

/// The encoded name of the session that a key is; empty for any other key.
std::u16string_view SessionOf(std::u16string_view path)
{
    const size_t bar = path.rfind(u'\\');
    if (bar == std::u16string_view::npos || bar + 1 < kSessions.size())
        return {};
    const bool isSession = EqualNoCase(path.substr(bar + 1 - kSessions.size(), kSessions.size()), kSessions);
    return isSession ? path.substr(bar + 1) : std::u16string_view();
}

/// A session on its way: places of its values by folded name.
struct Growing {
    PuttySession session;
    std::unordered_map<std::u16string, size_t> places;

    void Take(const RegistryKey& key)
    {
        session.isDeleted = key.isDeleted;
        if (key.isDeleted) {
            session.values.clear();
            places.clear();
        }
        for (const RegistryValue& value : key.values) {
            const auto [place, isNew] = places.try_emplace(FoldedCase(value.name), session.values.size());
            if (isNew)
                session.values.push_back(nullptr);
            const bool isGone = std::holds_alternative<RegistryDeletion>(value.data);
            session.values[place->second] = isGone ? nullptr : &value;
        }
    }
};

} // namespace

std::vector<PuttySession> FindPuttySessions(const std::vector<RegistryKey>& keys)
{
    std::vector<Growing> growing;
    std::unordered_map<std::u16string, size_t> places; // by the folded name of the key
    for (const RegistryKey& key : keys) {
        const std::u16string_view encodedName = SessionOf(key.path);
        if (encodedName.empty())
            continue;
        const auto [place, isNew] = places.try_emplace(FoldedCase(encodedName), growing.size());
        if (isNew)
            growing.push_back({{DecodeName(encodedName), key.line, false, {}}, {}});
        growing[place->second].Take(key);
    }
    std::vector<PuttySession> sessions;
    for (Growing& each : growing) {
        std::erase(each.session.values, nullptr);
        sessions.push_back(std::move(each.session));
    }
    return sessions;
}

} // namespace ostrand
