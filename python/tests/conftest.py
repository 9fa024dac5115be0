"""Settings of their own for every test: factory settings of the United States in a temporary folder."""

import pytest

import unitlib


@pytest.fixture
def units(tmp_path):
    """The loaded module; its settings file is UnitConfig.xml in tmp_path."""
    unitlib.set_folders(tmp_path, tmp_path / "documents")
    unitlib.generate_default()
    unitlib.load()
    yield unitlib
    unitlib.free()
    unitlib.set_folders()
