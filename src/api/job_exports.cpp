// Exports of the job's data.
#include <cmath>

#include "api/exports.h"
#include "brindle/brindle.h"

using namespace brindle;

namespace {

JobData& Job() { return Session().controller.job; }

int Store(std::string& target, const wchar_t* text) {
    target = In(text);
    return 0;
}

}  // namespace

int GBrn_SetDate(const wchar_t* date) { return Store(Job().date, date); }

int GBrn_SetTime(const wchar_t* time) { return Store(Job().time, time); }

int GBrn_SetDateTime(const wchar_t* text) {
    const std::string both = In(text);
    const size_t dash = both.find('-');
    Job().date = both.substr(0, dash);
    Job().time = dash == std::string::npos ? std::string() : both.substr(dash + 1);
    return 0;
}

int GBrn_SetBlankSize(double x, double y) {
    JobData& job = Job();
    if (std::isfinite(x) && std::isfinite(y)) job.blank = {x, y};
    return 0;
}

int GBrn_SetAutoUnitsToInches(int inches) {
    Job().auto_inches = inches != 0;
    return 0;
}

int GBrn_SetRotaryRadius(double radius) {
    JobData& job = Job();
    const double millimetres = job.auto_inches ? radius * kMillimetresPerInch : radius;
    if (std::isfinite(millimetres)) job.rotary_radius = millimetres;
    return 0;
}

int GBrn_SetFinalPosition(double x, double y) {
    JobData& job = Job();
    if (!std::isfinite(x) || !std::isfinite(y)) return 0;
    job.final_position = {x, y};
    job.final_position_set = true;
    return 0;
}

int GBrn_SetNullFinalPos(void) {
    Job().final_position_set = false;
    return 0;
}

int GBrn_SetTileToOutput(short tile) {
    Job().tile_to_output = tile;
    return 0;
}

int GBrn_GetTileToOutput(short* tile) {
    Out(tile, static_cast<short>(Job().tile_to_output));
    return 0;
}

int GBrn_SetOutputName(const wchar_t* name) { return Store(Job().output_name, name); }

int GBrn_SetFileName(const wchar_t* name) { return Store(Job().file_name, name); }

int GBrn_SetMaterialFile(const wchar_t* name) { return Store(Job().material_file, name); }

int GBrn_SetDataSetName(const wchar_t* name) { return Store(Job().dataset_name, name); }

int GBrn_SetTuneMenuPick(const wchar_t* name) { return Store(Job().tuning_pick, name); }
