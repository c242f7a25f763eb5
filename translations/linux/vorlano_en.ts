<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- English on Linux: every text, in the words of a Linux desktop (the file
     manager, the system tray, the computer) where the source names the Mac's. -->
<TS version="2.1" language="en" sourcelanguage="es">
<context>
    <name>Vorlano</name>
    <message>
        <source>   … y {n} más</source>
        <translation>   … and {n} more</translation>
    </message>
    <message>
        <source>  error: {texto}</source>
        <translation>  error: {texto}</translation>
    </message>
    <message>
        <source> (PRUEBA)</source>
        <translation> (TEST)</translation>
    </message>
    <message>
        <source> ⚠︎ abierto: {app}</source>
        <translation> ⚠︎ open: {app}</translation>
    </message>
    <message>
        <source>.next, dist, build… se regeneran al compilar. Van a la Papelera.</source>
        <translation>.next, dist, build… rebuilt when you compile. They go to the Trash.</translation>
    </message>
    <message>
        <source>1 aviso</source>
        <translation>1 notice</translation>
    </message>
    <message>
        <source>1 carpeta o archivo de una app que ya no está instalada</source>
        <translation>1 folder or file of an app that is no longer installed</translation>
    </message>
    <message>
        <source>1 elemento</source>
        <translation>1 item</translation>
    </message>
    <message>
        <source>Abrir</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>Abrir Vorlano</source>
        <translation>Open Vorlano</translation>
    </message>
    <message>
        <source>Abrir Vorlano al iniciar sesión</source>
        <translation>Open Vorlano at login</translation>
    </message>
    <message>
        <source>Abrir al iniciar sesión</source>
        <translation>Open at login</translation>
    </message>
    <message>
        <source>Acceso en el menú de aplicaciones</source>
        <translation>Entry in the applications menu</translation>
    </message>
    <message>
        <source>Acceso total al disco</source>
        <translation>Full disk access</translation>
    </message>
    <message>
        <source>Accesos rápidos</source>
        <translation>Shortcuts</translation>
    </message>
    <message>
        <source>Acerca de</source>
        <translation>About</translation>
    </message>
    <message>
        <source>Activado</source>
        <translation>On</translation>
    </message>
    <message>
        <source>Activar…</source>
        <translation>Turn on…</translation>
    </message>
    <message>
        <source>Ajustes</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Ajustes…</source>
        <translation>Settings…</translation>
    </message>
    <message>
        <source>Al analizar, macOS preguntará por Escritorio, Documentos y Descargas. Si dices que no, esas carpetas simplemente se saltan.</source>
        <translation>Vorlano reads your home folder with your own rights. Whatever it can't read is simply skipped.</translation>
    </message>
    <message>
        <source>Analizando tu Mac…</source>
        <translation>Scanning your computer…</translation>
    </message>
    <message>
        <source>Analizar</source>
        <translation>Scan</translation>
    </message>
    <message>
        <source>Analizar ahora</source>
        <translation>Scan now</translation>
    </message>
    <message>
        <source>Analizar mi Mac</source>
        <translation>Scan my computer</translation>
    </message>
    <message>
        <source>Análisis en {s} s</source>
        <translation>Scanned in {s} s</translation>
    </message>
    <message>
        <source>AppImage</source>
        <translation>AppImage</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>Apps</translation>
    </message>
    <message>
        <source>Archivos .dmg, .pkg y .xip que ya no se necesitan después de instalar. Van a la Papelera.</source>
        <translation>Installer packages and disk images (.deb, .rpm, .flatpak, .snap, .run, .iso…) no longer needed after installing. They go to the Trash.</translation>
    </message>
    <message>
        <source>Archivos duplicados</source>
        <translation>Duplicate files</translation>
    </message>
    <message>
        <source>Archivos en Descargas con más de {dias} días. Van a la Papelera.</source>
        <translation>Files in Downloads older than {dias} days. They go to the Trash.</translation>
    </message>
    <message>
        <source>Archivos grandes</source>
        <translation>Large files</translation>
    </message>
    <message>
        <source>Archivos temporales que las apps vuelven a crear solas.</source>
        <translation>Temporary files that apps create again on their own.</translation>
    </message>
    <message>
        <source>Avisar si quedan menos de</source>
        <translation>Warn me when less than</translation>
    </message>
    <message>
        <source>Avisos</source>
        <translation>Notices</translation>
    </message>
    <message>
        <source>Borrado: {borrado} · A la Papelera: {enPapelera}</source>
        <translation>Deleted: {borrado} · To the Trash: {enPapelera}</translation>
    </message>
    <message>
        <source>Buscando archivos duplicados…</source>
        <translation>Looking for duplicate files…</translation>
    </message>
    <message>
        <source>Buscando proyectos y archivos grandes… (macOS puede pedir permiso para Escritorio, Documentos y Descargas)</source>
        <translation>Looking for projects and large files…</translation>
    </message>
    <message>
        <source>Buscando restos de apps desinstaladas…</source>
        <translation>Looking for leftovers of uninstalled apps…</translation>
    </message>
    <message>
        <source>Buscando sus archivos…</source>
        <translation>Looking for its files…</translation>
    </message>
    <message>
        <source>Buscar apps</source>
        <translation>Search apps</translation>
    </message>
    <message>
        <source>Buscar qué limpiar</source>
        <translation>Find what to clean</translation>
    </message>
    <message>
        <source>Caché de Next.js</source>
        <translation>Next.js cache</translation>
    </message>
    <message>
        <source>Caché de Nuxt</source>
        <translation>Nuxt cache</translation>
    </message>
    <message>
        <source>Caché de Parcel</source>
        <translation>Parcel cache</translation>
    </message>
    <message>
        <source>Caché de SvelteKit</source>
        <translation>SvelteKit cache</translation>
    </message>
    <message>
        <source>Caché de Turborepo</source>
        <translation>Turborepo cache</translation>
    </message>
    <message>
        <source>Caché de Unity (Library)</source>
        <translation>Unity cache (Library)</translation>
    </message>
    <message>
        <source>Caché interna de la app</source>
        <translation>App's internal cache</translation>
    </message>
    <message>
        <source>Cachés</source>
        <translation>Caches</translation>
    </message>
    <message>
        <source>Cachés de aplicaciones</source>
        <translation>App caches</translation>
    </message>
    <message>
        <source>Cachés de programación</source>
        <translation>Developer caches</translation>
    </message>
    <message>
        <source>Cancelar</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Carpeta del sistema o de tu cuenta: no se puede mover desde aquí</source>
        <translation>System or account folder: it can't be moved from here</translation>
    </message>
    <message>
        <source>Carpeta: </source>
        <translation>Folder: </translation>
    </message>
    <message>
        <source>Compilaciones de proyectos</source>
        <translation>Project builds</translation>
    </message>
    <message>
        <source>Compilación (build)</source>
        <translation>Build (build)</translation>
    </message>
    <message>
        <source>Compilación (dist)</source>
        <translation>Build (dist)</translation>
    </message>
    <message>
        <source>Compilación de Gradle</source>
        <translation>Gradle build</translation>
    </message>
    <message>
        <source>Compilación de Rust</source>
        <translation>Rust build</translation>
    </message>
    <message>
        <source>Compilación de Xcode</source>
        <translation>Xcode build</translation>
    </message>
    <message>
        <source>Con todos sus restos</source>
        <translation>With all their leftovers</translation>
    </message>
    <message>
        <source>Configuración</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Contenedor</source>
        <translation>Container</translation>
    </message>
    <message>
        <source>Contenedor compartido</source>
        <translation>Shared container</translation>
    </message>
    <message>
        <source>Cookies</source>
        <translation>Cookies</translation>
    </message>
    <message>
        <source>Copias idénticas en Escritorio, Documentos, Descargas, Imágenes y Películas. Se conserva la más antigua. Van a la Papelera.</source>
        <translation>Identical copies in Desktop, Documents, Downloads, Pictures and Videos. The oldest one is kept. They go to the Trash.</translation>
    </message>
    <message>
        <source>Cursor · extensiones descargadas</source>
        <translation>Cursor · downloaded extensions</translation>
    </message>
    <message>
        <source>Datos de 1 proyecto borrado o movido</source>
        <translation>Data of 1 deleted or moved project</translation>
    </message>
    <message>
        <source>Datos de la app</source>
        <translation>App data</translation>
    </message>
    <message>
        <source>Datos de la app (Flatpak)</source>
        <translation>App data (Flatpak)</translation>
    </message>
    <message>
        <source>Datos de la app (Snap)</source>
        <translation>App data (Snap)</translation>
    </message>
    <message>
        <source>Datos de {n} proyectos borrados o movidos</source>
        <translation>Data of {n} deleted or moved projects</translation>
    </message>
    <message>
        <source>Datos web</source>
        <translation>Web data</translation>
    </message>
    <message>
        <source>Dependencias de Node</source>
        <translation>Node dependencies</translation>
    </message>
    <message>
        <source>Dependencias de proyectos</source>
        <translation>Project dependencies</translation>
    </message>
    <message>
        <source>Descargas antiguas</source>
        <translation>Old downloads</translation>
    </message>
    <message>
        <source>Desinstalada: {borrado}. Movido a la Papelera: {bytes}; eso puedes recuperarlo desde ahí.</source>
        <translation>Uninstalled: {borrado}. Moved to the Trash: {bytes}; you can restore that from there.</translation>
    </message>
    <message>
        <source>Desinstalar</source>
        <translation>Uninstall</translation>
    </message>
    <message>
        <source>Desinstalar apps</source>
        <translation>Uninstall apps</translation>
    </message>
    <message>
        <source>Desmarcar {titulo}</source>
        <translation>Untick {titulo}</translation>
    </message>
    <message>
        <source>Docker: imágenes y caché sin usar</source>
        <translation>Docker: unused images and build cache</translation>
    </message>
    <message>
        <source>El sistema te pedirá tu contraseña para desinstalarla.</source>
        <translation>The system will ask for your password to uninstall it.</translation>
    </message>
    <message>
        <source>Elige una app o arrástrala aquí</source>
        <translation>Choose an app or drag it here</translation>
    </message>
    <message>
        <source>Empezar</source>
        <translation>Get started</translation>
    </message>
    <message>
        <source>En uso por apps abiertas</source>
        <translation>In use by open apps</translation>
    </message>
    <message>
        <source>En uso por {apps}. Ciérrala y vuelve a analizar para limpiarlo.</source>
        <translation>In use by {apps}. Quit it and scan again to clean it.</translation>
    </message>
    <message>
        <source>En uso por {apps}. Ciérralas y vuelve a analizar para limpiarlo.</source>
        <translation>In use by {apps}. Quit them and scan again to clean it.</translation>
    </message>
    <message>
        <source>Entorno de Python</source>
        <translation>Python environment</translation>
    </message>
    <message>
        <source>Enviar comentarios</source>
        <translation>Send feedback</translation>
    </message>
    <message>
        <source>Espacio libre</source>
        <translation>Free space</translation>
    </message>
    <message>
        <source>Espacio libre: {antes} → {ahora}</source>
        <translation>Free space: {antes} → {ahora}</translation>
    </message>
    <message>
        <source>Estado de la app</source>
        <translation>App state</translation>
    </message>
    <message>
        <source>Estado de ventanas</source>
        <translation>Window state</translation>
    </message>
    <message>
        <source>Este mes limpiaste</source>
        <translation>This month you cleaned</translation>
    </message>
    <message>
        <source>Está abierta. Ciérrala para poder desinstalarla.</source>
        <translation>It is open. Quit it to uninstall it.</translation>
    </message>
    <message>
        <source>Flatpak</source>
        <translation>Flatpak</translation>
    </message>
    <message>
        <source>Flatpak del sistema</source>
        <translation>System Flatpak</translation>
    </message>
    <message>
        <source>General</source>
        <translation>General</translation>
    </message>
    <message>
        <source>Go (módulos)</source>
        <translation>Go (modules)</translation>
    </message>
    <message>
        <source>Grande</source>
        <translation>Large</translation>
    </message>
    <message>
        <source>Gráfico de lo limpiado por semana</source>
        <translation>Chart of what was cleaned each week</translation>
    </message>
    <message>
        <source>Haz clic en un rectángulo para ver qué es; doble clic para entrar a la carpeta.</source>
        <translation>Click a rectangle to see what it is; double-click to enter the folder.</translation>
    </message>
    <message>
        <source>Herramientas descargadas</source>
        <translation>Downloaded tools</translation>
    </message>
    <message>
        <source>Historiales de apps e informes de fallos antiguos.</source>
        <translation>App histories and old crash reports.</translation>
    </message>
    <message>
        <source>Icono</source>
        <translation>Icon</translation>
    </message>
    <message>
        <source>Igual a {conservado}</source>
        <translation>Same as {conservado}</translation>
    </message>
    <message>
        <source>Igual a {conservado} · copia clonada: puede no liberar espacio</source>
        <translation>Same as {conservado} · cloned copy: may not free any space</translation>
    </message>
    <message>
        <source>Inicio automático</source>
        <translation>Start at login</translation>
    </message>
    <message>
        <source>Instaladores</source>
        <translation>Installers</translation>
    </message>
    <message>
        <source>La app</source>
        <translation>The app</translation>
    </message>
    <message>
        <source>La app y 1 archivo más ({bytes}) irán a la Papelera. Puedes recuperarlos desde ahí.</source>
        <translation>The app and 1 more file ({bytes}) will go to the Trash. You can restore them from there.</translation>
    </message>
    <message>
        <source>La app y {n} archivos más ({bytes}) irán a la Papelera. Puedes recuperarlos desde ahí.</source>
        <translation>The app and {n} more files ({bytes}) will go to the Trash. You can restore them from there.</translation>
    </message>
    <message>
        <source>Libera espacio en tu Mac sin sustos.</source>
        <translation>Free up space on your computer without surprises.</translation>
    </message>
    <message>
        <source>Liberaste {bytes}</source>
        <translation>You freed {bytes}</translation>
    </message>
    <message>
        <source>Limpiando {nombre}…</source>
        <translation>Cleaning {nombre}…</translation>
    </message>
    <message>
        <source>Limpiando…</source>
        <translation>Cleaning…</translation>
    </message>
    <message>
        <source>Limpiar</source>
        <translation>Clean</translation>
    </message>
    <message>
        <source>Limpiar ahora</source>
        <translation>Clean now</translation>
    </message>
    <message>
        <source>Limpiar desde la terminal solo funciona con VORLANO_HOME (carpeta de prueba). Usa la app para limpiar.</source>
        <translation>Cleaning from the terminal only works with VORLANO_HOME (a test folder). Use the app to clean.</translation>
    </message>
    <message>
        <source>Limpieza</source>
        <translation>Cleanup</translation>
    </message>
    <message>
        <source>Listo para limpiar</source>
        <translation>Ready to clean</translation>
    </message>
    <message>
        <source>Llega como notificación de macOS, como máximo una vez al día.</source>
        <translation>Arrives as a desktop notification, at most once a day.</translation>
    </message>
    <message>
        <source>Lo marcado en verde es seguro. Lo demás revísalo antes de marcarlo.</source>
        <translation>What is ticked in green is safe. Review the rest before you tick it.</translation>
    </message>
    <message>
        <source>Lo seguro ya está limpio</source>
        <translation>The safe part is already clean</translation>
    </message>
    <message>
        <source>Lo seguro ya está limpio. Esto no se marca solo: revísalo si quieres liberar más.</source>
        <translation>The safe part is already clean. These are not ticked for you: review them if you want to free more.</translation>
    </message>
    <message>
        <source>Los archivos más pesados de tu carpeta personal (más de {bytes}). Van a la Papelera.</source>
        <translation>The heaviest files in your home folder (over {bytes}). They go to the Trash.</translation>
    </message>
    <message>
        <source>Los colores te dicen qué tan seguro es</source>
        <translation>The colors tell you how safe it is</translation>
    </message>
    <message>
        <source>MODO PRUEBA</source>
        <translation>TEST MODE</translation>
    </message>
    <message>
        <source>Mapa</source>
        <translation>Map</translation>
    </message>
    <message>
        <source>Mapa del disco</source>
        <translation>Disk map</translation>
    </message>
    <message>
        <source>Mapa en {s} s · total {bytes}</source>
        <translation>Map in {s} s · total {bytes}</translation>
    </message>
    <message>
        <source>Marca todo lo que no esté en uso</source>
        <translation>Tick everything that is not in use</translation>
    </message>
    <message>
        <source>Marcar {titulo}</source>
        <translation>Tick {titulo}</translation>
    </message>
    <message>
        <source>Mediano</source>
        <translation>Medium</translation>
    </message>
    <message>
        <source>Medir mi carpeta personal</source>
        <translation>Measure my home folder</translation>
    </message>
    <message>
        <source>Midiendo tamaños… {n} %</source>
        <translation>Measuring sizes… {n} %</translation>
    </message>
    <message>
        <source>Midiendo tu carpeta personal…</source>
        <translation>Measuring your home folder…</translation>
    </message>
    <message>
        <source>Mira qué carpetas ocupan más espacio, en un mapa.</source>
        <translation>See which folders take up the most space, on a map.</translation>
    </message>
    <message>
        <source>Mostrar el espacio libre en la barra de menú</source>
        <translation>Show free space in the system tray</translation>
    </message>
    <message>
        <source>Mostrar en el Finder</source>
        <translation>Show in the file manager</translation>
    </message>
    <message>
        <source>Mover a la Papelera</source>
        <translation>Move to Trash</translation>
    </message>
    <message>
        <source>Movido a la Papelera: {bytes}. Si te arrepientes, puedes recuperarla desde ahí.</source>
        <translation>Moved to the Trash: {bytes}. If you change your mind, you can restore it from there.</translation>
    </message>
    <message>
        <source>Moviste {bytes} a la Papelera</source>
        <translation>You moved {bytes} to the Trash</translation>
    </message>
    <message>
        <source>Nada se borra sin tu confirmación</source>
        <translation>Nothing is deleted without your confirmation</translation>
    </message>
    <message>
        <source>Navegadores de prueba, modelos, imágenes de VM. Se bajan de nuevo cuando se usen.</source>
        <translation>Test browsers, models, VM images. Downloaded again when needed.</translation>
    </message>
    <message>
        <source>No dejó otros archivos en tu carpeta personal.</source>
        <translation>It left no other files in your home folder.</translation>
    </message>
    <message>
        <source>No medidas (protegidas): </source>
        <translation>Not measured (protected): </translation>
    </message>
    <message>
        <source>No se miden (protegidas por macOS): {nombres}.</source>
        <translation>Not measured (protected): {nombres}.</translation>
    </message>
    <message>
        <source>No se pudo vaciar la Papelera</source>
        <translation>Could not empty the Trash</translation>
    </message>
    <message>
        <source>No se pudo vaciar la Papelera: {nombre} es de otro usuario y solo un administrador puede borrarlo</source>
        <translation>Could not empty the Trash: {nombre} belongs to another user and only an administrator can delete it</translation>
    </message>
    <message>
        <source>No se puede mover a la Papelera porque está en otro sistema de archivos</source>
        <translation>Can't be moved to the Trash because it is on another file system</translation>
    </message>
    <message>
        <source>Nunca</source>
        <translation>Never</translation>
    </message>
    <message>
        <source>Ojo: {apps} están abiertos. Ciérralos antes para evitar problemas.</source>
        <translation>Careful: {apps} are open. Quit them first to avoid problems.</translation>
    </message>
    <message>
        <source>Ojo: {app} está abierto. Ciérralo antes para evitar problemas.</source>
        <translation>Careful: {app} is open. Quit it first to avoid problems.</translation>
    </message>
    <message>
        <source>Opcional. Con acceso total, macOS deja de preguntar por Escritorio, Documentos y Descargas cada vez que Vorlano analiza. En Configuración del Sistema, activa Vorlano en la lista (o agrégalo con +).</source>
        <translation>Optional. With full access, Vorlano can read your whole home folder. Where no settings page grants it, the command below does.</translation>
    </message>
    <message>
        <source>Pequeño</source>
        <translation>Small</translation>
    </message>
    <message>
        <source>Permisos</source>
        <translation>Permissions</translation>
    </message>
    <message>
        <source>Preferencias</source>
        <translation>Preferences</translation>
    </message>
    <message>
        <source>Preferencias y datos de apps que ya no están en tu Mac. Van a la Papelera.</source>
        <translation>Preferences and data of apps that are no longer on your computer. They go to the Trash.</translation>
    </message>
    <message>
        <source>Preparando…</source>
        <translation>Preparing…</translation>
    </message>
    <message>
        <source>Primero analizas, revisas la lista y recién ahí limpias.</source>
        <translation>First you scan, then you review the list, and only then you clean.</translation>
    </message>
    <message>
        <source>Programa en tu carpeta personal</source>
        <translation>Program in your home folder</translation>
    </message>
    <message>
        <source>Protegida por macOS</source>
        <translation>Protected by the system</translation>
    </message>
    <message>
        <source>Puedes liberar {bytes}</source>
        <translation>You can free {bytes}</translation>
    </message>
    <message>
        <source>Queda poco espacio</source>
        <translation>Running low on space</translation>
    </message>
    <message>
        <source>Quedan {bytes} libres. Abre Vorlano para ver qué se puede limpiar.</source>
        <translation>{bytes} left. Open Vorlano to see what can be cleaned.</translation>
    </message>
    <message>
        <source>Quita apps junto con sus preferencias, cachés y datos.</source>
        <translation>Removes apps together with their preferences, caches and data.</translation>
    </message>
    <message>
        <source>Quitar del escritorio</source>
        <translation>Remove from desktop</translation>
    </message>
    <message>
        <source>Qué ocupa espacio</source>
        <translation>What takes up space</translation>
    </message>
    <message>
        <source>Registros</source>
        <translation>Logs</translation>
    </message>
    <message>
        <source>Registros (logs)</source>
        <translation>Logs</translation>
    </message>
    <message>
        <source>Restos de apps desinstaladas</source>
        <translation>Leftovers of uninstalled apps</translation>
    </message>
    <message>
        <source>Resumen</source>
        <translation>Overview</translation>
    </message>
    <message>
        <source>Revisa antes</source>
        <translation>Review first</translation>
    </message>
    <message>
        <source>Revisa qué se puede limpiar</source>
        <translation>Review what can be cleaned</translation>
    </message>
    <message>
        <source>Revisa si quieres liberar más</source>
        <translation>Review them if you want to free more</translation>
    </message>
    <message>
        <source>Revisando Descargas…</source>
        <translation>Checking Downloads…</translation>
    </message>
    <message>
        <source>Revisando cachés de apps…</source>
        <translation>Checking app caches…</translation>
    </message>
    <message>
        <source>Revisando cachés de programación…</source>
        <translation>Checking developer caches…</translation>
    </message>
    <message>
        <source>Revisar la lista</source>
        <translation>Review the list</translation>
    </message>
    <message>
        <source>Salir de Vorlano</source>
        <translation>Quit Vorlano</translation>
    </message>
    <message>
        <source>Scripts</source>
        <translation>Scripts</translation>
    </message>
    <message>
        <source>Se borra definitivamente todo lo que hay en la Papelera, no solo lo que movió Vorlano.</source>
        <translation>Everything in the Trash is deleted for good, not only what Vorlano moved there.</translation>
    </message>
    <message>
        <source>Se borrarán {bytes} de cachés y temporales. Se regeneran solos.</source>
        <translation>{bytes} of caches and temporary files will be deleted. They rebuild on their own.</translation>
    </message>
    <message>
        <source>Se pierden las pestañas abiertas y ajustes de ese proyecto</source>
        <translation>The open tabs and settings of that project are lost</translation>
    </message>
    <message>
        <source>Se pierden las pestañas abiertas y ajustes de esos {n} proyectos</source>
        <translation>The open tabs and settings of those {n} projects are lost</translation>
    </message>
    <message>
        <source>Se vuelve a descargar</source>
        <translation>Downloaded again</translation>
    </message>
    <message>
        <source>Seguro</source>
        <translation>Safe</translation>
    </message>
    <message>
        <source>Seleccionado por defecto: {bytes}</source>
        <translation>Selected by default: {bytes}</translation>
    </message>
    <message>
        <source>Seleccionado: {bytes}</source>
        <translation>Selected: {bytes}</translation>
    </message>
    <message>
        <source>Si necesitas más espacio, revisa las tarjetas de abajo: son cosas que no se marcan solas.</source>
        <translation>If you need more space, review the cards below: these are things that are not ticked for you.</translation>
    </message>
    <message>
        <source>Simulador: {name}</source>
        <translation>Simulator: {name}</translation>
    </message>
    <message>
        <source>Simulator</source>
        <translation>Simulator</translation>
    </message>
    <message>
        <source>Sin marcar</source>
        <translation>Not ticked</translation>
    </message>
    <message>
        <source>Sitio de Vorlano y versiones nuevas</source>
        <translation>Vorlano's website and new versions</translation>
    </message>
    <message>
        <source>Snap</source>
        <translation>Snap</translation>
    </message>
    <message>
        <source>Son datos de una app: puede perder ajustes o archivos guardados.</source>
        <translation>This is an app's data: it may lose settings or saved files.</translation>
    </message>
    <message>
        <source>Son datos de {app}, que está abierta. Ciérrala antes.</source>
        <translation>This is data of {app}, which is open. Quit it first.</translation>
    </message>
    <message>
        <source>Te damos la bienvenida a Vorlano</source>
        <translation>Welcome to Vorlano</translation>
    </message>
    <message>
        <source>Te queda poco espacio</source>
        <translation>You are running out of space</translation>
    </message>
    <message>
        <source>Todo limpio. No encontré nada que valga la pena borrar.</source>
        <translation>All clean. I found nothing worth deleting.</translation>
    </message>
    <message>
        <source>Total: {bytes}</source>
        <translation>Total: {bytes}</translation>
    </message>
    <message>
        <source>Tu historial</source>
        <translation>Your history</translation>
    </message>
    <message>
        <source>VS Code · extensiones descargadas</source>
        <translation>VS Code · downloaded extensions</translation>
    </message>
    <message>
        <source>VSCodium · extensiones descargadas</source>
        <translation>VSCodium · downloaded extensions</translation>
    </message>
    <message>
        <source>Vaciar</source>
        <translation>Empty</translation>
    </message>
    <message>
        <source>Vaciar Papelera</source>
        <translation>Empty Trash</translation>
    </message>
    <message>
        <source>Ver detalle</source>
        <translation>Show details</translation>
    </message>
    <message>
        <source>Ver en Limpieza</source>
        <translation>Show in Cleanup</translation>
    </message>
    <message>
        <source>Ver la bienvenida otra vez</source>
        <translation>Show the welcome again</translation>
    </message>
    <message>
        <source>Verde: cachés que se regeneran solas. Naranja: se vuelven a descargar. Rojo: tus archivos; van a la Papelera y puedes recuperarlos.</source>
        <translation>Green: caches that rebuild on their own. Orange: downloaded again. Red: your files; they go to the Trash and you can restore them.</translation>
    </message>
    <message>
        <source>Versión</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Volver a analizar</source>
        <translation>Scan again</translation>
    </message>
    <message>
        <source>Volver a medir</source>
        <translation>Measure again</translation>
    </message>
    <message>
        <source>Vorlano analiza tu carpeta personal, ordena lo que se puede borrar por lo seguro que es y no borra nada sin tu confirmación.

Uso: vorlano [opción]
     vorlano [vorlano://enlace]

Sin opciones, abre la aplicación de escritorio; con un enlace vorlano:// (resumen, analizar,
limpieza, mapa o desinstalar), la lleva a esa sección, y si ya está abierta se lo pasa a ella.

  --mapa            mide la carpeta personal y muestra sus carpetas más grandes
  --scan            analiza y muestra el informe; no cambia nada
  --clean-defaults  analiza, muestra el informe y limpia lo seleccionado por defecto
  --clean-all       analiza, muestra el informe, selecciona todo y limpia
  --widget-png CARPETA [--ejemplo]
                    guarda el widget en sus tres tamaños, claro y oscuro, como PNG en
                    CARPETA; con --ejemplo, con cifras de muestra en vez de las del disco
  --widget [chico|mediano|grande]
                    pone el widget en el escritorio, con el tamaño dado o el de la última vez
  --help            muestra esta ayuda
  --version         muestra la versión

Limpiar desde la terminal solo funciona en modo de prueba: con VORLANO_HOME apuntando a una
carpeta, Vorlano trabaja allí como si fuera tu carpeta personal y no toca nada más.
VORLANO_TIEMPOS muestra en la salida de errores cuánto tarda cada etapa del análisis.
</source>
        <translation>Vorlano scans your home folder, sorts what can be deleted by how safe it is to delete, and deletes nothing without your confirmation.

Usage: vorlano [option]
   or: vorlano [vorlano://link]

Without options, it opens the desktop application; with a vorlano:// link (resumen, analizar,
limpieza, mapa or desinstalar), it takes the application to that section, handing the link to
the running one if it is already open.

  --mapa            measure the home folder and show its largest folders
  --scan            scan and print the report; change nothing
  --clean-defaults  scan, print the report and clean what is selected by default
  --clean-all       scan, print the report, select everything and clean
  --widget-png FOLDER [--ejemplo]
                    save the widget in its three sizes, light and dark, as PNG files in
                    FOLDER; with --ejemplo, with sample figures instead of the disk's own
  --widget [chico|mediano|grande]
                    put the widget on the desktop, at the size given or the last one used
  --help            show this help
  --version         show the version

Cleaning from the terminal only works in test mode: with VORLANO_HOME pointing at a folder,
Vorlano works there as if it were your home folder and touches nothing else.
VORLANO_TIEMPOS prints on standard error how long each stage of the scan takes.
</translation>
    </message>
    <message>
        <source>Vorlano busca cachés, registros, archivos grandes y compilaciones.
No borra nada hasta que tú lo confirmes.</source>
        <translation>Vorlano looks for caches, logs, large files and builds.
It deletes nothing until you confirm.</translation>
    </message>
    <message>
        <source>Vorlano encuentra también sus preferencias, cachés y datos,
y los manda junto con la app a la Papelera.</source>
        <translation>Vorlano also finds its preferences, caches and data,
and sends them to the Trash along with the app.</translation>
    </message>
    <message>
        <source>Vorlano mide tu carpeta personal y la muestra como un mapa:
cada rectángulo es proporcional a lo que ocupa.</source>
        <translation>Vorlano measures your home folder and shows it as a map:
each rectangle is sized by the space it takes.</translation>
    </message>
    <message>
        <source>de forma segura: cachés y temporales que se regeneran solos.</source>
        <translation>safely: caches and temporary files that rebuild on their own.</translation>
    </message>
    <message>
        <source>de {total}</source>
        <translation>of {total}</translation>
    </message>
    <message>
        <source>descargado {hace}</source>
        <translation>downloaded {hace}</translation>
    </message>
    <message>
        <source>docker system prune -a (no toca volúmenes). Con Colima, el disco de la máquina virtual puede no achicarse.</source>
        <translation>docker system prune -a (volumes are left alone). With Colima, the virtual machine's disk may not shrink.</translation>
    </message>
    <message>
        <source>el sistema te pedirá tu contraseña</source>
        <translation>the system will ask for your password</translation>
    </message>
    <message>
        <source>libres</source>
        <translation>free</translation>
    </message>
    <message>
        <source>macOS te pedirá permisos</source>
        <translation>What it can't read, it skips</translation>
    </message>
    <message>
        <source>macOS te pedirá tu contraseña</source>
        <translation>the system will ask for your password</translation>
    </message>
    <message>
        <source>macOS te pedirá tu contraseña para mover la app.</source>
        <translation>The system will ask for your password to move the app.</translation>
    </message>
    <message>
        <source>node_modules y entornos virtuales. Se recuperan con npm install. Van a la Papelera.</source>
        <translation>node_modules and virtual environments. Restored with npm install. They go to the Trash.</translation>
    </message>
    <message>
        <source>npm, uv, pip, Homebrew, Xcode… se regeneran al instalar o compilar.</source>
        <translation>npm, uv, pip, Homebrew, Xcode… rebuilt when you install or compile.</translation>
    </message>
    <message>
        <source>vorlano: no hay escritorio gráfico al que abrir la ventana (ni DISPLAY ni WAYLAND_DISPLAY).
Usa vorlano --help para ver el modo de terminal.
</source>
        <translation>vorlano: there is no graphical desktop to open the window on (neither DISPLAY nor WAYLAND_DISPLAY).
Use vorlano --help to see the terminal mode.
</translation>
    </message>
    <message>
        <source>vorlano: no hay escritorio gráfico en el que poner el widget (ni DISPLAY ni WAYLAND_DISPLAY).
</source>
        <translation>vorlano: there is no graphical desktop to put the widget on (neither DISPLAY nor WAYLAND_DISPLAY).
</translation>
    </message>
    <message>
        <source>{app} está en la Papelera</source>
        <translation>{app} is in the Trash</translation>
    </message>
    <message>
        <source>{app} se desinstaló</source>
        <translation>{app} was uninstalled</translation>
    </message>
    <message>
        <source>{bytes} en la Papelera</source>
        <translation>{bytes} in the Trash</translation>
    </message>
    <message>
        <source>{bytes} en total con Vorlano</source>
        <translation>{bytes} in total with Vorlano</translation>
    </message>
    <message>
        <source>{bytes} en uso por {apps}, no se marca.</source>
        <translation>{bytes} in use by {apps}, not ticked.</translation>
    </message>
    <message>
        <source>{bytes} marcado</source>
        <translation>{bytes} ticked</translation>
    </message>
    <message>
        <source>{bytes} se moverán a la Papelera (puedes recuperarlos).</source>
        <translation>{bytes} will be moved to the Trash (you can restore them).</translation>
    </message>
    <message>
        <source>{bytes}. Puedes recuperarlo desde la Papelera.</source>
        <translation>{bytes}. You can restore it from the Trash.</translation>
    </message>
    <message>
        <source>{editor} · proyectos que ya no existen</source>
        <translation>{editor} · projects that no longer exist</translation>
    </message>
    <message>
        <source>{editor} · proyectos sin abrir hace más de 3 meses</source>
        <translation>{editor} · projects not opened for over 3 months</translation>
    </message>
    <message>
        <source>{enUso} está abierto</source>
        <translation>{enUso} is open</translation>
    </message>
    <message>
        <source>{herramienta} desinstalará la app; 1 archivo más irá a la Papelera, de donde puedes recuperarlo. En total, {bytes}.</source>
        <translation>{herramienta} will uninstall the app; 1 more file will go to the Trash, where you can restore it from. In total, {bytes}.</translation>
    </message>
    <message>
        <source>{herramienta} desinstalará la app; {n} archivos más irán a la Papelera, de donde puedes recuperarlos. En total, {bytes}.</source>
        <translation>{herramienta} will uninstall the app; {n} more files will go to the Trash, where you can restore them from. In total, {bytes}.</translation>
    </message>
    <message>
        <source>{libre} libres de {total}</source>
        <translation>{libre} free of {total}</translation>
    </message>
    <message>
        <source>{nombre}: contiene un punto de montaje, se omitió</source>
        <translation>{nombre}: contains a mount point, skipped</translation>
    </message>
    <message>
        <source>{nombre}: es un enlace a otra carpeta, se omitió</source>
        <translation>{nombre}: is a link to another folder, skipped</translation>
    </message>
    <message>
        <source>{nombre}: hay un punto de montaje en su ruta, se omitió</source>
        <translation>{nombre}: there is a mount point in its path, skipped</translation>
    </message>
    <message>
        <source>{nombre}: no se encontró el programa {programa}</source>
        <translation>{nombre}: the program {programa} was not found</translation>
    </message>
    <message>
        <source>{nombre}: no se pudo abrir ({descripción})</source>
        <translation>{nombre}: could not be opened ({descripción})</translation>
    </message>
    <message>
        <source>{nombre}: no se pudo completar</source>
        <translation>{nombre}: could not be completed</translation>
    </message>
    <message>
        <source>{nombre}: no se pudo desinstalar (se canceló o falta permiso)</source>
        <translation>{nombre}: could not be uninstalled (cancelled or not permitted)</translation>
    </message>
    <message>
        <source>{nombre}: no se pudo mover a la Papelera (se canceló o falta permiso)</source>
        <translation>{nombre}: could not be moved to the Trash (cancelled or not permitted)</translation>
    </message>
    <message>
        <source>{nombre}: ruta no permitida, se omitió</source>
        <translation>{nombre}: path not allowed, skipped</translation>
    </message>
    <message>
        <source>{nombre}: {fallidos} de {total} elementos no se pudieron borrar (en uso o protegidos)</source>
        <translation>{nombre}: {fallidos} of {total} items could not be deleted (in use or protected)</translation>
    </message>
    <message>
        <source>{nombre}: {programa} no terminó a tiempo</source>
        <translation>{nombre}: {programa} did not finish in time</translation>
    </message>
    <message>
        <source>{nombre}: {programa} terminó con el código {codigo}</source>
        <translation>{nombre}: {programa} ended with code {codigo}</translation>
    </message>
    <message>
        <source>{n} %</source>
        <translation>{n} %</translation>
    </message>
    <message>
        <source>{n} % usado · de {total}</source>
        <translation>{n} % used · of {total}</translation>
    </message>
    <message>
        <source>{n} avisos</source>
        <translation>{n} notices</translation>
    </message>
    <message>
        <source>{n} carpetas o archivos de una app que ya no está instalada</source>
        <translation>{n} folders or files of an app that is no longer installed</translation>
    </message>
    <message>
        <source>{n} elementos</source>
        <translation>{n} items</translation>
    </message>
    <message>
        <source>{runtime} · se borran sus apps y datos; el simulador queda</source>
        <translation>{runtime} · its apps and data are deleted; the simulator stays</translation>
    </message>
    <message>
        <source>{tipo} · modificado {hace}</source>
        <translation>{tipo} · modified {hace}</translation>
    </message>
    <message>
        <source>{tipo} · usado {actividad}</source>
        <translation>{tipo} · used {actividad}</translation>
    </message>
    <message>
        <source>¿Desinstalar {nombre}?</source>
        <translation>Uninstall {nombre}?</translation>
    </message>
    <message>
        <source>¿Limpiar {bytes}?</source>
        <translation>Clean {bytes}?</translation>
    </message>
    <message>
        <source>¿Mover {nombre} a la Papelera?</source>
        <translation>Move {nombre} to the Trash?</translation>
    </message>
    <message>
        <source>¿Qué ocupa tu disco?</source>
        <translation>What is filling your disk?</translation>
    </message>
    <message>
        <source>¿Vaciar la Papelera?</source>
        <translation>Empty the Trash?</translation>
    </message>
    <message>
        <source>■ {titulo} — {tamano} [{etiqueta}] seleccionado: {seleccionado}</source>
        <translation>■ {titulo} — {tamano} [{etiqueta}] selected: {seleccionado}</translation>
    </message>
</context>
</TS>
