// `brindle`: post-processes drawings, and looks into tunings.
#include <csignal>
#include <cstdio>
#include <exception>

#include "host/commands/command_line.h"
#include "host/commands/commands.h"

int main(int argc, char** argv) {
    // A reader that goes away shows as a failed write, so that no temporary file is left.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        return brindle::host::RunCommandLine(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "brindle: internal failure: %s\n", error.what());
        return brindle::host::kBadInput;
    }
}
