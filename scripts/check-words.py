#!/usr/bin/env python3
"""Fails where a text of the viewer lacks a translation, or one does not fit its text: scripts/check-words.py

The catalogues have the texts of the sources, no more and no less. A translation has the places of its text, %1 and so on,
and %n in each of its plurals; an access key, a letter or a digit of every keyboard, where the text has one; and its dots.
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent
WORDS = ROOT / "viewer/words"

PLACE = re.compile(r"%(?:[0-9]+|n)")
KEY = re.compile(r"&(?!&)(.?)")


def faults_of(text, translation, is_plural):
    """Yields what is wrong with a translation, or with one of its plurals."""
    if not translation or translation != translation.strip():
        yield "is empty, or has blanks at an end"
    if sorted(set(PLACE.findall(text))) != sorted(set(PLACE.findall(translation))):
        yield "has other places"
    keys = KEY.findall(translation)
    # Menus made from tables have a number as key.
    if len(keys) != len(KEY.findall(text)) or not all(re.fullmatch("[A-Za-z0-9%]", key) for key in keys):
        yield "needs one access key, as its text, of those that every keyboard has"
    if text.endswith("...") != translation.endswith("..."):
        yield "needs three dots where its text has them, and nowhere else"
    if is_plural != ("%n" in translation):
        yield "needs the number of its plural"


def faults_in(path):
    """Yields what is wrong in a catalogue."""
    for context in ElementTree.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            text = message.findtext("source")
            translation = message.find("translation")
            place = f"{path.name}: {context.findtext('name')}: {text}"
            is_plural = message.get("numerus") == "yes"
            if translation.get("type"):
                yield f"{place}: {translation.get('type')}"
                continue
            for words in translation.iter("numerusform") if is_plural else [translation]:
                for fault in faults_of(text, words.text or "", is_plural):
                    yield f"{place}: {words.text}: {fault}"


def main():
    faults = []
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([ROOT / "scripts/update-words.sh", folder], check=True)
        for path in sorted(WORDS.glob("*.ts")):
            if path.read_bytes() != (pathlib.Path(folder) / path.name).read_bytes():
                faults.append(f"{path.name} has not the texts of the sources: scripts/update-words.sh brings them")
            faults += faults_in(path)
    if not list(WORDS.glob("*.ts")):
        faults.append("there is no catalogue")
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
