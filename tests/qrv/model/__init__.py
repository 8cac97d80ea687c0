"""A second opinion on qrv: what its commands must print, from the grading, layout and file rules alone.

Everything is computed in exact fractions, on plain lists of bytes objects. Nothing here is fast or shares
a line with the program.
"""

from .check import check
from .csv import CsvImport, to_csv
from .figures import DEFAULT_MINIMUMS, Figures, figures_table
from .files import CELL_TEXT, RECORD, Sheet, load, put_cell, save
from .json_form import figures_json, from_json, line, sheet_json
from .page import Page, page_of
from .reports import Report, Stopped
from .texts import cell_text, utf8
