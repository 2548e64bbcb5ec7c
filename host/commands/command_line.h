// The command line of `brindle` as a whole.
#pragma once

namespace brindle::host {

// Parses the arguments, of which the first is the program's name, does what they ask for, and gives the exit status.
int RunCommandLine(int argc, char** argv);

}  // namespace brindle::host
