// SPDX-License-Identifier: MIT
// Runs one script for an application, which starts it when a plug-in has limits. Standard input is the
// connection to the application. Ends with the connection, also in the middle of a script. Exits with 3 if
// the application is of another version of the kit.
#include "ToolKit/JavaScript/Hosting/HostProcess.h"
#include "ToolKit/JavaScript/Hosting/ScriptHost.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

#include <poll.h>
#include <sys/resource.h>

using namespace quor::toolkit;

namespace {

// The main thread cannot notice the end of the connection while it runs the script.
void endWithConnection()
{
    pollfd connection{STDIN_FILENO, POLLRDHUP, 0};
    while (poll(&connection, 1, -1) < 0 && errno == EINTR) { }
    std::_Exit(EXIT_SUCCESS);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2 || std::strcmp(argv[1], scriptProtocol) != 0) {
        std::fputs("quor-plugin-host: applications of the same kit start this program\n", stderr);
        return HostProcess::wrongVersion;
    }
    const rlimit none{0, 0}; // a script that ends the engine leaves no copy of its memory behind
    setrlimit(RLIMIT_CORE, &none);
    std::thread(endWithConnection).detach();
    ScriptHost(quor::platform::FileDescriptor(STDIN_FILENO)).serve();
    std::_Exit(EXIT_SUCCESS); // nothing needs to be taken apart
}
