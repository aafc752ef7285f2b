# The two commands of the README:
#   make play   installs what is missing, builds and starts the game
#   make check  installs what is missing, builds and runs every test
# and for developers:
#   make check-sanitize  every test again, built with the address and
#                        undefined-behaviour sanitizers in build-sanitize/
#   make fuzz            the fuzz targets of every reader (tools/fuzz/)
# and the Windows release (README, "Windows"), cross-built in build-windows/:
#   make windows         installs what is missing, builds the libraries once,
#                        the game, and build-windows/gorvan-windows(.zip)
#   make check-windows   its tests under Wine (not part of make check: slow)
# and the install (README, "Install"):
#   make install [PREFIX=/usr/local] [DESTDIR=...]   make uninstall
BUILD ?= build
SANITIZE_BUILD ?= build-sanitize
JOBS ?= $(shell nproc)
PREFIX ?= /usr/local

.PHONY: play check build deps configure clean check-sanitize fuzz install uninstall \
	windows check-windows

deps:
	./tools/install-deps.sh

configure: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo

build: configure
	cmake --build $(BUILD) -j $(JOBS)

play: build
	cd $(BUILD)/run && ./gorvan

# Tests that open a window get their own X server with Mesa's software renderer.
check: build
	cd $(BUILD) && xvfb-run -a -s "-screen 0 1920x1080x24 -noreset" \
		ctest --output-on-failure -j $(JOBS) --timeout 600

# Any report of the sanitizers fails the program that made it, the content
# tools of the build included. Leaks that the system's GL, X and audio
# libraries keep to the end are theirs (tools/sanitize/lsan.supp).
check-sanitize: export ASAN_OPTIONS = detect_leaks=1:strict_string_checks=1:check_initialization_order=1
check-sanitize: export LSAN_OPTIONS = suppressions=$(CURDIR)/tools/sanitize/lsan.supp:print_suppressions=0
check-sanitize: export UBSAN_OPTIONS = print_stacktrace=1
check-sanitize: deps
	cmake -S . -B $(SANITIZE_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DGORVAN_SANITIZE=ON
	cmake --build $(SANITIZE_BUILD) -j $(JOBS)
	cd $(SANITIZE_BUILD) && xvfb-run -a -s "-screen 0 1920x1080x24 -noreset" \
		ctest --output-on-failure -j $(JOBS) --timeout 1800

# Builds the fuzz targets with clang in build-fuzz/ and runs each in turn;
# FUZZ_RUNS executions each (default 100000), see tools/fuzz/run-fuzzers.sh.
fuzz:
	tools/fuzz/run-fuzzers.sh $(FUZZ_RUNS)

windows:
	JOBS=$(JOBS) tools/windows/build-release.sh $(BUILD)

# The Windows programs need an X server under Wine too.
check-windows: windows
	cmake --build $(BUILD) -j $(JOBS) --target gorvan
	xvfb-run -a -s "-screen 0 1920x1080x24 -noreset" tests/windows/check.sh $(BUILD)

install: build
	DESTDIR="$(DESTDIR)" cmake --install $(BUILD) --prefix "$(PREFIX)"

# Removes what the last install listed in $(BUILD)/install_manifest.txt
# (give the same DESTDIR as to the install).
uninstall:
	DESTDIR="$(DESTDIR)" cmake --build $(BUILD) --target uninstall

clean:
	rm -rf $(BUILD) $(SANITIZE_BUILD)
