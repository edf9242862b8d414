# For people. Every target does what it needs first, on a fresh Debian 12 machine too.
.PHONY: help setup build run test test-sanitized test-threads screenshots bench fuzz fuzz-check windows test-windows deb install uninstall format check clean screenshots-windows

PREFIX ?= /usr/local
JOBS ?= $(shell nproc)

help:
	@echo "make run             build and open the dialog; the list you insert is printed"
	@echo "make test            build and run all tests"
	@echo "make test-sanitized  the same, watched by the address, leak and undefined-behaviour sanitizers"
	@echo "make test-threads    the same, watched by the thread sanitizer"
	@echo "make test-windows    build for Windows and run all tests under Wine"
	@echo "make fuzz            look for faults with random input, SECONDS=60 for each target"
	@echo "make fuzz-check      a fixed number of such inputs, always the same"
	@echo "make build           build into build/bin and build/lib"
	@echo "make setup           install all Debian packages that are missing for the tests"
	@echo "make screenshots     draw all windows into docs/images; the tests compare them"
	@echo "make screenshots-windows  the same for Windows, in build-windows64/pictures"
	@echo "make bench           build and run the benchmarks"
	@echo "make install         install below PREFIX ($(PREFIX)), DESTDIR is honoured"
	@echo "make uninstall       remove what the last make install has installed"
	@echo "make deb             Debian packages, in build-deb"
	@echo "make vscode          pack the extension for VS Code, in build-vscode"
	@echo "make test-vscode     try it in VS Code, which is installed there at first"
	@echo "make windows         build for Windows, 64 and 32 bits"
	@echo "make windows-zip     pack both, with what registers them"
	@echo "make check           formatting, g++ and clang++ without warnings, clang-tidy"
	@echo "make format          format the sources"

setup:
	@tools/setup test

build:
	@tools/setup build
	@tools/build release

run:
	@tools/setup run
	@tools/build release
	@tools/run

test: setup
	@tools/build release
	@ctest --preset release --parallel $(JOBS)

test-sanitized: setup
	@tools/build asan
	@ctest --preset asan --parallel $(JOBS)

test-threads: setup
	@tools/build tsan
	@ctest --preset tsan --parallel $(JOBS)

bench:
	@tools/setup bench
	@tools/build release
	@tools/bench

screenshots: setup
	@tools/build release
	@rm -f docs/images/*.png
	@tools/screenshots build/bin/pictures docs/images

screenshots-windows:
	@tools/setup-windows run
	@tools/install-missing fonts-wine fonts-liberation optipng
	@cmake --preset windows64 >/dev/null && cmake --build build-windows64 --target pictures
	@tools/screenshots-windows build-windows64/bin/pictures.exe build-windows64/pictures
	@cd docs/images/windows && for kept in *.png; do \
	  cp ../../../build-windows64/pictures/$$kept . && optipng -quiet $$kept; done

install: build
	@cmake --install build --prefix $(PREFIX)

uninstall:
	@cmake -D BUILD=build -P cmake/uninstall.cmake

SECONDS ?= 60
fuzz:
	@tools/setup fuzz
	@tools/fuzz $(SECONDS)

fuzz-check:
	@tools/setup fuzz
	@tools/fuzz check

windows:
	@tools/setup-windows
	@cmake --preset windows64 >/dev/null && cmake --build build-windows64
	@cmake --preset windows32 >/dev/null && cmake --build build-windows32

test-windows: build windows
	@tools/setup-windows run
	@tools/test-windows

.PHONY: windows-zip
windows-zip: windows
	@tools/zip-windows

deb:
	@tools/setup deb
	@packaging/build-deb

.PHONY: vscode test-vscode
vscode:
	@tools/pack-vscode

test-vscode: vscode
	@tools/setup-vscode
	@tools/build release
	@timeout 600 tests/vscode/vscode_test.sh build/bin/listwright .

check:
	@tools/setup check
	@tools/check

format:
	@git ls-files '*.c' '*.cpp' '*.h' '*.hpp' | xargs clang-format -i

clean:
	rm -rf build build-*
