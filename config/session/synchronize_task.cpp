#include "config/session/synchronize_task.h"

#include "core/format.h"

namespace ostrand {

namespace {

constexpr const char16_t* kTask = u"Task[%1!d!]";
constexpr const char16_t* kSource = u"Task[%1!d!].Source[%2!d!]";
constexpr const char16_t* kTarget = u"Task[%1!d!].Target[%2!d!]";

/// Values of one entry: the entry's name and what stands behind its dot.
class EntryReader {
public:
    EntryReader(const VProfileKey& key, VUnicodeString name) : m_key(key), m_name(std::move(name)) {}

    bool Text(const char16_t* field, VUnicodeString& out) const
    {
        return m_key.ReadString((m_name + field).c_str(), out);
    }
    template <class N>
    bool Number(const char16_t* field, N& out) const
    {
        unsigned stored = 0;
        if (!m_key.ReadDword((m_name + field).c_str(), &stored))
            return false;
        if constexpr (std::is_same_v<N, bool>)
            out = stored != 0;
        else
            out = static_cast<N>(stored);
        return true;
    }

private:
    const VProfileKey& m_key;
    const VUnicodeString m_name;
};

bool Read(const EntryReader& in, SynchronizeSource& out)
{
    return in.Text(u".Session", out.session) && in.Text(u".Path", out.path) && in.Number(u".Recurse", out.recurse);
}

bool Read(const EntryReader& in, SynchronizeTarget& out)
{
    return in.Text(u".Session", out.session) && in.Text(u".Path", out.path);
}

template <class Entry>
void ReadEntries(const VProfileKey& key, const char16_t* format, int task, VArray<Entry>& out)
{
    Entry entry;
    for (int number = 0; Read(EntryReader(key, Format(format, task, number)), entry); ++number)
        out.Append(entry);
}

void WriteText(VProfileKey& key, const VUnicodeString& entry, const char16_t* field, const VUnicodeString& text)
{
    key.WriteString((entry + field).c_str(), text.c_str());
}

template <class Entry>
void WriteEntries(VProfileKey& key, const char16_t* format, int task, const VArray<Entry>& entries)
{
    int number = 0;
    for (const Entry& entry : entries) {
        const VUnicodeString name = Format(format, task, number++);
        WriteText(key, name, u".Session", entry.session);
        WriteText(key, name, u".Path", entry.path);
        if constexpr (std::is_same_v<Entry, SynchronizeSource>)
            key.WriteDword((name + u".Recurse").c_str(), entry.recurse ? 1 : 0);
    }
}

} // namespace

bool SynchronizeTask::Read(const VProfileKey& key, int number)
{
    const EntryReader in(key, Format(kTask, number));
    SynchronizeTask task;
    if (!in.Text(u".Name", task.name) || !in.Number(u".Type", task.type))
        return false;
    in.Number(u".MasterOverwrites", task.masterOverwrites);
    ReadEntries(key, kSource, number, task.sources);
    ReadEntries(key, kTarget, number, task.targets);
    *this = std::move(task);
    return true;
}

void SynchronizeTask::Write(VProfileKey& key, int number) const
{
    const VUnicodeString entry = Format(kTask, number);
    WriteText(key, entry, u".Name", name);
    key.WriteDword((entry + u".Type").c_str(), static_cast<unsigned>(type));
    key.WriteDword((entry + u".MasterOverwrites").c_str(), masterOverwrites ? 1 : 0);
    WriteEntries(key, kSource, number, sources);
    WriteEntries(key, kTarget, number, targets);
}

} // namespace ostrand
