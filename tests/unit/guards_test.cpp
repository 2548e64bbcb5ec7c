// What keeps a run from hanging: how deep and how often calls and option texts may go. (Those within themselves:
// tests/jobs.)
#include <gtest/gtest.h>

#include <algorithm>

#include "api/brindle_mgr.h"
#include "generator/text_resolver.h"
#include "unit/host_session.h"

namespace brindle {
namespace {

constexpr const char* kTooDeep = "(WARNING: calls nested too deep.  Call ignored.)";
constexpr const char* kTooMany = "(WARNING: too many calls.  Call ignored.)";

size_t CountOf(std::string_view text, std::string_view part) {
    size_t count = 0;
    for (size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + part.size())) ++count;
    return count;
}

// A tuning that expands calls, writes a line a line, and its messages in brackets.
std::vector<std::string> Expanding() {
    return {"BOOL bUseSubs false",  "BOOL bErrorsAsComments true", "TEXT sOpenComment (",
            "TEXT sCloseComment )", "INT nNumOfTools 1",           "MULTI Line_tTmpl NNUL L"};
}

TEST(GuardsTest, CallsNest64Deep) {
    CHostSession session(Expanding());
    GBrn_StartMain(L"P0", 0.0, 0.0, 1, 1);
    for (int i = 0; i < 80; ++i) {
        if (i > 0) GBrn_StartSub(std::to_wstring(i).insert(0, L"P").c_str(), 0.0, 0.0, 1, 1);
        session.Line(0.0, 0.0, 1.0, 0.0);
        session.Call(L"P" + std::to_wstring(i + 1));
    }
    const std::string text = session.Run();
    EXPECT_EQ(CountOf(text, "L\r\n"), 1U + 64U);
    EXPECT_EQ(CountOf(text, kTooDeep), 1U);
}

TEST(GuardsTest, ARunExpandsAMillionCalls) {
    CHostSession session(Expanding());
    GBrn_StartMain(L"M", 0.0, 0.0, 1, 1);
    for (int i = 0; i < 1000; ++i) session.Call(L"A");
    GBrn_StartSub(L"A", 0.0, 0.0, 1, 1);
    for (int i = 0; i < 1100; ++i) session.Call(L"B");
    GBrn_StartSub(L"B", 0.0, 0.0, 1, 1);
    GBrn_AddLine(7, 1, 0.5, 0.0, 0.0, 1.0, 0.0, 0.0, 0);  // of no tool: dropped
    const std::string text = session.Run();
    // 908 times A and what it calls, once more A and 291 of its calls; the rest is left out.
    EXPECT_EQ(CountOf(text, kTooMany), (1100U - 291U) + (1000U - 909U));
}

std::string Repeated(const std::string& part, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += part;
    return text;
}

TEST(GuardsTest, OneReadOfAnOptionTextReadsTenThousandOthers) {
    std::vector<std::string> tuning = Expanding();
    tuning.push_back("TEXT sMainProgNum " + Repeated("<@SideCode>", 25));
    tuning.push_back("TEXT sInsideCode " + Repeated("<@GrainCode>", 25));
    tuning.push_back("TEXT sHorizCode " + Repeated("<@UnitsCode[NONMODAL]>", 25));
    tuning.push_back("TEXT sMetricCode #");
    tuning.push_back("BOOL bBlockDelimStd false");
    tuning.push_back("TEXT sBlockDelim |");
    tuning.push_back("MULTI FileStart_tTmpl NNUL <@MainProgNum> NNUL <@MainProgNum>");
    CHostSession session(tuning);
    const std::string text = session.Run();
    // Each of the two blocks has its own reads: some 9,600 of them are of the innermost text.
    EXPECT_NEAR(static_cast<double>(std::count(text.begin(), text.end(), '#')), 2 * 9599.0, 4.0);
    EXPECT_GT(CountOf(text, "(Could not evaluate: sHorizCode)"), 0U);
    EXPECT_LT(CountOf(text, "(Could not evaluate"), 2U * 3U * 25U);
    EXPECT_EQ(CountOf(text, ")|"), CountOf(text, "(Could not evaluate")) << "each message is a block of its own";
}

// Option texts of which each reads the next one.
std::vector<OptionText>& Chain() {
    static std::vector<OptionText> chain;
    return chain;
}

void NextOfChain(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    out += '.';
    resolver.AppendText(Chain()[static_cast<size_t>(keywords.NDec(0))], out);
}

TEST(GuardsTest, OptionTextsAreRead32Deep) {
    CHostSession session(Expanding());
    RunContext run(CBrindleMgr::Current().Parts());
    EvaluatorTable evaluators{};
    evaluators[0] = NextOfChain;
    CTextResolver resolver(run, evaluators);
    Chain().resize(50);
    for (size_t i = 0; i < Chain().size(); ++i) {
        CompiledPiece piece;
        std::string word = "@Directive0[NDEC(" + std::to_string((i + 1) % Chain().size()) + ")]";
        piece.kind = CompiledPiece::Kind::kDirective;
        piece.keywords = CAtDirKeywords(word);
        Chain()[i].key = "s" + std::to_string(i);
        Chain()[i].text = CCompiledText({piece});
        Chain()[i].empty = false;
    }
    for (size_t first : {0U, 20U}) {
        std::string text;
        resolver.AppendText(Chain()[first], text);
        EXPECT_EQ(text, std::string(32, '.'));
        EXPECT_EQ(run.trace.Get(run.trace.GetCount() - 1).text,
                  "Could not evaluate: s" + std::to_string((first + 32) % Chain().size()));
    }
    EXPECT_EQ(run.trace.GetCount(), 2U);
}

}  // namespace
}  // namespace brindle
