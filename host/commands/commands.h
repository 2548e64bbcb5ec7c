// The commands of `brindle`. Each adds itself to the command line parser; its work is done when the parser calls it
// back.
#pragma once

#include <CLI/CLI.hpp>

namespace brindle::host {

// Exit statuses.
inline constexpr int kGood = 0;
inline constexpr int kBadInput = 1;  // bad input or a failed job; nothing half-written is left
inline constexpr int kBadUsage = 2;
inline constexpr int kLosses = 3;  // NC files are written, but do not cut what is drawn

// Each takes the parser and where to put the exit status.
void AddPostCommand(CLI::App& app, int& status);
void AddCheckCommand(CLI::App& app, int& status);
void AddPlotCommand(CLI::App& app, int& status);
void AddEditCommand(CLI::App& app, int& status);
void AddDumpCommand(CLI::App& app, int& status);
void AddDataCommand(CLI::App& app, int& status);
void AddKeysCommand(CLI::App& app, int& status);
void AddDirectivesCommand(CLI::App& app, int& status);
void AddRulesCommand(CLI::App& app, int& status);
void AddHelpCommand(CLI::App& app, int& status);

}  // namespace brindle::host
