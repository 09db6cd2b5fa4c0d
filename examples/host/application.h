// An application around the library: what it does when it starts and when it ends.
#pragma once

#include "dialogs/prompts/dialog_prompts.h"
#include "examples/host/arguments.h"
#include "stores/file_store.h"

namespace host {

/// One at a time, with a QApplication around it.
class Application {
public:
    explicit Application(const Arguments& arguments);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

private:
    void LoadProtocols(const std::string& folder);

    ostrand::FileStoreFactory m_stores;
    ostrand::DialogPrompts m_prompts;
};

} // namespace host
