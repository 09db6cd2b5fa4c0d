// The programs of a crash story, and what they see of the store.
#pragma once

#include "platform/platform.h"
#include "profile/key.h"
#include "stores/file_store.h"
#include "tests/crash/crash_story.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace ostrand::test {

/// The store that each story begins with.
struct StoredKey {
    const char16_t* name;
    const char* file;
    std::string text; ///< empty: no such key yet
    unsigned mode;
};
const std::vector<StoredKey>& StartKeys();

/// A key as a new program sees it.
struct CrashStory::KeyState {
    bool exists = false;
    unsigned mode = 0;
    std::string text;
    std::string values; ///< as read through the store
    bool operator==(const KeyState&) const = default;

    static constexpr unsigned kModeOfNew = 0600;
    void Append(const char* name, unsigned number);
    /// Takes what `Append` added away again; false if it isn't there.
    bool TakeOff(const char* name, unsigned number);
};

/// Two programs on one disk; each opens the store when it is first needed. In place of Platform().files for its
/// lifetime.
class CrashStory::Programs {
public:
    explicit Programs(SimDisk& disk, size_t transactionBytes = FileStoreFactory::kTransactionBytes)
        : m_transactionBytes(transactionBytes)
    {
        Platform().files = &disk;
    }

    /// Whether the store answered that it is done.
    bool Do(const Action& action);
    bool Reads(const Action& action);
    /// The first value that was accepted, not yet saved, and doesn't read as written; empty for none. Of keys that are
    /// open alone, where the disk lets none be opened.
    std::string Unreadable(bool canOpen);
    /// Opens the key anew and saves one value.
    bool Save(unsigned program, size_t key, const char16_t* name, unsigned number);
    void RollBack(unsigned program) { Of(program).store.Extras().RollBackTransaction(); }
    std::string Values(unsigned program, size_t key);
    bool HasVersions();
    /// Texts of all versions; false if one can't be read.
    bool ReadVersions(size_t key, std::vector<std::string>& texts);
    void Start(unsigned program) { Of(program); }
    void End(unsigned program) { m_programs[program].reset(); }

private:
    struct Program {
        explicit Program(size_t transactionBytes) : factory("/home/store", transactionBytes) {}
        std::unique_ptr<VProfileKey>& Open(size_t key);

        FileStoreFactory factory;
        VProfileStore store{&factory};
        std::array<std::unique_ptr<VProfileKey>, 8> keys;
    };
    Program& Of(unsigned program);
    bool Write(const Action& action);

    size_t m_transactionBytes;
    VPlatformScope m_scope; // puts the real files back
    std::array<std::unique_ptr<Program>, 2> m_programs;
    std::vector<Action> m_accepted; // and not yet saved
};

} // namespace ostrand::test
