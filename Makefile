# make run: set up, build, make the data tree and start the simulator.
# make test: set up, build with the sanitizers and run every test through CTest.
JOBS ?= $(shell nproc)
MAKEFLAGS += --no-print-directory

.PHONY: setup run test bench build clean

setup:
	@tools/setup.sh

build: setup
	@cmake -S . -B build/release -DCMAKE_BUILD_TYPE=RelWithDebInfo -DNIMBARA_TREE=$(CURDIR)/build/Nimbasys >/dev/null
	@cmake --build build/release -j $(JOBS)

run: build
	@cd build/Nimbasys && ./nimbara

test: build
	@cmake -S . -B build/asan -DCMAKE_BUILD_TYPE=Debug -DNIMBARA_SANITIZE=ON >/dev/null
	@cmake --build build/asan -j $(JOBS)
	@cd build/asan && ctest --output-on-failure -j $(JOBS)

bench: build
	@for b in build/release/bench/*_bench; do $$b; done

clean:
	rm -rf build
