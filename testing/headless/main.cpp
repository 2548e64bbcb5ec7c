// `brindle-play`: plays the windows of the library from text, for tests.
#include "testing/headless/headless_toolkit.h"
#include "testing/play/player.h"

int main(int argc, char** argv) {
    using namespace brindle;
    return play::RunPlayer(argc, argv, [](CToolkitUser& user) { return std::make_unique<CHeadlessToolkit>(user); });
}
