"""Writes the walks FROM to TO into a folder: python3 -m windowmodel FROM TO FOLDER, from the folder tests"""

import sys
from pathlib import Path

from . import Walker

STEPS = 60


def main(first, last, folder):
    for number in range(int(first), int(last) + 1):
        walker = Walker(number)
        walker.walk(STEPS)
        (folder / f"{walker.name}.scenario").write_text("\n".join(walker.lines) + "\n", encoding="utf-8")
        for name, text in walker.texts.items():
            (folder / name).write_bytes(text)


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    main(sys.argv[1], sys.argv[2], Path(sys.argv[3]))
