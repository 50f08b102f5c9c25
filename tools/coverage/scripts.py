"""Lists the functions and handlers of documents and scripts that no test calls. In a copy of the tree, each of them logs
its place first; those that never appear in the log of the document and script tests are listed."""

import argparse
import concurrent.futures
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

SOURCES = ("src/qml/**/*.qml", "src/js/**/*.js")
FUNCTION = re.compile(r"function (\w*) ?\([^)]*\) \{$")
HANDLER = re.compile(r"^(\s*)((?:\w+\.)?on[A-Z]\w*): (.*)$")
REACHED = re.compile(r"reached (\S+:\d+) ")
TESTS = ["tests/js", "tests/qml"]


def instrumented(path, text):
    """The text with a log statement at the beginning of each function and handler, and their places and names."""
    lines, places = [], {}
    source = text.split("\n")
    for number, line in enumerate(source, 1):
        function, handler = FUNCTION.search(line), HANDLER.match(line)
        if not function and not handler:
            lines.append(line)
            continue
        place = f"{path}:{number}"
        places[place] = handler.group(2) if handler else function.group(1) or "callback"
        say = f'console.debug("reached {place} ");'
        if function or line.endswith("{"):
            lines.append(f"{line} {say}")
        else:
            following = source[number] if number < len(source) else ""
            if len(following) - len(following.lstrip()) > len(handler.group(1)) and following.strip() != "}":
                raise SystemExit(f"{place}: a handler over several lines without braces")
            lines.append(f"{handler.group(1)}{handler.group(2)}: {{ {say} {handler.group(3)} }}")
    return "\n".join(lines), places


def copy_instrumented(tree, copy):
    """Creates the copy and returns the places of all functions and handlers."""
    names = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard"], cwd=tree, check=True,
                           capture_output=True, text=True).stdout.splitlines()
    for name in filter(lambda name: (tree / name).is_file(), names):
        (copy / name).parent.mkdir(parents=True, exist_ok=True)
        shutil.copy2(tree / name, copy / name)
    places = {}
    for path in sorted(path for pattern in SOURCES for path in copy.glob(pattern)):
        text, found = instrumented(path.relative_to(copy).as_posix(), path.read_text(encoding="utf-8"))
        path.write_text(text, encoding="utf-8")
        places.update(found)
    return places


def run_tests(copy, build):
    """Builds the copy and returns the output of its document and script tests."""
    subprocess.run(["cmake", "-S", copy, "-B", build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                    "-DTANDRY_STATISTICS_HOST=127.0.0.1:47443", "-DTANDRY_UPDATE_HOST=127.0.0.1:47080"], check=True)
    for area in TESTS:
        subprocess.run(["cmake", "--build", build, "--target", area + "/all"], check=True)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return "".join(pool.map(said_by, [test for area in TESTS for test in tests_of(build / area)]))


def tests_of(folder):
    shown = subprocess.run(["ctest", "--test-dir", folder, "--show-only=json-v1"], check=True, capture_output=True)
    return json.loads(shown.stdout)["tests"]


def said_by(test):
    """The output of a test. Tests that compare the log may fail in the copy: only the calls count here."""
    properties = {each["name"]: each["value"] for each in test["properties"]}
    environment = dict(each.split("=", 1) for each in properties.get("ENVIRONMENT", []))
    # Qt Test stops logging after 2,000 messages otherwise.
    run = subprocess.run(test["command"] + ["-maxwarnings", "0"], cwd=properties["WORKING_DIRECTORY"], check=False,
                         env={**os.environ, **environment}, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    return run.stdout.decode("utf-8", errors="replace")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=pathlib.Path, required=True, help="a folder for the copy and its build")
    options = parser.parse_args()
    tree = pathlib.Path(__file__).resolve().parents[2]
    folder = options.build.resolve()
    shutil.rmtree(folder / "tree", ignore_errors=True)
    places = copy_instrumented(tree, folder / "tree")
    reached = set(REACHED.findall(run_tests(folder / "tree", folder / "build")))

    lines = [f"{'reached' if place in reached else 'NOT REACHED':12} {place} {name}" for place, name in places.items()]
    missing = [line for line in lines if line.startswith("NOT")]
    report = folder / "functions.txt"
    report.write_text("\n".join(lines) + "\n", encoding="utf-8")
    print(*missing, f"{len(lines) - len(missing)} of {len(lines)} functions and handlers are reached, see {report}",
          sep=os.linesep)
    return 1 if missing else 0


if __name__ == "__main__":
    sys.exit(main())
