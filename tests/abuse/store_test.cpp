// The user's store while its writers are killed.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <random>
#include <string>

#include "platform/user_store.h"

namespace brindle::abuse {
namespace {

namespace fs = std::filesystem;

constexpr size_t kSize = 300000;

bool IsWhole(const UserRecord& record) {
    return record.data.size() == kSize && record.data.find_first_not_of(record.data[0]) == std::string::npos &&
           record.date == std::string(1, record.data[0]);
}

[[noreturn]] void WriteForever() {
    for (char c = 'a';; c = c == 'z' ? 'a' : static_cast<char>(c + 1)) {
        WriteUserRecord("Pick-Laser", {std::string(1, c), std::string(kSize, c)});
    }
}

TEST(KilledWriters, LeaveTheOldOrTheNewRecordWhole) {
    std::string folder = fs::temp_directory_path() / "brindle_abuse_XXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    setenv("XDG_DATA_HOME", folder.c_str(), 1);
    ASSERT_TRUE(WriteUserRecord("Pick-Laser", {"0", std::string(kSize, '0')}));
    std::mt19937 random(5);
    std::string dates;
    for (int time = 0; time < 200; ++time) {
        const pid_t child = fork();
        ASSERT_NE(child, -1);
        if (child == 0) WriteForever();
        usleep(static_cast<useconds_t>(random() % 10000));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const auto record = ReadUserRecord("Pick-Laser");
        ASSERT_TRUE(record && IsWhole(*record)) << "kill " << time;
        dates += record->date;
    }
    EXPECT_NE(dates.find_first_not_of("0"), std::string::npos) << "no writer came as far as a record";
    int cut_off = 0;
    for (const auto& entry : fs::directory_iterator(folder + "/Corvane/BrindleDrv")) {
        const std::string name = entry.path().filename();
        cut_off += name[0] == '.' ? 1 : 0;
        EXPECT_TRUE(name == "Pick-Laser" || name[0] == '.') << name;
    }
    EXPECT_GT(cut_off, 0) << "no writer was killed while it wrote";
    fs::remove_all(folder);
}

}  // namespace
}  // namespace brindle::abuse
