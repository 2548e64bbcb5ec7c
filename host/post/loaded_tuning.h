// A tuning with its run-time data definition, as the commands look into it and hand it to the library.
#pragma once

#include <string>
#include <string_view>

#include "host/files/input_file.h"
#include "host/files/tuning_file.h"
#include "tuning/options.h"

namespace brindle::host {

// Read once for all jobs of a call.
struct LoadedTuning {
    TuningFile file;
    CLibraryInput definition_file;
    bool has_definition_file = false;  // otherwise the definition is that of the tuning itself
    std::string definition_name;       // of the file that holds the definition, as the user knows it
    CBrindleOpts options;              // expressions of the definition stand unresolved

    const CRunTimeDataDef& definition() const { return options.definition(); }
};

// Reads the tuning at `path` and, if `definition_path` is not empty, the definition file in the place of the tuning's
// own definition. False, with a message printed, if a file can't be read or used.
bool LoadTuning(const std::string& path, const std::string& definition_path, LoadedTuning& tuning);

// The dataset that a run uses if the user names `asked`, which may be empty: the first one then. False, with a message
// printed that names those there are, if there is no such dataset.
bool ChooseDataset(const LoadedTuning& tuning, const std::string& asked, std::string& dataset);

// Whether nothing is defined.
bool IsEmpty(const CRunTimeDataDef& definition);

// `text` as the exports take it.
std::wstring Wide(std::string_view text);

// A string that an export gave, up to its first NUL. It is freed.
std::string Taken(wchar_t* text);

// False, with a message printed, if no dialog can open.
bool HasEditor();

}  // namespace brindle::host
