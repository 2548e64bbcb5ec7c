// The NC text of a run, in memory: one buffer per segment, taken out by the host piece by piece.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include "generator/text_log.h"

namespace brindle {

// The mark of a dwell in NC text. A host gets it as a piece of its own, with the dwell's parameter after it.
inline constexpr std::string_view kDwellMarker = "IODWELL";

// The standard end of a block, as option texts spell it.
inline constexpr std::string_view kLineEndCodes = "chr(13)chr(10)";
inline constexpr std::string_view kLineEnd = "\r\n";

// Buffers are numbered from 1. The current one is both where a run writes and where the host reads; a piece is read
// once.
class CBufferMgr {
public:
    // Drops all buffers.
    void Reset();
    // Starts an empty buffer after the others and makes it current.
    void NewBuffer();
    // Adds a finished block to the current buffer, which is made if there is none. Its character codes are expanded in
    // place. A block with a dwell becomes the text before the marker, the marker with its parameter, and the rest; a
    // dwell alone on its block leaves no line end.
    void AddToBuffer(std::string& block);
    // The characters put into the current buffer since it was started, for the segment limit.
    uint32_t GetCurBufferSize() const { return bytes_; }
    int32_t GetNumOfBuffers() const { return static_cast<int32_t>(buffers_.size()); }
    // False, with nothing changed, if there is no such buffer.
    bool SetCurBuffer(int32_t number);
    bool CurBufferHasMoreData() const;
    // The next piece of the current buffer; empty if there is none. Valid until the buffers change.
    std::string_view NextPiece() const;
    // Takes it.
    std::string_view GetOutputBuffer();

private:
    struct Buffer {
        CTextLog pieces;
        CTextLog::Reader reader{pieces};
    };

    void AddPiece(std::string_view piece) { current_->pieces.Add(0, piece); }
    void AddBlockWithDwell(std::string_view block, size_t marker);

    std::deque<Buffer> buffers_;  // elements stay where they are: readers point to them
    Buffer* current_ = nullptr;
    uint32_t bytes_ = 0;
};

}  // namespace brindle
