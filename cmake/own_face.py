"""own_face.py SOURCE FAMILY TARGET: a font file under another family name, so that no installed
face takes its place, and with one statement of how high its lines are.

These are the typographic metrics of its OS/2 table, whether or not the source's flags ask for them:
different releases of a face set different flags.
https://learn.microsoft.com/typography/opentype/spec/os2#fsselection
"""

import logging
import sys

from fontTools.ttLib import TTFont

logging.getLogger("fontTools").setLevel(logging.ERROR) # not every face says when it was made

USE_TYPO_METRICS = 1 << 7
# Of the name table.
FAMILY, STYLE, UNIQUE_NAME, FULL_NAME, POSTSCRIPT_NAME = 1, 2, 3, 4, 6
OWN_FAMILY, OWN_STYLE = 16, 17 # of families with more than four styles
RENAMED = (FAMILY, STYLE, UNIQUE_NAME, FULL_NAME, POSTSCRIPT_NAME, OWN_FAMILY, OWN_STYLE)
FURTHER_NAMES = (21, 22, 25) # of the family and its styles for still other purposes


def rename(face, family):
    names = face["name"]
    style = names.getDebugName(OWN_STYLE) or names.getDebugName(STYLE)
    names.names = [record for record in names.names if record.nameID not in RENAMED + FURTHER_NAMES]
    full_name = f"{family} {style}"
    words = {FAMILY: full_name, STYLE: "Regular", UNIQUE_NAME: full_name, FULL_NAME: full_name,
             POSTSCRIPT_NAME: f"{family}-{style}".replace(" ", ""), OWN_FAMILY: family,
             OWN_STYLE: style}
    for number, text in words.items():
        names.setName(text, number, 3, 1, 0x409) # Windows, Unicode, English


def state_metrics(face):
    horizontal, os2 = face["hhea"], face["OS/2"]
    os2.fsSelection |= USE_TYPO_METRICS
    os2.version = max(os2.version, 4) # before which the flag means nothing
    horizontal.ascent = os2.sTypoAscender
    horizontal.descent = os2.sTypoDescender
    horizontal.lineGap = os2.sTypoLineGap


def main():
    source, family, target = sys.argv[1:]
    with TTFont(source, recalcTimestamp=False, recalcBBoxes=False) as face:
        rename(face, family)
        state_metrics(face)
        face.save(target)


if __name__ == "__main__":
    main()
