// Code that is loaded when it is first needed.
#pragma once

#include <string>

namespace brindle {

// The folder of the library or program that this code is part of; empty if the system can't tell.
std::string FolderOfThisCode();

// The file name of a library on this system, such as `libName.so`.
std::string LibraryFileName(const std::string& name);

// The address of `symbol` in the library at `path`, null if there is none or it can't be loaded. The library stays
// loaded until the process ends.
void* LoadSymbol(const std::string& path, const char* symbol);

}  // namespace brindle
