// What a transaction keeps on the disk instead of in memory: the queues and bases of keys that nobody has open. The
// file has no name, so neither a roll-back nor the end of the process leaves anything of it; it is never synced, and
// nobody else reads it.
#pragma once

#include "stores/file_node.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

/// In memory there are three words for each key. Used under the mutex of the tree.
class TransactionSpill {
public:
    explicit TransactionSpill(const std::string& root) : m_root(root) {}

    bool IsEmpty() const { return m_count == 0; }
    /// The node of a key, not of the root; it may go afterwards. After a failure it is as before, and may not.
    unsigned Put(FileNode& node);
    /// Gives what was put for the key to a node that has nothing yet, and joins that to the transaction. Success
    /// without `isFound` for other keys.
    unsigned Take(FileNode& node, bool& isFound);
    /// Calls with a node for each key, in the order of their first putting, until one fails. The nodes are copies.
    unsigned ForEach(const std::function<unsigned(FileNode&)>& visit);

private:
    struct Record {
        uint64_t hash; // of the folder
        uint64_t at;
        uint32_t room;
        uint32_t size; // 0: taken
    };

    unsigned Open();
    void Render(FileNode& node);
    unsigned Read(const Record& record);
    /// Of the record that was read last.
    std::string_view Folder() const;
    unsigned Fill(FileNode& node) const;
    void AddRecord(FileNode& node, uint64_t hash);

    std::string m_root;
    std::unique_ptr<IFile> m_file;
    uint64_t m_end = 0;
    std::vector<Record> m_records;
    NameIndex m_index;   // by hash
    size_t m_count = 0;  // that aren't taken
    std::string m_bytes; // of one record
};

} // namespace ostrand
