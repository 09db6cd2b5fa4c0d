// A disk in memory behind a page cache: what processes see is one thing, what a power failure leaves another. Each call
// has a number, and can fail, or be the last that the process makes.
//
//     SimDisk disk;                            // empty
//     disk.Put("/store/Key.ini", "A = 1\n");   // was always there
//     Platform().files = &disk;                // for as long as a VPlatformScope says
//     disk.plan = {.at = 7, .dies = true};
//     ...
//     SimDisk after = disk.PowerCut(CutPolicy::Ordered, dice);
#pragma once

#include "platform/error_codes.h"
#include "platform/files.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace ostrand::test {

/// SplitMix64 (Steele, Lea and Flood, 2014): a seed gives the same numbers on every system.
class Dice {
public:
    explicit Dice(uint64_t seed) : m_state(seed) {}
    uint64_t Roll()
    {
        uint64_t z = m_state += 0x9E3779B97F4A7C15u;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }
    size_t Below(size_t limit) { return static_cast<size_t>(Roll() % limit); }
    bool Coin() { return Roll() >> 63 != 0; }

private:
    uint64_t m_state;
};

/// Which changes of folders survive that were not synced.
enum class CutPolicy {
    Ordered,   ///< all up to one of them and none behind it, over the whole disk: file systems with a journal
    Unordered, ///< any, each as a whole
    Harsh      ///< any, and of an exchange perhaps one half: the file then has both names, or none
};

/// Links don't exist: a path is where it leads. Copies come from Kill and PowerCut.
class SimDisk : public IFiles {
public:
    static constexpr size_t kNever = static_cast<size_t>(-1);

    /// What goes wrong, and at which call from now on.
    struct Plan {
        size_t at = kNever;
        unsigned code = kErrorDiskFull;
        bool isLasting = false; ///< the calls behind it fail, too
        bool dies = false;      ///< the process ends: a write leaves half, and no later call does anything
    };

    SimDisk();

    /// A fault counts from the calls so far, so set one with `at = calls.size() + n`.
    Plan plan;
    /// Names of the calls so far.
    std::vector<const char*> calls;
    /// Whether the process died by the plan.
    bool IsDead() const { return plan.dies && calls.size() > plan.at; }
    bool hasExchange = true; ///< whether the medium knows how to

    /// A file that reached the disk long ago, with its folders.
    void Put(std::string_view path, std::string bytes, unsigned mode = 0600);
    /// What a process would read; not counted as a call. None for a missing file.
    std::optional<std::string> Text(std::string_view path) const;
    unsigned ModeOf(std::string_view path) const;

    /// The process ended: nothing is open or locked, the page cache lives on.
    SimDisk Kill() const;
    /// The power failed: of what was not synced the dice decide.
    SimDisk PowerCut(CutPolicy policy, Dice& dice) const;

    unsigned Open(const std::string& path, VFileAccess access, VFileDisposition disposition, unsigned mode,
                  std::unique_ptr<IFile>& file, bool* existed) override;
    unsigned OpenAlone(const std::string& path, std::unique_ptr<IFile>& file, VFileInfo& info) override;
    unsigned OpenNameless(const std::string& path, std::unique_ptr<IFile>& file) override;
    unsigned ReadWhole(const std::string& path, size_t limit, std::string& data, VFileInfo& info) override;
    unsigned GetInfo(const std::string& path, VFileInfo& info) override;
    unsigned Rename(const std::string& from, const std::string& to) override;
    unsigned Exchange(const std::string& a, const std::string& b) override;
    unsigned Remove(const std::string& path) override;
    unsigned CreateFolder(const std::string& path, unsigned mode) override;
    unsigned RemoveFolder(const std::string& path) override;
    unsigned SyncFolder(const std::string& path) override;
    unsigned SyncMedium(const std::string& path) override;
    unsigned ListFolder(const std::string& path, std::vector<VFolderEntry>& entries) override;
    bool CanWrite(const std::string& path) override;
    std::string ResolveLinks(const std::string& path) override { return path; }
    unsigned CreateWatch(std::unique_ptr<IFolderWatch>& watch) override;

private:
    class File;
    static constexpr size_t kAll = static_cast<size_t>(-1);
    using Id = size_t; // index of a node; 0: none
    using Entries = std::map<std::string, Id, std::less<>>;

    /// A write, or a new size where there are no bytes.
    struct Change {
        uint64_t at;
        std::string bytes;
        bool isLost; // its sync failed: it is in the cache as if it were clean, and no later sync writes it
    };
    struct Rights {
        unsigned mode = 0, owner = 0, group = 0;
    };
    /// A file or a folder.
    struct Node {
        bool isFolder = false;
        uint64_t number = 0; ///< used again when the node is gone, as disks do
        std::string bytes, synced;
        std::vector<Change> changes; // between the two
        Rights rights, syncedRights;
        Entries entries, syncedEntries;
        int64_t changed = 0;
        int handles = 0;
        const void* lock = nullptr; // the open file that holds it
    };
    struct EntryChange {
        Id folder;
        std::string name;
        Id node;
    };
    /// One operation on one or two entries.
    struct FolderChange {
        size_t number;
        bool isExchange;
        std::vector<EntryChange> entries;
    };
    struct Place {
        Id folder = 0;
        std::string_view name;
        Id node = 0;
        EntryChange With(Id other) const { return {folder, std::string(name), other}; }
    };

    unsigned Find(std::string_view path, Place& place) const;
    /// The same for a node that has to be there.
    unsigned FindNode(std::string_view path, Id& node) const;
    VFileInfo InfoOf(Id id) const;
    size_t NamesOf(Id id) const;
    uint64_t FreeNumber() const;
    Id Make(bool isFolder, unsigned mode);
    std::unique_ptr<IFile> OpenNode(Id id);
    void Alter(Id id, Change change);
    void Commit(std::vector<EntryChange> entries, bool isExchange = false);
    void SyncEntries(Id folder);
    void SyncAll();
    static void SyncNode(Node& node);
    /// A sync failed: the disk drops what it refused and says so once.
    void LoseChanges(Node& node) const;
    static void SetEntry(Entries& entries, const EntryChange& change);
    /// All entries, or one of them.
    void Settle(const FolderChange& change, size_t only = kAll);
    static void Apply(const Change& change, std::string& bytes);
    static void ApplyTorn(const Change& change, size_t block, std::string& bytes, Dice& dice);
    static std::string Survivor(const Node& node, Dice& dice);
    void Restart();

    template <class Call>
    unsigned Step(const char* name, Call call)
    {
        return Step(name, call, [] {});
    }
    template <class Call, class Half>
    unsigned Step(const char* name, Call call, Half half)
    {
        const size_t number = calls.size();
        calls.push_back(name);
        if (number < plan.at || (number > plan.at && !plan.dies && !plan.isLasting)) {
            if constexpr (!std::is_void_v<decltype(call())>)
                return call();
            else
                return call(), kErrorSuccess;
        }
        if (number == plan.at)
            half();
        return plan.dies ? kErrorGeneralFailure : plan.code;
    }

    std::vector<Node> m_nodes;
    std::vector<FolderChange> m_pending;
    size_t m_folderChanges = 0; // ever
    size_t m_journaled = 0;     // of them, those up to the last one that was synced
    int64_t m_time = 0;
};

} // namespace ostrand::test
