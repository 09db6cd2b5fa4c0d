#include "imports/session_writer.h"

#include "config/session/folder_data.h"
#include "config/session/session_paths.h"
#include "config/session/store_transaction.h"
#include "core/decimal.h"
#include "core/fold.h"
#include "profile/hives.h"
#include "profile/key_copy.h"
#include "profile/stored_value.h"
#include "stores/memory_store.h"

#include <map>
#include <set>

namespace ostrand {

namespace {

/// A key in memory in which a session is put together.
class Draft {
public:
    Draft() : m_store(&m_factory), m_key(m_store.GetRootKey(), u"Session") {}

    VProfileKey& Key() { return m_key; }
    void Put(const VUnicodeString& name, const StoreValue& value) { WriteStoredValue(m_key, name.c_str(), value); }
    void PutText(const char16_t* name, const VUnicodeString& text)
    {
        if (!text.IsEmpty())
            Put(name, text);
    }

private:
    MemoryStoreFactory m_factory;
    VProfileStore m_store;
    VProfileKey m_key;
};

void PutSerial(const ImportedSerial& line, Draft& draft)
{
    draft.PutText(u"Serial Port", line.port);
    draft.Put(u"Serial Baud Rate", line.baudRate);
    draft.Put(u"Serial Data Bits", line.dataBits);
    draft.Put(u"Serial Stop Bits", line.stopBits);
    draft.Put(u"Serial Parity", line.parity);
    draft.Put(u"Serial XON Flow", line.xonFlow ? 1u : 0u);
    draft.Put(u"Serial CTS Flow", line.ctsFlow ? 1u : 0u);
    draft.Put(u"Serial DSR Flow", line.dsrFlow ? 1u : 0u);
}

void PutImported(const ImportedSession& session, Draft& draft)
{
    draft.Put(kIsSession, 1u);
    draft.Put(u"Protocol Name", session.protocol);
    draft.Put(u"Hostname", session.hostname);
    draft.Put(u"Username", session.username);
    const VUnicodeString port = session.protocol + u" Port";
    if (session.port != 0)
        draft.Put(port, session.port);
    else
        draft.Key().DeleteValue(port.c_str()); // the usual one, whatever Default has
    if (session.serial)
        PutSerial(*session.serial, draft);
    VProfileMultiLineString description;
    description.SetText(session.description.c_str());
    draft.Put(u"Description", description.Value());
    for (const ImportedValue& value : session.values)
        std::visit([&](const auto& data) { draft.Put(value.name, StoreValue(data)); }, value.data);
}

/// Values that the record doesn't know, such as those of a protocol that isn't loaded.
void KeepOthers(const VProfileKey& draft, VProfileKey& key)
{
    VProfileKeyIterator values(&draft, true);
    VUnicodeString name;
    int type = 0;
    StoreValue value, stored;
    while (values.NextValue(name, &type))
        if (!FindStoredValue(key, name.c_str(), stored) &&
            ReadStoredValue(draft, name.c_str(), static_cast<VProfileValueType>(type), value))
            WriteStoredValue(key, name.c_str(), value);
}

class Writer {
public:
    explicit Writer(const VProfileStore& store) : m_store(store) {}

    bool Write(const ImportedSession& session, const VUnicodeString& path, IReportMessageParams& report)
    {
        Draft draft;
        if (!TakeDefault(draft.Key(), report))
            return false;
        PutImported(session, draft);
        const SessionPathParts parts = SplitSessionPath(path);
        const auto record = VUnknownPointer<SessionConfig>::Adopt(new SessionConfig(parts.name, &draft.Key()));
        VProfileKey key(m_store.GetRootKey(), BuildSessionKeyPath(path).c_str());
        record->Save(&key, true);
        KeepOthers(draft.Key(), key);
        m_names[std::u16string(parts.folder)].Append(parts.name);
        return key.Flush(report);
    }

    bool WriteLists(IReportMessageParams& report)
    {
        for (const auto& [folder, names] : m_names) {
            ProfileFolderData data(folder, false);
            InsertNames(data.orderedSessions, names, {}, false);
            if (!data.SaveLists(report))
                return false;
        }
        return true;
    }

private:
    bool TakeDefault(VProfileKey& draft, IReportMessageParams& report)
    {
        const VUnicodeString path = BuildSessionKeyPath(kDefaultSession);
        if (!m_store.GetRootKey()->KeyExists(path.c_str()))
            return true;
        return CopyKey(VProfileKey(m_store.GetRootKey(), path.c_str()), draft, report);
    }

    const VProfileStore& m_store;
    std::map<std::u16string, VStringArray> m_names; // of the new sessions, by folder
};

} // namespace

VStringArray PathsOfImport(const std::vector<ImportedSession>& sessions, std::u16string_view folder)
{
    std::set<std::u16string> taken;
    VStringArray paths;
    for (const ImportedSession& session : sessions) {
        const VUnicodeString wanted = JoinKeys(JoinKeys(folder, session.folder), session.name);
        VUnicodeString path = wanted;
        for (unsigned number = 2; taken.count(FoldedCase(path)) != 0 || SessionExists(path); ++number)
            path = wanted + u" (" + DecimalText(number) + u")";
        taken.insert(FoldedCase(path));
        paths.Append(path);
    }
    return paths;
}

bool WriteImportedSessions(const std::vector<ImportedSession>& sessions, const ImportWriteOptions& options,
                           VStringArray& paths, IReportMessageParams& report)
{
    paths = PathsOfImport(sessions, options.folder);
    const VProfileStore store;
    StoreTransaction transaction(store);
    if (!transaction.Begin(report))
        return false;
    Writer writer(store);
    for (size_t i = 0; i < sessions.size(); ++i) {
        if (!writer.Write(sessions[i], paths[i], report))
            return false;
        if (options.progress && !options.progress(static_cast<unsigned>(i + 1)))
            return false;
    }
    return writer.WriteLists(report) && transaction.Commit(report);
}

} // namespace ostrand
