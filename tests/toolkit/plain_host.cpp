// A host that knows nothing of windows: opens the dialogs of the library that it is given, and prints how they ended.
#include <dlfcn.h>

#include <cstdio>

namespace {

template <typename Function>
Function* Symbol(void* library, const char* name) {
    return reinterpret_cast<Function*>(dlsym(library, name));
}

}  // namespace

int main(int argc, char** argv) {
    void* const library = argc == 2 ? dlopen(argv[1], RTLD_NOW | RTLD_LOCAL) : nullptr;
    if (library == nullptr) return 2;
    int result = -1;
    Symbol<int(int, const wchar_t*, int*)>(library, "GBrn_DisplayTuningDialog")(0, L"Editor", &result);
    std::printf("tuning %d\n", result);
    wchar_t* chosen = nullptr;
    using ShowData = int(const wchar_t*, const wchar_t*, const wchar_t*, wchar_t**);
    Symbol<ShowData>(library, "GBrn_DisplayRTDataDlg")(L"", L"", L"", &chosen);
    std::printf("data \"%ls\"\n", chosen);
    Symbol<void(wchar_t*)>(library, "SysFreeString")(chosen);
    std::printf("segment %d\n", Symbol<int()>(library, "GBrn_DisplayLoadSegmentDialog")());
    return 0;
}
