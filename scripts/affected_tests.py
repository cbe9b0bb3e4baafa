"""affected_tests.py BUILD FILE...: prints the tests of a build that know one of the files, as
alternatives of a regular expression.

A test knows the files of the folders whose sources and libraries its executable is made of. Which
end-to-end tests know a part of the program nobody can tell, and all of them take minutes: those are
printed whose own files, or whose helpers, are given, and, when the program's windows are, those that
look at more than what is within one of them. What is installed is looked at when it or how changes.
"""

import json
import re
import subprocess
import sys
from pathlib import Path

ALL_ROOMS = ("src/", "tests/", "share/", "ARCHITECTURE.md")
EVERY_TEST = ("CMakeLists.txt", "CMakePresets.json", "cmake/", "resources/", "tests/data/",
              "tests/golden/")
INSTALLED = ("share/", "tests/desktop/", "scripts/package", "NOTICE")
KEYS_AND_PANELS = tuple(f"src/Windowing/{name}" for name in (
    "ActivationGuard", "DialogInFront", "FileDialogRunner", "KeyboardClaim", "LatinKeys",
    "ShortcutGuard"))
WINDOWS = ("src/Windowing/", "src/quenaraApp.cpp")


def tests_of(build):
    answer = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"], check=True,
                            capture_output=True).stdout
    for test in json.loads(answer)["tests"]:
        labels = next((entry["value"] for entry in test.get("properties", [])
                       if entry["name"] == "LABELS"), [])
        yield test["name"], test.get("command", []), labels


def folders_by_executable(build):
    """The folders, from the root of the project, whose objects and libraries each is linked of."""
    found = {}
    for line in Path(build, "build.ninja").read_text().splitlines():
        link = re.match(r"build (\S+): CXX_EXECUTABLE_LINKER\S* ([^|]*)(?:\| ([^|]*))?", line)
        if link:
            executable, objects, libraries = link.groups(default="")
            found[executable] = {name.partition("/CMakeFiles/")[0] for name in objects.split()} | {
                str(Path(name).parent) for name in libraries.split() if name.endswith(".a")}
    return found


def knows_end_to_end(script, labels, changed):
    places = KEYS_AND_PANELS if "within" in labels else WINDOWS
    if any(name.startswith(places) for name in changed):
        return True
    folder = script.parent
    return any(Path(name).parent == folder and (Path(name) == script
                                                or not Path(name).name.startswith("test_"))
               for name in changed)


def knows(folders, test, name):
    """Whether a test is a changed file, or made of one, or of one that may include it."""
    path = Path(name)
    return path.stem == test if path.name.startswith("tst_") else str(path.parent) in folders


def main():
    build, *changed = sys.argv[1:]
    root = Path.cwd()
    folders = folders_by_executable(build)

    def is_affected(test, command, labels):
        if any(name.startswith(EVERY_TEST) for name in changed):
            return True
        if "e2e" in labels:
            return knows_end_to_end(Path(command[-1]).relative_to(root), labels, changed)
        executable = command[0].removeprefix(f"{root / build}/")
        if executable not in folders:
            rooms = INSTALLED if test.startswith("desktop_") else ALL_ROOMS
            return any(name.startswith(rooms) or name.endswith("/CMakeLists.txt")
                       for name in changed)
        return any(knows(folders[executable], test, name) for name in changed)

    if changed:
        print("|".join(re.escape(name) for name, command, labels in tests_of(build)
                       if is_affected(name, command, labels)))


if __name__ == "__main__":
    main()
