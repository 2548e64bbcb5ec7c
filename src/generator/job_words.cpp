#include "generator/evaluators.h"
#include "geometry/rounding.h"
#include "platform/version.h"

namespace brindle {
namespace {

const JobData& Job(CTextResolver& resolver) { return resolver.run().controller.job; }

// Always trimmed, whatever the tuning says of other numbers.
void BlankSize(CTextResolver& resolver, const CAtDirKeywords& keywords, double size, std::string& out) {
    const CNCControllerState& controller = resolver.run().controller;
    const int32_t decimals = keywords.NDec(controller.in_inches ? 3 : 2);
    const double value = RoundScaled(controller.transform.ScaleOnly(size), keywords.Factor(1.0), decimals);
    out += CNumberText(value, decimals, {.zeros = true, .point = true}).view();
}

}  // namespace

void Date(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) { out += Job(resolver).date; }
void Time(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) { out += Job(resolver).time; }
void CADFile(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) { out += Job(resolver).file_name; }
void OutputFile(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) { out += Job(resolver).output_name; }
void MaterialFile(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    out += Job(resolver).material_file;
}
void DataSetName(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    out += Job(resolver).dataset_name;
}
void TuneFile(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) { out += Job(resolver).tuning_file; }
void TuneMenuPick(CTextResolver& resolver, const CAtDirKeywords&, std::string& out) {
    out += Job(resolver).tuning_pick;
}

void DrvVersion(CTextResolver&, const CAtDirKeywords&, std::string& out) {
    AppendInt(out, kVersionMajor);
    out += '.';
    AppendInt(out, kVersionMinor);
}

void BlankX(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    BlankSize(resolver, keywords, Job(resolver).blank.x, out);
}

void BlankY(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    BlankSize(resolver, keywords, Job(resolver).blank.y, out);
}

void RotaryRadius(CTextResolver& resolver, const CAtDirKeywords& keywords, std::string& out) {
    const RunContext& run = resolver.run();
    const double radius = run.EffectiveRotaryRadius() * keywords.Factor(1.0);
    const int32_t decimals = run.AxisUnit().grid_decimals[run.options.axes.LinearAxis()];
    out += CNumberText(run.controller.transform.TransformLength(radius), decimals, run.state.trim).view();
}

// The parameter stays in the block until the buffer cuts it out for the host.
void IODwell(CTextResolver&, const CAtDirKeywords& keywords, std::string& out) {
    out += kDwellMarker;
    if (!keywords.value_text().empty()) out.append("[").append(keywords.value_text()).append("]");
}

}  // namespace brindle
