// Runs beside the same text written by hand. A run's time is that of the whole run; records are its items.
//
// Each group of benchmarks runs in one process, so that its ratios are of one machine at one time:
// run/JOB against printf/JOB and to_chars/JOB; compared/JOB, a run whose NC text is held against its drawing, against
// run/JOB.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

#include "allocations.h"
#include "by_hand.h"
#include "jobs.h"
#include "verify/job_comparison.h"

namespace brindle::bench {
namespace {

using ByHand = std::string (*)(int64_t, Writer);

void RequireEqual(const Job& job, const std::string& run, const std::string& by_hand) {
    if (run == by_hand) return;
    std::fprintf(stderr, "%s: the run and the text by hand differ\n", job.name);
    std::exit(1);
}

void Run(benchmark::State& state, const Job& job, ByHand by_hand) {
    const int64_t records = state.range(0);
    CSession session;
    Load(job, records, session);
    RunJob(session);
    const std::string text = FetchAll(session);
    RequireEqual(job, text, by_hand(records, Writer::kPrintf));
    RequireEqual(job, text, by_hand(records, Writer::kToChars));
    size_t allocations = 0;
    size_t bytes_kept = 0;
    for (auto _ : state) {
        const Allocations before = AllocationsSoFar();
        RunJob(session);
        allocations = AllocationsSoFar().count - before.count;
    }
    session.buffers.Reset();
    session.trace.Clear();
    const size_t bytes_before = AllocationsSoFar().bytes_live;
    RunJob(session);
    bytes_kept = AllocationsSoFar().bytes_live - bytes_before;
    state.SetItemsProcessed(state.iterations() * records);
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
    state.counters["allocs_per_record"] = static_cast<double>(allocations) / static_cast<double>(records);
    state.counters["kept_per_byte"] = static_cast<double>(bytes_kept) / static_cast<double>(text.size());
}

void RunCompared(benchmark::State& state, const Job& job) {
    const int64_t records = state.range(0);
    CSession session;
    Load(job, records, session);
    size_t bytes_kept = 0;
    for (auto _ : state) {
        const size_t before = AllocationsSoFar().bytes_live;
        CJobComparison comparison;
        RunJob(session, &comparison);
        state.PauseTiming();
        session.buffers.Reset();
        session.trace.Clear();
        bytes_kept = AllocationsSoFar().bytes_live - before;
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * records);
    state.counters["kept_bytes"] = static_cast<double>(bytes_kept);
}

void WriteByHand(benchmark::State& state, ByHand by_hand, Writer writer) {
    const int64_t records = state.range(0);
    for (auto _ : state) benchmark::DoNotOptimize(by_hand(records, writer));
    state.SetItemsProcessed(state.iterations() * records);
}

struct Group {
    const Job& job;
    ByHand by_hand;
};

const Group kGroups[] = {
    {kLines, LinesByHand}, {kArcs, ArcsByHand},       {kTangential, TangentialByHand},
    {kCalls, CallsByHand}, {kManyTools, ToolsByHand}, {kManyToolsFewKeys, ToolsByHand},
};

void StoreLines(benchmark::State& state) {
    const int64_t records = state.range(0);
    size_t bytes = 0;
    for (auto _ : state) {
        const size_t before = AllocationsSoFar().bytes_live;
        CSession session;
        Load(kLines, records, session);
        bytes = AllocationsSoFar().bytes_live - before;
    }
    state.SetItemsProcessed(state.iterations() * records);
    state.counters["bytes_per_record"] = static_cast<double>(bytes) / static_cast<double>(records);
}

bool RegisterAll() {
    for (const Group& group : kGroups) {
        const std::string name = group.job.name;
        for (const int64_t records : {int64_t{1000}, int64_t{100000}, int64_t{1000000}}) {
            const auto shared = [&](auto* one) { one->Arg(records)->Unit(benchmark::kMillisecond); };
            shared(benchmark::RegisterBenchmark(("run/" + name).c_str(), Run, group.job, group.by_hand));
            shared(benchmark::RegisterBenchmark(("compared/" + name).c_str(), RunCompared, group.job));
            shared(
                benchmark::RegisterBenchmark(("printf/" + name).c_str(), WriteByHand, group.by_hand, Writer::kPrintf));
            shared(benchmark::RegisterBenchmark(("to_chars/" + name).c_str(), WriteByHand, group.by_hand,
                                                Writer::kToChars));
        }
    }
    benchmark::RegisterBenchmark("store/lines", StoreLines)->Arg(1000000)->Unit(benchmark::kMillisecond);
    return true;
}

[[maybe_unused]] const bool kRegistered = RegisterAll();

}  // namespace
}  // namespace brindle::bench
