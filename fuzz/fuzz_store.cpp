// Records of the user's store: any bytes as the file of a record, which a job then asks for; and the first line as the
// name of a record that holds the rest.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "brindle/brindle.h"
#include "files.h"
#include "platform/user_store.h"
#include "rtd/value_exchange.h"

namespace {

namespace fs = std::filesystem;

constexpr size_t kLongest = 4000;  // a longer text is slow, not new

void CheckWritten(const std::string& name, const brindle::UserRecord& record) {
    if (!brindle::WriteUserRecord(name, record)) std::abort();
    const auto read = brindle::ReadUserRecord(name);
    if (!read || read->date != record.date || read->data != record.data) std::abort();
}

// The only thing there is the file of one record, whatever the name.
void CheckStaysInside(const fs::path& folder, const fs::path& store) {
    if (std::distance(fs::directory_iterator(folder), {}) != 1) std::abort();
    if (std::distance(fs::directory_iterator(store), {}) != 1) std::abort();
}

void RunJob() {
    GBrn_Clear();
    GBrn_ReadTuneLine(L"DATASETDEF Laser");
    GBrn_ReadTuneLine(L"DSD Laser TEXT RTD(1) old");
    GBrn_ReadTuneLine(L"MULTI FileStart_tTmpl NNUL <RTD(1)><RTD(1,1)><@DataSetName>");
    GBrn_SetTuneMenuPick(L"Pick");
    GBrn_SetDataSetName(L"Laser");
    GBrn_End();
    GBrn_Clear();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const CWorkFolder folder;
    static const fs::path store = folder.path() / "Corvane/BrindleDrv";
    if (size > kLongest) return 0;
    ::setenv("XDG_DATA_HOME", folder.path().c_str(), 1);
    const std::string text(reinterpret_cast<const char*>(data), size);

    folder.Empty();
    fs::create_directories(store);
    std::ofstream(store / "Pick-Laser", std::ios::binary) << text;
    RunJob();
    if (const auto record = brindle::ReadUserRecord("Pick-Laser")) CheckWritten("Pick-Laser", *record);

    folder.Empty();
    const size_t end = std::min(text.find('\n'), text.size());
    const std::string name = text.substr(0, end);
    CheckWritten(name, {name, text.substr(end)});
    CheckStaysInside(folder.path(), store);
    return 0;
}
