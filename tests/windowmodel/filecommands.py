"""The File menu but printing, backup, and taking over students."""


CRITICAL = "critical"
SURE_TO_LOAD = b"Are you sure you want to load a new grade sheet without saving this one?"
SAVE_CURRENT = b"Do you want to save the grade sheet you are currently working on?"
COPY_WARNING = b"WARNING: This will delete all students and grades currently on this grade sheet!  Continue?"
INSERT_DISK = b"Please insert a disk into the A: (Floppy) Drive to begin the backup."


def bare_name(path):
    return path.rsplit(b"\\", 1)[-1]


class FileCommands:
    def mnuNew(self):
        if not self.user.agrees(b"Are you sure you want to create a new grade sheet?", b"Make New Grading Sheet"):
            return
        self.offer_to_save()
        self.open_window()

    def mnuExit(self):
        if self.user.agrees(b"Are you sure you want to exit?", b"Exit Check"):
            self.close()

    def offer_to_save(self):
        if self.dirty and self.user.agrees(SAVE_CURRENT, b"Save Current Grade Sheet?"):
            self.mnuSave()

    def mnuOpen(self):
        self.path = b""
        self.load()

    def open_recent(self):
        self.path = b"True"
        self.load()

    def load(self):
        if self.dirty and not self.user.agrees(SURE_TO_LOAD, b"Load File"):
            self.user.message(b"Load File Canceled", b"Cancelation", CRITICAL)
            return
        chosen = self.user.open_file(b"Open Gradesheet", self.disk.sheets())
        if chosen is None:
            return
        self.path = chosen
        self.note_recent_file()
        self.sheet = self.disk.read_sheet(chosen)
        self.note_saved()
        self.window.aliases = self.window.ranks = False
        self.refresh()

    def mnuSave(self):
        kept = self.path
        path = b"" if self.save_mode == "SaveAs" else self.path
        if not path:
            path = self.user.save_file(b"Save Gradesheet")
            if path is None:
                self.path = kept
                return
        self.path = path
        self.note_recent_file()
        self.disk.write_sheet(path, self.sheet)
        self.note_saved()

    def mnuSaveAs(self):
        mode = self.save_mode
        self.save_mode = "SaveAs"
        self.mnuSave()
        if self.save_mode == "SaveAs":
            self.save_mode = mode

    def note_saved(self):
        self.window.caption = bare_name(self.path)
        self.save_mode = "Save"
        self.dirty = False

    def note_recent_file(self):
        captions = self.captions
        if self.path in captions[:-1]:
            place = captions.index(self.path)
            captions[place:-1] = captions[place + 1 :]
        captions[1:] = captions[:-1]
        captions[0] = self.path
        self.visible = [caption != b"" for caption in captions]
        self.disk.write_texts(b"LS.qrv", captions)

    # Copies.

    def mnuBackup1(self):
        if not self.path:
            self.user.message(b"The file you currently are working on is not saved.")
        elif self.user.message(INSERT_DISK, b"Backup", buttons="ok-cancel") == "ok":
            self.copies.append((self.path, b"A:\\" + bare_name(self.path)))

    def mnuBackup(self):
        if self.user.message(INSERT_DISK, b"Backup", buttons="ok-cancel") == "ok":
            self.copies += [(path, b"A:\\" + bare_name(path)) for path in self.disk.sheets()]

    def mnuCopy(self):
        self.dirty = True
        if not self.user.agrees(COPY_WARNING, b"Warning!"):
            self.user.message(b"Copy Students Cancelled")
            return
        chosen = self.user.open_file(b"Copy Students From...", self.disk.sheets())
        if chosen is None:
            return
        other = self.disk.read_sheet(chosen)
        sheet = self.sheet
        sheet.title, sheet.names, sheet.aliases = other.title, other.names, other.aliases
        sheet.students_set = other.students_set
        sheet.cells = {}
        last = len(sheet.values) - 1
        # The last assignment is the other sheet's at that place, where it has one.
        if 0 <= last < len(other.values):
            sheet.assignments[last] = other.assignments[last]
            sheet.values[last] = other.values[last]
        self.refresh()
