#include "exports.h"

OSTRAND_MODULE_EXPORT const uint8_t* GetProtocolGuid() { return ostrand::kProtocolContract.data(); }

OSTRAND_MODULE_EXPORT bool LoadProtocol(ostrand::VAppFnTable*, ostrand::ConnectProtocolTableElement* element,
                                        ostrand::IReportMessageParams*)
{
    for (const example::Protocol& protocol : example::Protocols())
        if (element->name == protocol.name) {
            element->createConfig = protocol.createConfig;
            element->pagesFactory = protocol.pagesFactory;
            element->logonPanelFactory = protocol.logonPanelFactory;
            return true;
        }
    return false;
}

OSTRAND_MODULE_EXPORT void UnloadProtocol(ostrand::ConnectProtocolTableElement*) {}
