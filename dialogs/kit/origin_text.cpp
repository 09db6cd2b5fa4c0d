#include "dialogs/kit/origin_text.h"

#include "dialogs/kit/form.h"
#include "dialogs/kit/number_text.h"
#include "dialogs/kit/record_info.h"
#include "dialogs/kit/value_words.h"
#include "profile/policy.h"

#include <vector>

namespace ostrand {

namespace {

VUnicodeString PlaceWords(const ValuePlace& place)
{
    VUnicodeString file;
    FromUtf8(place.file, file);
    return TranslateFormat(u"%1, line %2", file, NumberText(static_cast<int64_t>(place.line)));
}

VUnicodeString StoredSentence(const VValueOrigin& origin, const VSchemaEntry& entry)
{
    using Kind = VValueOrigin::Kind;
    if (origin.kind == Kind::NotStored)
        return Translate(entry.isInTable ? u"Not stored yet." : u"Not stored.");
    VUnicodeString where = Translate(u"in the configuration");
    if (origin.place.line > 0)
        where = TranslateFormat(u"in %1", PlaceWords(origin.place));
    if (origin.kind == Kind::OldName)
        return TranslateFormat(u"Stored under its old name \"%1\" %2.", entry.formerly, where);
    return origin.kind == Kind::Stored ? TranslateFormat(u"Stored %1.", where) : VUnicodeString();
}

VUnicodeString CorrectionSentence(const VValueOrigin& origin, const VSchemaEntry& entry)
{
    if (origin.correctedFrom)
        return TranslateFormat(u"Corrected from %1: the setting takes %2.", NumberText(*origin.correctedFrom),
                               BoundWords(entry.bound));
    return origin.isCorrected ? Translate(u"Corrected by a rule of the configuration.") : VUnicodeString();
}

VUnicodeString DefaultSentence(VBinding& binding, const VSchemaEntry& entry)
{
    if (entry.computed)
        return TranslateFormat(u"Its default depends on %1.", entry.computed);
    const VUnicodeString usual = binding.DefaultText();
    if (usual.IsEmpty())
        return {};
    return TranslateFormat(binding.Compare().differs ? u"Its default is another: %1." : u"Equals the default: %1.",
                           usual);
}

VUnicodeString LockSentence(const char16_t* name)
{
    const std::optional<VPolicyValue> lock = FindPolicy(name);
    if (!lock)
        return {};
    const VUnicodeString value = NumberText(lock->value);
    if (lock->place.line == 0)
        return TranslateFormat(u"Locked by an administrator's policy, to %1.", value);
    return TranslateFormat(u"Locked by an administrator's policy, to %1, in %2.", value, PlaceWords(lock->place));
}

VUnicodeString GlobalSentence(const VBinding& binding)
{
    const auto* const box = dynamic_cast<const VCheckControl*>(binding.Form().Find(binding.GetControl()));
    if (!box || box->GetState() != VTriState::Undetermined || box->GetThirdStateWords().IsEmpty())
        return {};
    return TranslateFormat(u"Decided by the %1.", box->GetThirdStateWords());
}

/// Numbers that a global setting keeps its answer in.
std::optional<bool> TruthOf(const VProfileData& value)
{
    if (const auto* const number = dynamic_cast<const VProfile<bool>*>(&value))
        return number->value;
    if (const auto* const number = dynamic_cast<const VProfile<int>*>(&value))
        return number->value != 0;
    return std::nullopt;
}

} // namespace

VUnicodeString ThirdStateWords(const VBinding& binding)
{
    const IRecordInfo* const record = binding.Record();
    const VProfileData* const global =
        record ? binding.Form().FindValueElsewhere(binding.GetTarget().name, *record) : nullptr;
    const std::optional<bool> isOn = global ? TruthOf(*global) : std::nullopt;
    if (!isOn)
        return {};
    return TranslateFormat(u"global setting: %1", Translate(*isOn ? u"on" : u"off"));
}

VUnicodeString OriginText(VBinding& binding)
{
    const IRecordInfo* const record = binding.Record();
    if (!record)
        return {};
    const VSchemaEntry& entry = *binding.Entry();
    const VValueOrigin origin = record->OriginOf(binding.GetTarget());
    VUnicodeString text;
    for (const VUnicodeString& sentence :
         {Translate(entry.meaning), LockSentence(binding.GetTarget().name.c_str()), GlobalSentence(binding),
          StoredSentence(origin, entry), CorrectionSentence(origin, entry), DefaultSentence(binding, entry)}) {
        if (!text.IsEmpty() && !sentence.IsEmpty())
            text += u"\n";
        text += sentence;
    }
    return text;
}

} // namespace ostrand
