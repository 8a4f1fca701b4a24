#!/bin/sh
# Kills the real `tamarind-cli save` at each system call that can change the disk, by name and occurrence, and checks
# after each kill that the game file is byte for byte the old or the new one, and that the old content is kept.
# Usage: kill_save.sh FOLDER-WITH-THE-PROGRAMS. Exit code 77: system calls cannot be watched here.
set -eu

bin=$(cd "$1" && pwd)
export ASAN_OPTIONS=detect_leaks=0 # looking for leaks does not work while system calls are watched
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

calls="open openat creat write pwrite64 fsync fdatasync close rename renameat renameat2 link linkat unlink unlinkat \
fchmod chmod fchown chown utimensat fsetxattr setxattr ftruncate mkdir mkdirat sendfile copy_file_range"

if ! strace -f -o /dev/null true 2>"$work/why"; then
    echo "kill_save.sh: skipped, strace does not work here: $(tail -n 1 "$work/why")"
    exit 77
fi

mkdir "$work/Kit" "$work/Game"
cp "$bin/serz.exe" "$work/Kit"
printf '<Top>\n\t<Value>old</Value>\n</Top>\n' > "$work/old.xml"
printf '<Top>\n\t<Value>new and longer</Value>\n</Top>\n' > "$work/new.xml"
"$work/Kit/serz.exe" "$work/old.xml" "bin:$work/old.bin"
"$work/Kit/serz.exe" "$work/new.xml" "bin:$work/new.bin"

prepare() {
    rm -rf "$work/Game" "$work/Kit/TempFiles"
    mkdir "$work/Game" "$work/Kit/TempFiles"
    cp "$work/old.bin" "$work/Game/Track.XSec"
    echo "an earlier backup" > "$work/Game/Track.XSec.bak"
}

save() {
    "$@" "$bin/tamarind-cli" --program-dir "$work/Kit" --game "$work/Game" save "$work/Game/Track.XSec" "$work/new.xml"
}

failures=0
fail() {
    echo "kill_save.sh: $1"
    failures=$((failures + 1))
}

check() {
    if cmp -s "$work/Game/Track.XSec" "$work/new.bin"; then
        cmp -s "$work/Game/Track.XSec.bak1" "$work/old.bin" || fail "$1: the game file is new, its old content is lost"
    elif ! cmp -s "$work/Game/Track.XSec" "$work/old.bin"; then
        fail "$1: the game file is neither old nor new"
    fi
    [ "$(cat "$work/Game/Track.XSec.bak")" = "an earlier backup" ] || fail "$1: an earlier backup has changed"
}

prepare
save strace -f -qq -o "$work/trace" -e "trace=$(echo $calls | sed 's/\([a-z0-9_]*\)/?\1/g; s/ /,/g')" >/dev/null 2>&1 ||
    { echo "kill_save.sh: the save itself fails"; exit 1; }
check "an undisturbed save"
cmp -s "$work/Game/Track.XSec" "$work/new.bin" || { echo "kill_save.sh: the save changed nothing"; exit 1; }

kills=0
for call in $calls; do
    # The most that one process of the save made: occurrences are counted for each process by itself.
    count=$(sed -n "s/^\([0-9]*\) *$call(.*/\1/p" "$work/trace" | sort | uniq -c | sort -rn | awk 'NR == 1 { print $1 }')
    occurrence=1
    while [ "$occurrence" -le "${count:-0}" ]; do
        prepare
        if save strace -f -qq -o /dev/null -e "trace=$call" -e "inject=$call:signal=KILL:when=$occurrence" \
            >/dev/null 2>&1; then
            fail "nothing was killed at $call number $occurrence"
        fi
        check "killed at $call number $occurrence"
        kills=$((kills + 1))
        occurrence=$((occurrence + 1))
    done
done

echo "kills tried: $kills"
[ "$kills" -gt 50 ] || fail "only $kills kills were tried"
[ "$failures" -eq 0 ] || { echo "kill_save.sh: $failures checks failed"; exit 1; }
