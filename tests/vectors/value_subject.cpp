#include "tests/vectors/value_subject.h"

#include "tests/vectors/json_values.h"

#include <array>

namespace ostrand::vectors {

namespace {

template <class V>
class SubjectOf : public Subject {
    using T = decltype(V::saved);

public:
    VProfileData& Value() override { return m_value; }
    void Load(const VProfileKey* key, const Json& defaultValue) override { m_value.Load(key, From(defaultValue)); }
    void Merge(const VProfileKey* key) override { m_value.Merge(key); }
    void Assign(const Subject& other) override { m_value = dynamic_cast<const SubjectOf&>(other).m_value; }
    void Set(const Json& value) override { m_value = From(value); }
    Json Show() const override { return ToJson(Current(m_value)); }

private:
    static T From(const Json& json)
    {
        T value{};
        FromJson(json, value);
        return value;
    }

    V m_value;
};

/// A record without fields of its own, for blocks of sizes that no record of the library has.
template <unsigned Size>
struct PlainRecord {
    static constexpr unsigned kStoredSize = Size;
    std::array<uint8_t, Size> bytes{};

    void Pack(std::span<uint8_t, Size> out) const { std::copy(bytes.begin(), bytes.end(), out.begin()); }
    void Unpack(std::span<const uint8_t, Size> in) { std::copy(in.begin(), in.end(), bytes.begin()); }
    bool operator==(const PlainRecord&) const = default;
};

template <class V>
std::unique_ptr<Subject> Make()
{
    return std::make_unique<SubjectOf<V>>();
}

template <class R>
std::unique_ptr<Subject> MakeBlock()
{
    return Make<VProfile2<R, VProfileBinary>>();
}

struct NumberedMaker {
    unsigned size;
    std::unique_ptr<Subject> (*make)();
};

template <unsigned Size>
constexpr NumberedMaker Plain()
{
    return {Size, MakeBlock<PlainRecord<Size>>};
}

constexpr std::array kBlocks = {NumberedMaker{VMarginData::kStoredSize, MakeBlock<VMarginData>},
                                NumberedMaker{VWindowPlacement::kStoredSize, MakeBlock<VWindowPlacement>},
                                NumberedMaker{CustomColors::kStoredSize, MakeBlock<CustomColors>},
                                NumberedMaker{VLogFont::kStoredSize, MakeBlock<VLogFont>},
                                Plain<1>(),
                                Plain<2>(),
                                Plain<4>(),
                                Plain<8>(),
                                Plain<12>(),
                                Plain<16>(),
                                Plain<20>(),
                                Plain<24>(),
                                Plain<48>(),
                                Plain<68>(),
                                Plain<128>()};

struct NamedMaker {
    const char* name;
    std::unique_ptr<Subject> (*make)();
};

constexpr std::array kClasses = {
    NamedMaker{"int", Make<VProfile<int>>},
    NamedMaker{"unsigned", Make<VProfile<unsigned>>},
    NamedMaker{"unsigned int", Make<VProfile<unsigned>>},
    NamedMaker{"uint", Make<VProfile<unsigned>>},
    NamedMaker{"unsigned long", Make<VProfile<unsigned long>>},
    NamedMaker{"ulong", Make<VProfile<unsigned long>>},
    NamedMaker{"bool", Make<VProfile<bool>>},
    NamedMaker{"tristate", Make<VProfile<VTriState>>},
    NamedMaker{"tri-state", Make<VProfile<VTriState>>},
    NamedMaker{"string", Make<VProfileString>},
    NamedMaker{"list", Make<VProfileStringList>},
    NamedMaker{"strings", Make<VProfileStringList>},
};

std::unique_ptr<Subject> MakeNamed(const Json& description)
{
    const std::string name = description.at("class");
    if (name == "block") {
        const unsigned size = description.at("record_size");
        for (const NumberedMaker& block : kBlocks)
            if (block.size == size)
                return block.make();
        Unknown("record size", std::to_string(size));
    }
    for (const NamedMaker& known : kClasses)
        if (name == known.name)
            return known.make();
    Unknown("class", name);
}

} // namespace

std::unique_ptr<Subject> MakeSubject(const Json& description, const VUnicodeString& name)
{
    auto subject = MakeNamed(description);
    subject->Value().SetName(name);
    return subject;
}

} // namespace ostrand::vectors
