// A folder for the files of one test, and the environment that points to it.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>

namespace brindle {

// Sets an environment variable, or unsets it for null, and puts it back in the end.
class CEnvironmentValue {
public:
    CEnvironmentValue(const char* name, const char* value) : name_(name) {
        if (const char* const present = getenv(name)) before_ = present;
        Set(value);
    }
    CEnvironmentValue(const CEnvironmentValue&) = delete;
    CEnvironmentValue& operator=(const CEnvironmentValue&) = delete;
    ~CEnvironmentValue() { Set(before_ ? before_->c_str() : nullptr); }

private:
    void Set(const char* value) { value ? setenv(name_, value, 1) : unsetenv(name_); }
    const char* name_;
    std::optional<std::string> before_;
};

// Is removed with all that it holds.
class CTempFolder {
public:
    CTempFolder() {
        std::string path = std::filesystem::temp_directory_path() / "brindle_test_XXXXXX";
        if (!mkdtemp(path.data())) throw std::runtime_error("no temporary folder");
        path_ = path;
    }
    ~CTempFolder() { std::filesystem::remove_all(path_); }
    CTempFolder(const CTempFolder&) = delete;
    CTempFolder& operator=(const CTempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    // Gives the path of the file.
    std::string Put(const std::string& name, const std::string& text) const {
        std::ofstream(path_ / name, std::ios::binary) << text;
        return path_ / name;
    }
    // Empty if there is no such file.
    std::string Get(const std::string& name) const {
        std::ostringstream text;
        text << std::ifstream(path_ / name, std::ios::binary).rdbuf();
        return text.str();
    }

private:
    std::filesystem::path path_;
};

// A folder where the user's store lies.
class CDataHome : public CTempFolder {
    CEnvironmentValue data_home_{"XDG_DATA_HOME", path().c_str()};
};

}  // namespace brindle
