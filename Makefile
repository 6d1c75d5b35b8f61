# make run | test | lint | bench | asan
JOBS ?= $(shell nproc)
DISPLAY_OR_OFFSCREEN = $(if $(DISPLAY)$(WAYLAND_DISPLAY),,-platform offscreen)

.PHONY: run test lint bench asan deps clean

run: deps
	cmake --preset release >/dev/null
	cmake --build build/release -j $(JOBS) --target zelka-workstation zelka zelka-node-manager
	packaging/run-demo build/release/bin

test: deps
	cmake --preset debug >/dev/null
	cmake --build build/debug -j $(JOBS)
	ctest --test-dir build/debug --output-on-failure -j $(JOBS)
	cmake --preset nogui >/dev/null
	cmake --build build/nogui -j $(JOBS)
	ctest --test-dir build/nogui --output-on-failure -j $(JOBS)

lint: deps
	cmake --preset lint >/dev/null
	packaging/lint build/lint

bench: deps
	cmake --preset release >/dev/null
	cmake --build build/release -j $(JOBS)
	packaging/bench build/release/bin

asan: deps
	cmake --preset asan >/dev/null
	cmake --build build/asan -j $(JOBS)
	ctest --test-dir build/asan --output-on-failure -j $(JOBS)

deps:
	@packaging/install-build-deps

clean:
	rm -rf build
