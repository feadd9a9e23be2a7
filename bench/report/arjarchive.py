# SPDX-License-Identifier: MIT
"""The word records of a dictionary as one ARJ archive, which other programs can test."""
import struct
import zlib

FIRST_WORD_RECORD = 5


def records(path):
    """The word records of a dictionary file, packed as they stand in it."""
    data = path.read_bytes()
    count, = struct.unpack_from(">H", data, 76)
    offsets = [struct.unpack_from(">I", data, 78 + 8 * index)[0] for index in range(count)]
    ends = offsets[1:] + [len(data)]
    return [data[start:end] for start, end in zip(offsets, ends)][FIRST_WORD_RECORD:]


def header(file_type, name):
    basic = struct.pack("<BBBBBBBBIIIIHHH", 30, 11, 1, 2, 0, 0, file_type, 0,
                        0, 0, 0, 0, 0, 0, 0) + name + b"\0\0"
    return struct.pack("<HH", 0xEA60, len(basic)) + basic + struct.pack("<IH", zlib.crc32(basic), 0)


def renamed(member, name):
    """A member by another name than all the others of a dictionary have."""
    fixed, start = 30, 4
    size, = struct.unpack_from("<H", member, 2)
    basic = member[start:start + fixed] + name + b"\0\0"
    return (struct.pack("<HH", 0xEA60, len(basic)) + basic + struct.pack("<I", zlib.crc32(basic))
            + member[start + size + 4:])


def write(lexicon, target, are_named=False):
    main_header = 2
    members = records(lexicon)
    if are_named:
        members = [renamed(member, b"%05d" % index) for index, member in enumerate(members)]
    target.write_bytes(header(main_header, b"bench.arj") + b"".join(members) + b"\x60\xEA\0\0")
    return target
