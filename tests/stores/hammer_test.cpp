// Several programs at one store at a time, some of them killed. Each tells what it is about to write, and once more
// when the store has answered that it is saved; the files must agree with that.
#include "platform/error_codes.h"
#include "platform/platform.h"
#include "profile/key.h"
#include "stores/file_store.h"
#include "stores/store_messages.h"
#include "tests/crash/sim_disk.h"
#include "tests/support/faulty_files.h"
#include "tests/support/recording_router.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cctype>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <map>
#include <new>
#include <set>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ostrand {
namespace {

using Clock = std::chrono::steady_clock;
using test::Dice;

constexpr size_t kWorkers = 6;
constexpr std::array<const char16_t*, 3> kKeys = {u"A", u"B", u"Deep\\C"};
constexpr std::array<const char*, 3> kFiles = {"A.ini", "B.ini", "Deep/C.ini"};
/// Keys that a transaction writes to, as bits.
constexpr unsigned kPair = 0b101;
constexpr std::chrono::milliseconds kRunTime{2500};
constexpr unsigned kMostOfOneLife = 100'000;
/// The number of a shared value tells its writer, too.
constexpr unsigned kWriterShift = 29;

std::u16string NameOf(std::u16string_view what, size_t worker)
{
    return std::u16string(what) + u' ' + static_cast<char16_t>(u'0' + worker);
}

struct Event {
    enum Kind : uint8_t { Trying, Saved, RolledBack, LostOwn, FalseConflict, HalfPair };
    Kind kind = Trying;
    uint8_t keys = 0;      // bits
    uint8_t shared = 0;    // keys whose common value was written, too
    uint8_t conflicts = 0; // keys whose common value was reported as a conflict
    unsigned number = 0;
    std::array<unsigned, 3> bases{}; // of the common values
};

/// What the test and its workers share.
struct Board {
    std::atomic<bool> isOver = false;
    std::array<std::atomic<bool>, kWorkers> isCommitting{};
};

/// Some of the calls that put a file in its place are the last thing that the process does.
class DeadlyFiles : public test::FaultyFiles {
public:
    DeadlyFiles(uint64_t seed, const Board& board) : m_dice(seed), m_board(board) {}

    unsigned Exchange(const std::string& a, const std::string& b) override
    {
        constexpr size_t kRarely = 60;
        const unsigned code = FaultyFiles::Exchange(a, b);
        calls.clear();
        if (m_dice.Below(kRarely) == 0 && !m_board.isOver)
            raise(SIGKILL);
        return code;
    }

private:
    Dice m_dice;
    const Board& m_board;
};

class Worker {
public:
    Worker(const std::string& folder, size_t id, unsigned life, int pipe, Board& board)
        : m_id(id),
          m_pipe(pipe),
          m_board(board),
          m_dice(id * 1000 + life),
          m_number(life * kMostOfOneLife),
          m_files(id * 1000 + life, board),
          m_factory(folder)
    {
    }

    void Run()
    {
        Begin();
        WriteOne(0);
        CheckPair();
        while (!m_board.isOver) {
            Begin();
            if (m_dice.Below(3) == 0)
                Transact();
            else
                WriteOne(m_dice.Below(kKeys.size()));
        }
    }

private:
    void Begin()
    {
        m_event = Event();
        m_event.number = ++m_number;
        m_router.messages.clear();
    }

    /// What an earlier life left half done was done to its end before this one's first save.
    void CheckPair()
    {
        unsigned values[2] = {};
        for (const size_t i : {0, 1})
            VProfileKey(m_store.GetRootKey(), kKeys[2 * i]).ReadDword(NameOf(u"Pair", m_id).c_str(), &values[i]);
        if (values[0] != values[1])
            Send(Event::HalfPair);
    }

    void Send(Event::Kind kind)
    {
        Event told = m_event;
        told.kind = kind;
        if (write(m_pipe, &told, sizeof told) != sizeof told)
            _exit(2);
    }

    void Change(VProfileKey& key, size_t number)
    {
        const std::u16string own = NameOf(u"Own", m_id);
        unsigned value = 0;
        key.ReadDword(own.c_str(), &value);
        if (m_saved.contains(number) && m_saved[number] != value)
            Send(Event::LostOwn);
        key.WriteDword(own.c_str(), m_event.number);
        m_event.keys |= static_cast<uint8_t>(1u << number);
        if (m_dice.Coin()) {
            key.ReadDword(u"Common", &m_event.bases[number]);
            key.WriteDword(u"Common", static_cast<unsigned>(m_id + 1) << kWriterShift | m_event.number);
            m_event.shared |= static_cast<uint8_t>(1u << number);
        }
    }

    /// Between what was read and the save that relies on it there is time for others.
    void Think()
    {
        if (m_dice.Coin())
            usleep(static_cast<useconds_t>(m_dice.Below(20'000)));
    }

    void WriteOne(size_t number)
    {
        VProfileKey key(m_store.GetRootKey(), kKeys[number]);
        Change(key, number);
        Think();
        Send(Event::Trying);
        while (!key.Flush(m_report))
            continue;
        TellSaved();
    }

    void Transact()
    {
        IStoreExtras& extras = m_store.Extras();
        extras.BeginTransaction(m_report);
        for (const size_t number : {0, 2}) {
            VProfileKey key(m_store.GetRootKey(), kKeys[number]);
            Change(key, number);
            key.WriteDword(NameOf(u"Pair", m_id).c_str(), m_event.number);
        }
        Think();
        if (m_dice.Below(4) == 0) {
            extras.RollBackTransaction();
            Send(Event::RolledBack);
            return;
        }
        Send(Event::Trying);
        m_board.isCommitting[m_id] = true;
        while (!extras.CommitTransaction(m_report))
            continue;
        m_board.isCommitting[m_id] = false;
        TellSaved();
    }

    void TellSaved()
    {
        for (const auto& message : m_router.messages) {
            if (message.code != kValueConflict)
                continue;
            const size_t number =
                static_cast<size_t>(std::find(kKeys.begin(), kKeys.end(), message.arguments[0]) - kKeys.begin());
            m_event.conflicts |= static_cast<uint8_t>(1u << number);
            if (message.arguments[1] != u"Common")
                Send(Event::FalseConflict);
        }
        for (size_t i = 0; i < kKeys.size(); ++i)
            if (m_event.keys >> i & 1)
                m_saved[i] = m_event.number;
        Send(Event::Saved);
    }

    size_t m_id;
    int m_pipe;
    Board& m_board;
    Dice m_dice;
    unsigned m_number;
    DeadlyFiles m_files;
    FileStoreFactory m_factory;
    VProfileStore m_store{false, &m_factory};
    test::RecordingRouter m_router;
    VReportMessageParams m_report;
    Event m_event;
    std::map<size_t, unsigned> m_saved; // by key, in this life
};

/// What one worker told in all its lives.
struct Story {
    pid_t process = 0;
    int pipe = -1;
    unsigned life = 0;
    std::vector<Event> events;
};

std::string WithoutNumbers(const std::string& text)
{
    std::string out;
    for (size_t i = 0; i < text.size(); ++i)
        if (!std::isdigit(static_cast<unsigned char>(text[i])) || i < 3 || text.compare(i - 3, 3, " = ") != 0)
            out += text[i];
        else
            i = std::min(text.find('\n', i), text.size()) - 1;
    return out;
}

class Hammer : public testing::Test {
protected:
    Hammer()
    {
        void* const page = mmap(nullptr, sizeof(Board), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        m_board = new (page) Board;
        m_before = "; Values of all\nCommon = 0\n\n";
        for (size_t i = 0; i < kWorkers; ++i) {
            const std::string digit = std::to_string(i);
            m_before += "; of worker " + digit + "\nOwn " + digit + " = 0\nPair " + digit + " = 0\nnonsense\n";
        }
        for (const char* const file : kFiles)
            m_folder.Write(file, m_before);
    }
    ~Hammer() override
    {
        for (Story& story : m_stories)
            if (story.process > 0)
                End(story, true);
        munmap(m_board, sizeof(Board));
    }

    void Start(size_t id)
    {
        Story& story = m_stories[id];
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        ++story.life;
        m_board->isCommitting[id] = false;
        story.process = fork();
        ASSERT_GE(story.process, 0);
        if (story.process == 0) {
            close(ends[0]);
            {
                Worker(m_folder.Path(), id, story.life, ends[1], *m_board).Run();
            }
            _exit(0);
        }
        close(ends[1]);
        fcntl(ends[0], F_SETFL, O_NONBLOCK);
        story.pipe = ends[0];
    }

    void End(Story& story, bool isKilled)
    {
        if (isKilled)
            kill(story.process, SIGKILL);
        int status = 0;
        waitpid(story.process, &status, 0);
        EXPECT_TRUE(status == 0 || (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)) << status;
        Drain(story);
        close(story.pipe);
        story.process = 0;
    }

    static void Drain(Story& story)
    {
        Event event;
        while (read(story.pipe, &event, sizeof event) == sizeof event)
            story.events.push_back(event);
    }

    /// Also what a reader finds meanwhile is whole.
    void CheckNothingIsTorn() const
    {
        const std::string expected = WithoutNumbers(m_before);
        for (const char* const file : kFiles) {
            std::string text;
            VFileInfo info;
            ASSERT_EQ(Platform().files->ReadWhole(m_folder.Path(file), 1 << 20, text, info), kErrorSuccess);
            ASSERT_EQ(WithoutNumbers(text), expected) << file;
        }
    }

    void Watch(Clock::duration time)
    {
        const auto end = Clock::now() + time;
        do {
            for (size_t id = 0; id < kWorkers; ++id) {
                Drain(m_stories[id]);
                if (HasEnded(m_stories[id]))
                    Restart(id);
            }
            CheckNothingIsTorn();
            usleep(2000);
        } while (Clock::now() < end && !HasFatalFailure());
    }

    void Restart(size_t id)
    {
        End(m_stories[id], true);
        ++m_kills;
        Start(id);
    }

    /// Every second one dies while it commits, if it does so soon.
    void KillOne()
    {
        const size_t victim = m_dice.Below(kWorkers);
        if (m_dice.Coin())
            for (int i = 0; i < 2000 && !m_board->isCommitting[victim]; ++i)
                usleep(20);
        usleep(static_cast<useconds_t>(m_dice.Below(2000)));
        m_commitsKilled += m_board->isCommitting[victim] ? 1 : 0;
        Restart(victim);
    }

    bool WaitForTheEnd()
    {
        m_board->isOver = true;
        const auto patience = Clock::now() + std::chrono::seconds(20);
        for (Story& story : m_stories) {
            if (story.process == 0)
                continue;
            while (!HasEnded(story) && Clock::now() < patience) {
                Drain(story);
                usleep(1000);
            }
            if (!HasEnded(story))
                return false;
            End(story, false);
        }
        return true;
    }
    static bool HasEnded(const Story& story)
    {
        siginfo_t info{};
        waitid(P_PID, static_cast<id_t>(story.process), &info, WEXITED | WNOHANG | WNOWAIT);
        return info.si_pid != 0;
    }

    unsigned Final(size_t key, const std::u16string& name) const
    {
        unsigned value = 0;
        EXPECT_TRUE(VProfileKey(m_after->GetRootKey(), kKeys[key]).ReadDword(name.c_str(), &value));
        return value;
    }

    void CheckOwn(size_t id, size_t key) const
    {
        std::set<unsigned> possible = {0};
        for (const Event& event : m_stories[id].events) {
            EXPECT_TRUE(event.kind <= Event::RolledBack) << event.number;
            if (!(event.keys >> key & 1))
                continue;
            if (event.kind == Event::Saved)
                possible = {event.number};
            else if (event.kind == Event::Trying)
                possible.insert(event.number);
        }
        EXPECT_TRUE(possible.contains(Final(key, NameOf(u"Own", id)))) << Final(key, NameOf(u"Own", id));
    }

    /// The saves of one value are a chain: no two of them took the place of the same one, unless the later one told of
    /// a conflict, and nobody took the place of the last.
    void CheckCommon(size_t key) const
    {
        std::set<unsigned> tried = {0};
        std::set<unsigned> bases;
        size_t saved = 0;
        for (size_t id = 0; id < kWorkers; ++id)
            for (const Event& event : m_stories[id].events) {
                if (!(event.shared >> key & 1) || (event.kind != Event::Saved && event.kind != Event::Trying))
                    continue;
                tried.insert(static_cast<unsigned>(id + 1) << kWriterShift | event.number);
                if (event.kind == Event::Trying)
                    continue;
                ++saved;
                if (event.conflicts >> key & 1)
                    ++m_conflicts;
                else
                    EXPECT_TRUE(bases.insert(event.bases[key]).second) << "overwritten twice: " << event.bases[key];
            }
        const unsigned last = Final(key, u"Common");
        EXPECT_TRUE(tried.contains(last)) << last;
        EXPECT_FALSE(bases.contains(last)) << "came back: " << last;
        EXPECT_TRUE(std::includes(tried.begin(), tried.end(), bases.begin(), bases.end())) << "from nowhere";
        EXPECT_GT(saved, 10u);
    }

    test::TempFolder m_folder;
    Board* m_board = nullptr;
    std::string m_before;
    std::array<Story, kWorkers> m_stories;
    Dice m_dice{1};
    size_t m_kills = 0;
    size_t m_commitsKilled = 0;
    mutable size_t m_conflicts = 0;
    const VProfileStore* m_after = nullptr;
};

TEST_F(Hammer, WhatWasToldToBeSavedIsInTheFiles)
{
    for (size_t i = 0; i < kWorkers; ++i)
        ASSERT_NO_FATAL_FAILURE(Start(i));
    const auto end = Clock::now() + kRunTime;
    while (Clock::now() < end) {
        ASSERT_NO_FATAL_FAILURE(Watch(std::chrono::milliseconds(m_dice.Below(40))));
        ASSERT_NO_FATAL_FAILURE(KillOne());
    }
    for (size_t i = 0; i < 2; ++i) // without a successor that would finish what they left
        End(m_stories[i], true);
    ASSERT_TRUE(WaitForTheEnd()) << "a lock that nobody gives back";

    {
        FileStoreFactory factory(m_folder.Path()); // none of its flushes waits for the lock in vain
        const VProfileStore store(false, &factory);
        VReportMessageParams report;
        for (const char16_t* const name : kKeys) {
            VProfileKey key(store.GetRootKey(), name);
            EXPECT_TRUE(key.WriteDword(u"New", 1));
            EXPECT_TRUE(key.Flush(report));
            EXPECT_TRUE(key.DeleteValue(u"New"));
            EXPECT_TRUE(key.Flush(report));
        }
    }
    for (const auto& entry : std::filesystem::recursive_directory_iterator(m_folder.Path())) {
        const std::string name = entry.path().filename().string();
        EXPECT_FALSE(name.starts_with("%tmp-") || name == "%journal") << name;
    }
    CheckNothingIsTorn();

    FileStoreFactory factory(m_folder.Path());
    const VProfileStore store(true, &factory);
    m_after = &store;
    size_t saves = 0;
    for (size_t key = 0; key < kKeys.size(); ++key) {
        SCOPED_TRACE(kFiles[key]);
        CheckCommon(key);
        for (size_t id = 0; id < kWorkers; ++id) {
            SCOPED_TRACE("worker " + std::to_string(id));
            CheckOwn(id, key);
            EXPECT_EQ(Final(0, NameOf(u"Pair", id)), Final(2, NameOf(u"Pair", id))) << "half a transaction";
        }
    }
    for (const Story& story : m_stories)
        saves += static_cast<size_t>(std::count_if(story.events.begin(), story.events.end(),
                                                   [](const Event& e) { return e.kind == Event::Saved; }));
    RecordProperty("saves", std::to_string(saves));
    RecordProperty("conflicts", std::to_string(m_conflicts));
    RecordProperty("kills", std::to_string(m_kills));
    RecordProperty("kills in a commit", std::to_string(m_commitsKilled));
    EXPECT_GT(m_kills, 10u);
}

} // namespace
} // namespace ostrand
