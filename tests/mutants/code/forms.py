"""The places of a form that can be changed, found in the header that uic makes of it: each call has a line there."""

import re

from edits import Spot

ORDER = re.compile(r"\bsetTabOrder\((\w+), (\w+)\);")
TEXT = re.compile(r'QCoreApplication::translate\("\w+", "((?:[^"\\]|\\.)+)", nullptr\)')
CALL = re.compile(
    r"^[ \t]*(\w+->(?:setBuddy|setMaxLength|setEnabled|setVisible|setChecked|setDefault|setReadOnly|"
    r"setEchoMode|setFocusPolicy|setTabChangesFocus|setMinimum|setMaximum|setCheckable|setWordWrap|setTextFormat)"
    r"\(.*\));$",
    re.M,
)


def spots_in(header):
    spots = []
    for found in ORDER.finditer(header):
        one, other = found.groups()
        spot = Spot(found.start(), [f"Tab in front of {one}: {other}"])
        for position, name, instead in ((1, one, other), (2, other, one)):
            spot.instead(*found.span(position), f"::mutants::Either<{{0}}, QWidget>({name}, {instead})")
        spots.append(spot)
    for found in TEXT.finditer(header):
        told = found[1][:60]
        spot = Spot(found.start(), [f'one sign more: "{told}"'])
        spots.append(spot.around(*found.span(), "::mutants::Text<{0}>(", ")"))
        if re.search(r"&(?!&)", found[1]):
            spot = Spot(found.start(), [f'no letter: "{told}"'])
            spots.append(spot.around(*found.span(), "::mutants::WithoutLetter<{0}>(", ")"))
    for found in CALL.finditer(header):
        spot = Spot(found.start(1), [f"left out: {found[1]}"])
        spots.append(spot.around(found.start(1), found.end(), "{ if (!::mutants::On<{0}>()) ", " }"))
    return spots
