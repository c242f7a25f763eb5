#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Keeps the Linux catalogues in step with the texts the program can show.

    scripts/catalogos.py               add the new source texts to the catalogues
                                       (as unfinished) and drop those that are gone
    scripts/catalogos.py --comprobar   change nothing; list what is missing and exit 1

lupdate finds the texts: tr("…") and qsTranslate("Vorlano", "…") calls, and
the QT_TR_NOOP("…") marks of texts that tables hold. It names each C++ context
after the namespace or class of the call, while the program looks every text
up in the one context "Vorlano": contexts are merged here.

The English catalogue translates every text. The Spanish one rewords only the
texts that name the Mac, macOS, the Finder, the Dock or the menu bar, and each
of those must be reworded. In both, every {marker} of a source text survives.
"""
import argparse
import collections
import os
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ET

RAIZ = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
CONTEXTO = "Vorlano"
NOMBRA_MAC = re.compile(r"\b(?:Mac|macOS|Finder|Dock)\b|barra de menús?")
MARCADOR = re.compile(r"\{[^{}\s]+\}")


def extraer(lupdate):
    """The source texts of src/, sorted, and lupdate's complaints about calls it had to skip."""
    with tempfile.TemporaryDirectory() as tmp:
        ts = os.path.join(tmp, "extraidos.ts")
        r = subprocess.run(
            [lupdate, "-locations", "none", "-no-obsolete", "-extensions", "cpp,h,qml",
             os.path.join(RAIZ, "src"), "-ts", ts],
            capture_output=True, text=True, check=True)
        textos = {m.findtext("source") for m in ET.parse(ts).iter("message")}
    # A tr() outside any class or namespace has no context for lupdate, which
    # leaves it out: mark its text with QT_TRANSLATE_NOOP("Vorlano", "…").
    saltados = [l for l in r.stderr.splitlines() if "cannot be called without context" in l]
    return sorted(textos), saltados


def leer(ruta):
    """source -> (translation, finished) of a catalogue, with its head up to the first context."""
    mensajes = {}
    for contexto in ET.parse(ruta).iter("context"):
        for m in contexto.iter("message"):
            t = m.find("translation")
            mensajes[m.findtext("source")] = (t.text or "", t.get("type") is None and bool(t.text))
    with open(ruta, encoding="utf-8") as f:
        cabeza = f.read().split("<context>")[0]
    return mensajes, cabeza


def escribir(ruta, cabeza, mensajes):
    def x(s):
        return s.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;").replace('"', "&quot;")
    lineas = [cabeza.rstrip("\n"), "<context>", f"    <name>{CONTEXTO}</name>"]
    for fuente, (traduccion, hecha) in mensajes.items():
        tipo = "" if hecha else ' type="unfinished"'
        lineas += ["    <message>", f"        <source>{x(fuente)}</source>",
                   f"        <translation{tipo}>{x(traduccion)}</translation>", "    </message>"]
    lineas += ["</context>", "</TS>", ""]
    with open(ruta, "w", encoding="utf-8") as f:
        f.write("\n".join(lineas))


def marcadores(texto):
    return collections.Counter(MARCADOR.findall(texto))


def revisar(nombre, fuentes, mensajes, completo):
    """The faults of one catalogue against the texts of the program."""
    faltas = []
    for fuente in fuentes:
        if fuente not in mensajes:
            if completo or NOMBRA_MAC.search(fuente):
                faltas.append(f"{nombre}: sin traducir: {fuente!r}")
            continue
        traduccion, hecha = mensajes[fuente]
        if not hecha:
            faltas.append(f"{nombre}: sin terminar: {fuente!r}")
        elif marcadores(traduccion) != marcadores(fuente):
            faltas.append(f"{nombre}: los marcadores no coinciden: {fuente!r} -> {traduccion!r}")
        elif not completo and NOMBRA_MAC.search(traduccion):
            faltas.append(f"{nombre}: sigue nombrando el Mac: {traduccion!r}")
    for fuente in mensajes.keys() - set(fuentes):
        faltas.append(f"{nombre}: el programa ya no muestra: {fuente!r}")
    return faltas


def main():
    p = argparse.ArgumentParser()
    p.add_argument("--comprobar", action="store_true")
    p.add_argument("--lupdate", default="/usr/lib/qt6/bin/lupdate")
    a = p.parse_args()

    fuentes, saltados = extraer(a.lupdate)
    faltas = [f"lupdate no ve este texto: {l}" for l in saltados]
    catalogos = [("translations/linux/vorlano_en.ts", True), ("translations/linux/vorlano_es.ts", False)]
    for nombre, completo in catalogos:
        ruta = os.path.join(RAIZ, nombre)
        mensajes, cabeza = leer(ruta)
        if a.comprobar:
            faltas += revisar(nombre, fuentes, mensajes, completo)
            continue
        nuevos = {f: mensajes.get(f, ("", False)) for f in fuentes
                  if f in mensajes or completo or NOMBRA_MAC.search(f)}
        escribir(ruta, cabeza, nuevos)
        print(f"{nombre}: {sum(not h for _, h in nuevos.values())} por traducir de {len(nuevos)}")
    for f in faltas:
        print(f)
    if a.comprobar:
        print(f"{len(fuentes)} textos, {len(faltas)} faltas")
    return 1 if faltas else 0


if __name__ == "__main__":
    sys.exit(main())
