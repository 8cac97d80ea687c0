"""A second opinion on qrv: what its commands must print, from the grading, layout and file rules alone.

Everything is computed in exact fractions, on plain lists of bytes objects. Nothing here is fast or shares
a line with the program.
"""

from .check import check
from .csv import Refused, from_csv, to_csv
from .figures import DEFAULT_MINIMUMS, Figures, figures_table
from .files import CELL_TEXT, RECORD, Sheet, load, put_cell, save
from .reports import Report, Stopped
from .texts import utf8
