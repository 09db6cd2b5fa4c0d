// Live reload: what other programs did to the files of a tree.
#include "stores/file_tree.h"
#include "stores/store_lock.h"

#include <set>

namespace ostrand {

unsigned FileTree::Poll(std::vector<VUnicodeString>& keys)
{
    keys.clear();
    std::set<std::string> touched;
    const bool isFirst = !m_news;
    if (isFirst)
        BeginNews();
    const unsigned code = m_news->Take(touched);
    if (isFirst || m_news->Descriptor() == -1)
        for (const auto& [folder, node] : m_nodes)
            if (node->handles > 0 && !node->IsStale())
                touched.insert(node->Folder());
    for (const std::string& folder : touched)
        if (TakeNews(folder))
            keys.emplace_back(KeyPath(folder));
    return code;
}

int FileTree::PollDescriptor()
{
    if (!m_news)
        BeginNews();
    return m_news->Descriptor();
}

void FileTree::BeginNews()
{
    m_news = std::make_unique<FileNews>(m_root);
    m_news->Begin();
    for (const auto& [folder, node] : m_nodes)
        if (node->handles > 0 && !node->IsStale())
            m_news->Note(node->Folder(), node->Document().Text());
}

bool FileTree::TakeNews(const std::string& folder)
{
    const auto found = m_nodes.find(folder);
    FileNode* const node = found == m_nodes.end() ? nullptr : found->second.get();
    std::string text;
    VFileInfo info;
    const unsigned code = ReadValuesFile(folder, text, info);
    const bool isGone = IsMissing(code);
    if (code != kErrorSuccess && !isGone)
        return false;
    // Half a file of a program that is still writing: the last good values stay, and the next change is looked at.
    if (!isGone && m_tools.keeper.MadeGood(folder, text))
        return false;
    if (!m_news->IsNews(folder, isGone ? nullptr : &text))
        return false;
    if (node && node->handles > 0)
        node->TakeText(isGone ? std::string() : std::move(text));
    return true;
}

} // namespace ostrand
