// What a store keeps besides its keys' files: the history of each, and damaged files that were set aside.
#pragma once

#include "stores/file_history.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ostrand {

/// Keys are named by their folders, as FileNode has them. Used under the mutex of the tree; what writes, under the
/// store's lock, too.
class FileKeeper {
public:
    explicit FileKeeper(const std::string& root) : m_root(root) {}

    /// A save turned `before` into `after`. `edited`: when `before` was written, in nanoseconds since 1970.
    unsigned Record(const std::string& folder, std::string_view before, std::string_view after,
                    const std::vector<std::u16string>& conflicts, int64_t edited);
    /// The key goes, or went by other hands than the store's.
    unsigned RecordDeletion(const std::string& folder, std::string_view before);
    /// The last text that a save left; none for a key without a history, or a deleted one.
    std::optional<std::string> LastGood(const std::string& folder);
    /// The versions, and one of them; `current` is the file as it is, null for a missing one, with its state.
    unsigned List(const std::string& folder, const std::string* current, const VFileInfo& info,
                  std::vector<StoreVersion>& versions);
    unsigned Read(const std::string& folder, const std::string* current, const VFileInfo& info, unsigned number,
                  std::string& text);

    /// A damaged text with what could be put back; none for a text that is good. Cheap for one that looks it.
    std::optional<std::string> MadeGood(const std::string& folder, const std::string& damaged);
    /// Whether nobody was told of this damaged text yet; from now on somebody was.
    bool IsUntold(const std::string& folder, std::string_view damaged);
    /// Copies a damaged text to a file beside the key's, down to the disk.
    static unsigned SetAside(const std::string& file, std::string_view text, std::string& aside);

private:
    FileHistory& History();
    /// As the history names keys.
    std::string_view KeyOf(const std::string& folder) const;

    std::string m_root;
    std::string m_program;
    std::unique_ptr<FileHistory> m_history;               // once the store's options were read
    std::unordered_map<std::string, HistoryMemo> m_memos; // of the keys that were saved
    std::unordered_map<std::string, uint64_t> m_told;     // hash of the damaged text that was told of
};

} // namespace ostrand
