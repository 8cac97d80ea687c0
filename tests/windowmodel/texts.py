"""Texts in the code page, and as a scenario writes them."""

from model.texts import FROM_UNICODE, TO_UNICODE


def upper_byte(byte):
    """A character without an upper-case form in the code page stays."""
    return FROM_UNICODE.get(TO_UNICODE[byte].upper(), byte)


UPPER_CASE = bytes(upper_byte(byte) for byte in range(256))


def upper_case(text):
    return text.translate(UPPER_CASE)


def quoted(text):
    """A leading `*\\` stays the mark of the program's folder."""
    parts = []
    for byte in text.replace(b"\r\n", b"\n"):
        if byte == 0x0A:
            parts.append("\\n")
        elif byte in b'"\\':
            parts.append("\\" + chr(byte))
        elif 0x20 <= byte < 0x7F:
            parts.append(chr(byte))
        else:
            parts.append(f"\\x{byte:02X}")
    return '"' + "".join(parts) + '"'
