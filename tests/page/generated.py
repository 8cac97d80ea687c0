"""Classes to make pages of."""

import random


class Generated:
    """Classes as CSV; the same start gives the same ones."""

    def __init__(self, start):
        self.random = random.Random(start)

    def score(self, value):
        kind = self.random.randrange(14)
        if kind < 2:
            return ("", "E")[kind]
        return str(self.random.randint(value * 4 // 10, value))

    def school_class(self, students, assignments):
        values = [self.random.choice([10, 20, 50, 100]) for _ in range(assignments)]
        lines = ["Name,Alias," + ",".join(f"Assignment {a}" for a in range(1, assignments + 1))]
        lines.append("Value,," + ",".join(map(str, values)))
        for number in range(1, students + 1):
            scores = ",".join(self.score(value) for value in values)
            lines.append(f'"Last{number}, First",Alias {number},{scores}')
        return "\n".join(lines) + "\n"

    @staticmethod
    def nobody():
        return "Name,Alias,Quiz\nValue,,20\n"

    @staticmethod
    def odd_names():
        names = ["<script>alert(1)</script>", "O'Neil & \"Co\"", "</td></tr></table>", "Wolfeschlegelsteinhausen" * 5]
        lines = ["Name,Alias,<b>,\"a very, very long one\"", "Value,,20,0"]
        lines += ['"' + name.replace('"', '""') + f'",{number},{17 + number},3' for number, name in enumerate(names)]
        return "\n".join(lines) + "\n"
