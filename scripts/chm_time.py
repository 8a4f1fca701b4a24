#!/usr/bin/env python3
"""Gives a help file the time of SOURCE_DATE_EPOCH, where its compiler put that of its own run: chm_time.py FILE.

The time stands in the file's header, and in the file "#SYSTEM" inside, which is not compressed: there it is the first
entry (code 10, four bytes) behind the format's number.
"""

import os
import struct
import sys

HEADER_TIME = 0x10
CONTENT_OFFSET = 0x58
SYSTEM_TIMES = (b"\x02\0\0\0\x0a\0\x04\0", b"\x03\0\0\0\x0a\0\x04\0")


def main():
    path = sys.argv[1]
    with open(path, "rb") as file:
        data = bytearray(file.read())
    if data[:4] != b"ITSF" or len(data) < CONTENT_OFFSET + 8:
        sys.exit(f"chm_time: {path} is no help file")
    content = struct.unpack_from("<Q", data, CONTENT_OFFSET)[0]
    places = [data.find(start, content) + len(start) for start in SYSTEM_TIMES if start in data[content:]]
    if len(places) != 1:
        sys.exit(f"chm_time: {path} has its time in {len(places)} places, not in one")
    time = int(os.environ["SOURCE_DATE_EPOCH"]) & 0xFFFFFFFF
    struct.pack_into(">I", data, HEADER_TIME, time)
    struct.pack_into("<I", data, places[0], time)
    with open(path, "wb") as file:
        file.write(data)


main()
