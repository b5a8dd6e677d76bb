<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>nookle::AboutRow</name>
    <message>
        <source>Version %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Versions and services of this desktop, for a report. No names of files.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copied</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy Diagnostics</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::AppSettings</name>
    <message>
        <source>Never</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>After 1 hour</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>After 24 hours</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>After 1 week</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::AutostartLoginItem</name>
    <message>
        <source>A shelf at the edge of the screen</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its folder cannot be made</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 could not be removed: %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::DataFolderRow</name>
    <message>
        <source>Open Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Files are kept in %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::DragAllButton</name>
    <message>
        <source>Drag All</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selects all items. Drag it to take all of them along.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::DropHandler</name>
    <message>
        <source>it could not be saved among the temporary files</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The other program has saved nothing that can be added to the shelf.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::DroppedImage</name>
    <message>
        <source>Image</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::EmptyShelfView</name>
    <message>
        <source>Drop here</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::Failure</name>
    <message>
        <source>another program holds the shelf</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>too many indexes were moved aside</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the unreadable index cannot be moved to %1: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the disk does not answer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no usable file name, or a link for a folder: &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::KdeShortcuts</name>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another program may hold %1. The desktop&apos;s settings can give the shortcut other keys.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::LoginItemSection</name>
    <message>
        <source>General</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Allow Nookle under Login Items in System Settings.</source>
        <translation>Turn Nookle on among the startup applications in the system settings.</translation>
    </message>
    <message>
        <source>Open System Settings</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::NullBackend</name>
    <message>
        <source>The shelf cannot be shown on this desktop</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::PinButton</name>
    <message>
        <source>Allow Shelf to Hide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::PortalShortcuts</name>
    <message>
        <source>The desktop does not answer.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The desktop gives shortcuts only to programs that are installed. It does not find %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You have declined the shortcut.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The desktop does not say which keys are bound.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The desktop has ended the shortcut.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The desktop&apos;s service for shortcuts has ended.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The desktop has refused the shortcut.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You have declined the shortcut, or the desktop could not bind it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No keys are set for it in the desktop&apos;s settings.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::Question</name>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::SelectionActions</name>
    <message numerus="yes">
        <source>Open %n Item(s)</source>
        <translation>
            <numerusform>Open %n Item</numerusform>
            <numerusform>Open %n Items</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Show %n Item(s) in Finder</source>
        <translation>
            <numerusform>Show %n Item in Folder</numerusform>
            <numerusform>Show %n Items in Folder</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Copy %n Item(s)</source>
        <translation>
            <numerusform>Copy %n Item</numerusform>
            <numerusform>Copy %n Items</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Unpin %n Item(s)</source>
        <translation>
            <numerusform>Unpin %n Item</numerusform>
            <numerusform>Unpin %n Items</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Pin %n Item(s)</source>
        <translation>
            <numerusform>Pin %n Item</numerusform>
            <numerusform>Pin %n Items</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Remove %n Item(s)</source>
        <translation>
            <numerusform>Remove %n Item</numerusform>
            <numerusform>Remove %n Items</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Open %n item(s) at once?</source>
        <translation>
            <numerusform>Open %n item at once?</numerusform>
            <numerusform>Open %n items at once?</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>Open %n folder(s) at once?</source>
        <translation>
            <numerusform>Open %n folder at once?</numerusform>
            <numerusform>Open %n folders at once?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nookle::ServiceProvider</name>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::SessionShortcuts</name>
    <message>
        <source>You have declined the shortcut.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>In the desktop&apos;s settings, keys can be bound to this command: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::SettingsView</name>
    <message>
        <source>Shelf</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show when dragging to the edge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in automatically.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove items</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pinned items always stay. Copies such as images go to the Trash.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add new screenshots to the shelf</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Move them from the desktop to the shelf</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Otherwise the screenshot stays where it is and the shelf only refers to it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Folder: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reserve space while the shelf is kept open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maximised windows then end at the shelf instead of reaching below it.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::SettingsWindowController</name>
    <message>
        <source>Nookle Settings</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::ShelfActions</name>
    <message>
        <source>Undo Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Paste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove Unpinned Items</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select All</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemActions</name>
    <message>
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show in Finder</source>
        <translation>Show in Folder</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pin</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 (%2 of %3, added %4)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemView</name>
    <message>
        <source>File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Link</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pinned</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>unavailable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unavailable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the facts about an item</comment>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show Menu</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::ShelfShortcuts</name>
    <message>
        <source>Show or hide the shelf</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the shelf with the keyboard focus</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::ShelfStore</name>
    <message>
        <source>The image could not be added to the shelf: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The shelf is full. Remove something large and try again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not be brought back from the Trash: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::ShelfView</name>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::ShortcutRow</name>
    <message>
        <source>Ask Again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show and hide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>⌃⌥⌘D</source>
        <translation>Ctrl+Alt+Super+D</translation>
    </message>
    <message>
        <source>Control, Alt, Super and D</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Wanted: %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::StatusMenu</name>
    <message>
        <source>Show Shelf</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::TileList</name>
    <message>
        <source>Shelf</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::WaylandClipboard</name>
    <message>
        <source>This desktop does not let the shelf read what is selected.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing was copied: this desktop lets the shelf copy only while it has the keyboard focus.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>nookle::X11GlobalShortcuts</name>
    <message>
        <source>Ctrl</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Alt</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shift</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Super</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another program may hold %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This keyboard has no %1.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
