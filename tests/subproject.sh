#!/usr/bin/env bash
# The library as a part of another project, which has a standard and folders of its own: it needs nothing but a compiler,
# and leaves that project as it is. Some objects of it are built; the others come out as in the build that runs this.
# SOURCE_DIR is the root of the sources.
. "$(dirname "${BASH_SOURCE[0]}")/script/common.sh"

mkdir "$work/app"
cp "$SOURCE_DIR/examples/host_c/main.c" "$work/app"
cat >"$work/app/main.cpp" <<END
#include <brindle/brindle.h>
static_assert(__cplusplus == 201703L, "the project's standard");
int main() { return GBrn_Clear(); }
END
cat >"$work/app/CMakeLists.txt" <<'END'
cmake_minimum_required(VERSION 3.25)
project(App LANGUAGES C CXX)
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
enable_testing()

get_cmake_property(before VARIABLES)
add_subdirectory("$ENV{SOURCE_DIR}" brindle)
get_cmake_property(after VARIABLES)
list(REMOVE_ITEM after ${before} before)
list(FILTER after INCLUDE REGEX "^(BUILD|CMAKE|CPACK)_")
list(FILTER after EXCLUDE REGEX "^CMAKE_(INSTALL_.*DIR|PROJECT_VERSION.*)$")
set(leaks ${after})
foreach(property COMPILE_OPTIONS COMPILE_DEFINITIONS LINK_OPTIONS INCLUDE_DIRECTORIES)
    get_directory_property(value ${property})
    list(APPEND leaks ${value})
endforeach()
if(leaks)
    message(FATAL_ERROR "The project is changed: ${leaks}")
endif()
foreach(target brindle BrindleEditor brindle_tests brindle_bench)
    if(TARGET ${target})
        message(FATAL_ERROR "${target} was not asked for")
    endif()
endforeach()

add_executable(c_host main.c)
add_executable(cpp_host main.cpp)
target_link_libraries(c_host PRIVATE Brindle::BrindleDrv)
target_link_libraries(cpp_host PRIVATE Brindle::BrindleDrv)
END

# Two files are enough of a build, so each is compiled alone.
options=(-G Ninja -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DBRINDLE_BY_ROOM=OFF)
for package in CLI11 muparser PkgConfig Qt6 GTest benchmark nlohmann_json; do
    options+=("-DCMAKE_DISABLE_FIND_PACKAGE_$package=ON")
done
build=$work/build
if ! cmake -S "$work/app" -B "$build" "${options[@]}" >"$work/log" 2>&1; then
    fail "configure: $(tail -n 20 "$work/log")"
    finish
fi

objects=(CMakeFiles/{c_host.dir/main.c.o,cpp_host.dir/main.cpp.o})
for source in api/output_exports editor/toolkit/active_toolkit; do
    objects+=("brindle/CMakeFiles/brindle_objects.dir/src/$source.cpp.o")
done
cmake --build "$build" --target "${objects[@]}" >"$work/log" 2>&1 || fail "build: $(tail -n 20 "$work/log")"

host_commands=$(grep '"command"' "$build/compile_commands.json" | grep 'app/main\.')
[ "$(wc -l <<<"$host_commands")" -eq 2 ] || fail "commands: $host_commands"
if grep -oE -e ' -(f|W)[^ ]*' <<<"$host_commands"; then fail 'hosts are compiled with options of the library'; fi

ctest --test-dir "$build" --show-only 2>&1 | grep -qx 'Total Tests: 0' || fail 'tests are added to the project'
cmake --install "$build" --prefix "$work/installed" >"$work/log" 2>&1 || fail "install: $(cat "$work/log")"
[ ! -e "$work/installed" ] || fail "installed unasked: $(find "$work/installed" -type f)"

finish
