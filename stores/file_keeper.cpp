#include "stores/file_keeper.h"

#include "platform/error_codes.h"
#include "stores/damage_scan.h"
#include "stores/file_damage.h"
#include "stores/iso_time.h"
#include "stores/name_index.h"
#include "stores/store_lock.h"
#include "stores/store_options.h"

#include <utility>

namespace ostrand {

namespace {

/// Keys that are saved again and again are fewer; one that was forgotten costs a read.
constexpr size_t kMostMemos = 4096;

/// 0 stays, for a time that isn't known.
uint64_t FileTimeOf(int64_t nanoseconds) { return nanoseconds == 0 ? 0 : TimeOfFile(nanoseconds).ticks; }

std::string ProgramName()
{
    const std::string path = Platform().processes->ExecutablePath();
    return path.substr(path.rfind('/') + 1);
}

} // namespace

FileHistory& FileKeeper::History()
{
    if (!m_history) {
        m_history = std::make_unique<FileHistory>(m_root, ReadStoreOptions(m_root).history);
        m_program = ProgramName();
    }
    return *m_history;
}

std::string_view FileKeeper::KeyOf(const std::string& folder) const
{
    return folder.size() > m_root.size() ? std::string_view(folder).substr(m_root.size() + 1) : std::string_view();
}

unsigned FileKeeper::Record(const std::string& folder, std::string_view before, std::string_view after,
                            const std::vector<std::u16string>& conflicts, int64_t edited)
{
    FileHistory& history = History();
    if (m_memos.size() >= kMostMemos)
        m_memos.clear();
    return history.Append(KeyOf(folder), before, after, {m_program, conflicts, false, FileTimeOf(edited)},
                          m_memos[folder]);
}

unsigned FileKeeper::RecordDeletion(const std::string& folder, std::string_view before)
{
    FileHistory& history = History();
    HistoryMemo memo;
    m_memos.erase(folder);
    return history.Append(KeyOf(folder), before, {}, {m_program, {}, true, 0}, memo);
}

std::optional<std::string> FileKeeper::LastGood(const std::string& folder)
{
    std::string text;
    if (History().ReadLast(KeyOf(folder), text) != kErrorSuccess)
        return std::nullopt;
    return text;
}

unsigned FileKeeper::List(const std::string& folder, const std::string* current, const VFileInfo& info,
                          std::vector<StoreVersion>& versions)
{
    return History().List(KeyOf(folder), {current, FileTimeOf(info.changed)}, versions);
}

unsigned FileKeeper::Read(const std::string& folder, const std::string* current, const VFileInfo& info, unsigned number,
                          std::string& text)
{
    return History().Read(KeyOf(folder), {current, FileTimeOf(info.changed)}, number, text);
}

std::optional<std::string> FileKeeper::MadeGood(const std::string& folder, const std::string& damaged)
{
    if (!LooksDamaged(damaged))
        return std::nullopt;
    const std::optional<std::string> last = LastGood(folder);
    const std::string* const lastGood = last ? &*last : nullptr;
    if (!IsDamaged(damaged, lastGood))
        return std::nullopt;
    return Repaired(damaged, lastGood);
}

bool FileKeeper::IsUntold(const std::string& folder, std::string_view damaged)
{
    const uint64_t hash = HashBytes(damaged) | 1; // 0: nothing was told
    return std::exchange(m_told[folder], hash) != hash;
}

unsigned FileKeeper::SetAside(const std::string& file, std::string_view text, std::string& aside)
{
    aside = AsideName(file, Platform().clock->FileTime());
    std::unique_ptr<IFile> copy;
    unsigned code = Files().Open(aside, VFileAccess::Write, VFileDisposition::CreateNew, kFileMode, copy);
    if (code == kErrorSuccess)
        code = copy->Write(text.data(), text.size());
    if (code == kErrorSuccess)
        code = copy->Sync();
    copy.reset();
    if (code == kErrorSuccess)
        code = Files().SyncFolder(FolderOf(aside));
    if (code != kErrorSuccess)
        Files().Remove(aside);
    return code;
}

} // namespace ostrand
