// Small jobs that ask for endless work: they end in seconds, with a message where something is left out.
#include <gtest/gtest.h>

#include <ctime>

#include "unit/host_session.h"

namespace brindle::abuse {
namespace {

constexpr size_t kMegabyte = size_t{1} << 20;

// Seconds of the processor's time, sanitizers included. Work that grows with the square of its input takes hours.
constexpr std::clock_t kPatience = 60;

class Explosions : public testing::Test {
protected:
    ~Explosions() override { EXPECT_LT((std::clock() - start_) / CLOCKS_PER_SEC, kPatience); }

private:
    const std::clock_t start_ = std::clock();
};

std::vector<std::string> Tuning(bool use_subs) {
    return {use_subs ? "BOOL bUseSubs true" : "BOOL bUseSubs false",
            "BOOL bErrorsAsComments true",
            "TEXT sOpenComment (",
            "TEXT sCloseComment )",
            "INT nNumOfTools 1",
            "MULTI Line_tTmpl NNUL L",
            "MULTI SubCall_tTmpl NNUL C"};
}

size_t CountOf(const std::string& text, const std::string& part) {
    size_t count = 0;
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
    return count;
}

TEST_F(Explosions, ThirtyProgramsThatCallTheNextOneTwice) {
    for (const bool use_subs : {true, false}) {
        CHostSession session(Tuning(use_subs));
        GBrn_StartMain(L"P0", 0.0, 0.0, 1, 1);
        for (int i = 1; i <= 30; ++i) {
            const std::wstring next = L"P" + std::to_wstring(i);
            session.Call(next);
            session.Call(next);
            GBrn_StartSub(next.c_str(), 0.0, 0.0, 1, 1);
        }
        session.Line(0.0, 0.0, 1.0, 0.0);
        const std::string text = session.Run();
        // Once a million are expanded, 22 programs on the way down have a second call left.
        EXPECT_EQ(CountOf(text, "too many calls"), use_subs ? 0U : 22U);
        EXPECT_EQ(CountOf(text, "C\r\n"), use_subs ? 60U : 0U);
    }
}

TEST_F(Explosions, AMillionCallsOfOneProgram) {
    constexpr size_t kCalls = 1000000;
    for (const bool use_subs : {true, false}) {
        CHostSession session(Tuning(use_subs));
        GBrn_StartMain(L"M", 0.0, 0.0, 1, 1);
        for (size_t i = 0; i < kCalls; ++i) session.Call(L"S");
        GBrn_StartSub(L"S", 0.0, 0.0, 1, 1);
        session.Line(0.0, 0.0, 1.0, 0.0);
        const std::string text = session.Run();
        EXPECT_EQ(CountOf(text, use_subs ? "C\r\n" : "L\r\n"), kCalls);
    }
}

TEST_F(Explosions, ABlockOfHalfAMillionLines) {
    constexpr size_t kLines = 500000;
    CHostSession session(Tuning(true));
    session.Tune("BOOL Line_bTerminiate false");
    session.Tune("MULTI FileEnd_tTmpl NNUL end");
    GBrn_StartMain(L"M", 0.0, 0.0, 1, 1);
    for (size_t i = 0; i < kLines; ++i) session.Line(0.0, 0.0, 1.0, 0.0);
    EXPECT_EQ(session.Run(), std::string(kLines, 'L') + "end\r\n");
}

// Words that begin and never end, as the text of a template, of an option that it reads, and of a run-time value.
TEST_F(Explosions, TextsOfMegabytes) {
    for (const std::string part :
         {"chr(", "chr(1", "chr(65)", "<", "<@", "<@ToolId[", "<RTD(", "[", "!#", "!#SP#!", "IODWELL", "x NNUL "}) {
        const size_t size = part == "chr(" ? 10 * kMegabyte : kMegabyte;
        std::string text;
        while (text.size() < size) text += part;
        CHostSession session(Tuning(true));
        session.Tune("TEXT sMainProgNum " + text);
        session.Tune("DATASETDEF D");
        session.Tune("DSD D TEXT RTD(1) " + text);
        session.Tune("MULTI FileStart_tTmpl NNUL " + text + "x NNUL <@MainProgNum> NNUL <RTD(1)> NNUL end");
        EXPECT_TRUE(session.Run().ends_with("end\r\n")) << part;
    }
}

}  // namespace
}  // namespace brindle::abuse
