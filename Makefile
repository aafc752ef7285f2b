# The two commands of the README:
#   make play   installs what is missing, builds and starts the game
#   make check  installs what is missing, builds and runs every test
BUILD ?= build
JOBS ?= $(shell nproc)

.PHONY: play check build deps configure clean

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

clean:
	rm -rf $(BUILD)
