# make run | test | lint | bench | asan | fuzz | pictures | api | translations | package | check-package | check-new-user
JOBS ?= $(shell nproc)
# Many tests wait for a server or a clock most of their time.
TEST_JOBS ?= $(shell expr $(JOBS) + 1)
# How long each of the programs that try any input runs.
FUZZ_SECONDS ?= 60
DISPLAY_OR_OFFSCREEN = $(if $(DISPLAY)$(WAYLAND_DISPLAY),,-platform offscreen)

.PHONY: run test lint bench asan fuzz pictures api translations package check-package check-new-user deps clean

run: deps
	cmake --preset release >/dev/null
	cmake --build build/release -j $(JOBS) --target zelka-workstation zelka zelka-netsim zelka-node-manager
	packaging/run-demo build/release/bin

test: deps
	cmake --preset nogui >/dev/null
	cmake --build build/nogui -j $(JOBS)
	ctest --test-dir build/nogui --output-on-failure -j $(TEST_JOBS)
	cmake --preset windows >/dev/null
	cmake --build build/windows -j $(JOBS)
	ctest --test-dir build/windows --output-on-failure -j $(TEST_JOBS)

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

fuzz: deps
	@packaging/install-build-deps packaging/debian-packages-fuzz.txt
	cmake --preset fuzz >/dev/null
	cmake --build build/fuzz -j $(JOBS) --target zelka_fuzz
	packaging/fuzz build/fuzz $(FUZZ_SECONDS)

pictures: deps
	cmake --preset release >/dev/null
	cmake --build build/release -j $(JOBS) --target zelka zelka-pictures zelka_help
	packaging/make-pictures build/release/bin docs/pictures

# Adds the new texts of the sources to the catalogues, unfinished, and drops those that are gone.
translations: deps
	packaging/update-translations

api: deps
	@packaging/install-build-deps packaging/debian-packages-api.txt
	cmake --preset release >/dev/null
	cmake --build build/release --target api
	@echo "The page stands in build/release/api/html/index.html"

package: deps
	@packaging/install-build-deps packaging/debian-packages-api.txt
	cmake --preset package >/dev/null
	cmake --build build/package -j $(JOBS) --target all api
	rm -rf build/package/packages
	cpack --config build/package/CPackConfig.cmake
	@ls build/package/packages/*.deb

# In a tree in which nothing else is installed; needs root.
check-package: package
	@packaging/install-build-deps packaging/debian-packages-tree.txt
	packaging/try-packages build/package/packages

check-new-user:
	@packaging/install-build-deps packaging/debian-packages-tree.txt
	packaging/try-new-user

deps:
	@packaging/install-build-deps

clean:
	rm -rf build
