"""The program's folder."""

from model.files import RECORD, cut_records, load, put_text, save, text_in


class Disk:
    """Paths count from the program's folder; a leading `*\\` stands for it."""

    def __init__(self):
        self.files = {}
        # The password's record; None where none was ever stored.
        self.password = None

    @staticmethod
    def key(path):
        return path.removeprefix(b"*\\")

    def exists(self, path):
        return self.key(path) in self.files

    def read(self, path):
        return self.files.get(self.key(path), b"")

    def texts(self, path, count):
        """The first records as texts, missing ones empty."""
        records = cut_records(self.read(path))[:count]
        return [text_in(record) or b"" for record in records] + [b""] * (count - len(records))

    def write(self, path, data):
        """Over what is there: a longer file keeps what stands behind."""
        self.files[self.key(path)] = data + self.read(path)[len(data) :]

    def write_texts(self, path, texts):
        self.write(path, b"".join(put_text(text) for text in texts))

    def write_sheet(self, path, sheet):
        self.write(path, save(sheet))

    def read_sheet(self, path):
        return load(self.read(path))

    def records(self, path):
        return len(self.read(path)) // RECORD

    def sheets(self):
        """The sheets in the Grades folder, as the program names them."""
        return sorted(b"*\\" + key for key in self.files if key.startswith(b"Grades\\"))
