"""The paths that the packaging tests use."""

import os
import pathlib

ROOT = pathlib.Path(__file__).resolve().parents[3]
PACKAGING = ROOT / "packaging"
APPLICATION_ID = "com.olmeric.vesktandry"


def given(name):
    """A value that the build passes to its tests."""
    value = os.environ.get(name)
    if not value:
        raise RuntimeError(f"{name} is not set: run these tests through ctest")
    return value
