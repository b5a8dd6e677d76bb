<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>nookle::AboutRow</name>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Versions and services of this desktop, for a report. No names of files.</source>
        <translation>Versionen und Dienste dieser Arbeitsumgebung für einen Fehlerbericht. Keine Dateinamen.</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Kopiert</translation>
    </message>
    <message>
        <source>Copy Diagnostics</source>
        <translation>Diagnose kopieren</translation>
    </message>
</context>
<context>
    <name>nookle::AppSettings</name>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>After 1 hour</source>
        <translation>Nach 1 Stunde</translation>
    </message>
    <message>
        <source>After 24 hours</source>
        <translation>Nach 24 Stunden</translation>
    </message>
    <message>
        <source>After 1 week</source>
        <translation>Nach 1 Woche</translation>
    </message>
</context>
<context>
    <name>nookle::AutostartLoginItem</name>
    <message>
        <source>A shelf at the edge of the screen</source>
        <translation>Eine Ablage am Bildschirmrand</translation>
    </message>
    <message>
        <source>its folder cannot be made</source>
        <translation>der Ordner dafür kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 konnte nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>%1 could not be removed: %2</source>
        <translation>%1 konnte nicht entfernt werden: %2</translation>
    </message>
</context>
<context>
    <name>nookle::DataFolderRow</name>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Files are kept in %1</source>
        <translation>Dateien liegen in %1</translation>
    </message>
</context>
<context>
    <name>nookle::DragAllButton</name>
    <message>
        <source>Drag All</source>
        <translation>Alle ziehen</translation>
    </message>
    <message>
        <source>Selects all items. Drag it to take all of them along.</source>
        <translation>Wählt alle Objekte aus. Ziehen Sie daran, um alle mitzunehmen.</translation>
    </message>
</context>
<context>
    <name>nookle::DropHandler</name>
    <message>
        <source>it could not be saved among the temporary files</source>
        <translation>es konnte nicht bei den temporären Dateien gespeichert werden</translation>
    </message>
    <message>
        <source>The other program has saved nothing that can be added to the shelf.</source>
        <translation>Das andere Programm hat nichts gespeichert, was zur Ablage hinzugefügt werden kann.</translation>
    </message>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>Nichts gefunden, was zur Ablage hinzugefügt werden kann.</translation>
    </message>
</context>
<context>
    <name>nookle::DroppedImage</name>
    <message>
        <source>Image</source>
        <translation>Bild</translation>
    </message>
</context>
<context>
    <name>nookle::EmptyShelfView</name>
    <message>
        <source>Drop here</source>
        <translation>Hier ablegen</translation>
    </message>
</context>
<context>
    <name>nookle::Failure</name>
    <message>
        <source>another program holds the shelf</source>
        <translation>ein anderes Programm hält die Ablage belegt</translation>
    </message>
    <message>
        <source>too many indexes were moved aside</source>
        <translation>zu viele Indexdateien wurden beiseitegelegt</translation>
    </message>
    <message>
        <source>the unreadable index cannot be moved to %1: %2</source>
        <translation>der unlesbare Index kann nicht nach %1 verschoben werden: %2</translation>
    </message>
    <message>
        <source>the disk does not answer</source>
        <translation>der Datenträger antwortet nicht</translation>
    </message>
    <message>
        <source>no usable file name, or a link for a folder: &quot;%1&quot;</source>
        <translation>kein brauchbarer Dateiname, oder eine Verknüpfung statt eines Ordners: „%1“</translation>
    </message>
</context>
<context>
    <name>nookle::KdeShortcuts</name>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>Die Arbeitsumgebung hat noch nicht geantwortet.</translation>
    </message>
    <message>
        <source>Another program may hold %1. The desktop&apos;s settings can give the shortcut other keys.</source>
        <translation>Ein anderes Programm belegt vielleicht %1. In den Einstellungen der Arbeitsumgebung lassen sich andere Tasten wählen.</translation>
    </message>
</context>
<context>
    <name>nookle::LoginItemSection</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>Bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Allow Nookle under Login Items in System Settings.</source>
        <translation>Schalten Sie Nookle in den Systemeinstellungen unter den Startprogrammen ein.</translation>
    </message>
    <message>
        <source>Open System Settings</source>
        <translation>Systemeinstellungen öffnen</translation>
    </message>
</context>
<context>
    <name>nookle::NullBackend</name>
    <message>
        <source>The shelf cannot be shown on this desktop</source>
        <translation>Die Ablage kann in dieser Sitzung nicht angezeigt werden</translation>
    </message>
</context>
<context>
    <name>nookle::PinButton</name>
    <message>
        <source>Allow Shelf to Hide</source>
        <translation>Ausblenden der Ablage erlauben</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Ablage offen halten</translation>
    </message>
</context>
<context>
    <name>nookle::PortalShortcuts</name>
    <message>
        <source>The desktop does not answer.</source>
        <translation>Die Arbeitsumgebung antwortet nicht.</translation>
    </message>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>Die Arbeitsumgebung hat noch nicht geantwortet.</translation>
    </message>
    <message>
        <source>The desktop gives shortcuts only to programs that are installed. It does not find %1.</source>
        <translation>Die Arbeitsumgebung gibt Tastenkürzel nur installierten Programmen. Sie findet %1 nicht.</translation>
    </message>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>Sie haben das Tastenkürzel abgelehnt.</translation>
    </message>
    <message>
        <source>The desktop does not say which keys are bound.</source>
        <translation>Die Arbeitsumgebung sagt nicht, welche Tasten belegt sind.</translation>
    </message>
    <message>
        <source>The desktop has ended the shortcut.</source>
        <translation>Die Arbeitsumgebung hat das Tastenkürzel beendet.</translation>
    </message>
    <message>
        <source>The desktop&apos;s service for shortcuts has ended.</source>
        <translation>Der Tastenkürzeldienst der Arbeitsumgebung wurde beendet.</translation>
    </message>
    <message>
        <source>The desktop has refused the shortcut.</source>
        <translation>Die Arbeitsumgebung hat das Tastenkürzel abgelehnt.</translation>
    </message>
    <message>
        <source>You have declined the shortcut, or the desktop could not bind it.</source>
        <translation>Sie haben das Tastenkürzel abgelehnt, oder die Arbeitsumgebung konnte es nicht belegen.</translation>
    </message>
    <message>
        <source>No keys are set for it in the desktop&apos;s settings.</source>
        <translation>In den Einstellungen der Arbeitsumgebung sind dafür keine Tasten festgelegt.</translation>
    </message>
</context>
<context>
    <name>nookle::Question</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>nookle::SelectionActions</name>
    <message numerus="yes">
        <source>Open %n Item(s)</source>
        <translation>
            <numerusform>%n Objekt öffnen</numerusform>
            <numerusform>%n Objekte öffnen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Show %n Item(s) in Finder</source>
        <translation>
            <numerusform>%n Objekt im Ordner anzeigen</numerusform>
            <numerusform>%n Objekte im Ordner anzeigen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Copy %n Item(s)</source>
        <translation>
            <numerusform>%n Objekt kopieren</numerusform>
            <numerusform>%n Objekte kopieren</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Unpin %n Item(s)</source>
        <translation>
            <numerusform>%n Objekt lösen</numerusform>
            <numerusform>%n Objekte lösen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Pin %n Item(s)</source>
        <translation>
            <numerusform>%n Objekt anheften</numerusform>
            <numerusform>%n Objekte anheften</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Remove %n Item(s)</source>
        <translation>
            <numerusform>%n Objekt entfernen</numerusform>
            <numerusform>%n Objekte entfernen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Open %n item(s) at once?</source>
        <translation>
            <numerusform>%n Objekt auf einmal öffnen?</numerusform>
            <numerusform>%n Objekte auf einmal öffnen?</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message numerus="yes">
        <source>Open %n folder(s) at once?</source>
        <translation>
            <numerusform>%n Ordner auf einmal öffnen?</numerusform>
            <numerusform>%n Ordner auf einmal öffnen?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nookle::ServiceProvider</name>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>Nichts gefunden, was zur Ablage hinzugefügt werden kann.</translation>
    </message>
</context>
<context>
    <name>nookle::SessionShortcuts</name>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>Sie haben das Tastenkürzel abgelehnt.</translation>
    </message>
    <message>
        <source>In the desktop&apos;s settings, keys can be bound to this command: %1</source>
        <translation>In den Einstellungen der Arbeitsumgebung lassen sich Tasten mit diesem Befehl belegen: %1</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsView</name>
    <message>
        <source>Shelf</source>
        <translation>Ablage</translation>
    </message>
    <message>
        <source>Show when dragging to the edge</source>
        <translation>Beim Ziehen an den Rand einblenden</translation>
    </message>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in automatically.</source>
        <translation>Ziehen Sie etwas an den rechten Rand des Bildschirms, und die Ablage erscheint von selbst.</translation>
    </message>
    <message>
        <source>Remove items</source>
        <translation>Objekte entfernen</translation>
    </message>
    <message>
        <source>Pinned items always stay. Copies such as images go to the Trash.</source>
        <translation>Angeheftete Objekte bleiben immer. Kopien, zum Beispiel Bilder, kommen in den Papierkorb.</translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation>Bildschirmfotos</translation>
    </message>
    <message>
        <source>Add new screenshots to the shelf</source>
        <translation>Neue Bildschirmfotos zur Ablage hinzufügen</translation>
    </message>
    <message>
        <source>Move them from the desktop to the shelf</source>
        <translation>Von der Arbeitsfläche in die Ablage verschieben</translation>
    </message>
    <message>
        <source>Otherwise the screenshot stays where it is and the shelf only refers to it.</source>
        <translation>Andernfalls bleibt das Bildschirmfoto, wo es ist, und die Ablage verweist nur darauf.</translation>
    </message>
    <message>
        <source>Folder: </source>
        <translation>Ordner: </translation>
    </message>
    <message>
        <source>Reserve space while the shelf is kept open</source>
        <translation>Platz freihalten, solange die Ablage offen bleibt</translation>
    </message>
    <message>
        <source>Maximised windows then end at the shelf instead of reaching below it.</source>
        <translation>Maximierte Fenster enden dann an der Ablage, statt unter sie zu reichen.</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsWindowController</name>
    <message>
        <source>Nookle Settings</source>
        <translation>Nookle-Einstellungen</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfActions</name>
    <message>
        <source>Undo Remove</source>
        <translation>Entfernen rückgängig machen</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Remove Unpinned Items</source>
        <translation>Nicht angeheftete Objekte entfernen</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Ablage offen halten</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen&#xa0;…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>Nookle beenden</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemActions</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Show in Finder</source>
        <translation>Im Ordner anzeigen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>Lösen</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Anheften</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>%1 (%2 of %3, added %4)</source>
        <translation>%1 (%2 von %3, hinzugefügt %4)</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemView</name>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Link</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>pinned</source>
        <translation>angeheftet</translation>
    </message>
    <message>
        <source>unavailable</source>
        <translation>nicht verfügbar</translation>
    </message>
    <message>
        <source>Unavailable</source>
        <translation>Fehlt</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the facts about an item</comment>
        <translation>, </translation>
    </message>
    <message>
        <source>Show Menu</source>
        <translation>Menü anzeigen</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfShortcuts</name>
    <message>
        <source>Show or hide the shelf</source>
        <translation>Ablage ein- oder ausblenden</translation>
    </message>
    <message>
        <source>Show the shelf with the keyboard focus</source>
        <translation>Ablage mit Tastaturfokus einblenden</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfStore</name>
    <message>
        <source>The image could not be added to the shelf: %1</source>
        <translation>Das Bild konnte nicht zur Ablage hinzugefügt werden: %1</translation>
    </message>
    <message>
        <source>The shelf is full. Remove something large and try again.</source>
        <translation>Die Ablage ist voll. Entfernen Sie etwas Großes und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Could not be brought back from the Trash: %1</source>
        <translation>Konnte nicht aus dem Papierkorb zurückgeholt werden: %1</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfView</name>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in.</source>
        <translation>Ziehen Sie etwas an den rechten Rand des Bildschirms, und die Ablage erscheint.</translation>
    </message>
</context>
<context>
    <name>nookle::ShortcutRow</name>
    <message>
        <source>Ask Again</source>
        <translation>Erneut fragen</translation>
    </message>
    <message>
        <source>Show and hide</source>
        <translation>Ein- und ausblenden</translation>
    </message>
    <message>
        <source>⌃⌥⌘D</source>
        <translation>Strg+Alt+Super+D</translation>
    </message>
    <message>
        <source>Control, Alt, Super and D</source>
        <translation>Strg, Alt, Super und D</translation>
    </message>
    <message>
        <source>Wanted: %1</source>
        <translation>Gewünscht: %1</translation>
    </message>
</context>
<context>
    <name>nookle::StatusMenu</name>
    <message>
        <source>Show Shelf</source>
        <translation>Ablage anzeigen</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Ablage offen halten</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen&#xa0;…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>Nookle beenden</translation>
    </message>
</context>
<context>
    <name>nookle::TileList</name>
    <message>
        <source>Shelf</source>
        <translation>Ablage</translation>
    </message>
</context>
<context>
    <name>nookle::WaylandClipboard</name>
    <message>
        <source>This desktop does not let the shelf read what is selected.</source>
        <translation>Diese Arbeitsumgebung lässt die Ablage nicht lesen, was ausgewählt ist.</translation>
    </message>
    <message>
        <source>Nothing was copied: this desktop lets the shelf copy only while it has the keyboard focus.</source>
        <translation>Nichts wurde kopiert: Diese Arbeitsumgebung lässt die Ablage nur kopieren, solange sie den Tastaturfokus hat.</translation>
    </message>
</context>
<context>
    <name>nookle::X11GlobalShortcuts</name>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Another program may hold %1.</source>
        <translation>Ein anderes Programm belegt vielleicht %1.</translation>
    </message>
    <message>
        <source>This keyboard has no %1.</source>
        <translation>Diese Tastatur hat %1 nicht.</translation>
    </message>
</context>
</TS>
