#include "profile/change_recorder.h"

#include "core/fold.h"
#include "profile/hives.h"

#include <algorithm>

namespace ostrand {

namespace {

class NoNames final : public VProfilePrivateKeyIterator {
    bool NextValue(VUnicodeString&, int*) override { return false; }
    bool Next(VUnicodeString&) override { return false; }
};

} // namespace

bool ChangeRecorder::WriteBinary(const char16_t* name, const void* data, unsigned size)
{
    const auto* const bytes = static_cast<const uint8_t*>(data);
    return Note(name, size == 0 ? StoreBlock() : StoreBlock(bytes, bytes + size));
}

VProfilePrivateKey* ChangeRecorder::OpenKey(const char16_t* name, VSecurityDescriptor*)
{
    auto own = KeyExists(name) ? std::make_unique<VProfileKey>(m_key, name) : nullptr;
    auto below = std::make_unique<ChangeRecorder>(own.get(), m_changes);
    below->m_own = std::move(own);
    below->m_path = JoinKeys(m_path, name);
    return below.release();
}

VProfilePrivateKeyIterator* ChangeRecorder::CreateIterator(bool values)
{
    return m_key ? m_key->CreateIterator(values) : new NoNames;
}

std::optional<StoreValue> ChangeRecorder::Stored(const char16_t* name, const std::optional<StoreValue>& after) const
{
    StoreValue stored;
    // As a rule a value keeps its kind.
    if (m_key && ((after && ReadStoredValue(*m_key, name, static_cast<VProfileValueType>(after->index()), stored)) ||
                  FindStoredValue(*m_key, name, stored)))
        return stored;
    return std::nullopt;
}

bool ChangeRecorder::Note(const char16_t* name, std::optional<StoreValue> after)
{
    const auto earlier = std::find_if(m_changes.begin(), m_changes.end(), [&](const StoredChange& c) {
        return EqualNoCase(c.name, name) && EqualNoCase(c.key, m_path);
    });
    if (earlier != m_changes.end()) {
        earlier->after = std::move(after);
        if (earlier->after == earlier->before)
            m_changes.erase(earlier);
        return true;
    }
    std::optional<StoreValue> before = Stored(name, after);
    if (before != after)
        m_changes.push_back({m_path, name, std::move(before), std::move(after)});
    return true;
}

bool WriteChanges(VProfileKey& key, const std::vector<StoredChange>& changes, IReportMessageParams& report)
{
    for (const StoredChange& change : changes) {
        std::unique_ptr<VProfileKey> below;
        if (!change.key.IsEmpty())
            below = std::make_unique<VProfileKey>(&key, change.key.c_str());
        VProfileKey& target = below ? *below : key;
        const bool isDone = change.after ? WriteStoredValue(target, change.name.c_str(), *change.after)
                                         : target.DeleteValue(change.name.c_str());
        if (!isDone) {
            report.Assign(&target.GetStatus());
            return false;
        }
        if (below && !below->Flush(report))
            return false;
    }
    return key.Flush(report);
}

} // namespace ostrand
