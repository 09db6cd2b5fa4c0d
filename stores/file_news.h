// Which files of a store another program changed: what the watch sees, without what this process did itself.
#pragma once

#include "platform/error_codes.h"
#include "stores/name_index.h"
#include "stores/store_watch.h"

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace ostrand {

/// Keys are named by their folders. One thread at a time.
class FileNews {
public:
    explicit FileNews(const std::string& root) : m_watch(root) {}

    /// Whether the system gives news; without them the owner has to look at each key itself.
    bool Begin() { return m_isWatching = m_watch.Begin() == kErrorSuccess; }
    int Descriptor() const { return m_isWatching ? m_watch.Descriptor() : -1; }
    /// Keys that may have changed since the last call.
    unsigned Take(std::set<std::string>& keys)
    {
        if (!m_isWatching && !Begin())
            return kErrorSuccess;
        return m_watch.Take(keys);
    }

    /// This process read or wrote the key's file.
    void Note(const std::string& folder, std::string_view text) { m_known[folder] = HashOf(text); }
    void NoteGone(const std::string& folder) { m_known[folder] = kGone; }
    /// Whether the file's text, null for a missing file, is other than noted; notes it.
    bool IsNews(const std::string& folder, const std::string* text)
    {
        const uint64_t now = text ? HashOf(*text) : kGone;
        const auto [known, isNew] = m_known.try_emplace(folder, now);
        return isNew || std::exchange(known->second, now) != now;
    }

private:
    static constexpr uint64_t kGone = 0;
    static uint64_t HashOf(std::string_view text) { return HashBytes(text) | 1; }

    StoreWatch m_watch;
    std::unordered_map<std::string, uint64_t> m_known;
    bool m_isWatching = false;
};

} // namespace ostrand
