"""A second opinion on the whole window: what it must ask, show and write, from the rules alone.

`Program` is the program as its user knows it: commands that ask, a window that shows, files. It holds
plain lists and shares no line with the real one. `Walker` uses it at random and writes down, as a scenario,
what was done and what must then be seen.
"""

import sys
from pathlib import Path

# Grades, files and reports are those of the companion's model.
sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "qrv"))

from .walker import Walker  # noqa: E402

__all__ = ["Walker"]
