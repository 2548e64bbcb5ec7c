// Run-time data of a job: the values that the user sets on the command line, and the expressions that a host has to
// compute.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/load/loaded_tuning.h"
#include "host/post/expressions.h"

namespace brindle::host {

// A value for one run-time data word, for this run only.
struct RunDataSetting {
    std::string word;  // `RTD(2,3)`, as templates spell it
    std::string value;
};

// The setting that `RTD(2,3)=12.5` spells; blanks before the `=` and the case of RTD don't matter. Nothing for another
// text.
std::optional<RunDataSetting> ParseSetting(std::string_view text);

// What the user gave.
struct RunDataRequest {
    std::string dataset;  // one that exists, empty for a tuning that has none
    std::vector<RunDataSetting> settings;
    std::vector<std::string> given;  // `EXPRESSION=VALUE`
};

// Settles every expression of the request's dataset: with the value that the user gave, as it is; a number by
// arithmetic over `job` and over the numbers that the user gave names to; a text that is a number is its own value.
// Words that the user set need none. False, with messages printed that name each expression without value, if there is
// one.
bool SettleExpressions(const LoadedTuning& tuning, const RunDataRequest& request, const JobValues& job,
                       ExpressionValues& values);

// Puts the settings into the request's dataset, as computed values, which no stored value replaces.
void ApplySettings(const RunDataRequest& request, CDataSetContainer& datasets);

}  // namespace brindle::host
