// What the user is told of a drawing before it is run.
#pragma once

#include <string>
#include <string_view>

#include "check/drawing/survey.h"

namespace brindle::host {

// Surveys the drawing of that name, whose whole file is `text`, and prints its findings and, unless `tuning` is null,
// what of it the tuning can't do. False, with an error printed, if it is none.
bool ReportOnDrawing(const std::string& name, std::string_view text, const CBrindleOpts* tuning, DrawingSurvey& survey);

}  // namespace brindle::host
