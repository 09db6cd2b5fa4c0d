// One save: what waits for a key's file is merged into the file as it is now, and new contents take the old ones'
// place. All of it under the store's lock.
#pragma once

#include "stores/file_keeper.h"
#include "stores/file_node.h"
#include "stores/file_replacer.h"

#include <string>
#include <vector>

namespace ostrand {

/// What all saves of one store share in this process.
struct SaveTools {
    explicit SaveTools(const std::string& r) : root(r), replacer(r), keeper(r) {}

    std::string root;
    FileReplacer replacer;
    FileKeeper keeper;
};

/// Either the whole change is on the disk afterwards or the file is as before; only where the last step fails (the sync
/// of the folder) the file is already new, and the next save repeats that step. Until `Finish` the node knows nothing,
/// and everything waits on.
class FileSave {
public:
    FileSave(SaveTools& tools, FileNode& node) : m_tools(tools), m_node(node) {}

    /// Reads the file, makes it good where it is damaged, and merges into it.
    unsigned Prepare();
    /// Before `Prepare`: the text that goes into the file is this one, whatever waits.
    void SetText(std::string text) { m_fixedText = std::move(text); }
    /// Whether the file has to be written: it changes, or a new key gets its file.
    bool IsNeeded() const { return !m_file.exists || m_damaged || m_text != Theirs().Text(); }
    const std::string& Text() const { return m_text; }
    const ReplacedFile& File() const { return m_file; }
    FileNode& Node() const { return m_node; }

    /// Keeps a copy of a damaged file. Once; also part of `Write`.
    unsigned SetAside();
    /// Writes where that is needed, down to the disk. Merges anew where somebody without the lock, such as an editor,
    /// changed the file in between.
    unsigned Write();
    /// Writes in any case, and leaves the syncs and a first copy of what is damaged to the caller.
    unsigned WriteUnsynced();
    /// Puts what was there before the write back, as unsynced as that.
    unsigned Undo();
    /// Nothing waits any more, and the history knows. A failure of the history hurts nothing else.
    unsigned Finish();

    /// The text that was found damaged, if it was; and where `Write` set it aside.
    const std::optional<std::string>& Damaged() const { return m_damaged; }
    const std::string& Aside() const { return m_aside; }

    /// Names of the values that both this process and another one changed. What this process wrote goes in.
    const std::vector<std::u16string>& Conflicts() const { return m_conflicts; }

private:
    template <class Once>
    unsigned Insist(Once once);
    unsigned ReadTheirs();
    unsigned WriteOnce();
    const FileDocument& Theirs() const { return m_isUnchanged ? m_node.Document() : m_theirs; }
    std::vector<ValueEdit> Merge();

    SaveTools& m_tools;
    FileNode& m_node;
    ReplacedFile m_file;
    FileDocument m_theirs;
    bool m_isUnchanged = false; // the file is as the node's document has it
    std::optional<std::string> m_damaged;
    std::string m_aside;
    std::optional<std::string> m_fixedText;
    std::string m_text; // that goes into the file
    std::vector<std::u16string> m_conflicts;
};

} // namespace ostrand
