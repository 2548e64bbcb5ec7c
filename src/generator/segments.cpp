#include "generator/segments.h"

namespace brindle {
namespace {

// Bytes beyond the measured end of a segment that are held back too.
constexpr uint32_t kSpareBytes = 200;

}  // namespace

void CSegments::EndSegmentIfFull() {
    const int32_t limit = run_.options.programs.segment_limit;
    if (limit < 0) return;
    if (run_.buffers.GetCurBufferSize() + reserve_ > static_cast<uint32_t>(limit)) EndSegment();
}

void CSegments::MeasureEnd() {
    if (run_.controller.job.tile_to_output == 0) return;
    const std::string pending = run_.state.pending_text;
    run_.state.tool.fly_post_due = true;
    run_.state.tool.power = ToolPower::kOn;
    run_.buffers.NewBuffer();
    WriteEnd();
    reserve_ = run_.buffers.GetCurBufferSize() + kSpareBytes;
    run_.buffers.Reset();
    run_.state.pending_text = pending;
}

void CSegments::EndSegment() {
    WriteEnd();
    run_.state.ForgetOutput();
    run_.buffers.NewBuffer();
    if (run_.log != nullptr) run_.log->SegmentStarts();
    StartSegment();
}

void CSegments::WriteEnd() {
    run_.state.tool.fly_mode = false;
    tools_.FlyPostCheck();
    tools_.ToolOff();
    executor_.ExecuteTemplate(run_.main_term);
    executor_.ExecuteTemplate(run_.file_end);
}

void CSegments::StartSegment() {
    run_.state.numbers.Reset(run_.options.blocks);
    executor_.ExecuteTemplate(run_.file_start);
    executor_.ExecuteTemplate(run_.main_init);
}

}  // namespace brindle
