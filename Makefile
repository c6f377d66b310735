# The front door. CMake presets do the work and can be used directly; see HACKING.md.

JOBS ?= $(shell nproc)
PREFIX ?= /usr/local

# Builds the preset $(1), which costs a moment when nothing has changed.
build = cmake --preset $(1) --log-level=NOTICE && cmake --build --preset $(1) --parallel $(JOBS)
test = $(call build,$(1)) && ctest --preset $(1) --parallel $(JOBS)

.PHONY: build help deps demo test bench check format asan tsan coverage fuzz install clean

build: deps ## what users run, in build/release (this is what `make` alone does)
	$(call build,release)

help: ## this list
	@sed -n 's/^\([a-z]*\):[^#]*## \(.*\)/  make \1\t\2/p' Makefile | expand -t 20

deps: ## install the Debian packages that are missing
	@Packaging/install-packages.sh

demo: build ## show the text of the sample documents
	@Packaging/demo.sh

test: deps ## build with all warnings and run the tests
	$(call test,dev)

bench: deps ## measure the main job and compare its speed with the targets; some minutes
	$(call build,bench)
	@build/bench/bin/benchmarks

check: deps ## every gate: layout, includes, names, lists and more
	@Packaging/check/run.sh

format: deps ## lay out all sources as .clang-format says
	@Packaging/check/format.sh --apply

asan: deps ## tests under AddressSanitizer and UndefinedBehaviorSanitizer
	$(call test,asan)

tsan: deps ## tests under ThreadSanitizer
	$(call test,tsan)

coverage: deps ## tests, then how much of the code they executed and whether that is enough
	find build/coverage -name '*.gcda' -delete 2>/dev/null || true
	$(call test,coverage)
	@Packaging/coverage.sh

fuzz: deps ## build the fuzz targets, in build/fuzz/bin
	$(call build,fuzz)

install: build ## install below PREFIX (/usr/local), inside DESTDIR if given
	cmake --install build/release --prefix "$(PREFIX)"

clean: ## remove all that was built
	rm -rf build
