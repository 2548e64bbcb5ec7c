// A process whose memory runs out, and one that runs for long.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <limits>

#include "abuse/heap.h"
#include "unit/host_session.h"

namespace brindle::abuse {
namespace {

// An export; requests for memory count only while it lasts. Nothing may come out of it but 0.
template <typename Function, typename... A>
void Call(Function export_function, A... arguments) {
    TheHeap().counting = true;
    try {
        const int status = export_function(arguments...);
        TheHeap().counting = false;
        EXPECT_EQ(status, 0);
    } catch (...) {
        TheHeap().counting = false;
        ADD_FAILURE() << "an exception came out of an export";
    }
}

std::vector<std::wstring> WideLines(const std::string& path) {
    std::ifstream file(path);
    std::vector<std::wstring> lines;
    for (std::string line; std::getline(file, line);) lines.push_back(NarrowToWide(line));
    EXPECT_FALSE(lines.empty()) << path;
    return lines;
}

// A host that writes a file only if all came: text of a buffer, or nothing.
std::string Fetch(short number) {
    std::string text;
    Call(GBrn_SetCurBuffer, number);
    int more = 0, nulls = 0;
    for (Call(GBrn_CurBufferHasMoreData, &more); more != 0 && nulls < 10; Call(GBrn_CurBufferHasMoreData, &more)) {
        wchar_t* piece = nullptr;
        Call(GBrn_GetOutputBuffer, &piece);
        nulls += piece == nullptr ? 1 : 0;
        text += Taken(piece);
    }
    return nulls < 10 ? text : std::string();
}

struct Job {
    std::string tuning, drawing, definition;

    friend void PrintTo(const Job& job, std::ostream* out) { *out << job.tuning; }
};

class CJobHost {
public:
    explicit CJobHost(const Job& job)
        : tuning_(WideLines(job.tuning)),
          drawing_(NarrowToWide(job.drawing)),
          definition_(NarrowToWide(job.definition)) {}

    // The NC text of the job. Empty if there is none.
    std::string Run() const {
        Call(GBrn_Clear);
        SendTuning();
        SendGeometry();
        Call(GBrn_End);
        short count = 0;
        Call(GBrn_GetNumOfBuffers, &count);
        std::string all;
        for (short number = 1; number <= count; ++number) all += Fetch(number);
        return all;
    }

private:
    void SendTuning() const {
        for (const std::wstring& line : tuning_) {
            Call(GBrn_AddToTunelineBuffer, line.c_str());
            Call(GBrn_ReadTuneLine, L"");
        }
        Call(GBrn_SetDateTime, L"a date long enough for the heap-a time long enough for the heap");
        Call(GBrn_ReadRTDDefFromFile, definition_.c_str());
        for (int i = 0; i < 5; ++i) {
            wchar_t* expression = nullptr;
            Call(GBrn_GetNextRTDExpr, &expression, nullptr);
            Call(GBrn_SetRTDExprValue, expression, L"12.5");
            SysFreeString(expression);
        }
        Call(GBrn_UpdateDefaultValuesForExpressions, definition_.c_str());
    }

    void SendGeometry() const {
        Call(GBrn_OpenCF2File, drawing_.c_str());
        Call(GBrn_StartSub, L"another sub-program", 0.0, 0.0, 1, 1);
        Call(GBrn_AddLine, short{1}, short{1}, 0.5, 0.0, 0.0, 5.0, 5.0, 0.0, short{0});
        Call(GBrn_AddArc, short{1}, short{1}, 0.5, 5.0, 5.0, 7.0, 5.0, 6.0, 5.0, 1.0, 0.0, short{0});
        Call(GBrn_AddInclude, L"yet another sub-program", 0.0, 0.0, 0.0, 0.0, 0.5, 1, 0);
    }

    std::vector<std::wstring> tuning_;
    std::wstring drawing_, definition_;
};

// Fails request after request of a job, `failures` in a row. A job that lacks something gives no text, and the next one
// in the same process gives all of it.
void FailOneAfterTheOther(const CJobHost& host, int64_t failures) {
    std::string expected;
    Heap& heap = TheHeap();
    int lost = 0;
    for (int64_t first = 1; heap.requests >= heap.first_failure; first += first < 1500 ? 1 : 1 + first / 200) {
        heap.requests = 0;
        heap.first_failure = first;
        heap.failures = failures;
        const std::string text = host.Run();
        const bool all_served = heap.requests < first;
        heap.first_failure = 0;
        const std::string next = host.Run();
        if (expected.empty()) expected = next;
        ASSERT_EQ(next, expected) << "after a failure of request " << first;
        ASSERT_TRUE(text.empty() || text == expected) << "request " << first << " failed; text:\n" << text;
        if (all_served) {
            EXPECT_EQ(text, expected);
            break;
        }
        lost += text.empty() ? 1 : 0;
    }
    EXPECT_GT(expected.size(), 500U);
    EXPECT_GT(lost, 500);
}

class FailingMemory : public testing::TestWithParam<Job> {};

TEST_P(FailingMemory, OneRequestLosesTheJobAtMost) { FailOneAfterTheOther(CJobHost(GetParam()), 1); }

TEST_P(FailingMemory, NoMoreMemoryLosesTheJobAtMost) {
    FailOneAfterTheOther(CJobHost(GetParam()), std::numeric_limits<int64_t>::max());
}

INSTANTIATE_TEST_SUITE_P(Abuse, FailingMemory,
                         testing::Values(Job{"examples/knife_tangential/knife_tangential.tun",
                                             "examples/drawings/folding_box.cf2", "tests/editor/rtd_file.rtd"},
                                         Job{"tests/jobs/calls_with_codes/tuning.tun",
                                             "examples/drawings/folding_box.cf2", "tests/editor/rtd_file.rtd"}),
                         [](const auto& job) {
                             return std::filesystem::path(job.param.tuning).parent_path().filename().string();
                         });

// Neither a session that runs again and again, nor one session after the other.
TEST(LongLife, TenThousandRunsHoldNoMoreThanHundred) {
    const CJobHost host({"tests/jobs/segments/tuning.tun", "tests/jobs/small_drawing/drawing.cf2", ""});
    host.Run();
    int64_t after_hundred = 0;
    for (int run = 0; run < 10000; ++run) {
        if (run % 2 == 0) host.Run();
        Call(GBrn_End);
        if (run == 101) after_hundred = TheHeap().live;
    }
    EXPECT_EQ(TheHeap().live, after_hundred);
    EXPECT_GT(after_hundred, 0);
    GBrn_Clear();
}

}  // namespace
}  // namespace brindle::abuse
