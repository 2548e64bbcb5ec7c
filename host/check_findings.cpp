#include "host/check_findings.h"

#include <algorithm>
#include <tuple>

namespace brindle::host {
namespace {

constexpr size_t kMostKept = 100000;
constexpr size_t kMostPrinted = 1000;  // nobody reads more

}  // namespace

void CFindings::Add(Severity severity, size_t line, size_t column, size_t length, std::string text) {
    ++counts_[static_cast<size_t>(severity)];
    if (findings_.size() < kMostKept) findings_.push_back({severity, line, column, length, std::move(text)});
}

void CFindings::Print(const TuningFile& file, Severity least) {
    std::stable_sort(findings_.begin(), findings_.end(), [](const Finding& a, const Finding& b) {
        return std::tie(a.line, a.column) < std::tie(b.line, b.column);
    });
    const std::string name = file.path == "-" ? "standard input" : file.path;
    size_t printed = 0;
    for (const Finding& finding : findings_) {
        if (finding.severity > least) continue;
        if (++printed > kMostPrinted) break;
        const std::string_view line = finding.line == 0 ? std::string_view() : file.lines[finding.line - 1];
        PrintDiagnostic(finding.severity, {name, finding.line, finding.column, finding.length}, finding.text, line);
    }
    size_t count = 0;
    for (size_t severity = 0; severity <= static_cast<size_t>(least); ++severity) count += counts_[severity];
    if (count > kMostPrinted)
        PrintNote({name}, std::to_string(count - kMostPrinted) + " further messages are left out");
}

std::string Suggestion(std::string_view name) {
    return name.empty() ? std::string() : std::string(" (did you mean ").append(name).append("?)");
}

}  // namespace brindle::host
