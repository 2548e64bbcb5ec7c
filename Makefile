# The everyday commands. `make help` lists them; CMakePresets.json holds the builds behind them.

JOBS ?= $(shell nproc)
PREFIX ?= /usr/local
BENCH_ARGS ?=
TIDY_ARGS ?=
T ?= 60
export JOBS

release := build/release
compile = cmake --build --parallel $(JOBS) --preset

.DEFAULT_GOAL := build
.PHONY: help setup build run test ci san fuzz bench format format-check tidy install package clean

help:
	@echo 'make run             set up, build the command, post-process an example and show the NC file'
	@echo 'make test            set up, build all and run all tests'
	@echo 'make ci              the same, and before it the sanitizers, the fuzzers and the format check'
	@echo 'make setup           install the Debian packages that are missing for any of these targets'
	@echo 'make build           library, command, windows of the editor and tests, into $(release) (the default)'
	@echo 'make san             build under the sanitizers, into build/san, and run all tests there'
	@echo 'make fuzz            run each fuzzer for T seconds (T=$(T)), with clang, in build/fuzz'
	@echo 'make bench           build and run the benchmarks (BENCH_ARGS="--benchmark_filter=...")'
	@echo 'make format          lay out the sources;  make format-check  only says whether they are'
	@echo 'make tidy            static analysis (TIDY_ARGS=src/text for a part)'
	@echo 'make install         install below PREFIX ($(PREFIX)); DESTDIR is honoured'
	@echo 'make package         make a Debian package, in $(release)/package'
	@echo 'make clean           remove all that was built'

setup:
	@scripts/setup.sh ci

# The folder of the release build may hold the command alone, after `make run`. Whoever needs more makes this file, so
# that all is configured, or what is missing is named.
build/%/all_configured: CMakePresets.json
	cmake --preset $*
	@touch $@

build: $(release)/all_configured
	$(compile) release

example_nc := build/run/folding_box.nc
run:
	@scripts/setup.sh run
	@[ -f $(release)/build.ninja ] || cmake --preset command
	$(compile) command
	@mkdir -p $(dir $(example_nc))
	$(release)/bin/brindle post -t examples/laser_mm/laser_mm.tun -o $(example_nc) examples/drawings/folding_box.cf2
	@echo 'NC file: $(example_nc)'
	@head -n 15 $(example_nc)

test:
	@scripts/setup.sh test
	@$(MAKE) --no-print-directory build
	ctest --preset release --parallel $(JOBS)

ci:
	@scripts/setup.sh ci
	@scripts/ci.sh

san: build/san/all_configured
	$(compile) san
	ctest --preset san --parallel $(JOBS)

fuzz: build/fuzz/all_configured
	$(compile) fuzz
	@scripts/fuzz.sh $(T)

bench: $(release)/all_configured
	$(compile) release --target brindle_bench
	$(release)/bin/brindle_bench $(BENCH_ARGS)

format:
	@scripts/format.sh

format-check:
	@scripts/format.sh --check

tidy:
	@scripts/tidy.sh $(TIDY_ARGS)

install: build
	cmake --install $(release) --prefix '$(abspath $(PREFIX))'

package: build
	cpack --config $(release)/CPackConfig.cmake -B $(release)/package
	@rm -rf $(release)/package/_CPack_Packages
	@ls $(release)/package/*.deb

clean:
	rm -rf build
