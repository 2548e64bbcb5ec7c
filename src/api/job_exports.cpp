// Exports of the job's data.
#include <cmath>

#include "api/exports.h"
#include "brindle/brindle.h"

using namespace brindle;

namespace {

JobData& Job() { return Session().Job(); }

int Store(std::string JobData::*field, const wchar_t* text) {
    return Export([&] { Job().*field = In(text); });
}

}  // namespace

int GBrn_SetDate(const wchar_t* date) { return Store(&JobData::date, date); }

int GBrn_SetTime(const wchar_t* time) { return Store(&JobData::time, time); }

int GBrn_SetDateTime(const wchar_t* text) {
    return Export([&] {
        const std::string both = In(text);
        const size_t dash = both.find('-');
        Job().date = both.substr(0, dash);
        Job().time = dash == std::string::npos ? std::string() : both.substr(dash + 1);
    });
}

int GBrn_SetBlankSize(double x, double y) {
    return Export([&] {
        JobData& job = Job();
        if (std::isfinite(x) && std::isfinite(y)) job.blank = {x, y};
    });
}

int GBrn_SetAutoUnitsToInches(int inches) {
    return Export([&] { Job().auto_inches = inches != 0; });
}

int GBrn_SetRotaryRadius(double radius) {
    return Export([&] {
        JobData& job = Job();
        const double millimetres = job.auto_inches ? radius * kMillimetresPerInch : radius;
        if (std::isfinite(millimetres)) job.rotary_radius = millimetres;
    });
}

int GBrn_SetFinalPosition(double x, double y) {
    return Export([&] {
        JobData& job = Job();
        if (!std::isfinite(x) || !std::isfinite(y)) return;
        job.final_position = {x, y};
        job.final_position_set = true;
    });
}

int GBrn_SetNullFinalPos(void) {
    return Export([&] { Job().final_position_set = false; });
}

int GBrn_SetTileToOutput(short tile) {
    return Export([&] { Job().tile_to_output = tile; });
}

int GBrn_GetTileToOutput(short* tile) {
    return Export([&] { Out(tile, static_cast<short>(Job().tile_to_output)); });
}

int GBrn_SetOutputName(const wchar_t* name) { return Store(&JobData::output_name, name); }

int GBrn_SetFileName(const wchar_t* name) { return Store(&JobData::file_name, name); }

int GBrn_SetMaterialFile(const wchar_t* name) { return Store(&JobData::material_file, name); }

int GBrn_SetDataSetName(const wchar_t* name) { return Store(&JobData::dataset_name, name); }

int GBrn_SetTuneMenuPick(const wchar_t* name) { return Store(&JobData::tuning_pick, name); }
