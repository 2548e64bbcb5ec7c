#include "host/picture/axis_ticks.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "text/numbers.h"

namespace brindle::host {
namespace {

constexpr double kMostTicks = 1000.0;
constexpr double kMostDecimals = 9.0;

// 1, 2 or 5 times a power of ten.
double RoundStep(double least) {
    const double power = PowerOfTenth(TruncateToInt32(-std::floor(std::log10(least))));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= least) return factor * power;
    }
    return 10.0 * power;
}

std::string Label(double value, int decimals) {
    char text[400];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals).ptr;
    return {text, end};
}

}  // namespace

std::vector<AxisTick> TicksBetween(double low, double high, double least_step) {
    std::vector<AxisTick> ticks;
    if (!std::isfinite(least_step)) return ticks;
    const double step = RoundStep(least_step);
    const double first = std::ceil(low / step);
    const double last = std::floor(high / step);
    if (!(step > 0.0) || !(last - first < kMostTicks) || std::fabs(first) > 1e15 || std::fabs(last) > 1e15)
        return ticks;
    const auto decimals = static_cast<int>(std::clamp(-std::floor(std::log10(step) + 1e-9), 0.0, kMostDecimals));
    // A sum with 0 makes -0 plain 0.
    for (double i = first; i <= last; ++i) ticks.push_back({i * step + 0.0, Label(i * step + 0.0, decimals)});
    return ticks;
}

}  // namespace brindle::host
