<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR" sourcelanguage="en">
<context>
    <name>nookle::AboutRow</name>
    <message>
        <source>Version %1</source>
        <translation>Versão %1</translation>
    </message>
    <message>
        <source>Versions and services of this desktop, for a report. No names of files.</source>
        <translation>Versões e serviços deste ambiente, para um relatório. Sem nomes de arquivos.</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>Copiado</translation>
    </message>
    <message>
        <source>Copy Diagnostics</source>
        <translation>Copiar o diagnóstico</translation>
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
        <translation>Após 1 hora</translation>
    </message>
    <message>
        <source>After 24 hours</source>
        <translation>Após 24 horas</translation>
    </message>
    <message>
        <source>After 1 week</source>
        <translation>Após 1 semana</translation>
    </message>
</context>
<context>
    <name>nookle::AutostartLoginItem</name>
    <message>
        <source>A shelf at the edge of the screen</source>
        <translation>Uma prateleira na borda da tela</translation>
    </message>
    <message>
        <source>its folder cannot be made</source>
        <translation>não é possível criar a pasta</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>Não foi possível gravar %1: %2</translation>
    </message>
    <message>
        <source>%1 could not be removed: %2</source>
        <translation>Não foi possível remover %1: %2</translation>
    </message>
</context>
<context>
    <name>nookle::DataFolderRow</name>
    <message>
        <source>Open Folder</source>
        <translation>Abrir a pasta</translation>
    </message>
    <message>
        <source>Files are kept in %1</source>
        <translation>Os arquivos ficam em %1</translation>
    </message>
</context>
<context>
    <name>nookle::DragAllButton</name>
    <message>
        <source>Drag All</source>
        <translation>Arrastar tudo</translation>
    </message>
    <message>
        <source>Selects all items. Drag it to take all of them along.</source>
        <translation>Seleciona todos os itens. Arraste para levar todos.</translation>
    </message>
</context>
<context>
    <name>nookle::DropHandler</name>
    <message>
        <source>it could not be saved among the temporary files</source>
        <translation>não foi possível salvá-la entre os arquivos temporários</translation>
    </message>
    <message>
        <source>The other program has saved nothing that can be added to the shelf.</source>
        <translation>O outro programa não salvou nada que possa ser adicionado à prateleira.</translation>
    </message>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>Não foi encontrado nada que possa ser adicionado à prateleira.</translation>
    </message>
</context>
<context>
    <name>nookle::DroppedImage</name>
    <message>
        <source>Image</source>
        <translation>Imagem</translation>
    </message>
</context>
<context>
    <name>nookle::EmptyShelfView</name>
    <message>
        <source>Drop here</source>
        <translation>Solte aqui</translation>
    </message>
</context>
<context>
    <name>nookle::Failure</name>
    <message>
        <source>another program holds the shelf</source>
        <translation>outro programa está usando a prateleira</translation>
    </message>
    <message>
        <source>too many indexes were moved aside</source>
        <translation>índices demais foram postos de lado</translation>
    </message>
    <message>
        <source>the unreadable index cannot be moved to %1: %2</source>
        <translation>o índice ilegível não pode ser movido para %1: %2</translation>
    </message>
    <message>
        <source>the disk does not answer</source>
        <translation>o disco não responde</translation>
    </message>
    <message>
        <source>no usable file name, or a link for a folder: &quot;%1&quot;</source>
        <translation>nome de arquivo inutilizável ou link no lugar de uma pasta: “%1”</translation>
    </message>
</context>
<context>
    <name>nookle::KdeShortcuts</name>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>O ambiente ainda não respondeu.</translation>
    </message>
    <message>
        <source>Another program may hold %1. The desktop&apos;s settings can give the shortcut other keys.</source>
        <translation>Outro programa talvez use %1. As configurações do ambiente podem dar outras teclas ao atalho.</translation>
    </message>
</context>
<context>
    <name>nookle::LoginItemSection</name>
    <message>
        <source>General</source>
        <translation>Geral</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>Abrir ao iniciar a sessão</translation>
    </message>
    <message>
        <source>Allow Nookle under Login Items in System Settings.</source>
        <translation>Ative o Nookle entre os aplicativos de inicialização nas configurações do sistema.</translation>
    </message>
    <message>
        <source>Open System Settings</source>
        <translation>Abrir as configurações</translation>
    </message>
</context>
<context>
    <name>nookle::NullBackend</name>
    <message>
        <source>The shelf cannot be shown on this desktop</source>
        <translation>A prateleira não pode ser mostrada nesta sessão</translation>
    </message>
</context>
<context>
    <name>nookle::PinButton</name>
    <message>
        <source>Allow Shelf to Hide</source>
        <translation>Permitir ocultar a prateleira</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Manter a prateleira aberta</translation>
    </message>
</context>
<context>
    <name>nookle::PortalShortcuts</name>
    <message>
        <source>The desktop does not answer.</source>
        <translation>O ambiente não responde.</translation>
    </message>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>O ambiente ainda não respondeu.</translation>
    </message>
    <message>
        <source>The desktop gives shortcuts only to programs that are installed. It does not find %1.</source>
        <translation>O ambiente só dá atalhos a programas instalados. Ele não encontra %1.</translation>
    </message>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>Você recusou o atalho.</translation>
    </message>
    <message>
        <source>The desktop does not say which keys are bound.</source>
        <translation>O ambiente não diz quais teclas estão associadas.</translation>
    </message>
    <message>
        <source>The desktop has ended the shortcut.</source>
        <translation>O ambiente encerrou o atalho.</translation>
    </message>
    <message>
        <source>The desktop&apos;s service for shortcuts has ended.</source>
        <translation>O serviço de atalhos do ambiente foi encerrado.</translation>
    </message>
    <message>
        <source>The desktop has refused the shortcut.</source>
        <translation>O ambiente recusou o atalho.</translation>
    </message>
    <message>
        <source>You have declined the shortcut, or the desktop could not bind it.</source>
        <translation>Você recusou o atalho ou o ambiente não conseguiu associá-lo.</translation>
    </message>
    <message>
        <source>No keys are set for it in the desktop&apos;s settings.</source>
        <translation>Nenhuma tecla está associada a ele nas configurações do ambiente.</translation>
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
            <numerusform>Abrir %n item</numerusform>
            <numerusform>Abrir %n itens</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Show %n Item(s) in Finder</source>
        <translation>
            <numerusform>Mostrar %n item na pasta</numerusform>
            <numerusform>Mostrar %n itens na pasta</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Copy %n Item(s)</source>
        <translation>
            <numerusform>Copiar %n item</numerusform>
            <numerusform>Copiar %n itens</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Unpin %n Item(s)</source>
        <translation>
            <numerusform>Desafixar %n item</numerusform>
            <numerusform>Desafixar %n itens</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Pin %n Item(s)</source>
        <translation>
            <numerusform>Fixar %n item</numerusform>
            <numerusform>Fixar %n itens</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Remove %n Item(s)</source>
        <translation>
            <numerusform>Remover %n item</numerusform>
            <numerusform>Remover %n itens</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Open %n item(s) at once?</source>
        <translation>
            <numerusform>Abrir %n item de uma vez?</numerusform>
            <numerusform>Abrir %n itens de uma vez?</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message numerus="yes">
        <source>Open %n folder(s) at once?</source>
        <translation>
            <numerusform>Abrir %n pasta de uma vez?</numerusform>
            <numerusform>Abrir %n pastas de uma vez?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nookle::ServiceProvider</name>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>Não foi encontrado nada que possa ser adicionado à prateleira.</translation>
    </message>
</context>
<context>
    <name>nookle::SessionShortcuts</name>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>Você recusou o atalho.</translation>
    </message>
    <message>
        <source>In the desktop&apos;s settings, keys can be bound to this command: %1</source>
        <translation>Nas configurações do ambiente, é possível associar teclas a este comando: %1</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsView</name>
    <message>
        <source>Shelf</source>
        <translation>Prateleira</translation>
    </message>
    <message>
        <source>Show when dragging to the edge</source>
        <translation>Mostrar ao arrastar até a borda</translation>
    </message>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in automatically.</source>
        <translation>Arraste algo até a borda direita da tela e a prateleira aparece sozinha.</translation>
    </message>
    <message>
        <source>Remove items</source>
        <translation>Remover itens</translation>
    </message>
    <message>
        <source>Pinned items always stay. Copies such as images go to the Trash.</source>
        <translation>Itens fixados sempre ficam. Cópias, como imagens, vão para a lixeira.</translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation>Capturas de tela</translation>
    </message>
    <message>
        <source>Add new screenshots to the shelf</source>
        <translation>Adicionar novas capturas de tela à prateleira</translation>
    </message>
    <message>
        <source>Move them from the desktop to the shelf</source>
        <translation>Movê-las da área de trabalho para a prateleira</translation>
    </message>
    <message>
        <source>Otherwise the screenshot stays where it is and the shelf only refers to it.</source>
        <translation>Caso contrário, a captura fica onde está e a prateleira apenas faz referência a ela.</translation>
    </message>
    <message>
        <source>Folder: </source>
        <translation>Pasta: </translation>
    </message>
    <message>
        <source>Reserve space while the shelf is kept open</source>
        <translation>Reservar espaço enquanto a prateleira fica aberta</translation>
    </message>
    <message>
        <source>Maximised windows then end at the shelf instead of reaching below it.</source>
        <translation>As janelas maximizadas terminam então na prateleira, em vez de ficar embaixo dela.</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsWindowController</name>
    <message>
        <source>Nookle Settings</source>
        <translation>Configurações do Nookle</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfActions</name>
    <message>
        <source>Undo Remove</source>
        <translation>Desfazer a remoção</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Colar</translation>
    </message>
    <message>
        <source>Remove Unpinned Items</source>
        <translation>Remover itens não fixados</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Manter a prateleira aberta</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Configurações…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>Sair do Nookle</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Selecionar tudo</translation>
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
        <translation>Mostrar na pasta</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>Desafixar</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>Fixar</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Remover</translation>
    </message>
    <message>
        <source>%1 (%2 of %3, added %4)</source>
        <translation>%1 (%2 de %3, adicionado em %4)</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemView</name>
    <message>
        <source>File</source>
        <translation>Arquivo</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texto</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>Link</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>Imagem</translation>
    </message>
    <message>
        <source>pinned</source>
        <translation>fixado</translation>
    </message>
    <message>
        <source>unavailable</source>
        <translation>indisponível</translation>
    </message>
    <message>
        <source>Unavailable</source>
        <translation>Indisponível</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the facts about an item</comment>
        <translation>, </translation>
    </message>
    <message>
        <source>Show Menu</source>
        <translation>Mostrar o menu</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfShortcuts</name>
    <message>
        <source>Show or hide the shelf</source>
        <translation>Mostrar ou ocultar a prateleira</translation>
    </message>
    <message>
        <source>Show the shelf with the keyboard focus</source>
        <translation>Mostrar a prateleira com o foco do teclado</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfStore</name>
    <message>
        <source>The image could not be added to the shelf: %1</source>
        <translation>Não foi possível adicionar a imagem à prateleira: %1</translation>
    </message>
    <message>
        <source>The shelf is full. Remove something large and try again.</source>
        <translation>A prateleira está cheia. Remova algo grande e tente novamente.</translation>
    </message>
    <message>
        <source>Could not be brought back from the Trash: %1</source>
        <translation>Não foi possível recuperar da lixeira: %1</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfView</name>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in.</source>
        <translation>Arraste algo até a borda direita da tela e a prateleira aparece.</translation>
    </message>
</context>
<context>
    <name>nookle::ShortcutRow</name>
    <message>
        <source>Ask Again</source>
        <translation>Perguntar de novo</translation>
    </message>
    <message>
        <source>Show and hide</source>
        <translation>Mostrar e ocultar</translation>
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
        <translation>Desejado: %1</translation>
    </message>
</context>
<context>
    <name>nookle::StatusMenu</name>
    <message>
        <source>Show Shelf</source>
        <translation>Mostrar a prateleira</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>Manter a prateleira aberta</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Configurações…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>Sair do Nookle</translation>
    </message>
</context>
<context>
    <name>nookle::TileList</name>
    <message>
        <source>Shelf</source>
        <translation>Prateleira</translation>
    </message>
</context>
<context>
    <name>nookle::WaylandClipboard</name>
    <message>
        <source>This desktop does not let the shelf read what is selected.</source>
        <translation>Este ambiente não permite que a prateleira leia o que está selecionado.</translation>
    </message>
    <message>
        <source>Nothing was copied: this desktop lets the shelf copy only while it has the keyboard focus.</source>
        <translation>Nada foi copiado: este ambiente só permite que a prateleira copie enquanto tem o foco do teclado.</translation>
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
        <translation>Outro programa talvez use %1.</translation>
    </message>
    <message>
        <source>This keyboard has no %1.</source>
        <translation>Este teclado não tem %1.</translation>
    </message>
</context>
</TS>
