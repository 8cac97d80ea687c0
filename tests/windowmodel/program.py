"""The program: its state, start and end, and the entry into a cell."""

from model.figures import DEFAULT_MINIMUMS
from model.files import Sheet, cut_records, put_cell, whole

from .commands import Commands
from .details import Details, Ended
from .filecommands import FileCommands
from .typed import entered_score
from .printing import Printing
from .window import Window

RECENT_FILES = 9


class Program(Commands, Details, FileCommands, Printing):
    """`user` answers its questions, `disk` is its folder."""

    def __init__(self, user, disk, small):
        self.user = user
        self.disk = disk
        self.small = small
        self.ended = False
        self.sheet = Sheet()
        self.path = b""
        self.window = None
        self.copies = []

    # Start and end.

    def start(self):
        stored = self.stored_password()
        wrong = 0
        while stored:
            entry = self.user.password(b"Enter Password Please...")
            if entry is None:
                self.ended = True
                return
            if entry == stored:
                break
            wrong += 1
            if wrong == 3:
                self.user.message(b"Access Denied: Shutting Down")
                self.ended = True
                return
            self.user.message(b"Access Denied: Try Again")
        self.open_window()

    def open_window(self):
        self.dirty = False
        self.save_mode = "SaveAs"
        self.read_settings()
        self.captions = self.disk.texts(b"LS.qrv", RECENT_FILES)
        self.visible = [caption != b"" for caption in self.captions]
        self.captions = [caption.rsplit(b"\\", 1)[-1] for caption in self.captions]
        for assignment in range(len(self.sheet.values)):
            for student in range(self.sheet.students):
                self.sheet.cells.setdefault((assignment, student), ("i", 0))
        # The class average belongs to the sheet, which New keeps.
        before = self.window
        self.window = Window(self.small)
        if before:
            self.window.average, self.window.average_letter = before.average, before.average_letter
        self.refresh()

    def read_settings(self):
        scale = cut_records(self.disk.read(b"GradingScale.qrv"))
        self.scale = tuple(whole(record, 0, 2) for record in scale[:5]) or (0,)
        if self.scale[0] == 0:
            self.scale = DEFAULT_MINIMUMS
        self.round_up = self.disk.texts(b"GradingScale.qrv", 6)[5] == b"0.5"
        self.school = self.disk.texts(b"SchoolName.qrv", 1)[0]
        self.teacher = self.disk.texts(b"TN.qrv", 1)[0]
        self.font = (b"Courier New", 10.0)
        self.disk.write(b"DefaultPrintFont.qrv", put_cell(self.font[0]) + put_cell(("f", self.font[1])))

    def close(self):
        """The close box; the end of the session closes the window, too."""
        self.end_entry()
        self.offer_to_save()
        self.ended = True

    def refresh(self):
        self.window.refresh(self.sheet, self.scale, self.round_up)

    # The window.

    def choose(self, entry):
        self.end_entry()
        try:
            getattr(self, entry)()
        except Ended:
            self.ended = True

    def click(self, x, y):
        """On the canvas or on what is no control."""
        self.end_entry()
        self.window.open_editor(x, y)

    def click_heading(self, name):
        self.end_entry()
        if name == "lblStudent":
            self.window.aliases = not self.window.aliases
        else:
            self.window.ranks = not self.window.ranks

    def scroll(self, name, position):
        self.end_entry()
        bar = self.window.bars()[name]
        bar.position = min(max(position, bar.least), bar.most)

    def type(self, text):
        entry = self.window.entry
        entry.text = text if entry.selected else entry.text + text
        entry.selected = False

    def end_entry(self):
        """Also what Enter, Tab and a click beside it do."""
        entry = self.window.entry
        if entry is None:
            return
        self.sheet.cells[entry.assignment, entry.student] = entered_score(entry.text)
        self.window.entry = None
        self.dirty = True
        self.refresh()
