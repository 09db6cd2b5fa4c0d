#include "tests/crash/crash_story.h"

#include "core/report.h"
#include "tests/crash/crash_programs.h"

#include <algorithm>
#include <array>
#include <optional>

namespace ostrand::test {

/// How far a story got, and what its programs were promised.
struct CrashStory::Progress {
    std::vector<size_t> durable; ///< for each key: of the states, the one that a flush told as saved
    size_t reached = 0;          ///< the action under way
    std::optional<size_t> extraKey;
    bool isExtraSaved = false;
};

struct CrashStory::Dead {
    size_t call;
    SimDisk disk;
    Progress progress;
};

namespace {

constexpr const char* kFateNames[] = {"kill",        "power-ordered",   "power-unordered",  "power-harsh",
                                      "power-twice", "kill-then-power", "other-then-power", "fail-once",
                                      "fail-on",     "fail-then-power"};
constexpr unsigned kFailures[] = {kErrorDiskFull, kErrorGeneralFailure, kErrorAccessDenied};
constexpr CutPolicy kPolicies[] = {CutPolicy::Ordered, CutPolicy::Unordered, CutPolicy::Harsh};

// Calls among which a second death is chosen. Some lie behind the end of what the program does then.
constexpr size_t kCallsOfOpening = 30;
constexpr size_t kCallsOfSave = 12;
constexpr size_t kCallsOfCommit = 40;

// Saved in the second place, by the next program.
constexpr const char16_t* kExtra = u"Extra";
constexpr const char16_t* kLater = u"Later";
constexpr const char* kExtraName = "Extra";
constexpr const char* kLaterName = "Later";
constexpr unsigned kExtraNumber = 7;

class Silence : public VReportMessageRouter {
    void Route(IReportMessageParams*) override {}
};

template <class T, size_t Size>
const T& Any(const T (&of)[Size], Dice& dice)
{
    return of[dice.Below(Size)];
}

size_t SomeCallOfSave(Dice& dice) { return dice.Below(dice.Coin() ? kCallsOfSave : kCallsOfCommit); }

} // namespace

const char* NameOf(Fate fate) { return kFateNames[static_cast<size_t>(fate)]; }

CrashStory::CrashStory(const char* name, std::vector<Action> actions, const Start& start)
    : m_name(name),
      m_actions(std::move(actions)),
      m_transactionBytes(start.transactionBytes)
{
    static Silence silence;
    SetReportRouterGetter([]() -> VReportMessageRouter* { return &silence; });
    for (const StoredKey& key : StartKeys())
        if (!key.text.empty() && !start.isEmpty)
            m_start.Put(key.file, key.text, key.mode);
    if (start.isEmpty)
        m_start.Put("/home/notes", "The folder that the store's own will lie in.\n");
    if (*start.options)
        m_start.Put("/home/store/%store.ini", start.options);
    m_start.hasExchange = start.hasExchange;

    SimDisk disk = m_start.Kill();
    m_states.push_back(LookAgain(disk));
    {
        Programs programs(disk, m_transactionBytes);
        for (const Action& action : m_actions) {
            if (!programs.Do(action))
                m_flaw = "the story goes wrong without a fault";
            m_states.push_back(LookAgain(disk));
        }
    }
    m_calls = disk.calls.size();
    Programs next(disk);
    for (size_t i = 0; i < m_actions.size(); ++i)
        if (IsLastWrite(i) && !next.Reads(m_actions[i]))
            m_flaw = "the story's end isn't what it wrote";
}

bool CrashStory::CanGoOn() const
{
    return std::ranges::none_of(m_actions, [](const Action& a) { return a.what == Do::Commit || a.program != 0; });
}

bool CrashStory::IsLastWrite(size_t action) const
{
    const std::u16string_view key = StartKeys()[m_actions[action].key].name;
    const auto isSame = [&](const Action& a) {
        return a.what == Do::DeleteKey
                   ? key.starts_with(StartKeys()[a.key].name)
                   : a.key == m_actions[action].key && a.name == std::u16string_view(m_actions[action].name);
    };
    return *m_actions[action].name &&
           std::none_of(m_actions.begin() + static_cast<std::ptrdiff_t>(action) + 1, m_actions.end(), isSame);
}

CrashStory::~CrashStory() { SetReportRouterGetter(nullptr); }

CrashStory::Store CrashStory::Look(SimDisk& disk)
{
    const std::vector<StoredKey>& keys = StartKeys();
    Store store(keys.size());
    {
        Programs programs(disk);
        for (size_t i = 0; i < keys.size(); ++i)
            store[i].values = programs.Values(0, i);
    }
    for (size_t i = 0; i < keys.size(); ++i) {
        const std::optional<std::string> text = disk.Text(keys[i].file);
        store[i].exists = text.has_value();
        store[i].text = text.value_or("");
        store[i].mode = disk.ModeOf(keys[i].file);
    }
    return store;
}

CrashStory::Store CrashStory::LookAgain(const SimDisk& disk)
{
    SimDisk copy = disk.Kill();
    return Look(copy);
}

CrashStory::Progress CrashStory::Begin() const
{
    Progress progress;
    progress.durable.resize(StartKeys().size());
    return progress;
}

std::string CrashStory::Judge(const Store& found, const Progress& progress) const
{
    Store shown = found;
    if (progress.extraKey) {
        const bool isThere = shown[*progress.extraKey].TakeOff(kExtraName, kExtraNumber);
        if (!isThere && progress.isExtraSaved)
            return "a later save of " + std::string(StartKeys()[*progress.extraKey].file) + " is lost";
        // It may have got no further than a file for its key.
        KeyState& key = shown[*progress.extraKey];
        if (key.text.empty() && key.mode == KeyState::kModeOfNew)
            key = {};
    }
    const size_t last = std::min(progress.reached + 1, m_actions.size());
    for (size_t key = 0; key < shown.size(); ++key) {
        bool isWhole = false;
        for (size_t state = progress.durable[key]; state <= last; ++state)
            isWhole = isWhole || shown[key] == m_states[state][key];
        if (!isWhole)
            return Describe(StartKeys()[key].file, found[key]);
    }
    if (progress.reached < m_actions.size() && m_actions[progress.reached].what == Do::Commit &&
        !IsGroupWhole(shown, progress.reached))
        return "half a transaction";
    return {};
}

bool CrashStory::IsGroupWhole(const Store& found, size_t commit) const
{
    const Store& before = m_states[commit];
    const Store& after = m_states[commit + 1];
    return found == before || found == after;
}

void CrashStory::Tell(const Action& action, Progress& progress) const
{
    const size_t now = progress.reached + 1;
    if (action.what == Do::Flush)
        progress.durable[action.key] = now;
    else if (action.what == Do::Commit)
        progress.durable.assign(progress.durable.size(), now);
}

void CrashStory::Play(SimDisk& disk, Programs& programs, Progress& progress) const
{
    for (; progress.reached < m_actions.size(); ++progress.reached) {
        const Action& action = m_actions[progress.reached];
        const bool isDone = programs.Do(action);
        if (disk.IsDead() || !isDone)
            return;
        Tell(action, progress);
    }
}

const CrashStory::Dead& CrashStory::DeadAt(size_t call)
{
    if (m_dead && m_dead->call == call)
        return *m_dead;
    m_dead = std::make_unique<Dead>(Dead{call, m_start.Kill(), Begin()});
    m_dead->disk.plan = {.at = call, .dies = true};
    Programs programs(m_dead->disk, m_transactionBytes);
    Play(m_dead->disk, programs, m_dead->progress);
    return *m_dead;
}

std::string CrashStory::Lost(const CrashPoint& point)
{
    Dice dice(point.seed);
    switch (point.fate) {
    case Fate::OtherThenPower:
        return m_flaw + LostByOther(point.call, dice);
    case Fate::FailOnce:
    case Fate::FailOn:
    case Fate::FailThenPower:
        return m_flaw + LostByFault(point, dice);
    default:
        return m_flaw + LostByCrash(point, dice);
    }
}

std::string CrashStory::LostByCrash(const CrashPoint& point, Dice& dice)
{
    const Dead& dead = DeadAt(point.call);
    Progress progress = dead.progress;
    switch (point.fate) {
    case Fate::PowerOrdered:
        return LostOn(dead.disk.PowerCut(CutPolicy::Ordered, dice), progress, dice);
    case Fate::PowerUnordered:
        return LostOn(dead.disk.PowerCut(CutPolicy::Unordered, dice), progress, dice);
    case Fate::PowerHarsh:
        return LostOn(dead.disk.PowerCut(CutPolicy::Harsh, dice), progress, dice);
    case Fate::PowerTwice: {
        SimDisk disk = dead.disk.PowerCut(Any(kPolicies, dice), dice);
        disk.plan = {.at = dice.Below(kCallsOfOpening), .dies = true};
        Look(disk);
        return LostOn(disk.PowerCut(Any(kPolicies, dice), dice), progress, dice);
    }
    case Fate::KillThenPower: {
        SimDisk disk = dead.disk.Kill();
        {
            Programs next(disk);
            next.Start(0);
            SaveExtra(disk, next, 0, progress, dice);
        }
        return LostOn(disk.PowerCut(Any(kPolicies, dice), dice), progress, dice);
    }
    default:
        return LostOn(dead.disk.Kill(), progress, dice);
    }
}

std::string CrashStory::LostByOther(size_t call, Dice& dice) const
{
    SimDisk disk = m_start.Kill();
    Progress progress = Begin();
    {
        Programs programs(disk, m_transactionBytes);
        programs.Start(1);
        disk.plan = {.at = disk.calls.size() + call, .dies = true};
        Play(disk, programs, progress);
        const unsigned dead = progress.reached < m_actions.size() ? m_actions[progress.reached].program : 0;
        programs.End(dead);
        disk.plan = {};
        SaveExtra(disk, programs, 1 - dead, progress, dice);
    }
    return LostOn(disk.PowerCut(Any(kPolicies, dice), dice), progress, dice);
}

void CrashStory::SaveExtra(SimDisk& disk, Programs& programs, unsigned program, Progress& progress, Dice& dice)
{
    progress.extraKey = dice.Below(StartKeys().size());
    disk.plan = {.at = disk.calls.size() + SomeCallOfSave(dice), .dies = true};
    const bool isSaved = programs.Save(program, *progress.extraKey, kExtra, kExtraNumber);
    progress.isExtraSaved = isSaved && !disk.IsDead();
}

std::string CrashStory::LostByFault(const CrashPoint& point, Dice& dice) const
{
    SimDisk disk = m_start.Kill();
    Progress progress = Begin();
    {
        Programs programs(disk, m_transactionBytes);
        disk.plan = {.at = point.call, .code = Any(kFailures, dice), .isLasting = point.fate == Fate::FailOn};
        const bool rollsBack = dice.Coin();
        const bool goesOn = CanGoOn() && dice.Coin();
        for (; progress.reached < m_actions.size() && !disk.IsDead(); ++progress.reached) {
            Play(disk, programs, progress);
            if (progress.reached == m_actions.size() || disk.IsDead())
                break;
            // The program was told, and the trouble is over.
            if (std::string lost = CheckFault(disk, programs, progress); !lost.empty())
                return lost;
            disk.plan = {};
            const Action& action = m_actions[progress.reached];
            if (action.what == Do::Commit && rollsBack)
                return LostByRollBack(disk, programs, progress, dice);
            if (point.fate == Fate::FailThenPower)
                disk.plan = {.at = disk.calls.size() + SomeCallOfSave(dice), .dies = true};
            if (action.what == Do::Flush && goesOn)
                continue;
            // A write that was refused is told by the next flush, too.
            const bool isDone = programs.Do(action) || programs.Do(action);
            if (disk.IsDead())
                break;
            if (!isDone)
                return "no second try succeeds";
            Tell(action, progress);
        }
    }
    const bool isPowerCut = point.fate == Fate::FailThenPower || dice.Coin();
    return LostOn(isPowerCut ? disk.PowerCut(Any(kPolicies, dice), dice) : disk.Kill(), progress, dice);
}

std::string CrashStory::CheckFault(const SimDisk& disk, Programs& programs, const Progress& progress) const
{
    if (std::string lost = Judge(LookAgain(disk), progress); !lost.empty())
        return "after the failure: " + lost;
    const std::string unreadable = programs.Unreadable(!disk.plan.isLasting);
    return unreadable.empty() ? "" : "not readable after the failure: " + unreadable;
}

std::string CrashStory::LostByRollBack(SimDisk& disk, Programs& programs, const Progress& progress, Dice& dice) const
{
    programs.RollBack(m_actions[progress.reached].program);
    const Store found = LookAgain(disk);
    if (std::string lost = Judge(found, progress); !lost.empty())
        return "rolled back: " + lost;
    // Where the medium refuses even the way back, the transaction stands, and the program hears of it later.
    for (size_t key = 0; found == m_states[progress.reached] && key < found.size(); ++key)
        if (programs.Values(0, key) != found[key].values)
            return "rolled back, but " + std::string(StartKeys()[key].file) + " shows other values than its file";
    if (!programs.Save(0, dice.Below(found.size()), kLater, kExtraNumber))
        return "no save succeeds after a roll-back";
    return {};
}

std::string CrashStory::LostOn(SimDisk disk, const Progress& progress, Dice& dice) const
{
    Store expected = Look(disk);
    if (std::string lost = Judge(expected, progress); !lost.empty())
        return lost;
    const size_t key = dice.Below(expected.size());
    {
        Programs programs(disk);
        if (std::string lost = CheckVersions(programs, key, expected[key]); !lost.empty())
            return lost;
        if (!programs.Save(0, key, kLater, kExtraNumber))
            return "the next save of " + std::string(StartKeys()[key].file) + " fails";
    }
    expected[key].Append(kLaterName, kExtraNumber);
    const std::string lost = dice.Coin()
                                 ? Compare(Look(disk), expected)
                                 : LostLater(disk.PowerCut(Any(kPolicies, dice), dice), key, expected[key], progress);
    return lost.empty() ? lost : "after the next save: " + lost;
}

std::string CrashStory::LostLater(SimDisk disk, size_t key, const KeyState& saved, const Progress& progress) const
{
    Store found = Look(disk);
    if (!(found[key] == saved))
        return Describe(StartKeys()[key].file, found[key]);
    found[key].TakeOff(kLaterName, kExtraNumber);
    return Judge(found, progress);
}

std::string CrashStory::CheckVersions(Programs& programs, size_t key, const KeyState& now) const
{
    std::vector<std::string> texts;
    if (!now.exists || !programs.HasVersions())
        return {};
    if (!programs.ReadVersions(key, texts))
        return "the versions of " + std::string(StartKeys()[key].file) + " can't be read";
    if (!now.text.empty() && (texts.empty() || texts.back() != now.text))
        return "the last version of " + std::string(StartKeys()[key].file) + " isn't what it is now";
    for (const std::string& text : texts) {
        KeyState version;
        version.text = text;
        version.exists = true;
        for (const std::string_view extra : {"Extra = 7\n", "Extra = 7\r\n"})
            if (text.ends_with(extra))
                version.text.resize(text.size() - extra.size());
        // A text without its last line end gets one before anything is added.
        const auto isIt = [&](const Store& store) {
            return store[key].text == version.text || store[key].text + '\n' == version.text ||
                   store[key].text + "\r\n" == version.text;
        };
        if (!version.text.empty() && std::ranges::none_of(m_states, isIt))
            return "a version that never was: " + Describe(StartKeys()[key].file, version);
    }
    return {};
}

std::string CrashStory::Compare(const Store& found, const Store& expected)
{
    for (size_t key = 0; key < found.size(); ++key)
        if (!(found[key] == expected[key]))
            return Describe(StartKeys()[key].file, found[key]);
    return {};
}

std::string CrashStory::Describe(const char* file, const KeyState& found)
{
    constexpr size_t kShown = 300;
    std::string text = file;
    if (!found.exists)
        return text + " is gone" + (found.values.empty() ? "" : ", yet has values");
    text += " has the mode " + std::to_string(found.mode) + ", " + std::to_string(found.text.size()) + " bytes: ";
    for (const char c : found.text.substr(0, kShown))
        text += c == '\n' ? "\\n" : c == '\0' ? "\\0" : std::string(1, c);
    return text;
}

} // namespace ostrand::test
