#include "generator/evaluators.h"
#include "generator/word_numbers.h"
#include "geometry/rounding.h"

namespace brindle {

void CutWidth(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    const RunContext& run = resolver.run();
    const int32_t decimals = keywords.NDec(run.AxisUnit().grid_decimals[run.options.axes.LinearAxis()]);
    const double width = RoundScaled(run.Record().GetCutWidth(), keywords.Factor(1.0), decimals);
    out += CNumberText(width, decimals, run.state.trim).view();
}

void BridgeWidth(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    out += AxisNumber(resolver.run(), 0, resolver.run().Record().GetBridgeWidth()).view();
}

void BridgeNum(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    AppendInt(out, resolver.run().Record().GetBridgeCount());
}

void LineType(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    AppendInt(out, resolver.run().Record().GetLineType());
}

void ToolId(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    const int32_t tool = resolver.run().state.tool.selected;
    if (tool >= 1) AppendInt(out, tool);
}

void NothingToWrite(CTextResolver&, const CAtDirKeywords&, std::string&) {}

}  // namespace brindle
