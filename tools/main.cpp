#include "tools/options.h"

int main(int argc, char** argv)
{
    ostrand::tool::CommandLine commandLine;
    return static_cast<int>(commandLine.Run(argc, argv));
}
