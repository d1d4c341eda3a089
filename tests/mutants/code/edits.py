"""Spots of a text that can be changed, and the text in which all their changes stand side by side."""

from dataclasses import dataclass, field

# Where several insertions meet: what ends there comes first, then what takes a place, then what begins there.
END, INSTEAD, BEGIN = range(3)


@dataclass
class Spot:
    """One place in a text with the changes that can be made there, each of which gets a number of its own. In the
    text of an edit {0} stands for the first of them."""

    offset: int
    changes: list
    edits: list = field(default_factory=list)  # (offset, END | INSTEAD | BEGIN, length that goes, text)

    def around(self, start, end, before, after):
        self.edits += [(start, BEGIN, 0, before), (end, END, 0, after)]
        return self

    def instead(self, start, end, text):
        self.edits.append((start, INSTEAD, end - start, text))
        return self


def line_of(text, offset):
    """The number of the line, counted from 1, and the line itself without the room around it."""
    begin = text.rfind("\n", 0, offset) + 1
    end = text.find("\n", offset)
    return text.count("\n", 0, offset) + 1, text[begin : len(text) if end < 0 else end].strip()


def applied(text, spots, first):
    """The text with all spots, which stand as they were found: what is around another before it. Gives the text and
    the rows (number, line, change, text of the line), numbered from `first` on."""
    edits, rows = [], []
    for rank, spot in enumerate(spots):
        number, line = line_of(text, spot.offset)
        for turn, (offset, kind, length, insertion) in enumerate(spot.edits):
            # Of two that begin or end at one offset, the one that was found later lies inside.
            inner = (-rank, -turn) if kind == END else (rank, turn)
            edits.append((offset, kind, inner, length, insertion.replace("{0}", str(first))))
        for change in spot.changes:
            rows.append((first, number, change, line))
            first += 1
    pieces, done = [], 0
    for offset, _, _, length, insertion in sorted(edits):
        pieces += [text[done:offset], insertion]
        done = offset + length
    return "".join(pieces) + text[done:], rows
