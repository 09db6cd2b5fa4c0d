// secret encode, secret decode: a text in the forms in which stores keep secrets
#include "core/messages.h"
#include "profile/blowfish_value.h"
#include "profile/capi_string.h"
#include "profile/encoded_string.h"
#include "tools/commands.h"
#include "tools/json_writer.h"
#include "tools/output.h"
#include "tools/standard_input.h"

#include <algorithm>
#include <array>

namespace ostrand::tool {

namespace {

/// One stored form, by the class that keeps it. Both ways answer what is wrong; empty for nothing.
struct Form {
    const char* name;
    std::string (*encode)(const Request&, const VUnicodeString& text, VUnicodeString& stored);
    std::string (*decode)(const Request&, const VUnicodeString& stored, VUnicodeString& text);
};

void Prepare(VProfileEncodedString&, const Request&) {}

void Prepare(VProfileBlowfishString& value, const Request& request) { value.SetCipherMode(request.mode); }

void Prepare(VProfileCapiString& value, const Request& request)
{
    VUnicodeString name = u"Firewall Password"; // the one value that is read in this form
    if (!request.name.empty())
        FromUtf8(request.name, name);
    value.SetName(name);
}

template <class V>
std::string ReasonOf(const V&)
{
    return "it is none of this form";
}

/// The texts of these codes are the application's; their last argument is the system's reason.
std::string ReasonOf(const VProfileCapiString& value)
{
    if (value.report.GetCode() == kProtectedTextCut)
        return "it was cut";
    return value.report.GetArgumentCount() < 2 ? "it is none of this form" : Lossless(value.report.GetArguments()[1]);
}

template <class V>
std::string DecodeWith(const Request& request, const VUnicodeString& stored, VUnicodeString& text)
{
    V value;
    Prepare(value, request);
    const bool isDecoded = value.Decode(stored);
    text = static_cast<const VUnicodeString&>(value);
    return isDecoded && text.IsEmpty() == stored.IsEmpty() ? "" : ReasonOf(value);
}

template <class V>
std::string EncodeWith(const Request& request, const VUnicodeString& text, VUnicodeString& stored)
{
    V value;
    Prepare(value, request);
    value = std::u16string_view(text);
    if (!text.IsEmpty() && !value.Encode(stored))
        return ReasonOf(value);
    VUnicodeString back;
    DecodeWith<V>(request, stored, back);
    return back == text ? "" : "it holds a zero, or characters that this form lacks";
}

template <class V>
constexpr Form FormOf(const char* name)
{
    return {name, EncodeWith<V>, DecodeWith<V>};
}

constexpr std::array kForms = {
    FormOf<VProfileEncodedString>("encoded"),
    FormOf<VProfileBlowfishString>("blowfish"),
    FormOf<VProfileCapiString>("protected"),
};

const Form& FormOf(const Request& request)
{
    return *std::find_if(kForms.begin(), kForms.end(), [&](const Form& form) { return form.name == request.form; });
}

Exit ReadText(const Request& request, VUnicodeString& text)
{
    if (!request.text)
        return ReadInput(text);
    Warn("other users of this machine can see the arguments of programs; standard input is safer");
    return FromUtf8(*request.text, text) ? Exit::Done : Fail(Exit::Failed, "the text is no UTF-8");
}

using Conversion = std::string (*)(const Request&, const VUnicodeString& from, VUnicodeString& to);

Exit Convert(const Request& request, Conversion convert, const char* member)
{
    if (request.mode != 0 && request.form != "blowfish")
        return Fail(Exit::Usage, "--mode is for --form blowfish; see ostrandcfg --help");
    VUnicodeString from, to;
    if (const Exit read = ReadText(request, from); read != Exit::Done)
        return read;
    if (const std::string problem = convert(request, from, to); !problem.empty())
        return Fail(Exit::Failed, "the text can't be converted: " + problem);
    const std::string lossless = Lossless(to);
    return Print(request.asJson ? WriteJson({{"form", request.form}, {member, lossless}}) : Plain(lossless) + "\n");
}

} // namespace

Exit EncodeSecret(const Request& request) { return Convert(request, FormOf(request).encode, "stored"); }

Exit DecodeSecret(const Request& request) { return Convert(request, FormOf(request).decode, "text"); }

} // namespace ostrand::tool
