#!/usr/bin/env python3
"""Fills in the manual page of tamarind-cli from docs/cli.md, so that there is one description of its commands.

cli_man.py TEMPLATE DOCUMENT PROGRAM >PAGE

The document's first table lists the options, its second the commands; the rest are the notes. PROGRAM, the finished
tamarind-cli, says in a few words what each command does.
"""

import re
import subprocess
import sys


def escaped(text):
    """Text that roff shows as it is."""
    text = text.replace("\\", "\\e").replace("…", "...").replace("-", "\\-")
    return re.sub(r"(?m)^([.'])", r"\\&\1", text)


def inline(text):
    """Markdown within a line: code is bold, as is what stands between asterisks; links are their text."""
    text = re.sub(r"\[([^]]*)\]\([^)]*\)", r"\1", text)
    parts = re.split(r"(`[^`]*`|\*\*[^*]*\*\*)", text.replace("\\|", "|"))
    shown = "".join(
        "\\fB" + escaped(part.strip("`*")) + "\\fR" if part.startswith(("`", "**")) else escaped(part) for part in parts
    )
    return re.sub(r"^([.'])", r"\\&\1", shown)


def cells(line):
    return [cell.strip() for cell in re.split(r"(?<!\\)\|", line.strip().strip("|"))]


def parse(document):
    """The rows of each table without its head, and every other block of lines."""
    tables, blocks = [], []
    for block in re.split(r"\n{2,}", document.strip()):
        lines = block.split("\n")
        if lines[0].startswith("|"):
            tables.append([cells(line) for line in lines[2:]])
        elif not lines[0].startswith("#"):
            blocks.append(lines)
    return tables, blocks


def purpose(program, usage):
    """What the command does: the first line of its help."""
    words = []
    for word in usage.split():
        if not re.fullmatch(r"[a-z]+", word):
            break
        words.append(word)
    ran = subprocess.run([program, *words, "--help"], capture_output=True, text=True, check=False)
    lines = ran.stdout.strip().split("\n")
    if ran.returncode != 0 or len(lines) < 2 or not lines[0]:
        sys.exit(f"cli_man: {' '.join(words)} is no command of {program}")
    return lines[0]


def options(rows):
    return "\n".join(f".TP\n{inline(row[0])}\n{inline(row[1])}" for row in rows)


def commands(program, rows):
    entries = []
    for cell, result, report in rows:
        usages = [usage.replace("\\|", "|") for usage in re.findall(r"`([^`]*)`", cell)]
        heads = "\n.TQ\n".join(f"\\fB{escaped(usage)}\\fR" for usage in usages)
        purposes = " ".join(dict.fromkeys(escaped(purpose(program, usage)) + "." for usage in usages))
        entry = f".TP\n{heads}\n{purposes}\n.br\n{inline(result)}"
        entries.append(entry + (f"\n.br\n\\fB\\-\\-json\\fR: {inline(report)}" if report else ""))
    return "\n".join(entries)


def notes(blocks):
    shown = []
    for lines in blocks:
        if lines[0].startswith("    "):
            shown.append(".PP\n.nf\n.ft B\n" + "\n".join(escaped(line.strip()) for line in lines) + "\n.ft\n.fi")
        else:
            shown.append(".PP\n" + "\n".join(inline(line) for line in lines))
    return "\n".join(shown).removeprefix(".PP\n")


def main():
    template, document, program = sys.argv[1:]
    with open(document, encoding="utf-8") as file:
        tables, blocks = parse(file.read())
    if len(tables) != 2:
        sys.exit(f"cli_man: {document} has {len(tables)} tables, not one of options and one of commands")
    with open(template, encoding="utf-8") as file:
        page = file.read()
    # The synopsis stands in the template.
    filled = {"%OPTIONS%": options(tables[0]), "%COMMANDS%": commands(program, tables[1]), "%NOTES%": notes(blocks[1:])}
    for name, text in filled.items():
        page = page.replace(name, text)
    sys.stdout.write(page)


main()
