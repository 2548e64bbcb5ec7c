// A host that loads the library, runs a job and unloads it, again and again.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <filesystem>
#include <string>

// Of the address sanitizer, if the program runs under it.
extern "C" size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace brindle::abuse {
namespace {

bool Sanitized() { return __sanitizer_get_current_allocated_bytes != nullptr; }

size_t BytesHeld() { return Sanitized() ? __sanitizer_get_current_allocated_bytes() : mallinfo2().uordblks; }

size_t FilesOpen() {
    return static_cast<size_t>(std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}

class CLibrary {
public:
    CLibrary() : handle_(dlopen(BRINDLE_LIB, RTLD_NOW | RTLD_LOCAL)) {}
    ~CLibrary() {
        if (handle_ != nullptr) dlclose(handle_);
    }
    CLibrary(const CLibrary&) = delete;
    CLibrary& operator=(const CLibrary&) = delete;
    bool loaded() const { return handle_ != nullptr; }

    template <typename... A>
    int Call(const char* name, A... arguments) const {
        return reinterpret_cast<int (*)(A...)>(dlsym(handle_, name))(arguments...);
    }
    void Free(wchar_t* text) const { reinterpret_cast<void (*)(wchar_t*)>(dlsym(handle_, "SysFreeString"))(text); }

private:
    void* handle_;
};

// The number of characters of the job's text.
size_t RunJob(const CLibrary& library) {
    library.Call("GBrn_ReadTuneLine", L"MULTI Line_tTmpl NNUL <@EndPtWords>text");
    library.Call("GBrn_ReadTuneLine", L"INT nNumOfTools 1");
    library.Call("GBrn_StartMain", L"M", 0.0, 0.0, 1, 1);
    library.Call("GBrn_AddLine", short{1}, short{1}, 0.5, 0.0, 0.0, 5.0, 5.0, 0.0, short{0});
    library.Call("GBrn_End");
    wchar_t* text = nullptr;
    library.Call("GBrn_GetOutputBuffer", &text);
    const size_t length = text == nullptr ? 0 : std::wstring(text).size();
    library.Free(text);
    return length;
}

// Every other time without ending its session, and with a piece of a line that waits for more.
TEST(Loading, AThousandTimesLeavesNothingBehind) {
    constexpr int kTimes = 1000, kWarm = 100;
    size_t bytes = 0, files = 0;
    for (int time = 0; time < kTimes; ++time) {
        {
            const CLibrary library;
            ASSERT_TRUE(library.loaded()) << dlerror();
            ASSERT_GT(RunJob(library), 4U);
            library.Call(time % 2 == 0 ? "GBrn_Clear" : "GBrn_End");
            library.Call("GBrn_AddToTunelineBuffer", L"a piece that is too long for a short string");
        }
        ASSERT_EQ(dlopen(BRINDLE_LIB, RTLD_NOW | RTLD_NOLOAD), nullptr) << "the library stays";
        if (time != kWarm) continue;
        bytes = BytesHeld();
        files = FilesOpen();
    }
    EXPECT_EQ(FilesOpen(), files);
    // The sanitizer itself keeps some bytes of each library that it has seen.
    EXPECT_LT(BytesHeld(), bytes + (Sanitized() ? (kTimes - kWarm) * 100 : 4096));
}

}  // namespace
}  // namespace brindle::abuse
