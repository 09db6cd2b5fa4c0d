// The files of one store in this process: which keys there are, the node of each open one, and the saves.
#pragma once

#include "core/report.h"
#include "stores/file_node.h"

#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ostrand {

/// Shared by the factory, its stores and all handles. Callers of everything but `Flush` and `Close` hold `mutex`.
/// Names of keys may go through several levels.
class FileTree {
public:
    explicit FileTree(std::string root);
    ~FileTree();

    std::mutex mutex;

    /// Adds a handle to a key's node; each is given back by `Close`. `OpenRoot` reads nothing yet.
    FileNode* OpenRoot();
    /// A missing key is made if `mayCreate`.
    unsigned Open(const FileNode& from, const char16_t* name, bool mayCreate, FileNode*& node);
    /// Touches no file.
    void Close(FileNode& node);

    bool KeyExists(const FileNode& from, const char16_t* name);
    unsigned DeleteKey(const FileNode& from, const char16_t* name);
    unsigned ListKeys(const FileNode& from, SnapshotIterator& out);
    /// Whether the file system lets this process change the key.
    bool CanChange(const FileNode& node);

    /// Saves what is queued. Conflicts go to the report and to the router.
    unsigned Flush(FileNode& node, IReportMessageParams& report);
    /// The same where nobody takes a report: a failure goes to the router, too.
    void FlushAtClose(FileNode& node);

private:
    struct Hash {
        using is_transparent = void;
        size_t operator()(std::string_view s) const { return static_cast<size_t>(HashBytes(s)); }
    };

    FileNode& NodeOf(const std::string& folder);
    unsigned OpenExact(const std::string& folder, FileNode*& node);
    /// A key without a file of values, or an empty one.
    unsigned OpenBare(const std::string& folder, FileNode*& node);
    unsigned Create(const std::string& folder, FileNode*& node);
    FileNode* Acquire(FileNode& node);
    void TrimClosed();
    unsigned RemoveKey(const std::string& folder);
    unsigned RemoveSubkeys(const std::string& folder);
    unsigned Save(FileNode& node, std::vector<VReportMessageParams>& messages);
    std::u16string KeyPath(const FileNode& node) const;

    std::string m_root;
    std::unordered_map<std::string, std::unique_ptr<FileNode>, Hash, std::equal_to<>> m_nodes; // by folder
    std::deque<FileNode*> m_closed; // by the time of closing, once for each
    size_t m_closedBytes = 0;       // of their documents
};

} // namespace ostrand
