<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>nookle::AboutRow</name>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Versions and services of this desktop, for a report. No names of files.</source>
        <translation>Versions et services de ce bureau, pour un rapport. Aucun nom de fichier.</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copié</translation>
    </message>
    <message>
        <source>Copy Diagnostics</source>
        <translation>Copier le diagnostic</translation>
    </message>
</context>
<context>
    <name>nookle::AppSettings</name>
    <message>
        <source>Never</source>
        <translation>Jamais</translation>
    </message>
    <message>
        <source>After 1 hour</source>
        <translation>Après 1 heure</translation>
    </message>
    <message>
        <source>After 24 hours</source>
        <translation>Après 24 heures</translation>
    </message>
    <message>
        <source>After 1 week</source>
        <translation>Après 1 semaine</translation>
    </message>
</context>
<context>
    <name>nookle::AutostartLoginItem</name>
    <message>
        <source>A shelf at the edge of the screen</source>
        <translation>Une étagère au bord de l’écran</translation>
    </message>
    <message>
        <source>its folder cannot be made</source>
        <translation>son dossier ne peut pas être créé</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 n’a pas pu être écrit&#xa0;: %2</translation>
    </message>
    <message>
        <source>%1 could not be removed: %2</source>
        <translation>%1 n’a pas pu être supprimé&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>nookle::DataFolderRow</name>
    <message>
        <source>Open Folder</source>
        <translation>Ouvrir le dossier</translation>
    </message>
    <message>
        <source>Files are kept in %1</source>
        <translation>Les fichiers sont conservés dans %1</translation>
    </message>
</context>
<context>
    <name>nookle::DragAllButton</name>
    <message>
        <source>Drag All</source>
        <translation>Tout faire glisser</translation>
    </message>
    <message>
        <source>Selects all items. Drag it to take all of them along.</source>
        <translation>Sélectionne tous les éléments. Faites-le glisser pour tous les emporter.</translation>
    </message>
</context>
<context>
    <name>nookle::DropHandler</name>
    <message>
        <source>it could not be saved among the temporary files</source>
        <translation>elle n’a pas pu être enregistrée parmi les fichiers temporaires</translation>
    </message>
    <message>
        <source>The other program has saved nothing that can be added to the shelf.</source>
        <translation>L’autre programme n’a rien enregistré qui puisse être ajouté à l’étagère.</translation>
    </message>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>Rien trouvé qui puisse être ajouté à l’étagère.</translation>
    </message>
</context>
<context>
    <name>nookle::DroppedImage</name>
    <message>
        <source>Image</source>
        <translation>Image</translation>
    </message>
</context>
<context>
    <name>nookle::EmptyShelfView</name>
    <message>
        <source>Drop here</source>
        <translation>Déposez ici</translation>
    </message>
</context>
<context>
    <name>nookle::Failure</name>
    <message>
        <source>another program holds the shelf</source>
        <translation>un autre programme occupe l’étagère</translation>
    </message>
    <message>
        <source>too many indexes were moved aside</source>
        <translation>trop de fichiers d’index ont été mis de côté</translation>
    </message>
    <message>
        <source>the unreadable index cannot be moved to %1: %2</source>
        <translation>l’index illisible ne peut pas être déplacé vers %1&#xa0;: %2</translation>
    </message>
    <message>
        <source>the disk does not answer</source>
        <translation>le disque ne répond pas</translation>
    </message>
    <message>
        <source>no usable file name, or a link for a folder: &quot;%1&quot;</source>
        <translation>nom de fichier inutilisable, ou lien à la place d’un dossier&#xa0;: «&#xa0;%1&#xa0;»</translation>
    </message>
</context>
<context>
    <name>nookle::KdeShortcuts</name>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>Le bureau n’a pas encore répondu.</translation>
    </message>
    <message>
        <source>Another program may hold %1. The desktop&apos;s settings can give the shortcut other keys.</source>
        <translation>Un autre programme utilise peut-être %1. Les paramètres du bureau permettent d’associer d’autres touches au raccourci.</translation>
    </message>
</context>
<context>
    <name>nookle::LoginItemSection</name>
    <message>
        <source>General</source>
        <translation>Général</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>Lancer à l’ouverture de session</translation>
    </message>
    <message>
        <source>Allow Nookle under Login Items in System Settings.</source>
        <translation>Activez Nookle parmi les applications au démarrage dans les paramètres du système.</translation>
    </message>
    <message>
        <source>Open System Settings</source>
        <translation>Ouvrir les paramètres</translation>
    </message>
</context>
<context>
    <name>nookle::NullBackend</name>
    <message>
        <source>The shelf cannot be shown on this desktop</source>
        <translation>L’étagère ne peut pas être affichée dans cette session</translation>
    </message>
</context>
<context>
    <name>nookle::PinButton</name>
    <message>
        <source>Allow Shelf to Hide</source>
        <translation>Laisser l’étagère se masquer</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Garder l’étagère ouverte</translation>
    </message>
</context>
<context>
    <name>nookle::PortalShortcuts</name>
    <message>
        <source>The desktop does not answer.</source>
        <translation>Le bureau ne répond pas.</translation>
    </message>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>Le bureau n’a pas encore répondu.</translation>
    </message>
    <message>
        <source>The desktop gives shortcuts only to programs that are installed. It does not find %1.</source>
        <translation>Le bureau n’accorde de raccourcis qu’aux programmes installés. Il ne trouve pas %1.</translation>
    </message>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>Vous avez refusé le raccourci.</translation>
    </message>
    <message>
        <source>The desktop does not say which keys are bound.</source>
        <translation>Le bureau n’indique pas quelles touches sont associées.</translation>
    </message>
    <message>
        <source>The desktop has ended the shortcut.</source>
        <translation>Le bureau a mis fin au raccourci.</translation>
    </message>
    <message>
        <source>The desktop&apos;s service for shortcuts has ended.</source>
        <translation>Le service de raccourcis du bureau s’est arrêté.</translation>
    </message>
    <message>
        <source>The desktop has refused the shortcut.</source>
        <translation>Le bureau a refusé le raccourci.</translation>
    </message>
    <message>
        <source>You have declined the shortcut, or the desktop could not bind it.</source>
        <translation>Vous avez refusé le raccourci, ou le bureau n’a pas pu l’associer.</translation>
    </message>
    <message>
        <source>No keys are set for it in the desktop&apos;s settings.</source>
        <translation>Aucune touche ne lui est associée dans les paramètres du bureau.</translation>
    </message>
</context>
<context>
    <name>nookle::Question</name>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>nookle::SelectionActions</name>
    <message numerus="yes">
        <source>Open %n Item(s)</source>
        <translation>
            <numerusform>Ouvrir %n élément</numerusform>
            <numerusform>Ouvrir %n éléments</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Show %n Item(s) in Finder</source>
        <translation>
            <numerusform>Afficher %n élément dans le dossier</numerusform>
            <numerusform>Afficher %n éléments dans le dossier</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Copy %n Item(s)</source>
        <translation>
            <numerusform>Copier %n élément</numerusform>
            <numerusform>Copier %n éléments</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Unpin %n Item(s)</source>
        <translation>
            <numerusform>Désépingler %n élément</numerusform>
            <numerusform>Désépingler %n éléments</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Pin %n Item(s)</source>
        <translation>
            <numerusform>Épingler %n élément</numerusform>
            <numerusform>Épingler %n éléments</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Remove %n Item(s)</source>
        <translation>
            <numerusform>Retirer %n élément</numerusform>
            <numerusform>Retirer %n éléments</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Open %n item(s) at once?</source>
        <translation>
            <numerusform>Ouvrir %n élément à la fois&#xa0;?</numerusform>
            <numerusform>Ouvrir %n éléments à la fois&#xa0;?</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message numerus="yes">
        <source>Open %n folder(s) at once?</source>
        <translation>
            <numerusform>Ouvrir %n dossier à la fois&#xa0;?</numerusform>
            <numerusform>Ouvrir %n dossiers à la fois&#xa0;?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nookle::ServiceProvider</name>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>Rien trouvé qui puisse être ajouté à l’étagère.</translation>
    </message>
</context>
<context>
    <name>nookle::SessionShortcuts</name>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>Vous avez refusé le raccourci.</translation>
    </message>
    <message>
        <source>In the desktop&apos;s settings, keys can be bound to this command: %1</source>
        <translation>Dans les paramètres du bureau, des touches peuvent être associées à cette commande&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsView</name>
    <message>
        <source>Shelf</source>
        <translation>Étagère</translation>
    </message>
    <message>
        <source>Show when dragging to the edge</source>
        <translation>Afficher lors d’un glissement vers le bord</translation>
    </message>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in automatically.</source>
        <translation>Faites glisser un élément vers le bord droit de l’écran et l’étagère apparaît toute seule.</translation>
    </message>
    <message>
        <source>Remove items</source>
        <translation>Retirer les éléments</translation>
    </message>
    <message>
        <source>Pinned items always stay. Copies such as images go to the Trash.</source>
        <translation>Les éléments épinglés restent toujours. Les copies, comme les images, vont à la corbeille.</translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation>Captures d’écran</translation>
    </message>
    <message>
        <source>Add new screenshots to the shelf</source>
        <translation>Ajouter les nouvelles captures d’écran à l’étagère</translation>
    </message>
    <message>
        <source>Move them from the desktop to the shelf</source>
        <translation>Les déplacer du bureau vers l’étagère</translation>
    </message>
    <message>
        <source>Otherwise the screenshot stays where it is and the shelf only refers to it.</source>
        <translation>Sinon, la capture reste à sa place et l’étagère ne fait qu’y renvoyer.</translation>
    </message>
    <message>
        <source>Folder: </source>
        <translation>Dossier&#xa0;: </translation>
    </message>
    <message>
        <source>Reserve space while the shelf is kept open</source>
        <translation>Réserver l’espace tant que l’étagère reste ouverte</translation>
    </message>
    <message>
        <source>Maximised windows then end at the shelf instead of reaching below it.</source>
        <translation>Les fenêtres maximisées s’arrêtent alors à l’étagère au lieu de passer dessous.</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsWindowController</name>
    <message>
        <source>Nookle Settings</source>
        <translation>Paramètres de Nookle</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfActions</name>
    <message>
        <source>Undo Remove</source>
        <translation>Annuler le retrait</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Remove Unpinned Items</source>
        <translation>Retirer les éléments non épinglés</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Garder l’étagère ouverte</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Paramètres…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>Quitter Nookle</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Tout sélectionner</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemActions</name>
    <message>
        <source>Open</source>
        <translation>Ouvrir</translation>
    </message>
    <message>
        <source>Show in Finder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>Désépingler</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Épingler</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
    <message>
        <source>%1 (%2 of %3, added %4)</source>
        <translation>%1 (%2 sur %3, ajouté le %4)</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemView</name>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Lien</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Image</translation>
    </message>
    <message>
        <source>pinned</source>
        <translation>épinglé</translation>
    </message>
    <message>
        <source>unavailable</source>
        <translation>indisponible</translation>
    </message>
    <message>
        <source>Unavailable</source>
        <translation>Indisponible</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the facts about an item</comment>
        <translation>, </translation>
    </message>
    <message>
        <source>Show Menu</source>
        <translation>Afficher le menu</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfShortcuts</name>
    <message>
        <source>Show or hide the shelf</source>
        <translation>Afficher ou masquer l’étagère</translation>
    </message>
    <message>
        <source>Show the shelf with the keyboard focus</source>
        <translation>Afficher l’étagère avec le focus du clavier</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfStore</name>
    <message>
        <source>The image could not be added to the shelf: %1</source>
        <translation>L’image n’a pas pu être ajoutée à l’étagère&#xa0;: %1</translation>
    </message>
    <message>
        <source>The shelf is full. Remove something large and try again.</source>
        <translation>L’étagère est pleine. Retirez un élément volumineux et réessayez.</translation>
    </message>
    <message>
        <source>Could not be brought back from the Trash: %1</source>
        <translation>Impossible à récupérer dans la corbeille&#xa0;: %1</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfView</name>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in.</source>
        <translation>Faites glisser un élément vers le bord droit de l’écran et l’étagère apparaît.</translation>
    </message>
</context>
<context>
    <name>nookle::ShortcutRow</name>
    <message>
        <source>Ask Again</source>
        <translation>Redemander</translation>
    </message>
    <message>
        <source>Show and hide</source>
        <translation>Afficher et masquer</translation>
    </message>
    <message>
        <source>⌃⌥⌘D</source>
        <translation>Ctrl+Alt+Super+D</translation>
    </message>
    <message>
        <source>Control, Alt, Super and D</source>
        <translation>Contrôle, Alt, Super et D</translation>
    </message>
    <message>
        <source>Wanted: %1</source>
        <translation>Souhaité : %1</translation>
    </message>
</context>
<context>
    <name>nookle::StatusMenu</name>
    <message>
        <source>Show Shelf</source>
        <translation>Afficher l’étagère</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Garder l’étagère ouverte</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Paramètres…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>Quitter Nookle</translation>
    </message>
</context>
<context>
    <name>nookle::TileList</name>
    <message>
        <source>Shelf</source>
        <translation>Étagère</translation>
    </message>
</context>
<context>
    <name>nookle::WaylandClipboard</name>
    <message>
        <source>This desktop does not let the shelf read what is selected.</source>
        <translation>Ce bureau ne permet pas à l’étagère de lire ce qui est sélectionné.</translation>
    </message>
    <message>
        <source>Nothing was copied: this desktop lets the shelf copy only while it has the keyboard focus.</source>
        <translation>Rien n’a été copié : ce bureau ne permet à l’étagère de copier que lorsqu’elle a le focus du clavier.</translation>
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
        <translation>Maj</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Another program may hold %1.</source>
        <translation>Un autre programme utilise peut-être %1.</translation>
    </message>
    <message>
        <source>This keyboard has no %1.</source>
        <translation>Ce clavier n’a pas %1.</translation>
    </message>
</context>
</TS>
