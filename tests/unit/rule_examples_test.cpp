// Each rule finds the wrong side of its example and leaves the right side alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "check/drawing/survey.h"
#include "check/tuning/checks.h"
#include "check/tuning/job_names.h"
#include "host/reference/rule_examples.h"
#include "host/reference/rule_reference.h"
#include "platform/text_file.h"
#include "session/session.h"
#include "verify/job_comparison.h"

namespace brindle::host {
namespace {

using Names = std::set<std::string_view>;

void AddNames(CDiagnostics& diagnostics, Names& names) {
    for (const Diagnostic& one : diagnostics.Sorted()) names.insert(InfoOf(one.rule).name);
}

Names FindInTuning(const std::vector<std::string>& tuning) {
    const std::vector<std::string_view> lines(tuning.begin(), tuning.end());
    CDiagnostics diagnostics;
    CheckAll(CPlacedTuning(lines), diagnostics);
    Names names;
    AddNames(diagnostics, names);
    return names;
}

void ReadTuning(const std::vector<std::string>& lines, CBrindleOpts& options) {
    for (const std::string& line : lines) options.ReadFileLine(line);
}

Names FindInDrawing(const std::vector<std::string>& tuning, const std::string& drawing) {
    CBrindleOpts options;
    ReadTuning(tuning, options);
    CDiagnostics diagnostics;
    CheckPairing(SurveyDrawing(drawing, diagnostics), options, diagnostics);
    Names names;
    AddNames(diagnostics, names);
    return names;
}

Names FindInNcText(const std::vector<std::string>& tuning, const std::string& drawing) {
    CSession session;
    ReadTuning(tuning, session.tuning);
    session.TakeDrawing(drawing);
    CJobComparison comparison;
    RunJob(session, &comparison);
    Names names;
    for (const Loss& loss : comparison.losses().all()) names.insert(InfoOf(loss.rule).name);
    return names;
}

Names FindInNames(const std::vector<std::string>& tuning, std::string_view drawing_name) {
    const std::vector<std::string_view> lines(tuning.begin(), tuning.end());
    const JobName names[] = {{"@CADFile", drawing_name}};
    CDiagnostics diagnostics;
    CheckNames(CPlacedTuning(lines), names, diagnostics);
    Names found;
    AddNames(diagnostics, found);
    return found;
}

Names FindIn(const RuleExample& example, const ExampleFiles& files) {
    const std::vector<std::string> tuning = TuningLinesOf(example, files);
    const RuleGroup group = InfoOf(example.rule).group;
    if (group == RuleGroup::kNcText) return FindInNcText(tuning, DrawingOf(files));
    if (group == RuleGroup::kPairing || IsLimited(group)) return FindInDrawing(tuning, DrawingOf(files));
    if (group == RuleGroup::kJobNames) return FindInNames(tuning, files.drawing_name);
    return FindInTuning(tuning);
}

// What has no effect is no fault.
Names WithoutInfos(Names names, std::string_view but = {}) {
    std::erase_if(names,
                  [but](std::string_view name) { return name != but && FindRule(name)->severity == Severity::kInfo; });
    return names;
}

class Examples : public testing::TestWithParam<RuleInfo> {};

TEST_P(Examples, OfTheRuleShowIt) {
    const RuleExample& example = ExampleOf(GetParam().rule);
    const Names wrong = FindIn(example, example.wrong);
    EXPECT_TRUE(wrong.contains(GetParam().name)) << testing::PrintToString(wrong);
    EXPECT_EQ(WithoutInfos(FindIn(example, example.right), GetParam().name), Names());
}

INSTANTIATE_TEST_SUITE_P(Rules, Examples, testing::ValuesIn(Rules()), [](const auto& rule) {
    std::string name(rule.param.name);
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST(RuleExamples, MachinesAreFine) {
    for (const ExampleMachine& machine : ExampleMachines()) {
        EXPECT_EQ(WithoutInfos(FindInTuning(MachineLines(machine.name))), Names()) << machine.name;
    }
}

TEST(RuleReference, ThePageIsWhatTheTablesGive) {
    const std::optional<std::string> page = ReadWholeFile("docs/rules.md");
    ASSERT_TRUE(page.has_value());
    EXPECT_EQ(*page, RulePage()) << "docs/rules.md is not what `brindle rules --markdown` prints";
}

}  // namespace
}  // namespace brindle::host
