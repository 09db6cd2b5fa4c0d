// One save: what waits for a key's file is merged into the file as it is now, and a new file takes the old one's place.
#pragma once

#include "platform/files.h"
#include "stores/file_node.h"

#include <string>
#include <vector>

namespace ostrand {

inline constexpr unsigned kFolderMode = 0700;
inline constexpr unsigned kFileMode = 0600;
/// Milliseconds to wait for another process that is writing to the store.
inline constexpr unsigned kLockPatience = 1000;

/// A folder with all the folders above it that are missing.
unsigned MakeFolders(IFiles& files, const std::string& folder);
/// The folder that a path lies in.
std::string FolderOf(const std::string& path);
/// Locks the store against other processes until `lock` closes. Makes the store's folder where it is missing.
unsigned LockStore(IFiles& files, const std::string& root, std::unique_ptr<IFile>& lock);

/// Either the whole change is on the disk afterwards or the file is as before; only where the last step fails (the sync
/// of the folder) the file is already new, and the next save repeats that step.
class FileSave {
public:
    FileSave(IFiles& files, const std::string& root, FileNode& node) : m_files(files), m_root(root), m_node(node) {}

    /// Locks, reads, merges and writes. On success nothing waits any more; on failure everything does.
    unsigned Run();
    /// Names of the values that both this process and another one changed. What this process wrote went in.
    const std::vector<std::u16string>& Conflicts() const { return m_conflicts; }

private:
    unsigned ReadTheirs(const std::string& target);
    const FileDocument& Theirs() const { return m_isUnchanged ? m_node.Document() : m_theirs; }
    std::vector<ValueEdit> Merge();
    unsigned Write(const std::string& target, const std::string& text);
    unsigned WriteTemporary(const std::string& temporary, const std::string& text);
    unsigned OpenTemporary(const std::string& temporary, std::unique_ptr<IFile>& file);

    IFiles& m_files;
    const std::string& m_root;
    FileNode& m_node;
    FileDocument m_theirs;
    bool m_isUnchanged = false; // the file is as the node's document has it
    unsigned m_mode = kFileMode;
    std::vector<std::u16string> m_conflicts;
};

} // namespace ostrand
