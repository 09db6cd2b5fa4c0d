#include "stores/stray_files.h"

#include "core/fold.h"
#include "platform/error_codes.h"
#include "stores/file_names.h"
#include "stores/key_files.h"
#include "stores/store_lock.h"

#include <algorithm>
#include <cctype>
#include <map>

namespace ostrand {

namespace {

bool EndsLikeValues(std::string_view name)
{
    if (name.size() < kValuesSuffix.size())
        return false;
    const std::string_view end = name.substr(name.size() - kValuesSuffix.size());
    return std::equal(end.begin(), end.end(), kValuesSuffix.begin(),
                      [](char a, char b) { return std::tolower(static_cast<unsigned char>(a)) == b; });
}

/// "%root.ini", "%history": a percent sign without two hexadecimal digits is in no key's name, so it is the store's.
bool IsStoresOwn(std::string_view name)
{
    return name.size() > 1 && name[0] == '%' && std::isxdigit(static_cast<unsigned char>(name[1])) == 0;
}

class Search {
public:
    Search(const std::string& root, std::vector<StrayFile>& strays) : m_root(root), m_strays(strays) {}

    unsigned Run(const std::string& folder)
    {
        if (LeadsBack(m_root, folder))
            return kErrorSuccess;
        std::vector<VFolderEntry> entries;
        const unsigned code = Files().ListFolder(folder, entries);
        if (code != kErrorSuccess)
            return IsMissing(code) ? kErrorSuccess : code;
        std::sort(entries.begin(), entries.end(),
                  [](const VFolderEntry& a, const VFolderEntry& b) { return a.name < b.name; });
        std::map<std::u16string, std::string> spellings; // without suffix, by folded name
        for (const VFolderEntry& entry : entries)
            if (IsConcern(entry))
                if (const unsigned below = Look(folder, entry, spellings); below != kErrorSuccess)
                    return below;
        return kErrorSuccess;
    }

private:
    static bool IsConcern(const VFolderEntry& entry)
    {
        return !IsStoresOwn(entry.name) && (entry.isFolder ? entry.name[0] != '.' : EndsLikeValues(entry.name));
    }

    unsigned Look(const std::string& folder, const VFolderEntry& entry,
                  std::map<std::u16string, std::string>& spellings)
    {
        const std::string path = folder + '/' + entry.name;
        std::string_view base = entry.name;
        const bool hasSuffix = entry.isFolder || base.ends_with(kValuesSuffix);
        if (!entry.isFolder)
            base.remove_suffix(kValuesSuffix.size());
        std::u16string name;
        if (!hasSuffix || !DecodeKeyName(base, name)) {
            m_strays.push_back({StrayKind::NoKeysName, path, {}});
            return kErrorSuccess;
        }
        const auto [there, isNew] = spellings.try_emplace(FoldedCase(name), base);
        if (!isNew && there->second != base)
            m_strays.push_back({StrayKind::DiffersInCase, path, folder + '/' + there->second});
        return entry.isFolder ? Run(path) : kErrorSuccess;
    }

    const std::string& m_root;
    std::vector<StrayFile>& m_strays;
};

} // namespace

unsigned FindStrayFiles(const std::string& folder, std::vector<StrayFile>& strays)
{
    return Search(folder, strays).Run(folder);
}

const char16_t* DescribeStray(StrayKind kind)
{
    return kind == StrayKind::NoKeysName ? u"isn't named as the store names a key's file"
                                         : u"differs in case alone from";
}

} // namespace ostrand
