<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- Spanish on Linux: the source texts stay as they are, but for those that
     name the Mac, macOS, the Finder, the Dock or the menu bar. -->
<TS version="2.1" language="es" sourcelanguage="es">
<context>
    <name>Vorlano</name>
    <message>
        <source>Al analizar, macOS preguntará por Escritorio, Documentos y Descargas. Si dices que no, esas carpetas simplemente se saltan.</source>
        <translation>Vorlano lee tu carpeta personal con tus propios permisos. Lo que no puede leer simplemente se salta.</translation>
    </message>
    <message>
        <source>Analizando tu Mac…</source>
        <translation>Analizando tu equipo…</translation>
    </message>
    <message>
        <source>Analizar mi Mac</source>
        <translation>Analizar mi equipo</translation>
    </message>
    <message>
        <source>Archivos .dmg, .pkg y .xip que ya no se necesitan después de instalar. Van a la Papelera.</source>
        <translation>Paquetes e imágenes de instalación (.deb, .rpm, .flatpak, .snap, .run, .iso…) que ya no se necesitan después de instalar. Van a la Papelera.</translation>
    </message>
    <message>
        <source>Buscando proyectos y archivos grandes… (macOS puede pedir permiso para Escritorio, Documentos y Descargas)</source>
        <translation>Buscando proyectos y archivos grandes…</translation>
    </message>
    <message>
        <source>Libera espacio en tu Mac sin sustos.</source>
        <translation>Libera espacio en tu equipo sin sustos.</translation>
    </message>
    <message>
        <source>Llega como notificación de macOS, como máximo una vez al día.</source>
        <translation>Llega como notificación del escritorio, como máximo una vez al día.</translation>
    </message>
    <message>
        <source>Mostrar el espacio libre en la barra de menú</source>
        <translation>Mostrar el espacio libre en la bandeja del sistema</translation>
    </message>
    <message>
        <source>Mostrar en el Finder</source>
        <translation>Mostrar en el gestor de archivos</translation>
    </message>
    <message>
        <source>No se miden (protegidas por macOS): {nombres}.</source>
        <translation>No se miden (protegidas): {nombres}.</translation>
    </message>
    <message>
        <source>Opcional. Con acceso total, macOS deja de preguntar por Escritorio, Documentos y Descargas cada vez que Vorlano analiza. En Configuración del Sistema, activa Vorlano en la lista (o agrégalo con +).</source>
        <translation>Opcional. Con acceso total, Vorlano puede leer toda tu carpeta personal. Donde ninguna página de ajustes lo concede, lo hace la orden de abajo.</translation>
    </message>
    <message>
        <source>Preferencias y datos de apps que ya no están en tu Mac. Van a la Papelera.</source>
        <translation>Preferencias y datos de apps que ya no están en tu equipo. Van a la Papelera.</translation>
    </message>
    <message>
        <source>Protegida por macOS</source>
        <translation>Protegida por el sistema</translation>
    </message>
    <message>
        <source>macOS te pedirá permisos</source>
        <translation>Lo que no puede leer, lo salta</translation>
    </message>
    <message>
        <source>macOS te pedirá tu contraseña</source>
        <translation>el sistema te pedirá tu contraseña</translation>
    </message>
    <message>
        <source>macOS te pedirá tu contraseña para mover la app.</source>
        <translation>El sistema te pedirá tu contraseña para mover la app.</translation>
    </message>
</context>
</TS>
