// The NC text of a run, put into bytes.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "generator/buffer_mgr.h"

namespace brindle::host {

// How characters are written. In Latin-1 a character is the byte of its code; those above U+00FF can't be written.
enum class Encoding { kUtf8, kLatin1 };

struct NcText {
    std::vector<std::string> segments;  // each a complete file; one, maybe empty, if the run gave none
    size_t dwells = 0;                  // markers that were left out
    std::string fault;                  // why there is no text, empty if there is
};

// Takes the text out of all buffers.
NcText TakeNcText(CBufferMgr& buffers, Encoding encoding);

}  // namespace brindle::host
