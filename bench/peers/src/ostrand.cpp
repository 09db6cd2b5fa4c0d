// This library's file store, reached the way an application reaches it: a factory for the folder, a store and a key
// for each operation.
#include "peer.h"

#include "profile/key.h"
#include "stores/file_store.h"
#include "timing.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace {

using namespace ostrand;

struct Names {
    std::vector<VUnicodeString> asStored, shouted;

    explicit Names(const Schema& fields)
    {
        for (const Field& field : fields) {
            VUnicodeString text;
            FromUtf8(field.name, text);
            asStored.push_back(text);
            FromUtf8(field.shouted, text);
            shouted.push_back(text);
        }
    }
};

const Names& names(Kind kind)
{
    static const Names global(schema(Kind::global)), session(schema(Kind::session));
    return kind == Kind::global ? global : session;
}

struct OstrandHandle : Handle {
    Kind kind;
    VProfileStore store;
    VProfileKey key;

    OstrandHandle(FileStoreFactory& factory, const std::u16string& name, Kind k, bool readOnly)
        : kind(k), store(readOnly, &factory), key(store.GetRootKey(), name.c_str())
    {
    }

    void read_all(Sink& sink) override
    {
        const VUnicodeString* name = names(kind).asStored.data();
        for (const Field& field : schema(kind))
            read(field.type, (name++)->c_str(), sink);
    }

    void read(Type type, const char16_t* name, Sink& sink)
    {
        switch (type) {
        case Type::dword: {
            unsigned value = 0;
            key.ReadDword(name, &value);
            sink.dword(value);
            break;
        }
        case Type::text: {
            VUnicodeString text;
            key.ReadString(name, text);
            take(sink, text, true);
            break;
        }
        case Type::bytes: {
            char block[256];
            unsigned size = sizeof block;
            key.ReadBinary(name, block, &size);
            sink.bytes(block, size);
            break;
        }
        case Type::list: {
            VStringArray list;
            key.ReadMultiSz(name, list);
            sink.list(list.GetCount());
            for (const VUnicodeString& item : list)
                take(sink, item, false);
            break;
        }
        }
    }

    // The digest is over UTF-8; in timed sections only the emptiness counts, and the text stays as it was read.
    static void take(Sink& sink, const VUnicodeString& text, bool whole)
    {
        if (sink.full) {
            const std::string bytes = ToUtf8(text);
            whole ? sink.text(bytes.data(), bytes.size()) : sink.item(bytes.data(), bytes.size());
        } else if (whole) {
            sink.text(nullptr, text.GetLength());
        }
    }

    uint32_t read_dword(int field) override
    {
        unsigned value = 0;
        key.ReadDword(names(kind).asStored[size_t(field)].c_str(), &value);
        return value;
    }
    uint32_t find(int field) override
    {
        Sink sink;
        read(schema(kind)[size_t(field)].type, names(kind).shouted[size_t(field)].c_str(), sink);
        return uint32_t(sink.hash);
    }
    void set_dword(int field, uint32_t value) override { key.WriteDword(names(kind).asStored[size_t(field)].c_str(), value); }
    void save() override
    {
        VReportMessageParams report;
        if (!key.Flush(report))
            throw std::runtime_error("flush failed: " + std::to_string(report.GetCode()));
    }
};

class Ostrand : public Peer {
public:
    std::string name() const override { return HISTORY ? "OstrandUI" : "OstrandUI, no history"; }
    Features features() const override
    {
        return {"text file per record", "spare, exchange; transactions", "file and folder", "lock, re-read, merge by value", "value by value", "yes"};
    }
    std::string suffix() const override { return ".ini"; }

    void begin(const std::string& folder) override
    {
        root = folder;
        if (!HISTORY)
            std::ofstream(folder + "/%store.ini") << "History Versions = 0\n";
        factory = std::make_unique<FileStoreFactory>(folder);
    }

    bool change_as_one(const std::vector<std::string>& paths, int field, uint32_t value) override
    {
        VProfileStore store(false, factory.get());
        VReportMessageParams report;
        bool done = store.Extras().BeginTransaction(report);
        for (const std::string& path : paths)
            VProfileKey(store.GetRootKey(), key_name(path).c_str())
                .WriteDword(names(Kind::session).asStored[size_t(field)].c_str(), value);
        done = done && store.Extras().CommitTransaction(report);
        if (!done)
            throw std::runtime_error("transaction failed: " + std::to_string(report.GetCode()));
        return true;
    }

    void create(const std::string& path, Kind kind, const Record& record) override
    {
        OstrandHandle handle(*factory, key_name(path), kind, false);
        for (size_t i = 0; i < record.size(); ++i)
            write(handle.key, names(kind).asStored[i].c_str(), schema(kind)[i].type, record[i]);
        handle.save();
    }

    std::unique_ptr<Handle> open(const std::string& path, Kind kind) override
    {
        return std::make_unique<OstrandHandle>(*factory, key_name(path), kind, false);
    }

    size_t walk(const std::string& folder, int field, uint64_t& sum) override
    {
        const VUnicodeString& value = names(Kind::session).asStored[size_t(field)];
        size_t found = 0;
        VProfileStore store(true, factory.get());
        const VProfileKey top(store.GetRootKey(), key_name(folder + suffix()).c_str());
        VProfileKeyIterator folders(&top, false);
        for (VUnicodeString name; folders.Next(name);) {
            const VProfileKey key(&top, name.c_str());
            VProfileKeyIterator sessions(&key, false);
            for (VUnicodeString session; sessions.Next(session); ++found) {
                unsigned number = 0;
                VProfileKey(&key, session.c_str()).ReadDword(value.c_str(), &number);
                sum += number;
            }
        }
        return found;
    }

    /// W1 without anything kept from an earlier opening: a factory of its own each time.
    void extra(const std::string& global, const std::vector<std::string>&) override
    {
        std::vector<double> times;
        const double cpu = cpu_us();
        for (int i = 0; i < 4000; ++i) {
            const double t = now_us();
            {
                FileStoreFactory fresh(root);
                Sink sink;
                OstrandHandle(fresh, key_name(global), Kind::global, true).read_all(sink);
            }
            times.push_back(now_us() - t);
        }
        report_times(name(), "W1 first", times, cpu_us() - cpu, 0);
    }

private:
    static VUnicodeString text_of(const std::string& bytes)
    {
        VUnicodeString text;
        FromUtf8(bytes, text);
        return text;
    }

    static void write(VProfileKey& key, const char16_t* name, Type type, const Value& value)
    {
        switch (type) {
        case Type::dword: key.WriteDword(name, value.number); break;
        case Type::text: key.WriteString(name, text_of(value.text).c_str()); break;
        case Type::bytes: key.WriteBinary(name, value.text.data(), unsigned(value.text.size())); break;
        case Type::list: {
            VStringArray list;
            for (const std::string& item : value.items)
                list.Append(text_of(item));
            key.WriteMultiSz(name, list);
            break;
        }
        }
    }

    /// "ROOT/folder/record.ini" is the key "folder\record".
    std::u16string key_name(const std::string& path) const
    {
        std::u16string name(path.begin() + ptrdiff_t(root.size()) + 1, path.end() - ptrdiff_t(suffix().size()));
        std::replace(name.begin(), name.end(), u'/', u'\\');
        return name;
    }

    std::string root;
    std::unique_ptr<FileStoreFactory> factory;
};

} // namespace

int main(int argc, char** argv)
{
    Ostrand peer;
    return run_peer(peer, argc, argv);
}
