#include "config/session/folder_list.h"

#include "core/fold.h"

#include <algorithm>
#include <unordered_map>

namespace ostrand {

namespace {

struct NameHash {
    size_t operator()(std::u16string_view name) const { return static_cast<size_t>(HashNoCase(name)); }
};
struct SameName {
    bool operator()(std::u16string_view a, std::u16string_view b) const { return EqualNoCase(a, b); }
};
/// Names, which must outlive it, and a number for each. The first of equal names counts.
using NameTable = std::unordered_map<std::u16string_view, size_t, NameHash, SameName>;

NameTable TableOf(const VStringArray& names)
{
    NameTable table;
    table.reserve(names.GetCount());
    for (size_t i = 0; i < names.GetCount(); ++i)
        table.try_emplace(names[i], i);
    return table;
}

/// The count where the name isn't in the list.
size_t PlaceOf(const VStringArray& list, std::u16string_view name)
{
    const auto found =
        std::find_if(list.begin(), list.end(), [name](std::u16string_view n) { return EqualNoCase(n, name); });
    return static_cast<size_t>(found - list.begin());
}

} // namespace

VUnicodeString JoinFolderList(const VStringArray& names)
{
    std::u16string text;
    for (const VUnicodeString& name : names)
        text.append(name.View()).push_back(u':');
    return std::u16string_view(text);
}

bool MergeFolderList(std::u16string_view stored, const VStringArray& found, VStringArray& ordered)
{
    NameTable left = TableOf(found);
    bool isChanged = false;
    ordered.RemoveAll();
    while (!stored.empty()) {
        const std::u16string_view name = stored.substr(0, stored.find(u':'));
        stored.remove_prefix(std::min(name.size() + 1, stored.size()));
        const auto there = left.find(name);
        if (there == left.end()) {
            isChanged = true;
            continue;
        }
        ordered.Append(found[there->second]);
        isChanged |= there->first != name;
        left.erase(there);
    }
    for (const VUnicodeString& name : found)
        if (left.erase(name) > 0) {
            ordered.Append(name);
            isChanged = true;
        }
    return isChanged;
}

void InsertName(VStringArray& list, const VUnicodeString& name, const VUnicodeString& anchor, bool /*unused*/,
                bool sortAlphabetical)
{
    VStringArray one(1);
    one.Append(name);
    InsertNames(list, one, anchor, sortAlphabetical);
}

void InsertNames(VStringArray& list, const VStringArray& names, const VUnicodeString& anchor, bool sortAlphabetical)
{
    NameTable inserted = TableOf(names);
    VStringArray result(list.GetCount() + names.GetCount());
    const auto insert = [&] {
        for (const VUnicodeString& name : names)
            if (inserted[name] == static_cast<size_t>(&name - names.begin()))
                result.Append(name);
    };
    bool isInserted = false;
    for (const VUnicodeString& name : list) {
        if (inserted.contains(name))
            continue;
        result.Append(name);
        if (!isInserted && !sortAlphabetical && EqualNoCase(name, anchor)) {
            insert();
            isInserted = true;
        }
    }
    if (!isInserted)
        insert();
    list = std::move(result);
}

bool RenameName(VStringArray& list, std::u16string_view from, const VUnicodeString& to)
{
    const size_t place = PlaceOf(list, from);
    if (place == list.GetCount())
        return false;
    list[place] = to;
    for (size_t i = list.GetCount(); i-- > 0;)
        if (i != place && EqualNoCase(list[i], to))
            list.RemoveAt(i);
    return true;
}

bool MoveName(VStringArray& list, std::u16string_view name, size_t place)
{
    const size_t from = PlaceOf(list, name);
    if (from == list.GetCount())
        return false;
    VUnicodeString moved = list[from];
    list.RemoveAt(from);
    list.InsertAt(std::min(place, list.GetCount()), std::move(moved));
    return true;
}

bool RemoveName(VStringArray& list, std::u16string_view name)
{
    const size_t place = PlaceOf(list, name);
    if (place == list.GetCount())
        return false;
    list.RemoveAt(place);
    return true;
}

} // namespace ostrand
