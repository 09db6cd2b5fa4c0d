// A router of messages that keeps what it is sent. `RecordingRouter router;` is in place for its lifetime.
#pragma once

#include "core/report.h"

#include <string>
#include <vector>

namespace ostrand::test {

class RecordingRouter : public VReportMessageRouter {
public:
    struct Message {
        unsigned code;
        int kind;
        std::vector<std::u16string> arguments;
    };

    RecordingRouter()
    {
        s_current = this;
        SetReportRouterGetter([]() -> VReportMessageRouter* { return s_current; });
    }
    ~RecordingRouter() override
    {
        SetReportRouterGetter(nullptr);
        s_current = nullptr;
    }

    void Route(IReportMessageParams* message) override
    {
        Message& kept = messages.emplace_back();
        kept.code = message->GetCode();
        kept.kind = message->GetReportKind();
        for (int i = 0; i < message->GetArgumentCount(); ++i)
            kept.arguments.emplace_back(message->GetArguments()[i]);
    }

    std::vector<Message> messages;

private:
    static inline RecordingRouter* s_current = nullptr;
};

} // namespace ostrand::test
