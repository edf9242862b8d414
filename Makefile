# For people. Every target does what it needs first, on a fresh Debian 12 machine too.
.PHONY: help setup build run test bench deb install format check clean

PREFIX ?= /usr/local
JOBS ?= $(shell nproc)

help:
	@echo "make run      build and open the dialog; the list you insert is printed"
	@echo "make test     build and run all tests"
	@echo "make build    build into build/bin and build/lib"
	@echo "make setup    install the Debian packages that are missing"
	@echo "make bench    build and run the benchmarks"
	@echo "make install  install below PREFIX ($(PREFIX)), DESTDIR is honoured"
	@echo "make deb      Debian packages, in build-deb"
	@echo "make check    formatting, g++ and clang++ without warnings, clang-tidy"
	@echo "make format   format the sources"

setup:
	@tools/setup

build: setup
	@tools/build release

run: build
	@tools/run

test: build
	@ctest --preset release --parallel $(JOBS)

bench: build
	@tools/bench

install: build
	@cmake --install build --prefix $(PREFIX)

deb: setup
	@packaging/build-deb

check: setup
	@tools/check

format:
	@git ls-files '*.c' '*.cpp' '*.h' '*.hpp' | xargs clang-format -i

clean:
	rm -rf build build-*
