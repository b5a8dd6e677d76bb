<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it" sourcelanguage="en">
<context>
    <name>nookle::AboutRow</name>
    <message>
        <source>Version %1</source>
        <translation>Versione %1</translation>
    </message>
    <message>
        <source>Versions and services of this desktop, for a report. No names of files.</source>
        <translation>Versioni e servizi di questo ambiente, per una segnalazione. Nessun nome di file.</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copiato</translation>
    </message>
    <message>
        <source>Copy Diagnostics</source>
        <translation>Copia la diagnostica</translation>
    </message>
</context>
<context>
    <name>nookle::AppSettings</name>
    <message>
        <source>Never</source>
        <translation>Mai</translation>
    </message>
    <message>
        <source>After 1 hour</source>
        <translation>Dopo 1 ora</translation>
    </message>
    <message>
        <source>After 24 hours</source>
        <translation>Dopo 24 ore</translation>
    </message>
    <message>
        <source>After 1 week</source>
        <translation>Dopo 1 settimana</translation>
    </message>
</context>
<context>
    <name>nookle::AutostartLoginItem</name>
    <message>
        <source>A shelf at the edge of the screen</source>
        <translation>Un ripiano sul bordo dello schermo</translation>
    </message>
    <message>
        <source>its folder cannot be made</source>
        <translation>impossibile creare la cartella</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>Impossibile scrivere %1: %2</translation>
    </message>
    <message>
        <source>%1 could not be removed: %2</source>
        <translation>Impossibile rimuovere %1: %2</translation>
    </message>
</context>
<context>
    <name>nookle::DataFolderRow</name>
    <message>
        <source>Open Folder</source>
        <translation>Apri la cartella</translation>
    </message>
    <message>
        <source>Files are kept in %1</source>
        <translation>I file sono conservati in %1</translation>
    </message>
</context>
<context>
    <name>nookle::DragAllButton</name>
    <message>
        <source>Drag All</source>
        <translation>Trascina tutto</translation>
    </message>
    <message>
        <source>Selects all items. Drag it to take all of them along.</source>
        <translation>Seleziona tutti gli elementi. Trascinalo per portarli tutti con te.</translation>
    </message>
</context>
<context>
    <name>nookle::DropHandler</name>
    <message>
        <source>it could not be saved among the temporary files</source>
        <translation>non è stato possibile salvarla tra i file temporanei</translation>
    </message>
    <message>
        <source>The other program has saved nothing that can be added to the shelf.</source>
        <translation>L’altro programma non ha salvato nulla da aggiungere al ripiano.</translation>
    </message>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>Non è stato trovato nulla da aggiungere al ripiano.</translation>
    </message>
</context>
<context>
    <name>nookle::DroppedImage</name>
    <message>
        <source>Image</source>
        <translation>Immagine</translation>
    </message>
</context>
<context>
    <name>nookle::EmptyShelfView</name>
    <message>
        <source>Drop here</source>
        <translation>Rilascia qui</translation>
    </message>
</context>
<context>
    <name>nookle::Failure</name>
    <message>
        <source>another program holds the shelf</source>
        <translation>un altro programma sta usando il ripiano</translation>
    </message>
    <message>
        <source>too many indexes were moved aside</source>
        <translation>troppi indici sono stati messi da parte</translation>
    </message>
    <message>
        <source>the unreadable index cannot be moved to %1: %2</source>
        <translation>l’indice illeggibile non può essere spostato in %1: %2</translation>
    </message>
    <message>
        <source>the disk does not answer</source>
        <translation>il disco non risponde</translation>
    </message>
    <message>
        <source>no usable file name, or a link for a folder: &quot;%1&quot;</source>
        <translation>nome di file non utilizzabile, o un collegamento al posto di una cartella: «%1»</translation>
    </message>
</context>
<context>
    <name>nookle::KdeShortcuts</name>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>L’ambiente non ha ancora risposto.</translation>
    </message>
    <message>
        <source>Another program may hold %1. The desktop&apos;s settings can give the shortcut other keys.</source>
        <translation>Forse un altro programma usa %1. Le impostazioni dell’ambiente possono dare altri tasti alla scorciatoia.</translation>
    </message>
</context>
<context>
    <name>nookle::LoginItemSection</name>
    <message>
        <source>General</source>
        <translation>Generali</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>Apri all’accesso</translation>
    </message>
    <message>
        <source>Allow Nookle under Login Items in System Settings.</source>
        <translation>Attiva Nookle tra le applicazioni d’avvio nelle impostazioni di sistema.</translation>
    </message>
    <message>
        <source>Open System Settings</source>
        <translation>Apri le impostazioni</translation>
    </message>
</context>
<context>
    <name>nookle::NullBackend</name>
    <message>
        <source>The shelf cannot be shown on this desktop</source>
        <translation>Il ripiano non può essere mostrato in questa sessione</translation>
    </message>
</context>
<context>
    <name>nookle::PinButton</name>
    <message>
        <source>Allow Shelf to Hide</source>
        <translation>Consenti di nascondere il ripiano</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Mantieni aperto il ripiano</translation>
    </message>
</context>
<context>
    <name>nookle::PortalShortcuts</name>
    <message>
        <source>The desktop does not answer.</source>
        <translation>L’ambiente non risponde.</translation>
    </message>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>L’ambiente non ha ancora risposto.</translation>
    </message>
    <message>
        <source>The desktop gives shortcuts only to programs that are installed. It does not find %1.</source>
        <translation>L’ambiente dà scorciatoie solo ai programmi installati. Non trova %1.</translation>
    </message>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>Hai rifiutato la scorciatoia.</translation>
    </message>
    <message>
        <source>The desktop does not say which keys are bound.</source>
        <translation>L’ambiente non dice quali tasti sono assegnati.</translation>
    </message>
    <message>
        <source>The desktop has ended the shortcut.</source>
        <translation>L’ambiente ha chiuso la scorciatoia.</translation>
    </message>
    <message>
        <source>The desktop&apos;s service for shortcuts has ended.</source>
        <translation>Il servizio delle scorciatoie dell’ambiente è terminato.</translation>
    </message>
    <message>
        <source>The desktop has refused the shortcut.</source>
        <translation>L’ambiente ha rifiutato la scorciatoia.</translation>
    </message>
    <message>
        <source>You have declined the shortcut, or the desktop could not bind it.</source>
        <translation>Hai rifiutato la scorciatoia o l’ambiente non ha potuto assegnarla.</translation>
    </message>
    <message>
        <source>No keys are set for it in the desktop&apos;s settings.</source>
        <translation>Nelle impostazioni dell’ambiente non gli è assegnato alcun tasto.</translation>
    </message>
</context>
<context>
    <name>nookle::Question</name>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
</context>
<context>
    <name>nookle::SelectionActions</name>
    <message numerus="yes">
        <source>Open %n Item(s)</source>
        <translation>
            <numerusform>Apri %n elemento</numerusform>
            <numerusform>Apri %n elementi</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Show %n Item(s) in Finder</source>
        <translation>
            <numerusform>Mostra %n elemento nella cartella</numerusform>
            <numerusform>Mostra %n elementi nella cartella</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Copy %n Item(s)</source>
        <translation>
            <numerusform>Copia %n elemento</numerusform>
            <numerusform>Copia %n elementi</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Unpin %n Item(s)</source>
        <translation>
            <numerusform>Non fissare %n elemento</numerusform>
            <numerusform>Non fissare %n elementi</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Pin %n Item(s)</source>
        <translation>
            <numerusform>Fissa %n elemento</numerusform>
            <numerusform>Fissa %n elementi</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Remove %n Item(s)</source>
        <translation>
            <numerusform>Rimuovi %n elemento</numerusform>
            <numerusform>Rimuovi %n elementi</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Open %n item(s) at once?</source>
        <translation>
            <numerusform>Aprire %n elemento insieme?</numerusform>
            <numerusform>Aprire %n elementi insieme?</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Apri</translation>
    </message>
    <message numerus="yes">
        <source>Open %n folder(s) at once?</source>
        <translation>
            <numerusform>Aprire %n cartella insieme?</numerusform>
            <numerusform>Aprire %n cartelle insieme?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nookle::ServiceProvider</name>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>Non è stato trovato nulla da aggiungere al ripiano.</translation>
    </message>
</context>
<context>
    <name>nookle::SessionShortcuts</name>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>Hai rifiutato la scorciatoia.</translation>
    </message>
    <message>
        <source>In the desktop&apos;s settings, keys can be bound to this command: %1</source>
        <translation>Nelle impostazioni dell’ambiente si possono assegnare tasti a questo comando: %1</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsView</name>
    <message>
        <source>Shelf</source>
        <translation>Ripiano</translation>
    </message>
    <message>
        <source>Show when dragging to the edge</source>
        <translation>Mostra trascinando verso il bordo</translation>
    </message>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in automatically.</source>
        <translation>Trascina qualcosa verso il bordo destro dello schermo e il ripiano compare da solo.</translation>
    </message>
    <message>
        <source>Remove items</source>
        <translation>Rimuovi gli elementi</translation>
    </message>
    <message>
        <source>Pinned items always stay. Copies such as images go to the Trash.</source>
        <translation>Gli elementi fissati restano sempre. Le copie, come le immagini, vanno nel cestino.</translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation>Schermate</translation>
    </message>
    <message>
        <source>Add new screenshots to the shelf</source>
        <translation>Aggiungi le nuove schermate al ripiano</translation>
    </message>
    <message>
        <source>Move them from the desktop to the shelf</source>
        <translation>Spostale dalla scrivania al ripiano</translation>
    </message>
    <message>
        <source>Otherwise the screenshot stays where it is and the shelf only refers to it.</source>
        <translation>Altrimenti la schermata resta dov’è e il ripiano vi fa solo riferimento.</translation>
    </message>
    <message>
        <source>Folder: </source>
        <translation>Cartella: </translation>
    </message>
    <message>
        <source>Reserve space while the shelf is kept open</source>
        <translation>Riserva lo spazio finché il ripiano resta aperto</translation>
    </message>
    <message>
        <source>Maximised windows then end at the shelf instead of reaching below it.</source>
        <translation>Le finestre massimizzate finiscono allora al ripiano invece di passarci sotto.</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsWindowController</name>
    <message>
        <source>Nookle Settings</source>
        <translation>Impostazioni di Nookle</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfActions</name>
    <message>
        <source>Undo Remove</source>
        <translation>Annulla la rimozione</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Incolla</translation>
    </message>
    <message>
        <source>Remove Unpinned Items</source>
        <translation>Rimuovi gli elementi non fissati</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Mantieni aperto il ripiano</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Impostazioni…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>Esci da Nookle</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Seleziona tutto</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemActions</name>
    <message>
        <source>Open</source>
        <translation>Apri</translation>
    </message>
    <message>
        <source>Show in Finder</source>
        <translation>Mostra nella cartella</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copia</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>Non fissare</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Fissa</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Rimuovi</translation>
    </message>
    <message>
        <source>%1 (%2 of %3, added %4)</source>
        <translation>%1 (%2 di %3, aggiunto il %4)</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemView</name>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Testo</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Collegamento</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Immagine</translation>
    </message>
    <message>
        <source>pinned</source>
        <translation>fissato</translation>
    </message>
    <message>
        <source>unavailable</source>
        <translation>non disponibile</translation>
    </message>
    <message>
        <source>Unavailable</source>
        <translation>Mancante</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the facts about an item</comment>
        <translation>, </translation>
    </message>
    <message>
        <source>Show Menu</source>
        <translation>Mostra il menu</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfShortcuts</name>
    <message>
        <source>Show or hide the shelf</source>
        <translation>Mostra o nascondi il ripiano</translation>
    </message>
    <message>
        <source>Show the shelf with the keyboard focus</source>
        <translation>Mostra il ripiano con il focus della tastiera</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfStore</name>
    <message>
        <source>The image could not be added to the shelf: %1</source>
        <translation>Impossibile aggiungere l’immagine al ripiano: %1</translation>
    </message>
    <message>
        <source>The shelf is full. Remove something large and try again.</source>
        <translation>Il ripiano è pieno. Rimuovi qualcosa di grande e riprova.</translation>
    </message>
    <message>
        <source>Could not be brought back from the Trash: %1</source>
        <translation>Impossibile recuperare dal cestino: %1</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfView</name>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in.</source>
        <translation>Trascina qualcosa verso il bordo destro dello schermo e il ripiano compare.</translation>
    </message>
</context>
<context>
    <name>nookle::ShortcutRow</name>
    <message>
        <source>Ask Again</source>
        <translation>Chiedi di nuovo</translation>
    </message>
    <message>
        <source>Show and hide</source>
        <translation>Mostra e nascondi</translation>
    </message>
    <message>
        <source>⌃⌥⌘D</source>
        <translation>Ctrl+Alt+Super+D</translation>
    </message>
    <message>
        <source>Control, Alt, Super and D</source>
        <translation>Control, Alt, Super e D</translation>
    </message>
    <message>
        <source>Wanted: %1</source>
        <translation>Desiderata: %1</translation>
    </message>
</context>
<context>
    <name>nookle::StatusMenu</name>
    <message>
        <source>Show Shelf</source>
        <translation>Mostra il ripiano</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Mantieni aperto il ripiano</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Impostazioni…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>Esci da Nookle</translation>
    </message>
</context>
<context>
    <name>nookle::TileList</name>
    <message>
        <source>Shelf</source>
        <translation>Ripiano</translation>
    </message>
</context>
<context>
    <name>nookle::WaylandClipboard</name>
    <message>
        <source>This desktop does not let the shelf read what is selected.</source>
        <translation>Questo ambiente non permette al ripiano di leggere ciò che è selezionato.</translation>
    </message>
    <message>
        <source>Nothing was copied: this desktop lets the shelf copy only while it has the keyboard focus.</source>
        <translation>Non è stato copiato nulla: questo ambiente permette al ripiano di copiare solo mentre ha il focus della tastiera.</translation>
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
        <translation>Maiusc</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Another program may hold %1.</source>
        <translation>Forse un altro programma usa %1.</translation>
    </message>
    <message>
        <source>This keyboard has no %1.</source>
        <translation>Questa tastiera non ha %1.</translation>
    </message>
</context>
</TS>
