#include "stores/memory_tree.h"

#include "core/fold.h"

#include <algorithm>

namespace ostrand {

namespace {

/// Place of the first key whose name isn't below `name`.
template <class Keys>
auto PlaceOf(Keys& keys, std::u16string_view name)
{
    return std::lower_bound(keys.begin(), keys.end(), name,
                            [](const auto& key, std::u16string_view n) { return CompareNoCase(key->name, n) < 0; });
}

std::shared_ptr<MemoryNode> Child(const MemoryNode& node, std::u16string_view name)
{
    const auto place = PlaceOf(node.keys, name);
    return place != node.keys.end() && EqualNoCase((*place)->name, name) ? *place : nullptr;
}

template <class Values>
auto PlaceOfValue(Values& values, std::u16string_view name)
{
    return std::find_if(values.begin(), values.end(),
                        [name](const MemoryValue& v) { return EqualNoCase(v.name, name); });
}

} // namespace

VProfileValueType TypeOf(const StoreValue& value)
{
    return std::holds_alternative<ForeignValue>(value) ? VProfileValueType::Other
                                                       : static_cast<VProfileValueType>(value.index());
}

const MemoryValue* MemoryNode::FindValue(std::u16string_view valueName) const
{
    const auto place = PlaceOfValue(values, valueName);
    return place == values.end() ? nullptr : &*place;
}

void MemoryNode::SetValue(std::u16string_view valueName, StoreValue value)
{
    if (const auto place = PlaceOfValue(values, valueName); place != values.end())
        place->value = std::move(value);
    else
        values.push_back({valueName, std::move(value)});
}

bool MemoryNode::RemoveValue(std::u16string_view valueName)
{
    const auto place = PlaceOfValue(values, valueName);
    if (place == values.end())
        return false;
    values.erase(place);
    return true;
}

std::shared_ptr<MemoryNode> MemoryNode::FindKey(std::span<const std::u16string_view> levels) const
{
    std::shared_ptr<MemoryNode> found = Child(*this, levels.front());
    for (size_t i = 1; found && i < levels.size(); ++i)
        found = Child(*found, levels[i]);
    return found;
}

void MemoryNode::Remove(const std::shared_ptr<MemoryNode>& node)
{
    node->Empty();
    std::erase(node->parent->keys, node);
}

void MemoryNode::Empty()
{
    for (const auto& key : keys)
        key->Empty();
    keys.clear();
    values.clear();
    isDeleted = true;
}

void MemoryNode::ForEach(const std::function<void(const MemoryNode&)>& act) const
{
    act(*this);
    for (const auto& key : keys)
        key->ForEach(act);
}

std::shared_ptr<MemoryNode> MemoryTree::MakeKey(MemoryNode& from, std::span<const std::u16string_view> levels,
                                                bool isLogged)
{
    MemoryNode* node = &from;
    std::shared_ptr<MemoryNode> child;
    for (const std::u16string_view level : levels) {
        child = Child(*node, level);
        if (!child) {
            child = std::make_shared<MemoryNode>();
            child->name = level;
            child->path = node->path + (node->path.empty() ? u"" : u"\\") + std::u16string(level);
            child->parent = node;
            node->keys.insert(PlaceOf(node->keys, level), child);
            if (isLogged)
                log.push_back({StoreAct::CreateKey, child->path, {}});
            if (transaction)
                transaction->made.push_back(child);
        }
        node = child.get();
    }
    return child;
}

void MemoryTree::Begin()
{
    transaction.emplace();
    transaction->logSize = log.size();
}

void MemoryTree::Keep(const std::shared_ptr<MemoryNode>& node)
{
    if (!transaction)
        return;
    const auto same = [&](const MemoryTransaction::Before& before) { return before.node == node; };
    if (std::none_of(transaction->changed.begin(), transaction->changed.end(), same))
        transaction->changed.push_back({node, node->values});
}

void MemoryTree::RollBack()
{
    for (MemoryTransaction::Before& before : transaction->changed)
        before.node->values = std::move(before.values);
    // From the last one on: a key goes before the one that it was made in.
    while (!transaction->made.empty()) {
        MemoryNode::Remove(transaction->made.back());
        transaction->made.pop_back();
    }
    log.resize(std::min(log.size(), transaction->logSize));
    transaction.reset();
}

} // namespace ostrand
