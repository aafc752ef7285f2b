# The two commands of the README:
#   make play   installs what is missing, builds and starts the game
#   make check  installs what is missing, builds and runs every test
# and the install (README, "Install"):
#   make install [PREFIX=/usr/local] [DESTDIR=...]   make uninstall
BUILD ?= build
JOBS ?= $(shell nproc)
PREFIX ?= /usr/local

.PHONY: play check build deps configure clean install uninstall

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

install: build
	DESTDIR="$(DESTDIR)" cmake --install $(BUILD) --prefix "$(PREFIX)"

# Removes what the last install listed in $(BUILD)/install_manifest.txt
# (give the same DESTDIR as to the install).
uninstall:
	DESTDIR="$(DESTDIR)" cmake --build $(BUILD) --target uninstall

clean:
	rm -rf $(BUILD)
