// The per-user store: where records lie, what their files are called, and what a damaged or crowded store does.
#include "platform/user_store.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "platform/text_file.h"
#include "unit/temp_folder.h"

namespace brindle {

static bool operator==(const UserRecord& a, const UserRecord& b) { return a.date == b.date && a.data == b.data; }

namespace {

namespace fs = std::filesystem;

void WriteFile(const fs::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
    ASSERT_EQ(ReadWholeFile(path), text);
}

// Runs `act` in a process of its own and gives its result.
bool HoldsInChild(const std::function<bool()>& act) {
    const pid_t child = fork();
    if (child == 0) _exit(act() ? 0 : 1);
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

class UserStore : public testing::Test {
protected:
    fs::path RecordPath(const std::string& file_name) const { return store_ / file_name; }

    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(store_)) names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }

    const CDataHome data_home_;
    const fs::path folder_ = data_home_.path();
    const fs::path store_ = folder_ / "Corvane/BrindleDrv";
};

TEST_F(UserStore, FileNames) {
    const std::pair<std::string, std::string> rows[] = {
        {"Laser-Steel_2.5~x", "Laser-Steel_2.5~x"},
        {"Laser 1-Steel", "Laser%201-Steel"},
        {"", "%"},
        {"%", "%25"},
        {".", "%2E"},
        {"..", "%2E."},
        {"../../x", "%2E.%2F..%2Fx"},
        {"a\\b:c*", "a%5Cb%3Ac%2A"},
        {std::string("a\0b", 3), "a%00b"},
        {"\r\n\x7F", "%0D%0A%7F"},
        {"\xC3\x84\xFF", "%C3%84%FF"},
        {std::string(255, 'x'), std::string(255, 'x')},
        {"/" + std::string(300, 'x'), "%2F" + std::string(218, 'x') + "%%cfa5c7ebdcf3307e3df4bc626e5e8eaa"}};
    for (const auto& [name, file_name] : rows) {
        ASSERT_TRUE(WriteUserRecord(name, {"date", name})) << file_name;
        EXPECT_EQ(Files(), std::vector<std::string>{file_name});
        EXPECT_EQ(ReadUserRecord(name), (UserRecord{"date", name}));
        fs::remove(RecordPath(file_name));
        EXPECT_EQ(ReadUserRecord(name), std::nullopt);
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 1);
}

TEST_F(UserStore, NamesKeepTheirRecordsApart) {
    std::vector<std::string> names = {
        "Steel", "steel", "Steel ", "", "%", "%%", "%25", ".", "..", "/", "//", std::string("\0", 1), "a/b", "a%2Fb"};
    const std::string long_name(10000, 'x');
    for (const size_t place : {0U, 100U, 254U, 255U, 5000U, 9999U}) {
        names.push_back(long_name);
        names.back()[place] = '/';
    }
    for (const size_t size : {84U, 85U, 86U, 254U, 255U, 256U, 10000U}) {
        names.push_back(std::string(size, '/'));
        names.push_back(std::string(size, 'x'));
    }
    for (size_t i = 0; i < names.size(); ++i) ASSERT_TRUE(WriteUserRecord(names[i], {std::to_string(i), names[i]}));
    for (size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(ReadUserRecord(names[i]), (UserRecord{std::to_string(i), names[i]}));
    }
    EXPECT_EQ(Files().size(), names.size());
}

// As when two long names have one hash, or two names differ in case on a file system that knows none.
TEST_F(UserStore, RecordOfAnotherNameIsNotRead) {
    const std::string long_name(300, 'x');
    ASSERT_TRUE(WriteUserRecord(long_name + "1", {"date", "data"}));
    const std::string file_name = Files()[0];
    EXPECT_EQ(file_name.size(), 255U);
    ASSERT_TRUE(WriteUserRecord(long_name + "2", {"date", "other"}));
    for (const std::string& other : Files()) {
        if (other == file_name) continue;
        fs::copy_file(RecordPath(file_name), RecordPath(other), fs::copy_options::overwrite_existing);
    }
    fs::copy_file(RecordPath(file_name), RecordPath("steel"));
    EXPECT_EQ(ReadUserRecord(long_name + "1"), (UserRecord{"date", "data"}));
    EXPECT_EQ(ReadUserRecord(long_name + "2"), std::nullopt);
    EXPECT_EQ(ReadUserRecord("steel"), std::nullopt);
}

TEST_F(UserStore, ValuesHoldAnyBytes) {
    std::string all_bytes;
    for (int byte = 0; byte < 256; ++byte) all_bytes.push_back(static_cast<char>(byte));
    for (const UserRecord& record :
         {UserRecord{"", ""}, UserRecord{"\n", "\nName 1\nx\n"}, UserRecord{all_bytes, ""},
          UserRecord{"2024_03_01_10_00_00", "\r\n" + all_bytes}, UserRecord{"", std::string(3000000, 'x')}}) {
        ASSERT_TRUE(WriteUserRecord("name", record));
        EXPECT_EQ(ReadUserRecord("name"), record);
    }
}

TEST_F(UserStore, DamagedRecordsAreNotReadAndCanBeOverwritten) {
    const UserRecord record = {"2024_03_01_10_00_00", "TEXT RTD(1) x \r\n"};
    ASSERT_TRUE(WriteUserRecord("name", record));
    ASSERT_TRUE(WriteUserRecord("other", record));
    const std::string good = *ReadWholeFile(RecordPath("name"));
    const std::string start = "BrindleDrv run-time data record, version 1\n";
    ASSERT_TRUE(good.starts_with(start));
    std::vector<std::string> damaged = {
        good + " ", good + good, " " + good, "rubbish", std::string(5000, '\0'),
        "BrindleDrv run-time data record, version 2\n" + good.substr(start.size()),
        "BrindleDrv run-time data record, version 10\n" + good.substr(start.size()),
        // Sizes that are none, and parts out of order.
        start + "Name 4\nname\nDate 1\nx\nData 99999999999999999999\nx\n",
        start + "Name 4\nname\nDate 1\nx\nData 18446744073709551615\nx\n",
        start + "Name 4\nname\nDate 1\nx\nData -1\nx\n", start + "Name 4\nname\nDate 1\nx\nData \nx\n",
        start + "Name 4\nname\nDate 1\nx\nData 2\nx\n", start + "Name 4\nname\nData 1\nx\nDate 1\nx\n",
        start + "Name 4\nname\nDate 1\nx\n"};
    for (size_t size = 0; size < good.size(); ++size) damaged.push_back(good.substr(0, size));
    for (const std::string& text : damaged) {
        WriteFile(RecordPath("name"), text);
        EXPECT_EQ(ReadUserRecord("name"), std::nullopt) << text;
    }
    WriteFile(RecordPath("name"), start + "Name 4\nname\nDate 1\nx\nData 0\n\n");
    EXPECT_EQ(ReadUserRecord("name"), (UserRecord{"x", ""}));
    EXPECT_TRUE(WriteUserRecord("name", record));
    EXPECT_EQ(ReadUserRecord("name"), record);
    EXPECT_EQ(ReadUserRecord("other"), record);
}

TEST_F(UserStore, WhatIsNoFileIsNotRead) {
    ASSERT_TRUE(WriteUserRecord("good", {"date", "data"}));
    const fs::path outside = folder_ / "outside";
    ASSERT_TRUE(WriteUserRecord("link", {"date", "outside"}));
    fs::rename(RecordPath("link"), outside);
    fs::create_symlink(outside, RecordPath("link"));
    fs::create_symlink("nowhere", RecordPath("dangling"));
    fs::create_directory(RecordPath("folder"));
    ASSERT_EQ(mkfifo(RecordPath("pipe").c_str(), 0600), 0);
    const std::string text = *ReadWholeFile(outside);
    for (const char* name : {"link", "dangling", "folder", "pipe"}) EXPECT_EQ(ReadUserRecord(name), std::nullopt);

    EXPECT_FALSE(WriteUserRecord("folder", {"date", "new"}));
    EXPECT_TRUE(fs::is_directory(RecordPath("folder")));
    for (const char* name : {"link", "dangling", "pipe"}) {
        EXPECT_TRUE(WriteUserRecord(name, {"date", "new"}));
        EXPECT_EQ(ReadUserRecord(name), (UserRecord{"date", "new"}));
    }
    EXPECT_EQ(ReadWholeFile(outside), text);
    EXPECT_FALSE(fs::exists(RecordPath("nowhere")));
    EXPECT_EQ(Files(), (std::vector<std::string>{"dangling", "folder", "good", "link", "pipe"}));
}

TEST_F(UserStore, OverlargeRecords) {
    ASSERT_TRUE(WriteUserRecord("name", {"date", "data"}));
    EXPECT_FALSE(WriteUserRecord("name", {"date", std::string(64U << 20U, 'x')}));
    EXPECT_EQ(ReadUserRecord("name"), (UserRecord{"date", "data"}));
    fs::resize_file(RecordPath("name"), uintmax_t{1} << 40U);
    EXPECT_EQ(ReadUserRecord("name"), std::nullopt);
}

TEST(UserStoreFolder, Places) {
    const fs::path start = fs::current_path();
    const struct {
        const char* data_home;  // `@` stands for the folder of the test, null for an unset variable
        const char* home;
        const char* record;  // null if the store can't be used
    } rows[] = {{"@", "@/home", "Corvane/BrindleDrv/name"},
                {"@/new/deep/", nullptr, "new/deep/Corvane/BrindleDrv/name"},
                {nullptr, "@/home", "home/.local/share/Corvane/BrindleDrv/name"},
                {nullptr, "@", ".local/share/Corvane/BrindleDrv/name"},
                {"", "@/home", "home/.local/share/Corvane/BrindleDrv/name"},
                {"data", "@/home", "home/.local/share/Corvane/BrindleDrv/name"},
                {nullptr, nullptr, nullptr},
                {nullptr, "", nullptr},
                {"data", "home", nullptr},
                {nullptr, "@/missing", nullptr},
                {nullptr, "@/file", nullptr},
                {"@/file", "@/home", nullptr},
                {"@/blocked", "@/home", nullptr}};
    for (const auto& row : rows) {
        const CTempFolder made;
        const fs::path& folder = made.path();
        fs::create_directories(folder / "home");
        fs::create_directories(folder / "blocked");
        WriteFile(folder / "file", "x");
        WriteFile(folder / "blocked/Corvane", "x");
        fs::current_path(folder);
        const auto expand = [&folder](const char* text) {
            std::string path = text ? text : "";
            if (const size_t at = path.find('@'); at != std::string::npos) path.replace(at, 1, folder);
            return path;
        };
        const std::string data_home = expand(row.data_home);
        const std::string home = expand(row.home);
        const CEnvironmentValue data_home_value("XDG_DATA_HOME", row.data_home ? data_home.c_str() : nullptr);
        const CEnvironmentValue home_value("HOME", row.home ? home.c_str() : nullptr);
        SCOPED_TRACE(data_home + " " + home);

        EXPECT_EQ(ReadUserRecord("name"), std::nullopt);
        EXPECT_EQ(WriteUserRecord("name", {"date", "data"}), row.record != nullptr);
        EXPECT_EQ(ReadUserRecord("name").has_value(), row.record != nullptr);
        std::vector<std::string> records;
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            if (entry.path() == folder / "file" || entry.path() == folder / "blocked/Corvane") continue;
            if (!entry.is_directory()) records.push_back(entry.path().lexically_relative(folder));
        }
        EXPECT_EQ(records, row.record ? std::vector<std::string>{row.record} : std::vector<std::string>{});
        EXPECT_FALSE(fs::exists(folder / "missing"));
        fs::current_path(start);
    }
}

TEST_F(UserStore, IsForTheUserAlone) {
    const mode_t before = umask(0);
    const fs::path data_home = folder_ / "new/share";
    const CEnvironmentValue value("XDG_DATA_HOME", data_home.c_str());
    EXPECT_TRUE(WriteUserRecord("name", {"date", "data"}));
    umask(before);
    for (const char* path : {"", "Corvane", "Corvane/BrindleDrv"}) {
        EXPECT_EQ(fs::status(data_home / path).permissions(), fs::perms::owner_all) << path;
    }
    EXPECT_EQ(fs::status(data_home / "Corvane/BrindleDrv/name").permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(UserStore, ReadOnlyFolder) {
    ASSERT_TRUE(WriteUserRecord("name", {"date", "data"}));
    for (const fs::path& path : {folder_, folder_ / "Corvane", store_}) fs::permissions(path, fs::perms(0555));
    fs::permissions(RecordPath("name"), fs::perms(0444));
    EXPECT_TRUE(HoldsInChild([] {
        // Nothing is read-only for the superuser.
        constexpr uid_t kNobody = 65534;
        if (geteuid() == 0 && setuid(kNobody) != 0) return false;
        return !WriteUserRecord("name", {"date", "new"}) && !WriteUserRecord("new", {"date", "new"}) &&
               ReadUserRecord("name") == UserRecord{"date", "data"};
    }));
    fs::permissions(store_, fs::perms::owner_all);
    EXPECT_EQ(Files(), std::vector<std::string>{"name"});
    fs::permissions(folder_, fs::perms::owner_all);
    fs::permissions(folder_ / "Corvane", fs::perms::owner_all);
}

// A limit on the size of files stands for the disk that becomes full in the middle of a record.
TEST_F(UserStore, FullDisk) {
    ASSERT_TRUE(WriteUserRecord("name", {"date", "data"}));
    EXPECT_TRUE(HoldsInChild([] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {5000, 5000};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return false;
        return !WriteUserRecord("name", {"date", std::string(5000, 'x')}) && WriteUserRecord("small", {"date", "x"});
    }));
    EXPECT_EQ(ReadUserRecord("name"), (UserRecord{"date", "data"}));
    EXPECT_EQ(Files(), (std::vector<std::string>{"name", "small"}));
}

// A record that shows whether it is whole: its date gives the size of its data, all of one character.
UserRecord CheckedRecord(char letter, int number) {
    const size_t size = static_cast<size_t>(number) * 7919 % 100000;
    return {std::to_string(size), std::string(size, letter)};
}

bool IsWhole(const std::optional<UserRecord>& record) {
    return record && record->date == std::to_string(record->data.size()) &&
           record->data.find_first_not_of(record->data.substr(0, 1)) == std::string::npos;
}

pid_t StartWriter(char letter, int count) {
    const pid_t child = fork();
    if (child != 0) return child;
    for (int i = 1; i <= count; ++i) {
        if (!WriteUserRecord("shared", CheckedRecord(letter, i))) _exit(1);
    }
    _exit(0);
}

TEST_F(UserStore, WritersAtTheSameTimeNeverTearARecord) {
    constexpr int kWrites = 300;
    ASSERT_TRUE(WriteUserRecord("shared", CheckedRecord('s', 1)));
    std::vector<pid_t> writers = {StartWriter('a', kWrites), StartWriter('b', kWrites)};
    while (!writers.empty()) {
        for (int i = 0; i < 10; ++i) ASSERT_TRUE(IsWhole(ReadUserRecord("shared")));
        std::erase_if(writers, [](pid_t writer) {
            int status = 0;
            if (waitpid(writer, &status, WNOHANG) == 0) return false;
            EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
            return true;
        });
    }
    const std::optional<UserRecord> last = ReadUserRecord("shared");
    EXPECT_TRUE(last == CheckedRecord('a', kWrites) || last == CheckedRecord('b', kWrites));
    EXPECT_EQ(Files(), std::vector<std::string>{"shared"});
}

}  // namespace
}  // namespace brindle
