<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>nookle::AboutRow</name>
    <message>
        <source>Version %1</source>
        <translation>Versión %1</translation>
    </message>
    <message>
        <source>Versions and services of this desktop, for a report. No names of files.</source>
        <translation>Versiones y servicios de este escritorio, para un informe. Sin nombres de archivos.</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copiado</translation>
    </message>
    <message>
        <source>Copy Diagnostics</source>
        <translation>Copiar el diagnóstico</translation>
    </message>
</context>
<context>
    <name>nookle::AppSettings</name>
    <message>
        <source>Never</source>
        <translation>Nunca</translation>
    </message>
    <message>
        <source>After 1 hour</source>
        <translation>Tras 1 hora</translation>
    </message>
    <message>
        <source>After 24 hours</source>
        <translation>Tras 24 horas</translation>
    </message>
    <message>
        <source>After 1 week</source>
        <translation>Tras 1 semana</translation>
    </message>
</context>
<context>
    <name>nookle::AutostartLoginItem</name>
    <message>
        <source>A shelf at the edge of the screen</source>
        <translation>Un estante en el borde de la pantalla</translation>
    </message>
    <message>
        <source>its folder cannot be made</source>
        <translation>no se puede crear su carpeta</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>No se pudo escribir %1: %2</translation>
    </message>
    <message>
        <source>%1 could not be removed: %2</source>
        <translation>No se pudo eliminar %1: %2</translation>
    </message>
</context>
<context>
    <name>nookle::DataFolderRow</name>
    <message>
        <source>Open Folder</source>
        <translation>Abrir la carpeta</translation>
    </message>
    <message>
        <source>Files are kept in %1</source>
        <translation>Los archivos se guardan en %1</translation>
    </message>
</context>
<context>
    <name>nookle::DragAllButton</name>
    <message>
        <source>Drag All</source>
        <translation>Arrastrar todo</translation>
    </message>
    <message>
        <source>Selects all items. Drag it to take all of them along.</source>
        <translation>Selecciona todos los elementos. Arrástrelo para llevárselos todos.</translation>
    </message>
</context>
<context>
    <name>nookle::DropHandler</name>
    <message>
        <source>it could not be saved among the temporary files</source>
        <translation>no se pudo guardar entre los archivos temporales</translation>
    </message>
    <message>
        <source>The other program has saved nothing that can be added to the shelf.</source>
        <translation>El otro programa no ha guardado nada que se pueda añadir al estante.</translation>
    </message>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>No se encontró nada que se pueda añadir al estante.</translation>
    </message>
</context>
<context>
    <name>nookle::DroppedImage</name>
    <message>
        <source>Image</source>
        <translation>Imagen</translation>
    </message>
</context>
<context>
    <name>nookle::EmptyShelfView</name>
    <message>
        <source>Drop here</source>
        <translation>Suelte aquí</translation>
    </message>
</context>
<context>
    <name>nookle::Failure</name>
    <message>
        <source>another program holds the shelf</source>
        <translation>otro programa está usando el estante</translation>
    </message>
    <message>
        <source>too many indexes were moved aside</source>
        <translation>se han apartado demasiados índices</translation>
    </message>
    <message>
        <source>the unreadable index cannot be moved to %1: %2</source>
        <translation>el índice ilegible no se puede mover a %1: %2</translation>
    </message>
    <message>
        <source>the disk does not answer</source>
        <translation>el disco no responde</translation>
    </message>
    <message>
        <source>no usable file name, or a link for a folder: &quot;%1&quot;</source>
        <translation>nombre de archivo no válido, o un enlace en lugar de una carpeta: «%1»</translation>
    </message>
</context>
<context>
    <name>nookle::KdeShortcuts</name>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>El escritorio aún no ha respondido.</translation>
    </message>
    <message>
        <source>Another program may hold %1. The desktop&apos;s settings can give the shortcut other keys.</source>
        <translation>Puede que otro programa use %1. En la configuración del escritorio se pueden asignar otras teclas al atajo.</translation>
    </message>
</context>
<context>
    <name>nookle::LoginItemSection</name>
    <message>
        <source>General</source>
        <translation>General</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>Abrir al iniciar sesión</translation>
    </message>
    <message>
        <source>Allow Nookle under Login Items in System Settings.</source>
        <translation>Active Nookle entre las aplicaciones de inicio en la configuración del sistema.</translation>
    </message>
    <message>
        <source>Open System Settings</source>
        <translation>Abrir la configuración</translation>
    </message>
</context>
<context>
    <name>nookle::NullBackend</name>
    <message>
        <source>The shelf cannot be shown on this desktop</source>
        <translation>El estante no se puede mostrar en esta sesión</translation>
    </message>
</context>
<context>
    <name>nookle::PinButton</name>
    <message>
        <source>Allow Shelf to Hide</source>
        <translation>Permitir que el estante se oculte</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Mantener el estante abierto</translation>
    </message>
</context>
<context>
    <name>nookle::PortalShortcuts</name>
    <message>
        <source>The desktop does not answer.</source>
        <translation>El escritorio no responde.</translation>
    </message>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>El escritorio aún no ha respondido.</translation>
    </message>
    <message>
        <source>The desktop gives shortcuts only to programs that are installed. It does not find %1.</source>
        <translation>El escritorio solo da atajos a los programas instalados. No encuentra %1.</translation>
    </message>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>Ha rechazado el atajo.</translation>
    </message>
    <message>
        <source>The desktop does not say which keys are bound.</source>
        <translation>El escritorio no dice qué teclas están asignadas.</translation>
    </message>
    <message>
        <source>The desktop has ended the shortcut.</source>
        <translation>El escritorio ha terminado el atajo.</translation>
    </message>
    <message>
        <source>The desktop&apos;s service for shortcuts has ended.</source>
        <translation>El servicio de atajos del escritorio ha terminado.</translation>
    </message>
    <message>
        <source>The desktop has refused the shortcut.</source>
        <translation>El escritorio ha rechazado el atajo.</translation>
    </message>
    <message>
        <source>You have declined the shortcut, or the desktop could not bind it.</source>
        <translation>Ha rechazado el atajo o el escritorio no ha podido asignarlo.</translation>
    </message>
    <message>
        <source>No keys are set for it in the desktop&apos;s settings.</source>
        <translation>No tiene ninguna tecla asignada en la configuración del escritorio.</translation>
    </message>
</context>
<context>
    <name>nookle::Question</name>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
</context>
<context>
    <name>nookle::SelectionActions</name>
    <message numerus="yes">
        <source>Open %n Item(s)</source>
        <translation>
            <numerusform>Abrir %n elemento</numerusform>
            <numerusform>Abrir %n elementos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Show %n Item(s) in Finder</source>
        <translation>
            <numerusform>Mostrar %n elemento en la carpeta</numerusform>
            <numerusform>Mostrar %n elementos en la carpeta</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Copy %n Item(s)</source>
        <translation>
            <numerusform>Copiar %n elemento</numerusform>
            <numerusform>Copiar %n elementos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Unpin %n Item(s)</source>
        <translation>
            <numerusform>Desanclar %n elemento</numerusform>
            <numerusform>Desanclar %n elementos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Pin %n Item(s)</source>
        <translation>
            <numerusform>Anclar %n elemento</numerusform>
            <numerusform>Anclar %n elementos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Remove %n Item(s)</source>
        <translation>
            <numerusform>Quitar %n elemento</numerusform>
            <numerusform>Quitar %n elementos</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Open %n item(s) at once?</source>
        <translation>
            <numerusform>¿Abrir %n elemento a la vez?</numerusform>
            <numerusform>¿Abrir %n elementos a la vez?</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message numerus="yes">
        <source>Open %n folder(s) at once?</source>
        <translation>
            <numerusform>¿Abrir %n carpeta a la vez?</numerusform>
            <numerusform>¿Abrir %n carpetas a la vez?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nookle::ServiceProvider</name>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>No se encontró nada que se pueda añadir al estante.</translation>
    </message>
</context>
<context>
    <name>nookle::SessionShortcuts</name>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>Ha rechazado el atajo.</translation>
    </message>
    <message>
        <source>In the desktop&apos;s settings, keys can be bound to this command: %1</source>
        <translation>En la configuración del escritorio se pueden asignar teclas a esta orden: %1</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsView</name>
    <message>
        <source>Shelf</source>
        <translation>Estante</translation>
    </message>
    <message>
        <source>Show when dragging to the edge</source>
        <translation>Mostrar al arrastrar al borde</translation>
    </message>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in automatically.</source>
        <translation>Arrastre algo al borde derecho de la pantalla y el estante aparecerá solo.</translation>
    </message>
    <message>
        <source>Remove items</source>
        <translation>Quitar los elementos</translation>
    </message>
    <message>
        <source>Pinned items always stay. Copies such as images go to the Trash.</source>
        <translation>Los elementos anclados permanecen siempre. Las copias, como las imágenes, van a la papelera.</translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation>Capturas de pantalla</translation>
    </message>
    <message>
        <source>Add new screenshots to the shelf</source>
        <translation>Añadir las nuevas capturas de pantalla al estante</translation>
    </message>
    <message>
        <source>Move them from the desktop to the shelf</source>
        <translation>Moverlas del escritorio al estante</translation>
    </message>
    <message>
        <source>Otherwise the screenshot stays where it is and the shelf only refers to it.</source>
        <translation>De lo contrario, la captura se queda donde está y el estante solo hace referencia a ella.</translation>
    </message>
    <message>
        <source>Folder: </source>
        <translation>Carpeta: </translation>
    </message>
    <message>
        <source>Reserve space while the shelf is kept open</source>
        <translation>Reservar espacio mientras el estante siga abierto</translation>
    </message>
    <message>
        <source>Maximised windows then end at the shelf instead of reaching below it.</source>
        <translation>Las ventanas maximizadas terminan entonces junto al estante en lugar de quedar debajo.</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsWindowController</name>
    <message>
        <source>Nookle Settings</source>
        <translation>Configuración de Nookle</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfActions</name>
    <message>
        <source>Undo Remove</source>
        <translation>Deshacer quitar</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Pegar</translation>
    </message>
    <message>
        <source>Remove Unpinned Items</source>
        <translation>Quitar los elementos no anclados</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Mantener el estante abierto</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Configuración…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>Salir de Nookle</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Seleccionar todo</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemActions</name>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Show in Finder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>Desanclar</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Anclar</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>%1 (%2 of %3, added %4)</source>
        <translation>%1 (%2 de %3, añadido el %4)</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemView</name>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texto</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Enlace</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Imagen</translation>
    </message>
    <message>
        <source>pinned</source>
        <translation>anclado</translation>
    </message>
    <message>
        <source>unavailable</source>
        <translation>no disponible</translation>
    </message>
    <message>
        <source>Unavailable</source>
        <translation>No disponible</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the facts about an item</comment>
        <translation>, </translation>
    </message>
    <message>
        <source>Show Menu</source>
        <translation>Mostrar el menú</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfShortcuts</name>
    <message>
        <source>Show or hide the shelf</source>
        <translation>Mostrar u ocultar el estante</translation>
    </message>
    <message>
        <source>Show the shelf with the keyboard focus</source>
        <translation>Mostrar el estante con el foco del teclado</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfStore</name>
    <message>
        <source>The image could not be added to the shelf: %1</source>
        <translation>No se pudo añadir la imagen al estante: %1</translation>
    </message>
    <message>
        <source>The shelf is full. Remove something large and try again.</source>
        <translation>El estante está lleno. Quite algo grande e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>Could not be brought back from the Trash: %1</source>
        <translation>No se pudo recuperar de la papelera: %1</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfView</name>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in.</source>
        <translation>Arrastre algo al borde derecho de la pantalla y el estante aparecerá.</translation>
    </message>
</context>
<context>
    <name>nookle::ShortcutRow</name>
    <message>
        <source>Ask Again</source>
        <translation>Preguntar de nuevo</translation>
    </message>
    <message>
        <source>Show and hide</source>
        <translation>Mostrar y ocultar</translation>
    </message>
    <message>
        <source>⌃⌥⌘D</source>
        <translation>Ctrl+Alt+Super+D</translation>
    </message>
    <message>
        <source>Control, Alt, Super and D</source>
        <translation>Control, Alt, Super y D</translation>
    </message>
    <message>
        <source>Wanted: %1</source>
        <translation>Se desea: %1</translation>
    </message>
</context>
<context>
    <name>nookle::StatusMenu</name>
    <message>
        <source>Show Shelf</source>
        <translation>Mostrar el estante</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Mantener el estante abierto</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Configuración…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>Salir de Nookle</translation>
    </message>
</context>
<context>
    <name>nookle::TileList</name>
    <message>
        <source>Shelf</source>
        <translation>Estante</translation>
    </message>
</context>
<context>
    <name>nookle::WaylandClipboard</name>
    <message>
        <source>This desktop does not let the shelf read what is selected.</source>
        <translation>Este escritorio no permite que el estante lea lo que está seleccionado.</translation>
    </message>
    <message>
        <source>Nothing was copied: this desktop lets the shelf copy only while it has the keyboard focus.</source>
        <translation>No se copió nada: este escritorio solo permite que el estante copie mientras tiene el foco del teclado.</translation>
    </message>
</context>
<context>
    <name>nookle::X11GlobalShortcuts</name>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Mayús</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Another program may hold %1.</source>
        <translation>Puede que otro programa use %1.</translation>
    </message>
    <message>
        <source>This keyboard has no %1.</source>
        <translation>Este teclado no tiene %1.</translation>
    </message>
</context>
</TS>
