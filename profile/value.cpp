#include "profile/value.h"

#include "core/messages.h"
#include "platform/error_codes.h"

namespace ostrand {

namespace {

/// The walk of a const record: members are looked at, never changed.
VProfileData* MemberOf(const VProfileData& record, int index)
{
    return const_cast<VProfileData&>(record).GetMember(index);
}

} // namespace

bool VProfileData::Parse(const VUnicodeString&, IProfileValueParser*, IReportMessageParams&) { return false; }

bool VProfileData::GetVariantData(VVariant*, const void*, unsigned, IReportMessageParams& report)
{
    return Fail(report, kNoVariantConversion, name);
}

bool VProfileData::GetVariant(VVariant*, IReportMessageParams& report)
{
    return Fail(report, kNoVariantConversion, name);
}

bool VProfileData::SetVariantData(const VVariant*, void*, unsigned, IReportMessageParams& report)
{
    return Fail(report, kNoVariantConversion, name);
}

bool VProfileData::SetVariant(const VVariant*, IReportMessageParams& report)
{
    return Fail(report, kNoVariantConversion, name);
}

void VProfileDword::WriteStored(VProfileKey* key, unsigned value)
{
    key->WriteDword(name.c_str(), value);
    dirty = false;
}

void VProfileSz::WriteStored(VProfileKey* key, const VUnicodeString& value)
{
    key->WriteString(name.c_str(), value.c_str());
    dirty = false;
}

bool VProfileSz::GetVariantData(VVariant* out, const void* data, unsigned, IReportMessageParams&)
{
    out->data = *static_cast<const VUnicodeString*>(data);
    return true;
}

bool VProfileSz::SetVariantData(const VVariant* in, void* data, unsigned, IReportMessageParams& report)
{
    if (!ConvertVariant(*in, *static_cast<VUnicodeString*>(data)))
        return Fail(report, kVariantNotConvertible, name);
    return true;
}

bool VProfileSz::ParseInto(VUnicodeString* out, const VUnicodeString& text, IProfileValueParser* parser,
                           IReportMessageParams& report)
{
    VUnicodeString parsed;
    if (parser->ParseString(&parsed, text, report, true)) {
        *out = parsed;
        return true;
    }
    if (report.GetCode() != kParserHasNoOpinion)
        return false;
    report.SetMessage(kErrorSuccess);
    *out = text;
    return true;
}

void VProfileBinary::WriteStored(VProfileKey* key, const void* data, unsigned size)
{
    key->WriteBinary(name.c_str(), data, size);
    dirty = false;
}

void VProfileMultiSz::WriteStored(VProfileKey* key, const VStringArray& value)
{
    key->WriteMultiSz(name.c_str(), value);
    dirty = false;
}

bool VProfileMultiSz::ParseInto(VStringArray* out, const VUnicodeString& text, IProfileValueParser* parser,
                                IReportMessageParams& report) const
{
    return parser->ParseStringArray(out, text, report, !parserOption);
}

bool VProfileMultiSz::GetVariantArray(VVariant* out, const VStringArray& list, IReportMessageParams&)
{
    VVariantArray& elements = out->data.emplace<VVariantArray>();
    elements.reserve(list.GetCount());
    for (const VUnicodeString& text : list)
        elements.emplace_back().data = text;
    return true;
}

bool VProfileMultiSz::SetVariantData(const VVariant* in, void* data, unsigned, IReportMessageParams& report)
{
    if (const auto* reference = std::get_if<VVariantReference>(&in->data))
        in = reference->target;
    const auto* elements = in ? std::get_if<VVariantArray>(&in->data) : nullptr;
    VUnicodeString text;
    // The first element speaks for all: a foreign array is refused before the target is emptied.
    if (!elements || (!elements->empty() && !ConvertVariant(elements->front(), text)))
        return Fail(report, kVariantNotConvertible, name);
    auto& list = *static_cast<VStringArray*>(data);
    list.RemoveAll();
    for (const VVariant& element : *elements) {
        text.Clear();
        ConvertVariant(element, text);
        list.Append(text);
    }
    return true;
}

void VProfileRecord::Save(VProfileKey* key, bool force)
{
    PrepareSave(key, force);
    for (int i = 0; VProfileData* member = GetMember(i); ++i)
        member->Save(key, force);
}

bool VProfileRecord::IsModified() const
{
    for (int i = 0; const VProfileData* member = MemberOf(*this, i); ++i)
        if (member->IsModified())
            return true;
    return false;
}

void VProfileRecord::AcceptChanges()
{
    for (int i = 0; VProfileData* member = GetMember(i); ++i)
        member->AcceptChanges();
}

void VProfileRecord::RevertChanges()
{
    for (int i = 0; VProfileData* member = GetMember(i); ++i)
        member->RevertChanges();
}

void VProfileRecord::CopyValue(const VProfileData& other)
{
    const auto& record = dynamic_cast<const VProfileRecord&>(other);
    for (int i = 0; VProfileData* mine = GetMember(i); ++i)
        if (const VProfileData* const theirs = MemberOf(record, i); theirs->IsModified())
            mine->CopyValue(*theirs);
}

} // namespace ostrand
