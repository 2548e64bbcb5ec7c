// The jobs that the benchmarks run: tunings and geometry.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "session/session.h"

namespace brindle::bench {

// A job of `records` records under a tuning, in a session of its own.
struct Job {
    const char* name;
    std::vector<std::string> (*tuning)();
    void (*add_records)(JobRecords records, int64_t count);
};

// (a) lines, (b) lines with every third record an arc by centre, (c) lines of a tangential tool with rotation words,
// (d) 1,000 calls of one sub-program, expanded, (e) lines that change between 30 tools under a tuning of 5,000 keys.
extern const Job kLines, kArcs, kTangential, kCalls, kManyTools;
// (e) with 50 keys.
extern const Job kManyToolsFewKeys;

// Point `i` of the path that all jobs follow, millimetres: within a sheet, both coordinates new at each point, on a
// grid of 0.002 so that the middle of two points has three decimals too.
Point PathPoint(int64_t i);

inline constexpr int64_t kCallCount = 1000;
// The placing of call `i` of job (d).
CNCIncludeData::Fields CallOf(int64_t i);
// The tool of line `i` of job (e).
int32_t ToolOf(int64_t i);

// Puts tuning and records of `job` into `session`.
void Load(const Job& job, int64_t records, CSession& session);

// The pieces of all buffers, joined. They are taken out.
std::string FetchAll(CSession& session);

}  // namespace brindle::bench
