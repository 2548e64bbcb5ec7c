// A tuning as all commands load it, with its run-time data definition.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "host/files/tuning_file.h"
#include "session/session.h"

namespace brindle::host {

// Read once for all jobs of a call.
struct LoadedTuning {
    TuningFile file;
    std::optional<std::string> definition_text;  // of a file in place of the tuning's own definition
    std::string definition_name;                 // of the file that holds the definition, as the user knows it
    CBrindleOpts options;                        // expressions of the definition are not settled yet

    const CRunTimeDataDef& definition() const { return options.definition(); }
};

// Reads the tuning at `path`, `-` for standard input, and, if `definition_path` is not empty, the definition file in
// the place of the tuning's own definition. False, with a message printed, if a file can't be read or used.
bool LoadTuning(const std::string& path, const std::string& definition_path, LoadedTuning& tuning);

// The same for a tuning whose file has been read, and holds no NUL byte.
bool TakeTuning(const std::string& definition_path, LoadedTuning& tuning);

// The dataset that a run uses if the user names `asked`, which may be empty: the first one then. A name in another
// letter case is put right, with a note printed: under the name as it was typed, values would be stored where no other
// run finds them. False, with a message printed that names those there are, if there is no such dataset.
bool ChooseDataset(const LoadedTuning& tuning, const std::string& asked, std::string& dataset);

// Whether nothing is defined.
bool IsEmpty(const CRunTimeDataDef& definition);

// Texts of expressions, and the value of each.
using ExpressionValues = std::map<std::string, std::string>;

// Gives the tuning to a new session, its expressions settled by `values`.
void SetTuning(CSession& session, const LoadedTuning& tuning, const ExpressionValues& values = {});

}  // namespace brindle::host
