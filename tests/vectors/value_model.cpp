// The three states of a value, step by step, and the copying of records.

#include "tests/vectors/json_store.h"
#include "tests/vectors/json_values.h"
#include "tests/vectors/value_subject.h"

#include <array>

namespace ostrand::vectors {

namespace {

/// An object of the same class, as another editor may hold it: loaded, then perhaps set.
std::unique_ptr<Subject> Loaded(const Json& classOf, const Json& state, const VUnicodeString& name)
{
    auto subject = MakeSubject(classOf, name);
    const bool isFound = state.contains("loaded");
    if (isFound || state.contains("default"))
        subject->Load(nullptr, isFound ? state.at("loaded") : state.at("default"));
    JsonStore store;
    if (isFound)
        subject->Value().Save(store.Key(), true); // as if found there: clean
    for (const char* const member : {"set", "value"})
        if (state.contains(member))
            subject->Set(state.at(member));
    return subject;
}

void RunPlainStep(Subject& subject, const Json& theCase, const Json& step)
{
    const std::string act = step.at("do");
    VProfileData& value = subject.Value();
    if (act == "load" || act == "merge") {
        auto store = StoreOf(step);
        VProfileKey* const key = store ? store->Key() : nullptr;
        if (act == "load")
            subject.Load(key, step.at("default"));
        else
            subject.Merge(key);
    } else if (act == "set") {
        subject.Set(step.at("value"));
    } else if (act == "accept") {
        value.AcceptChanges();
    } else if (act == "revert") {
        value.RevertChanges();
    } else if (act == "copy from") {
        value.CopyValue(Loaded(theCase, step.value("source", step), value.name)->Value());
    } else if (act == "assign") {
        subject.Assign(*Loaded(theCase, step.value("source", step), value.name));
    } else {
        Unknown("step", act);
    }
}

Json RunStep(Subject& subject, const Json& theCase, const Json& step, JsonStore& written)
{
    Json after = Json::object();
    if (step.at("do") == "save") {
        subject.Value().Save(written.Key(), step.at("force"));
        after["wrote"] = written.TakeWrote();
    } else {
        RunPlainStep(subject, theCase, step);
    }
    after.update(StateOf(subject.Value(), subject.Show()));
    return after;
}

Json RunSteps(const Json& theCase)
{
    const auto subject = MakeSubject(theCase, ToText(theCase.at("value_name")));
    JsonStore written;
    Json after = Json::array();
    for (const Json& step : theCase.at("steps"))
        after.push_back(RunStep(*subject, theCase, step, written));
    return {{"after", after}, {"store", written.Values()}};
}

/// A record whose members a case lists.
class ListedRecord : public VProfileRecord {
public:
    explicit ListedRecord(const Json& members)
    {
        for (const Json& member : members)
            m_members.push_back(Loaded(member, member, ToText(member.at("name"))));
    }
    VProfileData* GetMember(int index) override
    {
        const auto i = static_cast<size_t>(index);
        return i < m_members.size() ? &m_members[i]->Value() : nullptr;
    }
    Json Show() const
    {
        Json members = Json::object();
        for (const auto& member : m_members)
            members[FromText(member->Value().name).get<std::string>()] = StateOf(member->Value(), member->Show());
        return members;
    }

private:
    std::vector<std::unique_ptr<Subject>> m_members;
};

Json CopyComposite(const Json& theCase)
{
    ListedRecord target(theCase.at("target"));
    const ListedRecord source(theCase.at("source"));
    target.CopyValue(source);
    return {{"target", target.Show()}};
}

constexpr std::array kKinds = {Kind{"steps", RunSteps}, Kind{"composite copy", CopyComposite}};

} // namespace

std::span<const Kind> ValueModelKinds() { return kKinds; }

} // namespace ostrand::vectors
