// Transcripts of the editor: any acts, one a line, as brindle-play takes them from standard input.
#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>

#include "brindle/brindle.h"
#include "editor_job.h"
#include "files.h"
#include "testing/headless/headless_toolkit.h"
#include "testing/play/play_session.h"

namespace {

constexpr size_t kLongest = 2000;  // more acts are slow, not new

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const CWorkFolder folder;
    if (size > kLongest) return 0;
    ::setenv("XDG_DATA_HOME", folder.path().c_str(), 1);
    folder.Empty();
    std::string acts(reinterpret_cast<const char*>(data), size);
    std::replace(acts.begin(), acts.end(), '/', '_');  // no file dialog leaves the folder
    LoadEditorJob();
    std::istringstream input(acts);
    std::ostringstream output, errors;
    {
        brindle::play::CPlaySession session(input, output, errors);
        brindle::CHeadlessToolkit screen(session);
        session.Run(screen);
    }
    GBrn_End();
    GBrn_Clear();
    return 0;
}
