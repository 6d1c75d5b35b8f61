# make run | test | lint | bench | asan | pictures
JOBS ?= $(shell nproc)
DISPLAY_OR_OFFSCREEN = $(if $(DISPLAY)$(WAYLAND_DISPLAY),,-platform offscreen)

.PHONY: run test lint bench asan pictures deps clean

run: deps
	cmake --preset release >/dev/null
	cmake --build build/release -j $(JOBS) --target zelka-workstation zelka zelka-netsim zelka-node-manager
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

pictures: deps
	cmake --preset release >/dev/null
	cmake --build build/release -j $(JOBS) --target zelka zelka-pictures
	packaging/make-pictures build/release/bin docs/pictures

deps:
	@packaging/install-build-deps

clean:
	rm -rf build
