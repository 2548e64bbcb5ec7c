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
    // The bytes to hold back for the end of a segment: measured for a tile, otherwise 0. Drops all buffers.
    uint32_t MeasureSegmentEnd();

private:
    void EndSegment();
    void WriteEnd();
    void StartSegment();

    RunContext& run_;
    CTemplateExecutor& executor_;
    CToolControl& tools_;
};

}  // namespace brindle
