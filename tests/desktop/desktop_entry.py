"""The installed desktop entry."""

import configparser
import os
from pathlib import Path

PREFIX = Path(os.environ.get("QUENARA_PREFIX", ""))
ENTRY = PREFIX / "share/applications/quenara.desktop"


def read_entry():
    """The keys of the entry and their values."""
    parser = configparser.ConfigParser(interpolation=None, delimiters="=")
    parser.optionxform = str
    with ENTRY.open(encoding="utf-8") as file:
        parser.read_file(file)
    return parser["Desktop Entry"]
