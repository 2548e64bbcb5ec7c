// The run: from tuning and geometry to NC text, in one call.
#pragma once

#include <string>

#include "generator/emission.h"
#include "generator/evaluators.h"

namespace brindle {

// Runs the tuning of a session over its geometry: drops the output of an earlier run, settles the run-time values, and
// writes the NC text into the buffers. Buffers and trace are rebuilt; the geometry is not changed, so a run can be
// repeated and gives the same text, unless it leaves a block pending or a mirror or rotation code in force, is
// incremental and starts where it ended, or writes words of a record before its first record. `log`, if it is not
// null, is told what is written.
void RunOutput(const SessionParts& session, CRunLog* log = nullptr);

// One such run, after its values have been settled.
class COutputRun {
public:
    explicit COutputRun(const SessionParts& session)
        : run_(session),
          resolver_(run_, kEvaluators),
          executor_(run_, resolver_),
          tools_(run_, executor_),
          segments_(run_, executor_, tools_),
          emission_(run_, executor_, tools_, segments_) {}

    void RunOutput(CRunLog* log);

private:
    void TakeSettings();
    void ResetController();
    void OutputPrograms();

    void OutputMain();
    // The last record of the main program: the primary tool, the final position.
    void FinishMain(const CTrans& trans);
    void MakeFinalRecordCurrent(int32_t tool, const CTrans& trans);

    void OutputSubs();
    void OutputSub(int32_t variant, int32_t program, const std::string& name, CTrans trans);
    void ReturnFromSub(int32_t program, const CTrans& trans);
    Point SubStart(int32_t program) const;

    RunContext run_;
    CTextResolver resolver_;
    CTemplateExecutor executor_;
    CToolControl tools_;
    CSegments segments_;
    CEmission emission_;
};

}  // namespace brindle
