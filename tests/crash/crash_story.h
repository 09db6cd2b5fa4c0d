// Small stories over a file store on a simulated disk. Each is cut at any of its calls, by a killed process, a power
// failure or a fault; then the store is opened anew, and no key may show anything but one of its whole states.
#pragma once

#include "stores/file_store.h"
#include "tests/crash/sim_disk.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace ostrand::test {

/// What happens at the call.
enum class Fate {
    Kill,
    PowerOrdered, ///< these three: a power failure, with the policy of that name
    PowerUnordered,
    PowerHarsh,
    PowerTwice,     ///< again while the store is opened
    KillThenPower,  ///< the next program saves, and the power fails on its way
    OtherThenPower, ///< a program saves that had the store open all the time, and the power fails on its way
    FailOnce,       ///< the call fails; the program tries again
    FailOn,         ///< all calls fail until the program is told
    FailThenPower,  ///< the power fails on the way of the second try
};
inline constexpr size_t kFates = 10;
const char* NameOf(Fate fate);

struct CrashPoint {
    size_t call;
    Fate fate;
    uint64_t seed; ///< of all other choices
};

class CrashStory {
public:
    enum class Do { Number, Text, Drop, Flush, Close, DeleteKey, Begin, Commit };
    struct Action {
        Do what;
        size_t key = 0; ///< index of the store's keys
        const char16_t* name = u"";
        unsigned number = 0;  ///< the value, or how many characters a text has
        unsigned program = 0; ///< which of two that have the store open
    };

    struct Start {
        bool hasExchange = true;  ///< of two names, on the disk
        bool isEmpty = false;     ///< no store yet
        const char* options = ""; ///< the store's
        size_t transactionBytes = FileStoreFactory::kTransactionBytes;
    };

    /// Runs the story once without a fault.
    CrashStory(const char* name, std::vector<Action> actions, const Start& start);
    ~CrashStory();

    const char* Name() const { return m_name; }
    /// Points can be at any call below this.
    size_t Calls() const { return m_calls; }
    /// What was lost at the point; empty for nothing.
    std::string Lost(const CrashPoint& point);

private:
    class Programs;
    struct KeyState;
    struct Progress;
    struct Dead;
    using Store = std::vector<KeyState>;

    /// The store as a program sees it that opens it now.
    static Store Look(SimDisk& disk);
    /// The same, and leaves the disk as it is.
    static Store LookAgain(const SimDisk& disk);
    static std::string Compare(const Store& found, const Store& expected);
    static std::string Describe(const char* file, const KeyState& found);
    /// Whether each key has the texts of the story also if a flush fails and is not tried again.
    bool CanGoOn() const;
    bool IsLastWrite(size_t action) const;
    Progress Begin() const;
    std::string Judge(const Store& found, const Progress& progress) const;
    bool IsGroupWhole(const Store& found, size_t commit) const;
    void Tell(const Action& action, Progress& progress) const;
    /// Goes on until the story's end, an action that fails, or the death of the process.
    void Play(SimDisk& disk, Programs& programs, Progress& progress) const;
    const Dead& DeadAt(size_t call);
    std::string LostByCrash(const CrashPoint& point, Dice& dice);
    std::string LostByOther(size_t call, Dice& dice) const;
    std::string LostByFault(const CrashPoint& point, Dice& dice) const;
    std::string LostByRollBack(SimDisk& disk, Programs& programs, const Progress& progress, Dice& dice) const;
    std::string CheckFault(const SimDisk& disk, Programs& programs, const Progress& progress) const;
    /// One save of some key, with death at one of its calls or behind it.
    static void SaveExtra(SimDisk& disk, Programs& programs, unsigned program, Progress& progress, Dice& dice);
    /// Opens the store on a disk that survived, judges, saves, and cuts the power once more.
    std::string LostOn(SimDisk disk, const Progress& progress, Dice& dice) const;
    std::string LostLater(SimDisk disk, size_t key, const KeyState& saved, const Progress& progress) const;
    /// The history of a key: whole texts that it once had, the last one what it has now.
    std::string CheckVersions(Programs& programs, size_t key, const KeyState& now) const;

    const char* m_name;
    std::vector<Action> m_actions;
    size_t m_transactionBytes;
    SimDisk m_start;
    std::vector<Store> m_states; // at the start and after each action
    size_t m_calls = 0;
    std::unique_ptr<Dead> m_dead; // the last one that was asked for
    std::string m_flaw;           // of the story itself
};

std::vector<std::unique_ptr<CrashStory>> AllCrashStories();

/// `count` points, evenly over the story's calls and all fates.
void ForEachPoint(const CrashStory& story, size_t count, uint64_t seed,
                  const std::function<void(const CrashPoint&)>& take);

} // namespace ostrand::test
