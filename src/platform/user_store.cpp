#include "platform/user_store.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "platform/file_replacement.h"
#include "platform/text_file.h"

namespace brindle {
namespace {

constexpr std::string_view kFirstLine = "BrindleDrv run-time data record, version 1\n";
constexpr size_t kLongestFileName = 255;
// Beyond what anybody enters: whatever is larger was not written here, and is not worth the memory.
constexpr size_t kLargestRecord = size_t{64} << 20;

struct StoreFolder {
    std::string path;
    size_t present = 0;  // this much of the path is not for us to create
};

bool IsAbsolutePath(const char* path) { return path && *path == '/'; }

// A home folder that does not exist is no home, and is not created. The environment is that of the moment, as hosts
// change it.
std::optional<StoreFolder> FindStore() {
    const std::string in_data_home = "/Corvane/BrindleDrv";
    if (const char* const data_home = std::getenv("XDG_DATA_HOME"); IsAbsolutePath(data_home)) {
        return StoreFolder{data_home + in_data_home, 0};
    }
    if (const char* const home = std::getenv("HOME"); IsAbsolutePath(home)) {
        return StoreFolder{std::string(home) + "/.local/share" + in_data_home, std::string_view(home).size()};
    }
    return std::nullopt;
}

bool CreateFolders(const StoreFolder& folder) {
    for (size_t end = folder.present; end != std::string::npos;) {
        end = folder.path.find('/', end + 1);
        if (mkdir(folder.path.substr(0, end).c_str(), S_IRWXU) != 0 && errno != EEXIST) return false;
    }
    return true;
}

bool IsPlainInFileName(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_' ||
           c == '.' || c == '~';
}

// A dot in front would hide the file, or name a folder.
std::string PercentEncoded(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : text) {
        if (IsPlainInFileName(c) && !(c == '.' && encoded.empty())) {
            encoded.push_back(c);
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        encoded.append({'%', kDigits[byte >> 4U], kDigits[byte & 15U]});
    }
    return encoded;
}

// FNV-1a from the given start value.
uint64_t HashOf(std::string_view text, uint64_t start) {
    uint64_t hash = start;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    return hash;
}

std::string HexDigits(uint64_t value) {
    std::array<char, 16> digits = {};
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16).ptr;
    const std::string_view text(digits.data(), static_cast<size_t>(end - digits.data()));
    return std::string(digits.size() - text.size(), '0').append(text);
}

// Percent-encoding never gives a lone `%` or `%%`, so the names made here for what it can't serve are free.
std::string FileNameOf(const std::string& name) {
    std::string file_name = PercentEncoded(name);
    if (file_name.empty()) return "%";
    if (file_name.size() <= kLongestFileName) return file_name;
    const uint64_t hash = HashOf(name, 0xCBF29CE484222325U);
    const std::string tail = "%%" + HexDigits(hash) + HexDigits(HashOf(name, ~hash));
    file_name.resize(kLongestFileName - tail.size());
    return file_name + tail;
}

void AppendField(std::string& text, std::string_view label, std::string_view value) {
    text.append(label).append(" ").append(std::to_string(value.size())).append("\n").append(value).append("\n");
}

// The name lies in the record too: names that share a file, be it by their hash or because the file system knows no
// case, do not get each other's values.
std::string FormatRecord(const std::string& name, const UserRecord& record) {
    std::string text(kFirstLine);
    AppendField(text, "Name", name);
    AppendField(text, "Date", record.date);
    AppendField(text, "Data", record.data);
    return text;
}

bool TakePrefix(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix)) return false;
    text.remove_prefix(prefix.size());
    return true;
}

bool TakeField(std::string_view& text, std::string_view label, std::string& value) {
    if (!TakePrefix(text, label) || !TakePrefix(text, " ")) return false;
    size_t size = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), size);
    if (error != std::errc()) return false;
    text.remove_prefix(static_cast<size_t>(end - text.data()));
    if (!TakePrefix(text, "\n") || size > text.size()) return false;
    value = text.substr(0, size);
    text.remove_prefix(size);
    return TakePrefix(text, "\n");
}

std::optional<UserRecord> ParseRecord(std::string_view text, const std::string& name) {
    UserRecord record;
    std::string stored_name;
    const bool whole = TakePrefix(text, kFirstLine) && TakeField(text, "Name", stored_name) &&
                       TakeField(text, "Date", record.date) && TakeField(text, "Data", record.data) && text.empty();
    if (!whole || stored_name != name) return std::nullopt;
    return record;
}

// Opening a pipe could wait for ever, and a link leads out of the store.
bool IsRecordFile(const std::string& path) {
    struct stat status = {};
    return lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           static_cast<uint64_t>(status.st_size) <= kLargestRecord;
}

}  // namespace

std::optional<UserRecord> ReadUserRecord(const std::string& name) {
    const std::optional<StoreFolder> folder = FindStore();
    if (!folder) return std::nullopt;
    const std::string path = folder->path + "/" + FileNameOf(name);
    if (!IsRecordFile(path)) return std::nullopt;
    const std::optional<std::string> text = ReadWholeFile(path);
    if (!text) return std::nullopt;
    return ParseRecord(*text, name);
}

bool WriteUserRecord(const std::string& name, const UserRecord& record) {
    const std::optional<StoreFolder> folder = FindStore();
    if (!folder) return false;
    const std::string text = FormatRecord(name, record);
    if (text.size() > kLargestRecord) return false;
    if (!CreateFolders(*folder)) return false;
    CFileReplacement file;
    return file.Add(folder->path + "/" + FileNameOf(name), text, S_IRUSR | S_IWUSR) == 0 && file.Commit().error == 0;
}

}  // namespace brindle
