#include "host/post/nc_text.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "platform/text_encoding.h"

namespace brindle::host {
namespace {

constexpr int32_t kMostSegments = INT16_MAX;  // a host can't ask for more

std::string CodeText(wchar_t character) {
    char code[16];
    std::snprintf(code, sizeof code, "U+%04X", static_cast<unsigned>(character));
    return code;
}

std::string FaultOf(wchar_t character, const std::string& before) {
    const auto line = std::count(before.begin(), before.end(), '\n') + 1;
    return "line " + std::to_string(line) + " of the NC text has the character " + CodeText(character) +
           ", which Latin-1 lacks";
}

void AppendLatin1(std::string_view text, std::string& out, std::string& fault) {
    for (const wchar_t character : NarrowToWide(text)) {
        if (character > 0xFF && fault.empty()) fault = FaultOf(character, out);
        out.push_back(static_cast<char>(character));
    }
}

void TakeSegment(CBufferMgr& buffers, Encoding encoding, NcText& nc) {
    std::string& segment = nc.segments.emplace_back();
    while (buffers.CurBufferHasMoreData()) {
        const std::string_view piece = buffers.GetOutputBuffer();
        if (piece.starts_with(kDwellMarker)) {
            ++nc.dwells;
        } else if (encoding == Encoding::kUtf8) {
            segment += AsUtf8(piece);
        } else {
            AppendLatin1(piece, segment, nc.fault);
        }
    }
}

}  // namespace

NcText TakeNcText(CBufferMgr& buffers, Encoding encoding) {
    NcText nc;
    const int32_t count = buffers.GetNumOfBuffers();
    if (count > kMostSegments) {
        nc.fault = "the tuning cuts the NC text into " + std::to_string(count) + " segments: too many";
        return nc;
    }
    for (int32_t number = 1; buffers.SetCurBuffer(number); ++number) TakeSegment(buffers, encoding, nc);
    if (count == 0) nc.segments.emplace_back();
    return nc;
}

}  // namespace brindle::host
