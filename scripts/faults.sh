#!/usr/bin/env bash
# A fault at every file operation of every command that writes, then a kill at every system call of a save.
set -euo pipefail
cd "$(dirname "$0")/.."
build/linux/bin/fault_tests --gtest_brief=1
tests/faults/kill_save.sh build/linux/bin
