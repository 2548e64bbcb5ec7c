// The cut of the NC text into segments, each a complete file of limited size.
#pragma once

#include "generator/tool_control.h"

namespace brindle {

class CSegments {
public:
    CSegments(RunContext& run, CTemplateExecutor& executor, CToolControl& tools)
        : run_(run), executor_(executor), tools_(tools) {}

    // Ends the segment and starts a new one if the text has reached the tuning's limit. A record is never split.
    void EndSegmentIfFull();
    // Settles how many bytes are held back for the end of a segment: none, but for a tile, for which they are measured;
    // that drops all buffers.
    void MeasureEnd();

private:
    void EndSegment();
    void WriteEnd();
    void StartSegment();

    RunContext& run_;
    CTemplateExecutor& executor_;
    CToolControl& tools_;
    uint32_t reserve_ = 0;
};

}  // namespace brindle
