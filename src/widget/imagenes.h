// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Pictures of the widget: each size in the light and the dark scheme, as PNG
// files, without any widget host and without a display.

#include <filesystem>

// Writes "widget-{familia}-{esquema}.png" into the folder (made with its
// parents), chico, mediano, grande, each claro then oscuro, and prints each
// file's full path on a line of its own, also when its write failed. Each
// picture is the widget 20 points in from a transparent edge, at twice the
// scale. Nothing is reported: a folder that can't be made or written gets no
// files. Needs the GUI application object.
void imagenesWidget(const std::filesystem::path& carpeta, bool ejemplo);

// The terminal run of --widget-png: an offscreen GUI application with the
// software renderer at scale 2, then imagenesWidget. Status 0.
int ejecutarImagenesWidget(int argc, char** argv, const std::filesystem::path& carpeta, bool ejemplo);
