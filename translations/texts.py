#!/usr/bin/env python3
"""Keeps the catalogues and the texts in the sources together.

    texts.py update ROOT LUPDATE   enters new texts into the catalogues and drops those that are gone
    texts.py check ROOT LUPDATE    says what is missing, unfinished or wrong in them
"""
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree
from pathlib import Path

ROOMS_WITH_TR = ["ui", "plot"]
# Rooms whose messages reach the windows through Shown(). What writes files speaks English.
ROOMS_WITH_TEXTS = ["core", "network", "design", "analysis", "optimize", "synthesis", "advise", "io",
                    "plot"]
FILE_WRITERS = re.compile(r"optimize/report\.cpp|io/(export_|spice_|network_netlist|class_e_netlist\.cpp"
                          r"|network_report|design_report|response_table|touchstone\.h|exact_settings"
                          r"|network_exports)|advise/window_arguments\.cpp"
                          r"|plot/(caption|response_table|shown_numbers|metafile_device)\.cpp")
PLACE = re.compile(r"%(?:[1-9]|n)")
# Words of files' formats that look like sentences.
FORMATS = re.compile(r"DejaVu Sans|MS Sans|font-family|Fourier analysis|Q by phase|\[Number of Ports\]|(begin|end) information|"
                     r"(number of|number of noise) (ports|frequencies)|(network|noise) data|"
                     r"(mixed-mode|two-port|two-port data) order|matrix format")
LITERAL = r'"(?:[^"\\]|\\.)*"'
CHARACTER = r"'(?:[^'\\]|\\.)'"


def listed(root):
    """The texts of translations/texts.txt."""
    lines = (root / "translations/texts.txt").read_text(encoding="utf-8").splitlines()
    return [line.replace("\\n", "\n") for line in lines if line and not line.startswith("#")]


def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n") + '"'


def update(root, lupdate, catalogues):
    """Runs lupdate over the rooms with tr() and over the list, which it reads as source."""
    with tempfile.TemporaryDirectory() as folder:
        source = Path(folder) / "texts.cpp"
        source.write_text("".join(f'QT_TRANSLATE_NOOP("kelvro", {quoted(text)});\n'
                                  for text in listed(root)), encoding="utf-8")
        command = [lupdate, "-silent", "-no-obsolete", "-locations", "none", "-I", str(root)]
        command += [str(root / room) for room in ROOMS_WITH_TR] + [str(source), "-ts"]
        subprocess.run(command + [str(path) for path in catalogues], check=True)


def messages(path):
    """{(context, source, comment): (translation, finished)} of a catalogue."""
    found = {}
    for context in ElementTree.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            forms = [form.text or "" for form in translation.iter("numerusform")]
            key = (context.findtext("name"), message.findtext("source"),
                   message.findtext("comment") or "")
            found[key] = (forms or [translation.text or ""], translation.get("type") is None)
    return found


def letters(text):
    """How many mnemonics a caption has."""
    return len(re.findall(r"&(?=\w)", text.replace("&&", "")))


def faults_of(source, forms, finished):
    """What is wrong with one entry."""
    if not finished or not all(forms):
        yield "is not translated"
        return
    for form in forms:
        if sorted(PLACE.findall(source)) != sorted(PLACE.findall(form)):
            yield f"has other places than {form!r}"
        if letters(source) != letters(form):
            yield f"has another number of key letters than {form!r}"
        ends = [re.search(r"(?:\.\.\.|…|:|\s)*$", text).group() for text in (source, form)]
        if ends[0] != ends[1]:
            yield f"ends otherwise than {form!r}"


def spoken(root):
    """Pieces of messages that the rooms hand up, with the place where they are written."""
    for room in ROOMS_WITH_TEXTS:
        for path in sorted((root / room).rglob("*.cpp")):
            name = path.relative_to(root).as_posix()
            if FILE_WRITERS.match(name):
                continue
            text = path.read_text(encoding="utf-8")
            text = re.sub(rf"({LITERAL})|{CHARACTER}|//[^\n]*|#include[^\n]*", r"\1", text)
            for literal in re.findall(rf"{LITERAL}(?:\s*{LITERAL})*", text):
                piece = "".join(part[1:-1] for part in re.findall(LITERAL, literal))
                piece = piece.replace('\\"', '"').replace("\\n", "\n")
                # Words of a sentence; keys and symbols have no blanks between letters.
                if re.search(r"[a-z]{2}[,;:]? [a-z(]{2}|[a-z]{3}[.!?]?$", piece) and " " in piece:
                    yield name, piece


def check(root, lupdate):
    complaints = []
    with tempfile.TemporaryDirectory() as folder:
        for path in sorted((root / "translations").glob("*.ts")):
            fresh = Path(folder) / path.name
            fresh.write_bytes(path.read_bytes())
            update(root, lupdate, [fresh])
            present, due = messages(path), messages(fresh)
            complaints += [f"{path.name}: not in the catalogue (build the target texts): {key}"
                           for key in due.keys() - present.keys()]
            complaints += [f"{path.name}: no longer in the sources: {key}"
                           for key in present.keys() - due.keys()]
            for (context, source, _), (forms, finished) in present.items():
                complaints += [f"{path.name}: {context}: {source!r} {fault}"
                               for fault in faults_of(source, forms, finished)]
    known = "\0".join(PLACE.sub("\1", text) for text in listed(root))
    for name, piece in spoken(root):
        # Blanks and quotes at the ends may have gone into a place.
        if PLACE.sub("\1", piece.strip(" '\".,;:()")) not in known and not FORMATS.match(piece):
            complaints.append(f"{name}: not in translations/texts.txt: {piece!r}")
    return complaints


def main(task, root, lupdate):
    if task == "update":
        update(Path(root), lupdate, sorted((Path(root) / "translations").glob("*.ts")))
        return 0
    complaints = check(Path(root), lupdate)
    print("\n".join(complaints) or "All texts are translated.")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
