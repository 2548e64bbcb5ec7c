#include <gtest/gtest.h>

#include <numbers>
#include <string>
#include <string_view>

#include "brindle/brindle.h"
#include "host/reference/directive_examples.h"
#include "host/reference/directive_reference.h"
#include "host/reference/key_reference.h"
#include "platform/text_encoding.h"
#include "platform/text_file.h"
#include "tuning/options.h"

namespace brindle::host {
namespace {

constexpr double kRadiansPerDegree = std::numbers::pi / 180.0;

void ReadTuneLines(std::string_view lines) {
    for (const std::string_view line : SplitLines(lines)) GBrn_ReadTuneLine(NarrowToWide(line).c_str());
}

void Send(const ExampleRecord& record) {
    const Point from = record.start, to = record.end, center = record.center;
    const std::wstring name = NarrowToWide(record.name);
    const double rotation = record.degrees * kRadiansPerDegree;
    switch (record.kind) {
        case ExampleRecord::Kind::kLine:
            GBrn_AddLine(1, 1, kExampleCutWidth, from.x, from.y, to.x, to.y, kExampleBridgeWidth, kExampleBridgeCount);
            break;
        case ExampleRecord::Kind::kArc:
            GBrn_AddArc(1, 1, kExampleCutWidth, from.x, from.y, to.x, to.y, center.x, center.y, record.radius,
                        kExampleBridgeWidth, kExampleBridgeCount);
            break;
        case ExampleRecord::Kind::kText:
            GBrn_AddText(1, 1, from.x, from.y, from.x, from.y, 0.0, rotation, 0.0, 0.0, record.height, name.c_str());
            break;
        case ExampleRecord::Kind::kCall:
            GBrn_AddInclude(name.c_str(), from.x, from.y, 0.0, 0.0, rotation, record.mirror_x ? 1 : 0, 0);
            break;
    }
}

void SendDrawing(const ExampleDrawing& drawing, Point blank) {
    GBrn_StartMain(L"BOX", blank.x / 2.0, blank.y / 2.0, 1, 1);
    for (const ExampleRecord& record : drawing.main) Send(record);
    if (drawing.sub.empty()) return;
    GBrn_StartSub(L"PART", 10.0, 0.0, 1, 1);
    for (const ExampleRecord& record : drawing.sub) Send(record);
}

void SetJob(const ExampleJob& job) {
    GBrn_SetDate(job.date);
    GBrn_SetTime(job.time);
    GBrn_SetFileName(job.drawing_name);
    GBrn_SetOutputName(job.output_name);
    GBrn_SetMaterialFile(job.material);
    GBrn_SetTuningFileName(job.tuning_name);
    GBrn_SetTuneMenuPick(job.tuning_pick);
    GBrn_SetDataSetName(job.dataset);
    GBrn_SetBlankSize(job.blank.x, job.blank.y);
    GBrn_SetRotaryRadius(job.rotary_radius);
}

// All pieces but empty ones, each without the end of its block.
std::string TakeOutput() {
    std::string output;
    GBrn_SetCurBuffer(1);
    for (int more = 0; GBrn_CurBufferHasMoreData(&more), more != 0;) {
        wchar_t* piece = nullptr;
        GBrn_GetOutputBuffer(&piece);
        std::string text = WideToNarrow(piece);
        SysFreeString(piece);
        if (text.empty()) continue;
        if (text.ends_with("\r\n")) text.resize(text.size() - 2);
        output.append(output.empty() ? "" : "\n").append(text);
    }
    return output;
}

std::string PrintedBy(const DirectiveExample& example) {
    GBrn_Clear();
    ReadTuneLines(ExampleTuning());
    ReadTuneLines(example.options);
    ReadTuneLines(TemplateLineOf(example));
    SetJob(TheExampleJob());
    SendDrawing(FindExampleDrawing(example.drawing), TheExampleJob().blank);
    GBrn_End();
    std::string output = TakeOutput();
    GBrn_Clear();
    return output;
}

TEST(DirectiveExamples, PrintWhatTheReferenceSays) {
    for (const DirectiveExample& example : DirectiveExamples()) {
        EXPECT_EQ(PrintedBy(example), example.prints) << example.lines;
    }
}

TEST(DirectiveExamples, EveryDirectiveHasOneThatUsesIt) {
    for (const DirectiveInfo& directive : DirectiveTable()) {
        bool is_used = false;
        for (const DirectiveExample& example : DirectiveExamples()) {
            const std::string word = std::string("<").append(directive.name);
            is_used |= example.directive == directive.name && example.lines.find(word) != std::string_view::npos;
        }
        EXPECT_TRUE(is_used) << directive.name;
    }
}

TEST(DirectiveExamples, NamesOfTheTableExist) {
    for (const DirectiveExample& example : DirectiveExamples()) {
        EXPECT_EQ(FindExampleDrawing(example.drawing).name, example.drawing) << example.lines;
        EXPECT_TRUE(example.directive.empty() || FindDirective(example.directive) != nullptr) << example.directive;
    }
}

TEST(DirectiveReference, ThePageIsWhatTheTablesGive) {
    const std::optional<std::string> page = ReadWholeFile("docs/directives.md");
    ASSERT_TRUE(page.has_value());
    EXPECT_EQ(*page, DirectivePage()) << "docs/directives.md is not what `brindle directives --markdown` prints";
}

TEST(KeyReference, ThePageIsWhatTheCatalogueGives) {
    const std::optional<std::string> page = ReadWholeFile("docs/keys.md");
    ASSERT_TRUE(page.has_value());
    EXPECT_EQ(*page, KeyPage()) << "docs/keys.md is not what `brindle keys --markdown` prints";
}

const KeyDefault& DefaultOf(const KeyInfo& info) {
    return info.read_default.HasValue() ? info.read_default : info.editor_default;
}

// What an entry offers to copy must be a line of a tuning that changes nothing.
TEST(KeyReference, LinesToCopyAreLinesOfATuning) {
    for (const KeyInfo& info : KeyCatalogue()) {
        const std::string event = info.scope == KeyScope::kEvent ? "Line_" : "";
        const std::string key = (info.scope == KeyScope::kTool ? "T1_" : "") + event + std::string(info.name);
        const std::string entry = KeyEntry(key, 0);
        const std::string line = entry.substr(entry.find("\n  line     ") + 12);
        CBrindleOpts tuning;
        EXPECT_TRUE(tuning.ParseLine(line.substr(0, line.find('\n')))) << line;
        EXPECT_EQ(tuning.items().size(), 1u) << line;
        std::string text;
        int32_t number = 0;
        if (tuning.GetText(key, text)) {
            EXPECT_EQ(text, DefaultOf(info).Text()) << line;
        }
        if (tuning.GetInt(key, number)) {
            EXPECT_EQ(number, DefaultOf(info).Int()) << line;
        }
    }
}

}  // namespace
}  // namespace brindle::host
