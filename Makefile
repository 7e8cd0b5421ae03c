# make run: set up, build, make the data tree and start the simulator.
# make test: set up, build the simulator and its data tree, then build with the sanitizers and run
# every test through CTest.
JOBS ?= $(shell nproc)
MAKEFLAGS += --no-print-directory

.PHONY: setup run test bench build simulator clean

setup:
	@tools/setup.sh

RELEASE = cmake -S . -B build/release -DCMAKE_BUILD_TYPE=RelWithDebInfo -DNIMBARA_TREE=$(CURDIR)/build/Nimbasys >/dev/null

build: setup
	@$(RELEASE)
	@cmake --build build/release -j $(JOBS)

# The simulator and its data tree, without the release build of the tests and benchmarks.
simulator: setup
	@$(RELEASE)
	@cmake --build build/release -j $(JOBS) --target nimbara data_tree

run: build
	@cd build/Nimbasys && ./nimbara

test: simulator
	@cmake -S . -B build/asan -DCMAKE_BUILD_TYPE=Debug -DNIMBARA_SANITIZE=ON >/dev/null
	@cmake --build build/asan -j $(JOBS)
	@cd build/asan && ctest --output-on-failure -j $(JOBS)

bench: build
	@for b in build/release/bench/*_bench; do $$b; done

clean:
	rm -rf build
