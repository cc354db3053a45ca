#!/usr/bin/env python3
"""Makes a package complete: copies the project's package folder to where the programs are.

`resources` goes beside the programs, everything else to the package's root; the fonts are no
part of the project and go to `resources/fonts`. A file that is up to date is left alone; a file that neither the folder nor the list of programs has is
removed.
"""

import argparse
import filecmp
import os
import shutil
from pathlib import Path


def wanted_files(source, fonts, program_folder):
    """Every file of the source folder and of that of the fonts, by its path in the package."""
    files = {program_folder / "resources/fonts" / path.name: path for path in fonts.iterdir()}
    for path in source.rglob("*"):
        if path.is_file():
            relative = path.relative_to(source)
            beside = relative.parts[0] == "resources"
            files[program_folder / relative if beside else relative] = path
    return files


def wanted_folders(source, program_folder, files, programs):
    """Every folder, also an empty one: payload may have such."""
    folders = set()
    for path in source.rglob("*"):
        if path.is_dir():
            relative = path.relative_to(source)
            beside = relative.parts[0] == "resources"
            folders.add(program_folder / relative if beside else relative)
    for path in [*files, *programs]:
        folders.update(path.parents)
    for folder in list(folders):
        folders.update(folder.parents)
    return folders


def remove_others(package, files, folders):
    for folder, _, names in os.walk(package, topdown=False):
        here = Path(folder).relative_to(package)
        for name in names:
            if here / name not in files:
                (package / here / name).unlink()
        if here not in folders:
            os.rmdir(folder)


def copy(files, folders, package):
    for folder in folders:
        (package / folder).mkdir(parents=True, exist_ok=True)
    for relative, source in files.items():
        target = package / relative
        if not target.exists() or not filecmp.cmp(source, target, shallow=True):
            shutil.copy2(source, target)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--source", type=Path, required=True)
    parser.add_argument("--fonts", type=Path, required=True)
    parser.add_argument("--package", type=Path, required=True)
    parser.add_argument("--program-folder", type=Path, required=True)
    parser.add_argument("--programs", type=Path, nargs="*", default=[])
    options = parser.parse_args()

    files = wanted_files(options.source, options.fonts, options.program_folder)
    programs = [program.relative_to(options.package) for program in options.programs]
    folders = wanted_folders(options.source, options.program_folder, files, programs)
    remove_others(options.package, {*files, *programs}, folders)
    copy(files, folders, options.package)


if __name__ == "__main__":
    main()
