# One command for each thing that a newcomer wants. All of them install what the machine lacks.
.PHONY: run test linux windows lint faults fuzz bench clean packages

packages:
	@./scripts/install-packages.sh

# Builds, makes the sample game and does the main job on it: in a window, or in the terminal where there is no display.
run: linux
	@./scripts/run.sh

test: packages
	@./scripts/test.sh

linux: packages
	@[ -e build/linux/build.ninja ] || cmake --preset linux >/dev/null
	@cmake --build build/linux

windows: packages
	@[ -e build/windows/build.ninja ] || cmake --preset windows
	@cmake --build build/windows

lint: linux
	@./scripts/lint.sh

# Fails, and stops, at every file operation of every command that writes, and counts the points.
faults: linux
	@./scripts/faults.sh

# 60 seconds for each fuzz target.
fuzz: packages
	@./scripts/fuzz.sh

bench: packages
	@./scripts/bench.sh

clean:
	rm -rf build
