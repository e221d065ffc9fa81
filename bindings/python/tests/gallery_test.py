# SPDX-License-Identifier: MIT
"""Each script of the gallery draws its picture."""

import subprocess
import sys
from pathlib import Path

import pytest

GALLERY = Path(__file__).resolve().parents[1] / "gallery"


@pytest.mark.parametrize("script", sorted(GALLERY.glob("*.py")), ids=lambda path: path.stem)
def test_a_script_draws_its_picture(script, tmp_path):
    picture = tmp_path / "picture.png"
    subprocess.run([sys.executable, script, picture], check=True, timeout=120)
    for file in (picture, script.with_suffix(".png")):
        assert 5_000 < file.stat().st_size < 60_000
