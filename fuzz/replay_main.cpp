// Runs a fuzzer over files instead of made-up inputs: the corpus as a test, or the file that made it fail. A fuzzer
// that is linked with libFuzzer does without it.
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int main(int argc, char** argv) {
    std::vector<std::string> texts;  // all read first: a fuzzer may go to another folder
    for (int i = 1; i < argc; ++i) {
        std::ifstream file(argv[i], std::ios::binary);
        if (!file) {
            std::fprintf(stderr, "%s: can't be read\n", argv[i]);
            return 1;
        }
        texts.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    for (const std::string& text : texts) {
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(text.data()), text.size());
    }
    return 0;
}
