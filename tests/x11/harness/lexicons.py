# SPDX-License-Identifier: MIT
"""Small dictionaries, made at run time from the word lists in data/."""
import pathlib
import subprocess

_DATA = pathlib.Path(__file__).resolve().parent.parent / "data"
_WORD_LISTS = {"Eng2Ger": "eng2ger.tsv", "Ger2Eng": "ger2eng.tsv"}


def build(tool, directory):
    """Builds the samples into `directory`; returns name -> path."""
    built = {}
    for name, words in _WORD_LISTS.items():
        built[name] = pathlib.Path(directory) / f"{name}.PDB"
        subprocess.run([tool, "build", str(_DATA / words), "-o", str(built[name]),
                        "--description", f"Sample {name}", "--quiet"], check=True)
    return built


def words(name):
    """The headwords of a sample in the order of the dictionary."""
    lines = (_DATA / _WORD_LISTS[name]).read_text(encoding="utf-8").splitlines()
    return [line.split("\t")[0] for line in lines if line]
