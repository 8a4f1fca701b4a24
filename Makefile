# One command for each thing that a newcomer wants. All of them install what the machine lacks.
.PHONY: run test linux windows lint faults fuzz bench dist dist-packages dist-test clean packages

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

dist-packages: packages
	@./scripts/install-packages.sh scripts/dist-packages.txt

# The packages of a release, in build/dist: for Windows a zip and a setup, for Linux a .deb and a tar.gz.
dist: dist-packages
	@[ -e build/linux/build.ninja ] || cmake --preset linux >/dev/null
	@[ -e build/windows/build.ninja ] || cmake --preset windows >/dev/null
	@cmake --build build/linux --target package_contents
	@cmake --build build/windows --target package_contents
	@./scripts/dist.sh

# Installs and starts each of them, and looks at what is in it.
dist-test: dist
	@cmake --build build/linux --target sample_game serz
	@cmake --build build/windows --target serz
	@./scripts/test-dist.sh

clean:
	rm -rf build
