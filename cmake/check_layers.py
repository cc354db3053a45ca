#!/usr/bin/env python3
"""Holds every include below src against the modules that its own module declares.

check_layers.py MODULES_JSON: the list of modules that CMake wrote. Dependencies must be of a
strictly lower level; a file may include its own module, the declared dependencies, and theirs.
Only a header with twins in windows and posix is included by its bare name.
Prints one line per fault.
"""

import json
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
INCLUDE = re.compile(r'\s*#\s*include\s*([<"])([^>"]+)[>"]')


def faults_of_levels(modules):
    for module in modules.values():
        for name in module["dependencies"]:
            if modules[name]["level"] >= module["level"]:
                yield (f"{module['folder']}/CMakeLists.txt: {module['module']} is of level "
                       f"{module['level']} and depends on {name} of level "
                       f"{modules[name]['level']}")


def reach(modules, module):
    """The names of all modules that the module may include."""
    found = {module["module"]}
    waiting = [module]
    while waiting:
        for name in waiting.pop()["dependencies"]:
            if name not in found:
                found.add(name)
                waiting.append(modules[name])
    return found


def module_of(modules, path):
    """The name of the module that a path below src lies in: the innermost one."""
    names = [name for name in modules if path.is_relative_to(name)]
    return max(names, key=len, default=None)


def has_twins(file, included):
    """Whether each system has a header of this name beside the file."""
    folders = (file.parent / "windows", file.parent / "posix")
    return all((folder / included).exists() for folder in folders)


def faults_of_file(modules, file):
    relative = file.relative_to(ROOT / "src")
    name = module_of(modules, relative)
    if name is None:
        yield f"{file.relative_to(ROOT)}:1: lies in no module"
        return
    allowed = reach(modules, modules[name])
    lines = file.read_text(encoding="utf-8").splitlines()
    for number, line in enumerate(lines, start=1):
        match = INCLUDE.match(line)
        if not match:
            continue
        bracket, included = match.groups()
        target = module_of(modules, Path(included))
        place = f"{file.relative_to(ROOT)}:{number}: {included}"
        if bracket == '"' and target is None and not has_twins(file, included):
            yield f"{place} is not a path below src"
        elif target is not None and target not in allowed:
            yield f"{place} is of {target}, which {name} does not depend on"


def main():
    listed = json.loads(Path(sys.argv[1]).read_text(encoding="utf-8"))
    modules = {module["module"]: module for module in listed}
    faults = list(faults_of_levels(modules))
    files = [file for file in sorted((ROOT / "src").rglob("*")) if file.suffix in {".h", ".cpp"}]
    for file in files:
        faults += faults_of_file(modules, file)
    if not files:
        faults.append("there is no source to check")
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
