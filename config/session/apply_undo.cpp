#include "config/session/apply_undo.h"

#include "config/session/session_paths.h"
#include "config/session/store_transaction.h"
#include "config/session/stored_text.h"
#include "core/decimal.h"
#include "core/messages.h"
#include "profile/hives.h"

namespace ostrand {

namespace {

constexpr const char16_t* kUndoKey = u"Apply Undo";
constexpr const char16_t* kGeneration = u"Generation";
constexpr unsigned kSessionsInChunk = 256;
constexpr size_t kTextsOfLine = 4;

VUnicodeString PathOf(unsigned generation) { return JoinKeys(kUndoKey, DecimalText(generation)); }

unsigned GenerationOf(const VProfileStore& store)
{
    unsigned generation = 0;
    if (store.GetRootKey()->KeyExists(kUndoKey))
        VProfileKey(store.GetRootKey(), kUndoKey).ReadDword(kGeneration, &generation);
    return generation;
}

/// One session of a record. False for texts that nobody wrote like that.
bool ReadEntry(const VStringArray& texts, VUnicodeString& path, std::vector<StoredChange>& lines)
{
    lines.clear();
    if (texts.GetCount() % kTextsOfLine != 1)
        return false;
    path = texts[0];
    for (size_t i = 1; i < texts.GetCount(); i += kTextsOfLine) {
        StoredChange line{texts[i], texts[i + 1], {}, {}};
        if (!ReadStoredText(texts[i + 2], line.before) || !ReadStoredText(texts[i + 3], line.after))
            return false;
        lines.push_back(std::move(line));
    }
    return true;
}

/// Puts the lines of one session back that are as the change left them.
class Restorer {
public:
    Restorer(const VProfileStore& store, UndoOutcome& outcome) : m_store(store), m_outcome(outcome) {}

    bool Restore(const VUnicodeString& path, const std::vector<StoredChange>& lines, IReportMessageParams& report)
    {
        const VUnicodeString keyPath = BuildSessionKeyPath(path);
        if (path.IsEmpty() || !m_store.GetRootKey()->KeyExists(keyPath.c_str())) {
            ++m_outcome.missing;
            return true;
        }
        VProfileKey key(m_store.GetRootKey(), keyPath.c_str());
        if (!key.IsWritable()) {
            ++m_outcome.readOnly;
            return true;
        }
        std::vector<StoredChange> back;
        for (const StoredChange& line : lines)
            Compare(path, key, line, back);
        ++m_outcome.restored;
        return WriteChanges(key, back, report);
    }

private:
    void Compare(const VUnicodeString& path, const VProfileKey& key, const StoredChange& line,
                 std::vector<StoredChange>& back)
    {
        const std::optional<StoreValue> now = ValueOf(key, line);
        if (now == line.after)
            back.push_back({line.key, line.name, line.after, line.before});
        else if (now != line.before)
            m_outcome.kept.Append(path + u": " + JoinKeys(line.key, line.name));
    }

    static std::optional<StoreValue> ValueOf(const VProfileKey& key, const StoredChange& line)
    {
        StoreValue value;
        if (line.key.IsEmpty())
            return FindStoredValue(key, line.name.c_str(), value) ? std::optional(value) : std::nullopt;
        if (!key.KeyExists(line.key.c_str()))
            return std::nullopt;
        const VProfileKey below(&key, line.key.c_str());
        return FindStoredValue(below, line.name.c_str(), value) ? std::optional(value) : std::nullopt;
    }

    const VProfileStore& m_store;
    UndoOutcome& m_outcome;
};

using EntryVisitor = std::function<bool(const VStringArray& texts)>;

bool WalkChunk(const VProfileKey& chunk, const EntryVisitor& visit)
{
    VProfileKeyIterator values(&chunk, true);
    VUnicodeString name;
    int type = 0;
    VStringArray texts;
    while (values.NextValue(name, &type))
        if (type == static_cast<int>(VProfileValueType::MultiSz) && chunk.ReadMultiSz(name.c_str(), texts) &&
            !visit(texts))
            return false;
    return true;
}

bool WalkRecord(const VProfileStore& store, unsigned generation, const EntryVisitor& visit)
{
    const VProfileKey record(store.GetRootKey(), PathOf(generation).c_str());
    VProfileKeyIterator chunks(&record, false);
    VUnicodeString name;
    while (chunks.Next(name))
        if (!WalkChunk(VProfileKey(&record, name.c_str()), visit))
            return false;
    return true;
}

} // namespace

ApplyUndoWriter::ApplyUndoWriter(VProfileStore& store)
    : m_store(store),
      m_former(GenerationOf(store)),
      m_generation(m_former + 1)
{
}

bool ApplyUndoWriter::Add(const VUnicodeString& path, const std::vector<StoredChange>& changes,
                          IReportMessageParams& report)
{
    if (m_count % kSessionsInChunk == 0) {
        const VUnicodeString chunk = JoinKeys(PathOf(m_generation), DecimalText(m_count / kSessionsInChunk + 1));
        m_chunk = std::make_unique<VProfileKey>(m_store.GetRootKey(), chunk.c_str());
    }
    VStringArray texts;
    texts.Append(path);
    for (const StoredChange& change : changes)
        for (const VUnicodeString& text :
             {change.key, change.name, StoredText(change.before), StoredText(change.after)})
            texts.Append(text);
    if (m_chunk->WriteMultiSz(DecimalText(++m_count).c_str(), texts))
        return true;
    report.Assign(&m_chunk->GetStatus());
    return false;
}

bool ApplyUndoWriter::Finish(IReportMessageParams& report)
{
    m_chunk.reset();
    VProfileKey key(m_store.GetRootKey(), kUndoKey);
    if (key.WriteDword(kGeneration, m_generation))
        return key.Flush(report);
    report.Assign(&key.GetStatus());
    return false;
}

void ApplyUndoWriter::RemoveFormer()
{
    if (m_former != 0)
        m_store.GetRootKey()->DeleteKey(PathOf(m_former).c_str());
}

bool HasApplyToUndo() { return GenerationOf(VProfileStore(true)) != 0; }

bool UndoLastApply(const ApplyOptions& options, UndoOutcome& outcome, IReportMessageParams& report)
{
    outcome = {};
    VProfileStore store;
    const unsigned generation = GenerationOf(store);
    if (generation == 0)
        return Fail(report, kNothingToUndo);
    StoreTransaction transaction(store);
    if (!transaction.Begin(report))
        return false;
    Restorer restorer(store, outcome);
    VUnicodeString path;
    std::vector<StoredChange> lines;
    unsigned done = 0;
    bool isRefused = false;
    const bool isWhole = WalkRecord(store, generation, [&](const VStringArray& texts) {
        isRefused = ReadEntry(texts, path, lines) && !restorer.Restore(path, lines, report);
        return !isRefused && (!options.progress || options.progress(++done));
    });
    outcome.wasStopped = !isWhole && !isRefused;
    if (!isWhole || !transaction.Commit(report))
        return false;
    if (outcome.readOnly == 0)
        store.GetRootKey()->DeleteKey(kUndoKey);
    return true;
}

} // namespace ostrand
