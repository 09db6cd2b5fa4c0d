// What reaches the disk: syncs, and what a power failure makes of the rest.
#include "tests/crash/sim_disk.h"

#include <algorithm>
#include <iterator>

namespace ostrand::test {

namespace {

constexpr size_t kBlocks[] = {512, 4096};

} // namespace

void SimDisk::SetEntry(Entries& entries, const EntryChange& change)
{
    if (change.node == 0)
        entries.erase(change.name);
    else
        entries[change.name] = change.node;
}

void SimDisk::Commit(std::vector<EntryChange> entries, bool isExchange)
{
    for (const EntryChange& change : entries)
        SetEntry(m_nodes[change.folder].entries, change);
    m_pending.push_back({m_folderChanges++, isExchange, std::move(entries)});
}

void SimDisk::Settle(const FolderChange& change, size_t only)
{
    for (size_t i = 0; i < change.entries.size(); ++i)
        if (only == kAll || i == only)
            SetEntry(m_nodes[change.entries[i].folder].syncedEntries, change.entries[i]);
}

void SimDisk::SyncEntries(Id folder)
{
    // From the last one back, since one that touches two folders brings the earlier ones of both along.
    std::vector<Id> folders{folder};
    std::vector<FolderChange> synced;
    for (size_t i = m_pending.size(); i-- > 0;) {
        const auto isOurs = [&](const EntryChange& c) { return std::ranges::count(folders, c.folder) > 0; };
        if (std::ranges::none_of(m_pending[i].entries, isOurs))
            continue;
        for (const EntryChange& change : m_pending[i].entries)
            folders.push_back(change.folder);
        m_journaled = std::max(m_journaled, m_pending[i].number + 1);
        synced.push_back(std::move(m_pending[i]));
        m_pending.erase(m_pending.begin() + static_cast<std::ptrdiff_t>(i));
    }
    for (size_t i = synced.size(); i-- > 0;)
        Settle(synced[i]);
}

void SimDisk::SyncAll()
{
    for (const FolderChange& change : m_pending)
        Settle(change);
    m_pending.clear();
    m_journaled = m_folderChanges;
    for (Node& node : m_nodes)
        SyncNode(node);
}

void SimDisk::LoseChanges(Node& node) const
{
    for (Change& change : node.changes)
        change.isLost = change.isLost || !plan.dies;
}

SimDisk SimDisk::Kill() const
{
    SimDisk after(*this);
    after.Restart();
    return after;
}

SimDisk SimDisk::PowerCut(CutPolicy policy, Dice& dice) const
{
    SimDisk after(*this);
    const size_t journaled = m_journaled + dice.Below(m_folderChanges - m_journaled + 1);
    for (const FolderChange& change : m_pending) {
        if (policy == CutPolicy::Ordered ? change.number >= journaled : dice.Coin())
            continue;
        const bool isHalf = policy == CutPolicy::Harsh && change.isExchange && dice.Coin();
        after.Settle(change, isHalf ? dice.Below(change.entries.size()) : kAll);
    }
    for (Node& node : after.m_nodes) {
        node.bytes = Survivor(node, dice);
        if (dice.Coin())
            node.syncedRights = node.rights;
        node.rights = node.syncedRights;
        node.entries = node.syncedEntries;
        node.synced = node.bytes;
        node.changes.clear();
    }
    after.m_pending.clear();
    after.m_journaled = after.m_folderChanges;
    after.Restart();
    return after;
}

void SimDisk::Restart()
{
    plan = {};
    calls.clear();
    for (Node& node : m_nodes) {
        node.handles = 0;
        node.lock = nullptr;
    }
}

std::string SimDisk::Survivor(const Node& node, Dice& dice)
{
    if (node.changes.empty())
        return node.synced;
    enum Way { All, None, Some, Torn, Zeros, kWays };
    const auto way = static_cast<Way>(dice.Below(kWays));
    if (way == All || way == None)
        return way == All ? node.bytes : node.synced;
    const size_t block = kBlocks[dice.Below(std::size(kBlocks))];
    std::string bytes = node.synced;
    for (const Change& change : node.changes) {
        const bool isResize = change.bytes.empty();
        if (way == Zeros && !isResize)
            Apply({change.at, std::string(change.bytes.size(), '\0'), false}, bytes);
        else if (way == Torn && !isResize)
            ApplyTorn(change, block, bytes, dice);
        else if (way == Zeros || dice.Coin())
            Apply(change, bytes);
    }
    return bytes;
}

void SimDisk::ApplyTorn(const Change& change, size_t block, std::string& bytes, Dice& dice)
{
    const uint64_t end = change.at + change.bytes.size();
    for (uint64_t from = change.at, to = 0; from < end; from = to) {
        enum Fate { New, Old, Zero, kFates };
        const auto fate = static_cast<Fate>(dice.Below(kFates));
        to = std::min(end, (from / block + 1) * block);
        if (fate == New)
            Apply({from, change.bytes.substr(from - change.at, to - from), false}, bytes);
        else if (fate == Zero)
            Apply({from, std::string(to - from, '\0'), false}, bytes);
    }
}

void SimDisk::Apply(const Change& change, std::string& bytes)
{
    if (change.bytes.empty()) {
        bytes.resize(change.at);
        return;
    }
    bytes.resize(std::max<size_t>(bytes.size(), change.at + change.bytes.size()));
    bytes.replace(change.at, change.bytes.size(), change.bytes);
}

void SimDisk::Alter(Id id, Change change)
{
    Node& node = m_nodes[id];
    Apply(change, node.bytes);
    node.changes.push_back(std::move(change));
    node.changed = ++m_time;
}

void SimDisk::SyncNode(Node& node)
{
    const bool hasLost = std::ranges::any_of(node.changes, &Change::isLost);
    for (const Change& change : node.changes)
        if (hasLost && !change.isLost)
            Apply(change, node.synced);
    if (!hasLost)
        node.synced = node.bytes;
    node.changes.clear();
    node.syncedRights = node.rights;
}

} // namespace ostrand::test
