#include "core/paths/environment.h"

#include "core/fold.h"
#include "core/utf8.h"
#include "platform/platform.h"

namespace ostrand {

namespace {

constexpr size_t kRoom = 512; // characters of an expansion, with the zero behind it

/// Ignores case. Without a decoded copy: a template may ask for several names that none of many variables has.
bool IsSameName(std::string_view utf8, std::u16string_view name)
{
    for (size_t at = 0; at < name.size();) {
        char32_t c = 0;
        const unsigned bytes = utf8.empty() ? 0 : TakeUtf8(utf8, c);
        const char32_t wanted = TakeUtf16(name, at);
        const bool isFoldable = c < 0x10000 && wanted < 0x10000;
        if (bytes == 0 || (c != wanted && !(isFoldable && FoldCase(static_cast<char16_t>(c)) ==
                                                              FoldCase(static_cast<char16_t>(wanted)))))
            return false;
        utf8.remove_prefix(bytes);
    }
    return utf8.empty();
}

/// Looks variables up for one text.
class Variables {
public:
    bool Find(std::u16string_view name, VUnicodeString& value)
    {
        std::string exact;
        if (name.empty() || !ToUtf8(name, exact))
            return false;
        return GetEnvironmentText(exact.c_str(), value) || FindNoCase(name, value);
    }

private:
    bool FindNoCase(std::u16string_view name, VUnicodeString& value)
    {
        if (m_all.empty())
            m_all = Platform().environment->All();
        for (const std::string& entry : m_all) {
            const size_t equals = entry.find('=');
            if (equals != entry.npos && IsSameName(std::string_view(entry).substr(0, equals), name))
                return FromUtf8(std::string_view(entry).substr(equals + 1), value);
        }
        return false;
    }

    std::vector<std::string> m_all; // fetched when the first name isn't found as it stands
};

} // namespace

bool GetEnvironmentText(const char* name, VUnicodeString& value)
{
    std::string bytes;
    VUnicodeString text;
    if (!Platform().environment->Get(name, bytes) || !FromUtf8(bytes, text))
        return false;
    value = text;
    return true;
}

VUnicodeString ExpandEnvironment(std::u16string_view text)
{
    Variables variables;
    std::u16string out;
    size_t copied = 0;
    for (size_t open = text.find(u'%'); open != text.npos;) {
        const size_t close = text.find(u'%', open + 1);
        VUnicodeString value;
        if (close != text.npos && variables.Find(text.substr(open + 1, close - open - 1), value)) {
            out.append(text.substr(copied, open - copied)).append(value.View());
            copied = close + 1;
            open = text.find(u'%', copied);
        } else {
            open = close;
        }
    }
    out.append(text.substr(copied));
    return out.size() < kRoom ? VUnicodeString(out) : VUnicodeString(text);
}

} // namespace ostrand
