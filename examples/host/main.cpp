// ostrand-options: what an application does around the dialog of a session's options, from its start to the save.
//
//     ostrand-options session 'Routers\Core\Router 1'
//     ostrand-options session Default --config DIR --page 'Terminal > Log File' --screenshot page.png
#include "core/paths/folders.h"
#include "examples/host/application.h"
#include "examples/host/example_copy.h"
#include "examples/host/look.h"
#include "examples/host/session_command.h"
#include "examples/host/text.h"

#include <QApplication>
#include <QDir>

#include <iostream>

namespace host {

namespace {

bool FindStore(Arguments& arguments)
{
    if (!arguments.config.empty())
        return QDir(QString::fromStdString(arguments.config)).exists() ||
               Fail(arguments.config + ": there is no such folder") == 0;
    arguments.config = CopyExample();
    if (arguments.config.empty())
        return Fail("there is no example beside this program; use --config") == 0;
    std::cout << "A fresh copy of the example: " << arguments.config << '\n';
    return true;
}

int Run(int argc, char** argv)
{
    int code = 0;
    std::optional<Arguments> arguments = ParseArguments(argc, argv, code);
    if (!arguments)
        return code;
    if (arguments->modules.empty())
        arguments->modules = ostrand::ToUtf8(ostrand::GetExeFolder()) + "/protocols";
    if (!FindStore(*arguments))
        return 1;
    if (!ChooseScreen(*arguments))
        return Fail("there is no display; --screenshot FILE needs none");
    const QApplication qt(argc, argv);
    ChooseColors(*arguments);
    const Application application(*arguments);
    return ShowSession(*arguments);
}

} // namespace

} // namespace host

int main(int argc, char** argv) { return host::Run(argc, argv); }
