"""How the parts of ./test say how many cases passed, and which failed."""

import os


def tally(passed, failures):
    """Adds a number and a list of names to what this run counts, if there is a run; gives the
    exit status of the part."""
    if "VS5_TALLY" in os.environ:
        with open(os.environ["VS5_TALLY"], "a", encoding="utf-8") as counts:
            counts.write(f"passed {passed}\n")
            counts.writelines(f"failed {name}\n" for name in failures)
    return 1 if failures else 0
