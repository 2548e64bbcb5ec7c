// The windows as hosts meet them: the library loaded at run time with its plugin, in hosts with and without
// windows of their own, and where there can be none.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <thread>

#include "testing/play_qt/offscreen.h"

namespace brindle::toolkit_test {
namespace {

namespace fs = std::filesystem;

const fs::path kLibrary = BRINDLE_TEST_LIBRARY;
const fs::path kPlugin = BRINDLE_TEST_PLUGIN;
const std::string kHost = BRINDLE_TEST_HOST;

// A folder with a copy of the library, which doesn't see the plugin of the build.
class CLibraryCopy {
public:
    CLibraryCopy() { fs::create_directories(folder_), fs::copy_file(kLibrary, library_); }
    CLibraryCopy(const CLibraryCopy&) = delete;
    CLibraryCopy& operator=(const CLibraryCopy&) = delete;
    ~CLibraryCopy() { fs::remove_all(folder_); }
    const fs::path& Folder() const { return folder_; }
    const fs::path& Library() const { return library_; }

private:
    fs::path folder_ = fs::path(testing::TempDir()) / ("brindle_copy_" + std::to_string(getpid()));
    fs::path library_ = folder_ / "copy.so";
};

// ---- Hosts in a process of their own ----

// Standard output of a command; what it takes is said, as a display that can't be reached must not be waited for.
std::string OutputOf(const std::string& command) {
    const auto start = std::chrono::steady_clock::now();
    std::string output;
    FILE* const pipe = popen(command.c_str(), "r");
    for (int byte = std::fgetc(pipe); byte != EOF; byte = std::fgetc(pipe)) output += static_cast<char>(byte);
    EXPECT_EQ(pclose(pipe), 0) << command;
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10)) << command;
    return output;
}

std::string Quoted(const fs::path& path) { return '\'' + path.string() + '\''; }

constexpr const char* kAllCancelled = "tuning 0\ndata \"\"\nsegment 0\n";

TEST(PlainHost, DialogsEndAsCancelledWhereNoneCanOpen) {
    constexpr const char* kPlaces[] = {
        "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM",
        "env -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM DISPLAY=:97",
        "env -u DISPLAY -u QT_QPA_PLATFORM WAYLAND_DISPLAY=nowhere-97",
        "env -u WAYLAND_DISPLAY DISPLAY=:97 QT_QPA_PLATFORM=xcb",
        "env QT_QPA_PLATFORM=none",
    };
    for (const std::string place : kPlaces) {
        EXPECT_EQ(OutputOf(place + ' ' + Quoted(kHost) + ' ' + Quoted(kLibrary)), kAllCancelled) << place;
    }
}

TEST(PlainHost, DialogsEndAsCancelledWithoutThePlugin) {
    const fs::path installed = BRINDLE_TEST_INSTALLED;
    for (const fs::path& folder : {installed / "brindle", installed}) {
        if (fs::exists(folder / kPlugin.filename())) GTEST_SKIP() << "a plugin is installed";
    }
    const CLibraryCopy copy;
    EXPECT_EQ(OutputOf("QT_QPA_PLATFORM=offscreen " + Quoted(kHost) + ' ' + Quoted(copy.Library())), kAllCancelled);
}

// ---- Hosts in this process ----

int DisplayTuningDialog(const fs::path& path = kLibrary) {
    void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) return -1;
    using Display = int(int, const wchar_t*, int*);
    int result = -1;
    reinterpret_cast<Display*>(dlsym(library, "GBrn_DisplayTuningDialog"))(0, L"Editor", &result);
    return result;
}

// Goes to a page of the sheet, once it is open, and leaves it with OK.
void LeaveSheetSoon(int page) {
    QTimer::singleShot(0, qApp, [page] {
        const QWidget* const sheet = QApplication::activeModalWidget();
        if (sheet == nullptr) return LeaveSheetSoon(page);
        sheet->findChild<QTabWidget*>()->setCurrentIndex(page);
        QTest::mouseClick(sheet->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
}

// Of memory, by opening the sheet some hundred times. The sanitizer keeps what was freed, and finds leaks by itself.
#ifdef __SANITIZE_ADDRESS__
constexpr size_t kMostGrowth = size_t{1} << 30U;
#else
constexpr size_t kMostGrowth = size_t{1} << 20U;
#endif

size_t ResidentBytes() {
    std::ifstream file("/proc/self/statm");
    size_t pages = 0;
    file >> pages >> pages;
    return pages * static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

class ApplicationTest : public testing::Test {
protected:
    void SetUp() override {
        if (QCoreApplication::instance() != nullptr) GTEST_SKIP() << "needs a process without a QApplication";
    }

    char program_[5] = "host";
    char* arguments_[2] = {program_, nullptr};
    int argument_count_ = 1;
};

using HostWithWindows = ApplicationTest;
using HostWithoutWindows = ApplicationTest;

TEST_F(HostWithWindows, KeepsItsApplication) {
    const QApplication application(argument_count_, arguments_);
    QApplication::setQuitOnLastWindowClosed(true);
    int quits = 0;
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &application, [&quits] { ++quits; });
    QWidget window;
    window.show();
    LeaveSheetSoon(0);
    EXPECT_EQ(DisplayTuningDialog(), 1);
    EXPECT_EQ(QCoreApplication::instance(), &application);
    EXPECT_TRUE(QApplication::quitOnLastWindowClosed());
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(quits, 0);
}

TEST_F(HostWithWindows, FindsThePluginBesideTheLibraryToo) {
    const CLibraryCopy copy;
    fs::copy_file(kPlugin, copy.Folder() / kPlugin.filename());
    const QApplication application(argument_count_, arguments_);
    LeaveSheetSoon(0);
    EXPECT_EQ(DisplayTuningDialog(copy.Library()), 1);
}

TEST_F(HostWithWindows, OpensTheSheetAgainAndAgain) {
    constexpr int kPages = 11;
    constexpr int kWarmUp = 5 * kPages;
    constexpr int kTimes = 200;
    const QApplication application(argument_count_, arguments_);
    qsizetype warm_windows = 0;
    qsizetype warm_objects = 0;
    size_t warm_bytes = 0;
    for (int i = 0; i < kWarmUp + kTimes; ++i) {
        if (i == kWarmUp) {
            warm_windows = QApplication::topLevelWidgets().size();
            warm_objects = qApp->findChildren<QObject*>().size();
            warm_bytes = ResidentBytes();
        }
        LeaveSheetSoon(i % kPages);
        ASSERT_EQ(DisplayTuningDialog(), 1);
    }
    EXPECT_EQ(QApplication::topLevelWidgets().size(), warm_windows);
    EXPECT_LE(qApp->findChildren<QObject*>().size(), warm_objects);
    EXPECT_LT(ResidentBytes(), warm_bytes + kMostGrowth);
}

TEST_F(HostWithoutWindows, GetsAWorkingDialog) {
    std::thread user([] {
        while (QCoreApplication::startingUp()) std::this_thread::sleep_for(std::chrono::milliseconds(5));
        QMetaObject::invokeMethod(
            qApp, [] { LeaveSheetSoon(1); }, Qt::QueuedConnection);
    });
    EXPECT_EQ(DisplayTuningDialog(), 1);
    user.join();
    LeaveSheetSoon(2);
    EXPECT_EQ(DisplayTuningDialog(), 1);
}

}  // namespace
}  // namespace brindle::toolkit_test

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    brindle::toolkit_test::PrepareOffscreen();
    return RUN_ALL_TESTS();
}
