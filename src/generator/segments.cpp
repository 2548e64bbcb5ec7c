#include "generator/segments.h"

namespace brindle {
namespace {

// Bytes beyond the measured end of a segment that are held back too.
constexpr uint32_t kSpareBytes = 200;

}  // namespace

void CSegments::EndSegmentIfFull() {
    if (run_.settings.segment_limit < 0) return;
    const uint32_t expected = run_.buffers.GetCurBufferSize() + run_.settings.segment_reserve;
    if (expected > static_cast<uint32_t>(run_.settings.segment_limit)) EndSegment();
}

uint32_t CSegments::MeasureSegmentEnd() {
    if (run_.controller.job.tile_to_output == 0) return 0;
    const std::string pending = run_.settings.pending_text;
    run_.state.fly_check = 1;
    run_.state.tool_on = 1;
    run_.buffers.NewBuffer();
    WriteEnd();
    const uint32_t bytes = run_.buffers.GetCurBufferSize();
    run_.buffers.Reset();
    run_.settings.pending_text = pending;
    return bytes + kSpareBytes;
}

void CSegments::EndSegment() {
    WriteEnd();
    run_.state.ResetOutputState();
    run_.buffers.NewBuffer();
    StartSegment();
}

void CSegments::WriteEnd() {
    run_.controller.fly_mode_on = false;
    tools_.FlyPostCheck();
    tools_.ToolOff();
    executor_.ExecuteTemplate(run_.main_term);
    executor_.ExecuteTemplate(run_.file_end);
}

void CSegments::StartSegment() {
    run_.ResetNumbering();
    executor_.ExecuteTemplate(run_.file_start);
    executor_.ExecuteTemplate(run_.main_init);
}

}  // namespace brindle
