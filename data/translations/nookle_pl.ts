<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<context>
    <name>nookle::AboutRow</name>
    <message>
        <source>Version %1</source>
        <translation>Wersja %1</translation>
    </message>
    <message>
        <source>Versions and services of this desktop, for a report. No names of files.</source>
        <translation>Wersje i usługi tego środowiska, do zgłoszenia. Bez nazw plików.</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Skopiowano</translation>
    </message>
    <message>
        <source>Copy Diagnostics</source>
        <translation>Skopiuj diagnostykę</translation>
    </message>
</context>
<context>
    <name>nookle::AppSettings</name>
    <message>
        <source>Never</source>
        <translation>Nigdy</translation>
    </message>
    <message>
        <source>After 1 hour</source>
        <translation>Po 1 godzinie</translation>
    </message>
    <message>
        <source>After 24 hours</source>
        <translation>Po 24 godzinach</translation>
    </message>
    <message>
        <source>After 1 week</source>
        <translation>Po 1 tygodniu</translation>
    </message>
</context>
<context>
    <name>nookle::AutostartLoginItem</name>
    <message>
        <source>A shelf at the edge of the screen</source>
        <translation>Półka przy krawędzi ekranu</translation>
    </message>
    <message>
        <source>its folder cannot be made</source>
        <translation>nie można utworzyć katalogu</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>Nie można zapisać %1: %2</translation>
    </message>
    <message>
        <source>%1 could not be removed: %2</source>
        <translation>Nie można usunąć %1: %2</translation>
    </message>
</context>
<context>
    <name>nookle::DataFolderRow</name>
    <message>
        <source>Open Folder</source>
        <translation>Otwórz katalog</translation>
    </message>
    <message>
        <source>Files are kept in %1</source>
        <translation>Pliki są przechowywane w %1</translation>
    </message>
</context>
<context>
    <name>nookle::DragAllButton</name>
    <message>
        <source>Drag All</source>
        <translation>Przeciągnij wszystko</translation>
    </message>
    <message>
        <source>Selects all items. Drag it to take all of them along.</source>
        <translation>Zaznacza wszystkie elementy. Przeciągnij, aby zabrać je wszystkie.</translation>
    </message>
</context>
<context>
    <name>nookle::DropHandler</name>
    <message>
        <source>it could not be saved among the temporary files</source>
        <translation>nie można zapisać go wśród plików tymczasowych</translation>
    </message>
    <message>
        <source>The other program has saved nothing that can be added to the shelf.</source>
        <translation>Drugi program nie zapisał niczego, co można dodać na półkę.</translation>
    </message>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>Nie znaleziono niczego, co można dodać na półkę.</translation>
    </message>
</context>
<context>
    <name>nookle::DroppedImage</name>
    <message>
        <source>Image</source>
        <translation>Obraz</translation>
    </message>
</context>
<context>
    <name>nookle::EmptyShelfView</name>
    <message>
        <source>Drop here</source>
        <translation>Upuść tutaj</translation>
    </message>
</context>
<context>
    <name>nookle::Failure</name>
    <message>
        <source>another program holds the shelf</source>
        <translation>inny program używa półki</translation>
    </message>
    <message>
        <source>too many indexes were moved aside</source>
        <translation>odłożono na bok zbyt wiele indeksów</translation>
    </message>
    <message>
        <source>the unreadable index cannot be moved to %1: %2</source>
        <translation>nie można przenieść nieczytelnego indeksu do %1: %2</translation>
    </message>
    <message>
        <source>the disk does not answer</source>
        <translation>dysk nie odpowiada</translation>
    </message>
    <message>
        <source>no usable file name, or a link for a folder: &quot;%1&quot;</source>
        <translation>nieodpowiednia nazwa pliku lub dowiązanie zamiast katalogu: „%1”</translation>
    </message>
</context>
<context>
    <name>nookle::KdeShortcuts</name>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>Środowisko jeszcze nie odpowiedziało.</translation>
    </message>
    <message>
        <source>Another program may hold %1. The desktop&apos;s settings can give the shortcut other keys.</source>
        <translation>Być może inny program używa %1. W ustawieniach środowiska można przypisać skrótowi inne klawisze.</translation>
    </message>
</context>
<context>
    <name>nookle::LoginItemSection</name>
    <message>
        <source>General</source>
        <translation>Ogólne</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>Uruchamiaj po zalogowaniu</translation>
    </message>
    <message>
        <source>Allow Nookle under Login Items in System Settings.</source>
        <translation>Włącz Nookle wśród programów startowych w ustawieniach systemu.</translation>
    </message>
    <message>
        <source>Open System Settings</source>
        <translation>Otwórz ustawienia systemu</translation>
    </message>
</context>
<context>
    <name>nookle::NullBackend</name>
    <message>
        <source>The shelf cannot be shown on this desktop</source>
        <translation>Nie można pokazać półki w tej sesji</translation>
    </message>
</context>
<context>
    <name>nookle::PinButton</name>
    <message>
        <source>Allow Shelf to Hide</source>
        <translation>Pozwól na ukrywanie półki</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Pozostaw półkę otwartą</translation>
    </message>
</context>
<context>
    <name>nookle::PortalShortcuts</name>
    <message>
        <source>The desktop does not answer.</source>
        <translation>Środowisko nie odpowiada.</translation>
    </message>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>Środowisko jeszcze nie odpowiedziało.</translation>
    </message>
    <message>
        <source>The desktop gives shortcuts only to programs that are installed. It does not find %1.</source>
        <translation>Środowisko przyznaje skróty tylko zainstalowanym programom. Nie znajduje %1.</translation>
    </message>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>Skrót został odrzucony.</translation>
    </message>
    <message>
        <source>The desktop does not say which keys are bound.</source>
        <translation>Środowisko nie podaje, które klawisze są przypisane.</translation>
    </message>
    <message>
        <source>The desktop has ended the shortcut.</source>
        <translation>Środowisko zakończyło skrót.</translation>
    </message>
    <message>
        <source>The desktop&apos;s service for shortcuts has ended.</source>
        <translation>Usługa skrótów środowiska zakończyła działanie.</translation>
    </message>
    <message>
        <source>The desktop has refused the shortcut.</source>
        <translation>Środowisko odrzuciło skrót.</translation>
    </message>
    <message>
        <source>You have declined the shortcut, or the desktop could not bind it.</source>
        <translation>Skrót został odrzucony albo środowisko nie mogło go przypisać.</translation>
    </message>
    <message>
        <source>No keys are set for it in the desktop&apos;s settings.</source>
        <translation>W ustawieniach środowiska nie przypisano do niego klawiszy.</translation>
    </message>
</context>
<context>
    <name>nookle::Question</name>
    <message>
        <source>Cancel</source>
        <translation>Anuluj</translation>
    </message>
</context>
<context>
    <name>nookle::SelectionActions</name>
    <message numerus="yes">
        <source>Open %n Item(s)</source>
        <translation>
            <numerusform>Otwórz %n element</numerusform>
            <numerusform>Otwórz %n elementy</numerusform>
            <numerusform>Otwórz %n elementów</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Show %n Item(s) in Finder</source>
        <translation>
            <numerusform>Pokaż %n element w katalogu</numerusform>
            <numerusform>Pokaż %n elementy w katalogu</numerusform>
            <numerusform>Pokaż %n elementów w katalogu</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Copy %n Item(s)</source>
        <translation>
            <numerusform>Skopiuj %n element</numerusform>
            <numerusform>Skopiuj %n elementy</numerusform>
            <numerusform>Skopiuj %n elementów</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Unpin %n Item(s)</source>
        <translation>
            <numerusform>Odepnij %n element</numerusform>
            <numerusform>Odepnij %n elementy</numerusform>
            <numerusform>Odepnij %n elementów</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Pin %n Item(s)</source>
        <translation>
            <numerusform>Przypnij %n element</numerusform>
            <numerusform>Przypnij %n elementy</numerusform>
            <numerusform>Przypnij %n elementów</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Remove %n Item(s)</source>
        <translation>
            <numerusform>Usuń %n element</numerusform>
            <numerusform>Usuń %n elementy</numerusform>
            <numerusform>Usuń %n elementów</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Open %n item(s) at once?</source>
        <translation>
            <numerusform>Otworzyć %n element naraz?</numerusform>
            <numerusform>Otworzyć %n elementy naraz?</numerusform>
            <numerusform>Otworzyć %n elementów naraz?</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Otwórz</translation>
    </message>
    <message numerus="yes">
        <source>Open %n folder(s) at once?</source>
        <translation>
            <numerusform>Otworzyć %n katalog naraz?</numerusform>
            <numerusform>Otworzyć %n katalogi naraz?</numerusform>
            <numerusform>Otworzyć %n katalogów naraz?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nookle::ServiceProvider</name>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>Nie znaleziono niczego, co można dodać na półkę.</translation>
    </message>
</context>
<context>
    <name>nookle::SessionShortcuts</name>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>Skrót został odrzucony.</translation>
    </message>
    <message>
        <source>In the desktop&apos;s settings, keys can be bound to this command: %1</source>
        <translation>W ustawieniach środowiska można przypisać klawisze do tego polecenia: %1</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsView</name>
    <message>
        <source>Shelf</source>
        <translation>Półka</translation>
    </message>
    <message>
        <source>Show when dragging to the edge</source>
        <translation>Pokazuj przy przeciąganiu do krawędzi</translation>
    </message>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in automatically.</source>
        <translation>Przeciągnij coś do prawej krawędzi ekranu, a półka sama się wysunie.</translation>
    </message>
    <message>
        <source>Remove items</source>
        <translation>Usuwanie elementów</translation>
    </message>
    <message>
        <source>Pinned items always stay. Copies such as images go to the Trash.</source>
        <translation>Przypięte elementy pozostają zawsze. Kopie, na przykład obrazy, trafiają do kosza.</translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation>Zrzuty ekranu</translation>
    </message>
    <message>
        <source>Add new screenshots to the shelf</source>
        <translation>Dodawaj nowe zrzuty ekranu na półkę</translation>
    </message>
    <message>
        <source>Move them from the desktop to the shelf</source>
        <translation>Przenoś je z pulpitu na półkę</translation>
    </message>
    <message>
        <source>Otherwise the screenshot stays where it is and the shelf only refers to it.</source>
        <translation>W przeciwnym razie zrzut pozostaje na swoim miejscu, a półka tylko się do niego odwołuje.</translation>
    </message>
    <message>
        <source>Folder: </source>
        <translation>Katalog: </translation>
    </message>
    <message>
        <source>Reserve space while the shelf is kept open</source>
        <translation>Rezerwuj miejsce, gdy półka pozostaje otwarta</translation>
    </message>
    <message>
        <source>Maximised windows then end at the shelf instead of reaching below it.</source>
        <translation>Zmaksymalizowane okna kończą się wtedy przy półce, zamiast sięgać pod nią.</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsWindowController</name>
    <message>
        <source>Nookle Settings</source>
        <translation>Ustawienia Nookle</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfActions</name>
    <message>
        <source>Undo Remove</source>
        <translation>Cofnij usunięcie</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Wklej</translation>
    </message>
    <message>
        <source>Remove Unpinned Items</source>
        <translation>Usuń nieprzypięte elementy</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Pozostaw półkę otwartą</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Ustawienia…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>Zakończ Nookle</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Zaznacz wszystko</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemActions</name>
    <message>
        <source>Open</source>
        <translation>Otwórz</translation>
    </message>
    <message>
        <source>Show in Finder</source>
        <translation>Pokaż w katalogu</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Skopiuj</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>Odepnij</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Przypnij</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Usuń</translation>
    </message>
    <message>
        <source>%1 (%2 of %3, added %4)</source>
        <translation>%1 (%2 z %3, dodano %4)</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemView</name>
    <message>
        <source>File</source>
        <translation>Plik</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Tekst</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Odnośnik</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Obraz</translation>
    </message>
    <message>
        <source>pinned</source>
        <translation>przypięte</translation>
    </message>
    <message>
        <source>unavailable</source>
        <translation>niedostępne</translation>
    </message>
    <message>
        <source>Unavailable</source>
        <translation>Niedostępne</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the facts about an item</comment>
        <translation>, </translation>
    </message>
    <message>
        <source>Show Menu</source>
        <translation>Pokaż menu</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfShortcuts</name>
    <message>
        <source>Show or hide the shelf</source>
        <translation>Pokaż lub ukryj półkę</translation>
    </message>
    <message>
        <source>Show the shelf with the keyboard focus</source>
        <translation>Pokaż półkę z fokusem klawiatury</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfStore</name>
    <message>
        <source>The image could not be added to the shelf: %1</source>
        <translation>Nie można dodać obrazu na półkę: %1</translation>
    </message>
    <message>
        <source>The shelf is full. Remove something large and try again.</source>
        <translation>Półka jest pełna. Usuń coś dużego i spróbuj ponownie.</translation>
    </message>
    <message>
        <source>Could not be brought back from the Trash: %1</source>
        <translation>Nie można przywrócić z kosza: %1</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfView</name>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in.</source>
        <translation>Przeciągnij coś do prawej krawędzi ekranu, a półka się wysunie.</translation>
    </message>
</context>
<context>
    <name>nookle::ShortcutRow</name>
    <message>
        <source>Ask Again</source>
        <translation>Zapytaj ponownie</translation>
    </message>
    <message>
        <source>Show and hide</source>
        <translation>Pokazywanie i ukrywanie</translation>
    </message>
    <message>
        <source>⌃⌥⌘D</source>
        <translation>Ctrl+Alt+Super+D</translation>
    </message>
    <message>
        <source>Control, Alt, Super and D</source>
        <translation>Control, Alt, Super i D</translation>
    </message>
    <message>
        <source>Wanted: %1</source>
        <translation>Oczekiwany: %1</translation>
    </message>
</context>
<context>
    <name>nookle::StatusMenu</name>
    <message>
        <source>Show Shelf</source>
        <translation>Pokaż półkę</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Pozostaw półkę otwartą</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Ustawienia…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>Zakończ Nookle</translation>
    </message>
</context>
<context>
    <name>nookle::TileList</name>
    <message>
        <source>Shelf</source>
        <translation>Półka</translation>
    </message>
</context>
<context>
    <name>nookle::WaylandClipboard</name>
    <message>
        <source>This desktop does not let the shelf read what is selected.</source>
        <translation>To środowisko nie pozwala półce odczytać tego, co zaznaczono.</translation>
    </message>
    <message>
        <source>Nothing was copied: this desktop lets the shelf copy only while it has the keyboard focus.</source>
        <translation>Nic nie skopiowano: to środowisko pozwala półce kopiować tylko wtedy, gdy ma ona fokus klawiatury.</translation>
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
        <translation>Shift</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Another program may hold %1.</source>
        <translation>Być może inny program używa %1.</translation>
    </message>
    <message>
        <source>This keyboard has no %1.</source>
        <translation>Ta klawiatura nie ma %1.</translation>
    </message>
</context>
</TS>
