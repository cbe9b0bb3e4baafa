"""confined.py FOLDER... -- COMMAND...: runs a command that can write beneath these folders alone.

Whatever else its file panels offer, and with root's rights, too. Needs a kernel with Landlock.
"""

import ctypes
import os
import struct
import sys

LANDLOCK_CREATE_RULESET, LANDLOCK_ADD_RULE, LANDLOCK_RESTRICT_SELF = 444, 445, 446
PATH_BENEATH = 1
SET_NO_NEW_PRIVILEGES = 38

WRITE_FILE, REMOVE_FOLDER, REMOVE_FILE = 1 << 1, 1 << 4, 1 << 5
# Devices, folders, files, sockets, FIFOs and links.
MAKE_ANYTHING = sum(1 << bit for bit in range(6, 13))
MOVE_BETWEEN_FOLDERS, TRUNCATE = 1 << 13, 1 << 14
WRITE_ANYTHING = (WRITE_FILE | REMOVE_FOLDER | REMOVE_FILE | MAKE_ANYTHING | MOVE_BETWEEN_FOLDERS
                  | TRUNCATE)

libc = ctypes.CDLL(None, use_errno=True)


def call(number, *arguments):
    result = libc.syscall(ctypes.c_long(number), *arguments)
    if result < 0:
        raise OSError(ctypes.get_errno(), "this kernel cannot confine a program to folders")
    return result


def confine(folders):
    """From here on, this process and its children can write beneath these folders alone."""
    handled = ctypes.create_string_buffer(struct.pack("Q", WRITE_ANYTHING), 8)
    ruleset = call(LANDLOCK_CREATE_RULESET, handled, ctypes.c_size_t(8), ctypes.c_uint32(0))
    allowed = {folder: WRITE_ANYTHING for folder in folders} | {"/dev": WRITE_FILE | TRUNCATE}
    for folder, rights in allowed.items():
        place = os.open(folder, os.O_PATH | os.O_CLOEXEC)
        rule = ctypes.create_string_buffer(struct.pack("=Qi", rights, place), 12)
        call(LANDLOCK_ADD_RULE, ctypes.c_int(ruleset), ctypes.c_int(PATH_BENEATH), rule,
             ctypes.c_uint32(0))
        os.close(place)
    libc.prctl(SET_NO_NEW_PRIVILEGES, 1, 0, 0, 0)
    call(LANDLOCK_RESTRICT_SELF, ctypes.c_int(ruleset), ctypes.c_uint32(0))
    os.close(ruleset)


def main():
    end = sys.argv.index("--")
    confine(sys.argv[1:end])
    os.execv(sys.argv[end + 1], sys.argv[end + 1:])


if __name__ == "__main__":
    main()
