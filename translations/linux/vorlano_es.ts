<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- Spanish on Linux: the source texts stay as they are, but for those that
     name the Mac, macOS, the Finder, the Dock or the menu bar. -->
<TS version="2.1" language="es" sourcelanguage="es">
<context>
    <name>Vorlano</name>
    <message>
        <source>Archivos .dmg, .pkg y .xip que ya no se necesitan después de instalar. Van a la Papelera.</source>
        <translation>Paquetes e imágenes de instalación (.deb, .rpm, .flatpak, .snap, .run, .iso…) que ya no se necesitan después de instalar. Van a la Papelera.</translation>
    </message>
    <message>
        <source>Preferencias y datos de apps que ya no están en tu Mac. Van a la Papelera.</source>
        <translation>Preferencias y datos de apps que ya no están en tu equipo. Van a la Papelera.</translation>
    </message>
    <message>
        <source>Buscando proyectos y archivos grandes… (macOS puede pedir permiso para Escritorio, Documentos y Descargas)</source>
        <translation>Buscando proyectos y archivos grandes…</translation>
    </message>
</context>
</TS>
