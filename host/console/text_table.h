// Text in columns.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brindle::host {

// Rows of cells; columns are as wide as their widest cell, with two blanks between them.
class CTextTable {
public:
    // Every row begins with `indent`.
    explicit CTextTable(std::string_view indent = {}) : indent_(indent) {}

    void AddRow(std::vector<std::string> cells);
    // The rows, each with its line end, without blanks in front of it.
    std::string Text() const;

private:
    std::string indent_;
    std::vector<std::vector<std::string>> rows_;
    std::vector<size_t> widths_;  // in characters
};

}  // namespace brindle::host
