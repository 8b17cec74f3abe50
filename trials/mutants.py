"""Mutation testing by hand-picked faults: each row of mutants.txt replaces one text of one source by
another, builds the test programs named there and expects one of them to fail."""
import os
import pathlib
import re
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
COPY = ROOT / "build/mutants"
PATIENCE = 600  # seconds for one test program; a mutant that hangs is noticed, too


def run(*command, **options):
    return subprocess.run(command, cwd=COPY, capture_output=True, text=True, **options)


def rows(words):
    """Blocks of four lines: what is wrong then, "file: tests", the old text, the new one."""
    text = (ROOT / "trials/mutants.txt").read_text()
    for block in re.split(r"\n\s*\n", re.sub(r"^#.*\n", "", text, flags=re.M).strip()):
        what, place, old, new = block.split("\n")
        if words and not any(word in block for word in words):
            continue
        file, _, tests = place.partition(": ")
        yield what, file, tests.split(), old.removeprefix("- "), new.removeprefix("+ ")


def fresh_copy():
    if not (COPY / ".git").exists():
        subprocess.run(["git", "worktree", "prune"], cwd=ROOT, check=True)
        subprocess.run(["git", "worktree", "add", "--quiet", "--detach", str(COPY), "HEAD"], cwd=ROOT,
                       check=True)
    head = subprocess.run(["git", "rev-parse", "HEAD"], cwd=ROOT, capture_output=True, text=True,
                          check=True).stdout.strip()
    run("git", "checkout", "--quiet", "--force", head, check=True)


def build(tests):
    return run("scripts/build", "release", *(test + "_test" for test in tests))


def noticed_by(tests):
    """The first case that fails; None where all pass."""
    for test in tests:
        program = next((COPY / "build/release/tests").rglob(test + "_test"))
        environment = os.environ | {"QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"}
        try:
            result = run(str(program), "--gtest_brief=1", "--gtest_fail_fast", env=environment,
                         timeout=PATIENCE)
        except subprocess.TimeoutExpired:
            return test + " (hangs)"
        if result.returncode:
            failed = re.search(r"\[  FAILED  \] ([\w./]+)", result.stdout)
            return failed[1] if failed else f"{test} (ends with {result.returncode})"
    return None


def judge(file, tests, old, new):
    path = COPY / file
    source = path.read_text()
    if source.count(old) != 1:
        return f"not applied: the text stands there {source.count(old)} times", False
    path.write_text(source.replace(old, new))
    try:
        built = build(tests)
        if built.returncode:
            return "not applied: it doesn't compile", False
        case = noticed_by(tests)
        return (case, True) if case else ("**nobody**", False)
    finally:
        path.write_text(source)


def main(words):
    fresh_copy()
    chosen = list(rows(words))
    everything = sorted({test for _, _, tests, _, _ in chosen for test in tests})
    if (first := build(everything)).returncode:
        sys.exit(first.stdout[-2000:] + first.stderr)
    if case := noticed_by(everything):
        sys.exit(f"Without any fault, {case} fails.")
    print("| fault | file | noticed by | s |\n|---|---|---|---:|", flush=True)
    alive = 0
    for what, file, tests, old, new in chosen:
        began = time.monotonic()
        case, good = judge(file, tests, old, new)
        alive += not good
        print(f"| {what} | {file} | {case} | {time.monotonic() - began:.0f} |", flush=True)
    print(f"\n{len(chosen) - alive} of {len(chosen)} noticed.")
    return alive > 0


sys.exit(main(sys.argv[1:]))
