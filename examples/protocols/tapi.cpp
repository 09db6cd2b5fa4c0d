// A modem of the system. No host either.
#include "exports.h"

#include "config/session/plain_connect_config.h"
#include "profile/schema.h"

namespace example {

namespace {

using namespace ostrand;

class TapiConfig final : public PlainConnectConfig {
public:
    static constexpr const char16_t* kTitle = u"TAPI";
    using ReadContext = VReadContext;
    using Record = TapiConfig;

    TapiConfig(const VProfileKey* key, ICommonConfig*) { Schema().Load(*this, {key, false}); }

    ConnectConfig* Clone(ICommonConfig*) const override { return new TapiConfig(*this); }
    VProfileData* GetMember(int index) override { return Schema().GetMember(*this, index); }
    Record& GetRecord() { return *this; }
    static Record MakeDefaults() { return {nullptr, nullptr}; }
    int IsConnectable(IReportMessageParams*) override { return phoneNumber.IsEmpty() ? 0 : 1; }
    /// What summaries show behind "Phone number:".
    void GetHostName(IString* out) const override { out->Set(phoneNumber.c_str(), false); }
    static const VSchema<TapiConfig>& Schema();

    VProfileString device, phoneNumber, areaCode;
    VProfile<int> countryCode;
    VProfile<bool> dialingRules;
};

constexpr std::array kRows = {
    String<&TapiConfig::device>(u"TAPI Device", u"", u"The modem."),
    String<&TapiConfig::phoneNumber>(u"TAPI Phone Number", u"", u"The number to dial."),
    String<&TapiConfig::areaCode>(u"TAPI Area Code", u"", u"The number's area."),
    Int<&TapiConfig::countryCode>(u"TAPI Country Code", 1, u"The number's country.", AtLeast{1}),
    Bool<&TapiConfig::dialingRules>(u"TAPI Dialing Rules", true, u"Whether the system completes the number."),
};
static_assert(NamesAreUnique(kRows));

const VSchema<TapiConfig>& TapiConfig::Schema()
{
    static const auto& schema = *new VSchema<TapiConfig>(kRows);
    return schema;
}

constexpr Protocol kProtocols[] = {ProtocolOf<TapiConfig>()};

} // namespace

std::span<const Protocol> Protocols() { return kProtocols; }

} // namespace example
