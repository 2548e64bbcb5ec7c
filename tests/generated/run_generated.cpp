// Runs generated jobs through the exports and compares all that they give. jobs.jsonl.xz holds generated jobs with the
// results of an independent reading, chosen over all kinds of jobs. One that fails here names itself; what its tuning
// prints looks odd on purpose, so that a fault anywhere shows.
//
// Standard input has a job a line, an object of
//   name     kind and number
//   files    by name, their bytes as characters; absent if there are none. They lie in the working folder.
//   tz       time zone, absent for UTC
//   calls    each an array: an export without its GBrn_, or one of the words below, and its arguments
//   results  for each call what it gives: an array of its out values in order
// A text is a string, an array of character codes where no string can hold it, or null. A number may also be "nan",
// "inf" or "-inf". Numbers that an export leaves alone are -777. The words:
//   tune LINES            ClearTuning, and ReadTuneLine for each
//   fetch                 an array a buffer, its pieces
//   walk                  StartKey, and the results of GetNextTuneLine to the last key
//   expressions           the results of GetNextRTDExpr until one is empty
//   null_out NAME ...     that export with null out-parameters
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <limits>
#include <list>
#include <map>
#include <nlohmann/json.hpp>
#include <string>

#include "unit/host_session.h"

namespace {

using Json = nlohmann::json;
namespace fs = std::filesystem;

constexpr int kLeftAlone = -777;

// ---- Arguments and results of one call ----

std::wstring WideText(const Json& value) {
    if (value.is_string()) return brindle::NarrowToWide(value.get<std::string>());
    std::wstring text;
    for (const Json& code : value) text.push_back(static_cast<wchar_t>(code.get<uint32_t>()));
    return text;
}

double Number(const Json& value) {
    if (value.is_number()) return value.get<double>();
    if (value == "nan") return std::numeric_limits<double>::quiet_NaN();
    return value == "inf" ? std::numeric_limits<double>::infinity() : -std::numeric_limits<double>::infinity();
}

// The arguments of an export, taken from its array one by one, and what it gives.
class CExchange {
public:
    CExchange(const Json& call, size_t first, bool null_out) : call_(call), next_(first), null_out_(null_out) {}

    template <typename T>
    T Take() {
        if constexpr (std::is_same_v<T, const wchar_t*>) {
            const Json& value = call_.at(next_++);
            return value.is_null() ? nullptr : texts_.emplace_back(WideText(value)).c_str();
        } else if constexpr (std::is_same_v<T, wchar_t**>) {
            if (null_out_) return nullptr;
            wchar_t** const slot = &given_.emplace_back(nullptr);
            results_.push_back([slot] { return Json(brindle::Taken(*slot)); });
            return slot;
        } else if constexpr (std::is_pointer_v<T>) {
            if (null_out_) return nullptr;
            int* const slot = &numbers_.emplace_back(kLeftAlone);
            auto* const number = reinterpret_cast<T>(slot);
            *number = kLeftAlone;
            results_.push_back([number] { return Json(*number); });
            return number;
        } else if constexpr (std::is_same_v<T, double>) {
            return Number(call_.at(next_++));
        } else {
            return static_cast<T>(call_.at(next_++).get<int64_t>());
        }
    }

    Json Results(int status) {
        Json results = Json::array();
        for (const auto& result : results_) results.push_back(result());
        if (status != 0) results.push_back("status " + std::to_string(status));
        return results;
    }

private:
    const Json& call_;
    size_t next_;
    bool null_out_;
    std::list<std::wstring> texts_;
    std::list<wchar_t*> given_;
    std::list<int> numbers_;
    std::vector<std::function<Json()>> results_;
};

using Export = std::function<Json(CExchange&)>;

template <typename... A>
Export Exported(int (*function)(A...)) {
    return [function](CExchange& exchange) {
        const std::tuple<A...> arguments{exchange.Take<A>()...};
        return exchange.Results(std::apply(function, arguments));
    };
}

const std::map<std::string, Export>& Exports() {
    static const std::map<std::string, Export> exports = {
        {"Clear", Exported(GBrn_Clear)},
        {"SetTuningFileName", Exported(GBrn_SetTuningFileName)},
        {"ClearTuning", Exported(GBrn_ClearTuning)},
        {"AddToTunelineBuffer", Exported(GBrn_AddToTunelineBuffer)},
        {"ReadTuneLine", Exported(GBrn_ReadTuneLine)},
        {"ReadTuneLineIgnoreRTDDefs", Exported(GBrn_ReadTuneLineIgnoreRTDDefs)},
        {"GetStartKey", Exported(GBrn_GetStartKey)},
        {"GetNextTuneLine", Exported(GBrn_GetNextTuneLine)},
        {"GetTuning", Exported(GBrn_GetTuning)},
        {"DisplayTuningDialog", Exported(GBrn_DisplayTuningDialog)},
        {"SetDate", Exported(GBrn_SetDate)},
        {"SetTime", Exported(GBrn_SetTime)},
        {"SetDateTime", Exported(GBrn_SetDateTime)},
        {"SetBlankSize", Exported(GBrn_SetBlankSize)},
        {"SetAutoUnitsToInches", Exported(GBrn_SetAutoUnitsToInches)},
        {"SetRotaryRadius", Exported(GBrn_SetRotaryRadius)},
        {"SetFinalPosition", Exported(GBrn_SetFinalPosition)},
        {"SetNullFinalPos", Exported(GBrn_SetNullFinalPos)},
        {"SetTileToOutput", Exported(GBrn_SetTileToOutput)},
        {"GetTileToOutput", Exported(GBrn_GetTileToOutput)},
        {"SetOutputName", Exported(GBrn_SetOutputName)},
        {"SetFileName", Exported(GBrn_SetFileName)},
        {"SetMaterialFile", Exported(GBrn_SetMaterialFile)},
        {"SetDataSetName", Exported(GBrn_SetDataSetName)},
        {"SetTuneMenuPick", Exported(GBrn_SetTuneMenuPick)},
        {"StartMain", Exported(GBrn_StartMain)},
        {"StartSub", Exported(GBrn_StartSub)},
        {"AddLine", Exported(GBrn_AddLine)},
        {"AddArc", Exported(GBrn_AddArc)},
        {"AddText", Exported(GBrn_AddText)},
        {"AddInclude", Exported(GBrn_AddInclude)},
        {"OpenCF2File", Exported(GBrn_OpenCF2File)},
        {"ReadRTDDefFromFile", Exported(GBrn_ReadRTDDefFromFile)},
        {"GetNextRTDExpr", Exported(GBrn_GetNextRTDExpr)},
        {"SetRTDExprValue", Exported(GBrn_SetRTDExprValue)},
        {"UpdateDefaultValuesForExpressions", Exported(GBrn_UpdateDefaultValuesForExpressions)},
        {"GetNameTuneFileForRTDDef", Exported(GBrn_GetNameTuneFileForRTDDef)},
        {"ClearRunTimeData", Exported(GBrn_ClearRunTimeData)},
        {"DisplayRTDataDlg", Exported(GBrn_DisplayRTDataDlg)},
        {"End", Exported(GBrn_End)},
        {"GetNumOfBuffers", Exported(GBrn_GetNumOfBuffers)},
        {"SetCurBuffer", Exported(GBrn_SetCurBuffer)},
        {"CurBufferHasMoreData", Exported(GBrn_CurBufferHasMoreData)},
        {"GetOutputBuffer", Exported(GBrn_GetOutputBuffer)},
        {"GetIODwellStr", Exported(GBrn_GetIODwellStr)},
        {"DisplayLoadSegmentDialog", Exported(GBrn_DisplayLoadSegmentDialog)}};
    return exports;
}

Json Call(const Json& call, bool null_out = false) {
    const size_t name = null_out ? 1 : 0;
    CExchange exchange(call, name + 1, null_out);
    return Exports().at(call.at(name).get<std::string>())(exchange);
}

// ---- Words for several calls ----

Json Tune(const Json& lines) {
    Call({"ClearTuning"});
    for (const Json& line : lines) Call({"ReadTuneLine", line});
    return Json::array();
}

Json Fetch() {
    Json buffers = Json::array();
    const int count = Call({"GetNumOfBuffers"})[0];
    for (int number = 1; number <= count; ++number) {
        Call({"SetCurBuffer", number});
        Json pieces = Json::array();
        while (Call({"CurBufferHasMoreData"})[0] == 1) pieces.push_back(Call({"GetOutputBuffer"})[0]);
        buffers.push_back(pieces);
    }
    return buffers;
}

void Append(Json& all, const Json& more) {
    for (const Json& one : more) all.push_back(one);
}

Json Walk() {
    Json all = Call({"GetStartKey"});
    while (all.back() != "") Append(all, Call({"GetNextTuneLine", Json(all.back())}));
    return all;
}

Json Expressions() {
    Json all = Json::array();
    Json step;
    do {
        step = Call({"GetNextRTDExpr"});
        Append(all, step);
    } while (step[0] != "");
    return all;
}

Json Perform(const Json& call) {
    const auto name = call.at(0).get<std::string>();
    if (name == "tune") return Tune(call.at(1));
    if (name == "fetch") return Fetch();
    if (name == "walk") return Walk();
    if (name == "expressions") return Expressions();
    return Call(call, name == "null_out");
}

// ---- Jobs ----

// The working folder, which is the user's store too, and the time zone of a job.
void SetUp(const fs::path& folder, const Json& job) {
    for (const auto& entry : fs::directory_iterator(folder)) fs::remove_all(entry);
    const Json files = job.value("files", Json::object());
    for (const auto& [name, bytes] : files.items()) {
        std::ofstream file(folder / name, std::ios::binary);
        for (const wchar_t byte : WideText(bytes)) file.put(static_cast<char>(byte));
    }
    ::setenv("TZ", job.value("tz", "UTC").c_str(), 1);
    ::tzset();
    GBrn_ReadTuneLine(L"");  // takes what is left of an earlier line
    GBrn_Clear();
}

bool Run(const Json& job) {
    for (size_t i = 0; i < job["calls"].size(); ++i) {
        const Json got = Perform(job["calls"][i]);
        const Json& expected = job["results"][i];
        if (got == expected) continue;
        std::cout << job["name"] << ", call " << i + 1 << ": " << job["calls"][i] << "\nexpected " << expected
                  << "\ngot      " << got << '\n';
        return false;
    }
    return true;
}

}  // namespace

int main() {
    std::string folder = fs::temp_directory_path() / "brindle_generated_XXXXXX";
    if (::mkdtemp(folder.data()) == nullptr) return 1;
    fs::current_path(folder);
    ::setenv("XDG_DATA_HOME", folder.c_str(), 1);
    for (const char* const screen : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) ::unsetenv(screen);
    int count = 0, failed = 0;
    for (std::string line; std::getline(std::cin, line); ++count) {
        const Json job = Json::parse(line);
        SetUp(folder, job);
        if (!Run(job)) ++failed;
    }
    GBrn_Clear();
    fs::remove_all(folder);
    std::cout << count << " jobs, " << failed << " failed\n";
    return count > 0 && failed == 0 ? 0 : 1;
}
