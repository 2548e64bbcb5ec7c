#include "generator/evaluators.h"
#include "generator/word_numbers.h"

namespace brindle {
namespace {

const CNCData& Current(CTextResolver& resolver) { return resolver.run().controller.current_item().Get(); }

}  // namespace

void CutWidth(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    const RunContext& run = resolver.run();
    const int32_t decimals = keywords.NDec(run.AxisUnit().grid_decimals[run.options.axes.LinearAxis()]);
    const double width = RoundScaled(Current(resolver).GetCutWidth(), keywords.Factor(1.0), decimals);
    out += CNumberText(width, decimals, run.settings.trim).view();
}

void BridgeWidth(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    out += AxisNumber(resolver.run(), 0, Current(resolver).GetBridgeWidth()).view();
}

void BridgeNum(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    AppendInt(out, Current(resolver).GetBridgeCount());
}

void LineType(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    AppendInt(out, Current(resolver).GetLineType());
}

void ToolId(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    const int32_t tool = resolver.run().state.selected_tool;
    if (tool >= 1) AppendInt(out, tool);
}

void NothingToWrite(CTextResolver&, const CAtDirKeywords&, std::string&) {}

}  // namespace brindle
