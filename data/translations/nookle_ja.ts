<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>nookle::AboutRow</name>
    <message>
        <source>Version %1</source>
        <translation>バージョン %1</translation>
    </message>
    <message>
        <source>Versions and services of this desktop, for a report. No names of files.</source>
        <translation>報告のための、このデスクトップのバージョンとサービス。ファイル名は含みません。</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>コピーしました</translation>
    </message>
    <message>
        <source>Copy Diagnostics</source>
        <translation>診断情報をコピー</translation>
    </message>
</context>
<context>
    <name>nookle::AppSettings</name>
    <message>
        <source>Never</source>
        <translation>しない</translation>
    </message>
    <message>
        <source>After 1 hour</source>
        <translation>1 時間後</translation>
    </message>
    <message>
        <source>After 24 hours</source>
        <translation>24 時間後</translation>
    </message>
    <message>
        <source>After 1 week</source>
        <translation>1 週間後</translation>
    </message>
</context>
<context>
    <name>nookle::AutostartLoginItem</name>
    <message>
        <source>A shelf at the edge of the screen</source>
        <translation>画面の端にあるシェルフ</translation>
    </message>
    <message>
        <source>its folder cannot be made</source>
        <translation>フォルダーを作成できません</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>%1 に書き込めませんでした: %2</translation>
    </message>
    <message>
        <source>%1 could not be removed: %2</source>
        <translation>%1 を削除できませんでした: %2</translation>
    </message>
</context>
<context>
    <name>nookle::DataFolderRow</name>
    <message>
        <source>Open Folder</source>
        <translation>フォルダーを開く</translation>
    </message>
    <message>
        <source>Files are kept in %1</source>
        <translation>ファイルの保存場所: %1</translation>
    </message>
</context>
<context>
    <name>nookle::DragAllButton</name>
    <message>
        <source>Drag All</source>
        <translation>すべてドラッグ</translation>
    </message>
    <message>
        <source>Selects all items. Drag it to take all of them along.</source>
        <translation>すべての項目を選択します。ドラッグするとまとめて移動できます。</translation>
    </message>
</context>
<context>
    <name>nookle::DropHandler</name>
    <message>
        <source>it could not be saved among the temporary files</source>
        <translation>一時ファイルとして保存できませんでした</translation>
    </message>
    <message>
        <source>The other program has saved nothing that can be added to the shelf.</source>
        <translation>相手のプログラムは、シェルフに追加できるものを保存しませんでした。</translation>
    </message>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>シェルフに追加できるものが見つかりませんでした。</translation>
    </message>
</context>
<context>
    <name>nookle::DroppedImage</name>
    <message>
        <source>Image</source>
        <translation>画像</translation>
    </message>
</context>
<context>
    <name>nookle::EmptyShelfView</name>
    <message>
        <source>Drop here</source>
        <translation>ここに置く</translation>
    </message>
</context>
<context>
    <name>nookle::Failure</name>
    <message>
        <source>another program holds the shelf</source>
        <translation>別のプログラムがシェルフを使用しています</translation>
    </message>
    <message>
        <source>too many indexes were moved aside</source>
        <translation>退避されたインデックスが多すぎます</translation>
    </message>
    <message>
        <source>the unreadable index cannot be moved to %1: %2</source>
        <translation>読み取れないインデックスを %1 に移動できません: %2</translation>
    </message>
    <message>
        <source>the disk does not answer</source>
        <translation>ディスクが応答しません</translation>
    </message>
    <message>
        <source>no usable file name, or a link for a folder: &quot;%1&quot;</source>
        <translation>使用できないファイル名か、フォルダーの代わりのリンクです: 「%1」</translation>
    </message>
</context>
<context>
    <name>nookle::KdeShortcuts</name>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>デスクトップからまだ応答がありません。</translation>
    </message>
    <message>
        <source>Another program may hold %1. The desktop&apos;s settings can give the shortcut other keys.</source>
        <translation>別のプログラムが %1 を使用している可能性があります。デスクトップの設定で別のキーを割り当てられます。</translation>
    </message>
</context>
<context>
    <name>nookle::LoginItemSection</name>
    <message>
        <source>General</source>
        <translation>全般</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>ログイン時に起動</translation>
    </message>
    <message>
        <source>Allow Nookle under Login Items in System Settings.</source>
        <translation>システム設定の自動起動アプリケーションで Nookle を有効にしてください。</translation>
    </message>
    <message>
        <source>Open System Settings</source>
        <translation>システム設定を開く</translation>
    </message>
</context>
<context>
    <name>nookle::NullBackend</name>
    <message>
        <source>The shelf cannot be shown on this desktop</source>
        <translation>このセッションではシェルフを表示できません</translation>
    </message>
</context>
<context>
    <name>nookle::PinButton</name>
    <message>
        <source>Allow Shelf to Hide</source>
        <translation>シェルフの自動非表示を許可</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>シェルフを開いたままにする</translation>
    </message>
</context>
<context>
    <name>nookle::PortalShortcuts</name>
    <message>
        <source>The desktop does not answer.</source>
        <translation>デスクトップが応答しません。</translation>
    </message>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>デスクトップからまだ応答がありません。</translation>
    </message>
    <message>
        <source>The desktop gives shortcuts only to programs that are installed. It does not find %1.</source>
        <translation>デスクトップはインストール済みのプログラムにのみショートカットを割り当てます。%1 が見つかりません。</translation>
    </message>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>ショートカットは拒否されました。</translation>
    </message>
    <message>
        <source>The desktop does not say which keys are bound.</source>
        <translation>割り当てられたキーをデスクトップから取得できません。</translation>
    </message>
    <message>
        <source>The desktop has ended the shortcut.</source>
        <translation>デスクトップがショートカットを終了しました。</translation>
    </message>
    <message>
        <source>The desktop&apos;s service for shortcuts has ended.</source>
        <translation>デスクトップのショートカットサービスが終了しました。</translation>
    </message>
    <message>
        <source>The desktop has refused the shortcut.</source>
        <translation>デスクトップがショートカットを拒否しました。</translation>
    </message>
    <message>
        <source>You have declined the shortcut, or the desktop could not bind it.</source>
        <translation>ショートカットが拒否されたか、デスクトップが割り当てられませんでした。</translation>
    </message>
    <message>
        <source>No keys are set for it in the desktop&apos;s settings.</source>
        <translation>デスクトップの設定でキーが割り当てられていません。</translation>
    </message>
</context>
<context>
    <name>nookle::Question</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>nookle::SelectionActions</name>
    <message numerus="yes">
        <source>Open %n Item(s)</source>
        <translation>
            <numerusform>%n 個の項目を開く</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Show %n Item(s) in Finder</source>
        <translation>
            <numerusform>%n 個の項目をフォルダーで表示</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Copy %n Item(s)</source>
        <translation>
            <numerusform>%n 個の項目をコピー</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Unpin %n Item(s)</source>
        <translation>
            <numerusform>%n 個の項目のピン留めを外す</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Pin %n Item(s)</source>
        <translation>
            <numerusform>%n 個の項目をピン留め</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Remove %n Item(s)</source>
        <translation>
            <numerusform>%n 個の項目を削除</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Open %n item(s) at once?</source>
        <translation>
            <numerusform>%n 個の項目を一度に開きますか?</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message numerus="yes">
        <source>Open %n folder(s) at once?</source>
        <translation>
            <numerusform>%n 個のフォルダーを一度に開きますか?</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nookle::ServiceProvider</name>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>シェルフに追加できるものが見つかりませんでした。</translation>
    </message>
</context>
<context>
    <name>nookle::SessionShortcuts</name>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>ショートカットは拒否されました。</translation>
    </message>
    <message>
        <source>In the desktop&apos;s settings, keys can be bound to this command: %1</source>
        <translation>デスクトップの設定で、次のコマンドにキーを割り当てられます: %1</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsView</name>
    <message>
        <source>Shelf</source>
        <translation>シェルフ</translation>
    </message>
    <message>
        <source>Show when dragging to the edge</source>
        <translation>端までドラッグしたときに表示</translation>
    </message>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in automatically.</source>
        <translation>何かを画面の右端までドラッグすると、シェルフが自動的に現れます。</translation>
    </message>
    <message>
        <source>Remove items</source>
        <translation>項目の削除</translation>
    </message>
    <message>
        <source>Pinned items always stay. Copies such as images go to the Trash.</source>
        <translation>ピン留めした項目は常に残ります。画像などのコピーはゴミ箱に移動します。</translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation>スクリーンショット</translation>
    </message>
    <message>
        <source>Add new screenshots to the shelf</source>
        <translation>新しいスクリーンショットをシェルフに追加</translation>
    </message>
    <message>
        <source>Move them from the desktop to the shelf</source>
        <translation>デスクトップからシェルフに移動</translation>
    </message>
    <message>
        <source>Otherwise the screenshot stays where it is and the shelf only refers to it.</source>
        <translation>オフの場合、スクリーンショットは元の場所に残り、シェルフはそれを参照するだけです。</translation>
    </message>
    <message>
        <source>Folder: </source>
        <translation>フォルダー: </translation>
    </message>
    <message>
        <source>Reserve space while the shelf is kept open</source>
        <translation>シェルフを開いている間は場所を空けておく</translation>
    </message>
    <message>
        <source>Maximised windows then end at the shelf instead of reaching below it.</source>
        <translation>最大化したウィンドウはシェルフの下に隠れず、その手前で終わります。</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsWindowController</name>
    <message>
        <source>Nookle Settings</source>
        <translation>Nookle の設定</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfActions</name>
    <message>
        <source>Undo Remove</source>
        <translation>削除を元に戻す</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Remove Unpinned Items</source>
        <translation>ピン留めされていない項目を削除</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>シェルフを開いたままにする</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>設定…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>Nookle を終了</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>すべて選択</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemActions</name>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Show in Finder</source>
        <translation>フォルダーで表示</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>ピン留めを外す</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>ピン留め</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>%1 (%2 of %3, added %4)</source>
        <translation>%1 (%3 個中 %2 個目、追加: %4)</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemView</name>
    <message>
        <source>File</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>テキスト</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>リンク</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>pinned</source>
        <translation>ピン留め済み</translation>
    </message>
    <message>
        <source>unavailable</source>
        <translation>利用不可</translation>
    </message>
    <message>
        <source>Unavailable</source>
        <translation>利用不可</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the facts about an item</comment>
        <translation>、</translation>
    </message>
    <message>
        <source>Show Menu</source>
        <translation>メニューを表示</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfShortcuts</name>
    <message>
        <source>Show or hide the shelf</source>
        <translation>シェルフの表示/非表示</translation>
    </message>
    <message>
        <source>Show the shelf with the keyboard focus</source>
        <translation>キーボードフォーカス付きでシェルフを表示</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfStore</name>
    <message>
        <source>The image could not be added to the shelf: %1</source>
        <translation>画像をシェルフに追加できませんでした: %1</translation>
    </message>
    <message>
        <source>The shelf is full. Remove something large and try again.</source>
        <translation>シェルフがいっぱいです。大きなものを削除して、もう一度お試しください。</translation>
    </message>
    <message>
        <source>Could not be brought back from the Trash: %1</source>
        <translation>ゴミ箱から元に戻せませんでした: %1</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfView</name>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in.</source>
        <translation>何かを画面の右端までドラッグすると、シェルフが現れます。</translation>
    </message>
</context>
<context>
    <name>nookle::ShortcutRow</name>
    <message>
        <source>Ask Again</source>
        <translation>もう一度確認</translation>
    </message>
    <message>
        <source>Show and hide</source>
        <translation>表示と非表示</translation>
    </message>
    <message>
        <source>⌃⌥⌘D</source>
        <translation>Ctrl+Alt+Super+D</translation>
    </message>
    <message>
        <source>Control, Alt, Super and D</source>
        <translation>Ctrl、Alt、Super、D</translation>
    </message>
    <message>
        <source>Wanted: %1</source>
        <translation>希望するキー: %1</translation>
    </message>
</context>
<context>
    <name>nookle::StatusMenu</name>
    <message>
        <source>Show Shelf</source>
        <translation>シェルフを表示</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>シェルフを開いたままにする</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>設定…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>Nookle を終了</translation>
    </message>
</context>
<context>
    <name>nookle::TileList</name>
    <message>
        <source>Shelf</source>
        <translation>シェルフ</translation>
    </message>
</context>
<context>
    <name>nookle::WaylandClipboard</name>
    <message>
        <source>This desktop does not let the shelf read what is selected.</source>
        <translation>このデスクトップでは、シェルフは選択内容を読み取れません。</translation>
    </message>
    <message>
        <source>Nothing was copied: this desktop lets the shelf copy only while it has the keyboard focus.</source>
        <translation>何もコピーされませんでした。このデスクトップでは、シェルフはキーボードフォーカスがある間だけコピーできます。</translation>
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
        <translation>別のプログラムが %1 を使用している可能性があります。</translation>
    </message>
    <message>
        <source>This keyboard has no %1.</source>
        <translation>このキーボードには %1 がありません。</translation>
    </message>
</context>
</TS>
