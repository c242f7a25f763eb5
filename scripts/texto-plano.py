#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
# Names on screen are bytes of other programs (files, folders, applications):
# Qt Quick would read "<b>" or "<img src=…>" in them as markup, so every Label
# and Text of the screens and the widget says it draws plain text.
#   texto-plano.py <src>
import pathlib, re, sys

raiz = pathlib.Path(sys.argv[1])
faltan = []
for qml in sorted(raiz.glob("pantallas/*.qml")) + sorted(raiz.glob("widget/*.qml")):
    lineas = qml.read_text(encoding="utf-8").split("\n")
    for i, linea in enumerate(lineas):
        if re.match(r"^\s*((contentItem|delegate)\s*:\s*|component \w+\s*:\s*)?(Label|Text|T\.Label)\s*\{\s*$", linea):
            if i + 1 >= len(lineas) or lineas[i + 1].strip() != "textFormat: Text.PlainText":
                faltan.append(f"{qml}:{i + 1}")
for f in faltan:
    print(f"{f}: falta textFormat: Text.PlainText")
print(f"texto-plano: {len(faltan)} faltas")
sys.exit(1 if faltan else 0)
