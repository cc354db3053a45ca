"""How the parts of ./test say how many cases passed and failed."""

import os


def tally(passed, failed):
    """Adds to the counts of this run, if there is one; gives the exit status of the part."""
    if "VS5_TALLY" in os.environ:
        with open(os.environ["VS5_TALLY"], "a", encoding="utf-8") as counts:
            counts.write(f"{passed} {failed}\n")
    return 1 if failed else 0
