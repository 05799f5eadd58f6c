#!/usr/bin/env python3
"""Makes the sample models and their textures beside this file, the same bytes on every run."""

import sys
from pathlib import Path

sys.dont_write_bytecode = True        # before the imports, to keep caches out of the folder

from maker.formats import write_x, write_xsi  # noqa: E402
from maker.lighthouse import lighthouse  # noqa: E402
from maker.skiff import skiff  # noqa: E402
from maker.textures import write_textures  # noqa: E402
from maker.windmill import windmill  # noqa: E402

FOLDER = Path(__file__).resolve().parent

if __name__ == "__main__":
    write_textures(FOLDER)
    write_xsi(FOLDER / "windmill.xsi", windmill())
    write_xsi(FOLDER / "skiff.xsi", skiff())
    write_x(FOLDER / "lighthouse.x", lighthouse())
