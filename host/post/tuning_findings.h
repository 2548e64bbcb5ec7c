// What is wrong with the tuning of a call, told once for all of its drawings.
#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "check/tuning/placed_tuning.h"
#include "host/files/tuning_file.h"
#include "verify/losses.h"

namespace brindle::host {

// Checks a tuning. A finding that may be the cause of a loss waits: if a drawing shows the loss, it is told with it,
// otherwise after all drawings.
class CTuningFindings {
public:
    // `file` must outlive the object. Findings of the rules `allowed` are left out, but for errors, and with another
    // definition of run-time data those of the tuning's own.
    CTuningFindings(const TuningFile& file, const std::vector<Rule>& allowed, bool has_other_definition = false);

    size_t Count(Severity severity) const { return diagnostics_.Count(severity); }
    // Tells all, for a call without drawings or a tuning with errors.
    void TellAll();
    // Before the first drawing: tells what waits for none.
    void TellFirst();
    // After the last drawing: tells what no loss has shown.
    void TellRest();

    // The findings that are the cause of `loss`, of which some record begins with `record`; they are told with it. May
    // be called by several threads.
    std::vector<RelatedPlace> CausesOf(const Loss& loss, std::string_view record);
    // Where the loss's template has the word of the loss, or the line that wrote it, or else its key.
    RelatedPlace PlaceInTemplate(const Loss& loss) const;

private:
    struct Waiting {
        explicit Waiting(Diagnostic what) : diagnostic(std::move(what)) {}
        Diagnostic diagnostic;
        std::atomic<bool> is_told = false;
    };

    std::string_view WordOf(const Diagnostic& diagnostic) const;
    bool IsCause(const Diagnostic& diagnostic, const Loss& loss, std::string_view record) const;

    const TuningFile& file_;
    CPlacedTuning tuning_;
    CDiagnostics diagnostics_;
    std::vector<std::unique_ptr<Waiting>> waiting_;
};

}  // namespace brindle::host
