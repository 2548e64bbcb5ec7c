// The per-user store of records that survive the process, where the exchange of run-time data keeps the values last
// used. It is a folder, $XDG_DATA_HOME/Corvane/BrindleDrv or ~/.local/share/Corvane/BrindleDrv, looked up at each call,
// with a file for each record. Without a home folder, and wherever the folder can't be used, reads find nothing and
// writes give false.
#pragma once

#include <optional>
#include <string>

namespace brindle {

// The values of a record; each write replaces both. They may hold any bytes.
struct UserRecord {
    std::string date;
    std::string data;
};

// The record of that name, compared exactly. Nothing if there is none, or if what lies in its place is not such a
// record as a whole: damaged, of another version of the format, over 64 MiB, a link or a folder.
std::optional<UserRecord> ReadUserRecord(const std::string& name);

// Writes a record in one step, so that a reader finds the old or the new one, whole, and of several writers the last
// one wins. Missing folders are created for the user alone, except the home folder itself. Any name is fine: none can
// leave the store's folder. False if it could not be written, as when it were over 64 MiB; an older record then stays.
bool WriteUserRecord(const std::string& name, const UserRecord& record);

}  // namespace brindle
