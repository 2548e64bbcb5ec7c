// What a host does around a run: reading a tuning and a drawing, walking a tuning, taking the text out.
#include <benchmark/benchmark.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

#include "allocations.h"
#include "api/brindle_mgr.h"
#include "brindle/brindle.h"
#include "cff2/cff2_reader.h"
#include "generator/char_codes.h"
#include "jobs.h"
#include "platform/text_encoding.h"
#include "platform/text_file.h"

namespace brindle::bench {
namespace {

std::vector<std::string> ManyLines(int64_t count) {
    std::vector<std::string> lines;
    for (int64_t i = 0; i < count; ++i) {
        lines.push_back("TEXT T" + std::to_string(i) + "_Speed_P1_sV1 " + std::to_string(1000 + i));
    }
    return lines;
}

void ReadTuningLines(benchmark::State& state) {
    const std::vector<std::string> lines = ManyLines(state.range(0));
    for (auto _ : state) {
        CBrindleOpts tuning;
        for (const std::string& line : lines) tuning.ReadLine(line, CRunTimeDataDef::ReadMode::kTuning);
        benchmark::DoNotOptimize(tuning.items().size());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void DeliverTuning(int64_t count) {
    GBrn_Clear();
    for (const std::string& line : ManyLines(count)) GBrn_ReadTuneLine(NarrowToWide(line).c_str());
}

void WalkTuning(benchmark::State& state) {
    DeliverTuning(state.range(0));
    for (auto _ : state) {
        wchar_t* key = nullptr;
        GBrn_GetStartKey(&key);
        while (SysStringLen(key) != 0) {
            wchar_t* line = nullptr;
            wchar_t* next = nullptr;
            GBrn_GetNextTuneLine(key, &line, &next);
            SysFreeString(line);
            SysFreeString(key);
            key = next;
        }
        SysFreeString(key);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void GetTuning(benchmark::State& state) {
    DeliverTuning(state.range(0));
    for (auto _ : state) {
        wchar_t* text = nullptr;
        GBrn_GetTuning(&text);
        SysFreeString(text);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// All pieces of a run, taken by a host.
void FetchPieces(benchmark::State& state) {
    CBrindleMgr& session = CBrindleMgr::Current();
    Load(kLines, state.range(0), session);
    size_t allocations = 0;
    int64_t pieces = 0;
    for (auto _ : state) {
        state.PauseTiming();
        GBrn_End();
        state.ResumeTiming();
        const Allocations before = AllocationsSoFar();
        pieces = 0;
        for (int more = 0; GBrn_CurBufferHasMoreData(&more), more != 0; ++pieces) {
            wchar_t* piece = nullptr;
            GBrn_GetOutputBuffer(&piece);
            SysFreeString(piece);
        }
        allocations = AllocationsSoFar().count - before.count;
    }
    state.SetItemsProcessed(state.iterations() * pieces);
    state.counters["allocs_per_piece"] = static_cast<double>(allocations) / static_cast<double>(pieces);
    GBrn_Clear();
}

void ExpandCodes(benchmark::State& state) {
    std::string codes;
    for (int64_t i = 0; i < state.range(0); ++i) codes += "chr(65)";
    for (auto _ : state) {
        std::string text = codes;
        ExpandCharCodes(text);
        benchmark::DoNotOptimize(text);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// A drawing of `count` lines in a temporary file, which goes with it.
class TemporaryDrawing {
public:
    explicit TemporaryDrawing(int64_t count) {
        const int descriptor = mkstemp(path_);
        std::FILE* const file = fdopen(descriptor, "w");
        std::fputs("MAIN,BENCH\nUM,1\nUR,1000,700\n", file);
        for (int64_t i = 0; i < count; ++i) {
            const Point a = PathPoint(i);
            const Point b = PathPoint(i + 1);
            std::fprintf(file, "L,0.700,1,0,%.3f,%.3f,%.3f,%.3f,0,0.000\n", a.x, a.y, b.x, b.y);
        }
        std::fclose(file);
    }
    ~TemporaryDrawing() { unlink(path_); }
    TemporaryDrawing(const TemporaryDrawing&) = delete;
    TemporaryDrawing& operator=(const TemporaryDrawing&) = delete;
    const char* path() const { return path_; }

private:
    char path_[32] = "/tmp/brindle_bench_XXXXXX";
};

void ReadDrawing(benchmark::State& state) {
    const TemporaryDrawing drawing(state.range(0));
    const size_t bytes = ReadWholeFile(drawing.path())->size();
    for (auto _ : state) {
        CNCGeomMgr geometry;
        JobData job;
        ReadCF2(*ReadWholeFile(drawing.path()), geometry, job);
        benchmark::DoNotOptimize(geometry.GetRecordCount(0));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(bytes));
}

// The floor of reading a drawing: its lines and strtod on the same numbers.
void ReadNumbersByHand(benchmark::State& state) {
    const TemporaryDrawing drawing(state.range(0));
    for (auto _ : state) {
        std::FILE* const file = std::fopen(drawing.path(), "r");
        char line[256];
        double sum = 0.0;
        while (std::fgets(line, sizeof line, file) != nullptr) {
            for (char* at = std::strchr(line, ','); at != nullptr; at = std::strchr(at, ','))
                sum += strtod(at + 1, &at);
        }
        std::fclose(file);
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(ReadTuningLines)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(WalkTuning)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(GetTuning)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(FetchPieces)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(ExpandCodes)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadDrawing)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadNumbersByHand)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindle::bench
