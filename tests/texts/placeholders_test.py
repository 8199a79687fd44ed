# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""Every translation has the placeholders of its English text.

A translation with other placeholders would be replaced by the English text, so nothing breaks; but a translator should
learn of it before the users do. Arguments: the catalogues.
"""

import re
import sys

FIELD = re.compile(r'msgctxt|msgid_plural|msgid|msgstr(?:\[\d\])?')


def entries(path):
    entry, field = {}, None
    with open(path, encoding="utf-8") as file:
        for line in list(file) + ["\n"]:
            line = line.rstrip("\n")
            if not line:
                if entry.get("msgid"):
                    yield entry
                entry, field = {}, None
            elif line.startswith("#"):
                continue
            else:
                name = FIELD.match(line)
                field = name.group() if name else field
                text = line[line.index('"') + 1 : -1]
                entry[field] = entry.get(field, "") + text


def placeholders(text):
    """The placeholders in a text: {0:numbered} ones by their number, others by their order."""
    plain = text.replace("{{", "").replace("}}", "")
    found = re.findall(r"\{(\d*)(:[^{}]*)?\}", plain)
    return sorted((number or str(order), form) for order, (number, form) in enumerate(found))


def is_formatted(text):
    """Texts that show braces to the user are not formatted: "{name} {time}"."""
    return not re.search(r"\{[a-z]|\{\{", text)


def problems(path):
    for entry in entries(path):
        english = entry["msgid"]
        if not is_formatted(english):
            continue
        allowed = {str(placeholders(english))}
        if "msgid_plural" in entry:
            allowed.add(str(placeholders(entry["msgid_plural"])))
            allowed.add(str([each for each in placeholders(english) if each[0] != "0"]))
        for field, text in entry.items():
            if field.startswith("msgstr") and text and str(placeholders(text)) not in allowed:
                yield f'{path}: "{english}" and "{text}" have different placeholders.'


def main():
    found = [problem for path in sys.argv[1:] for problem in problems(path)]
    print("\n".join(found))
    return 1 if found or len(sys.argv) == 1 else 0


sys.exit(main())
