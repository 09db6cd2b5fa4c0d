// protocol list
#include "config/session/protocol_modules.h"
#include "core/product.h"
#include "tools/commands.h"
#include "tools/config_folder.h"
#include "tools/json_writer.h"
#include "tools/module_folder.h"
#include "tools/output.h"

namespace ostrand::tool {

namespace {

const char* StateText(VProtocolState state)
{
    switch (state) {
    case VProtocolState::Loaded:
        return "loaded";
    case VProtocolState::FileMissing:
        return "file missing";
    case VProtocolState::RefusedByPolicy:
        return "refused by policy";
    case VProtocolState::NotEnabled:
        return "not enabled";
    case VProtocolState::NotLoadable:
        return "not loadable";
    case VProtocolState::OtherContract:
        return "made for another version";
    case VProtocolState::Failed:
        break;
    }
    return "failed";
}

} // namespace

Exit ListProtocols(const Request& request)
{
    const ApplicationScope application(request);
    ModuleFolder modules;
    if (const Exit loaded = modules.Load(request); loaded != Exit::Done)
        return loaded;
    Json list = Json::array();
    std::vector<std::vector<std::string>> rows = {{"PROTOCOL", "PRODUCT", "STATE", "MODULE"}};
    for (const VProtocolRecord& record : GetProtocolRecords()) {
        const std::string reason = Lossless(record.reason);
        list.push_back({{"name", Lossless(record.name)},
                        {"product", Lossless(GetProductName(record.productId))},
                        {"state", StateText(record.state)},
                        {"module", record.modulePath.IsEmpty() ? Json() : Json(Lossless(record.modulePath))},
                        {"reason", reason.empty() ? Json() : Json(reason)}});
        rows.push_back({Lossless(record.name), Lossless(GetProductName(record.productId)), StateText(record.state),
                        (record.modulePath.IsEmpty() ? "built in" : Plain(Lossless(record.modulePath))) +
                            (reason.empty() ? "" : ": " + Plain(reason))});
    }
    return Print(request.asJson ? WriteJson(list) : Table(rows));
}

} // namespace ostrand::tool
