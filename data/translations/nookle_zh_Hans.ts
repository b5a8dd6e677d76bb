<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_Hans" sourcelanguage="en">
<context>
    <name>nookle::AboutRow</name>
    <message>
        <source>Version %1</source>
        <translation>版本 %1</translation>
    </message>
    <message>
        <source>Versions and services of this desktop, for a report. No names of files.</source>
        <translation>此桌面的版本和服务信息，用于报告问题。不含文件名。</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>已复制</translation>
    </message>
    <message>
        <source>Copy Diagnostics</source>
        <translation>复制诊断信息</translation>
    </message>
</context>
<context>
    <name>nookle::AppSettings</name>
    <message>
        <source>Never</source>
        <translation>从不</translation>
    </message>
    <message>
        <source>After 1 hour</source>
        <translation>1 小时后</translation>
    </message>
    <message>
        <source>After 24 hours</source>
        <translation>24 小时后</translation>
    </message>
    <message>
        <source>After 1 week</source>
        <translation>1 周后</translation>
    </message>
</context>
<context>
    <name>nookle::AutostartLoginItem</name>
    <message>
        <source>A shelf at the edge of the screen</source>
        <translation>屏幕边缘的暂存架</translation>
    </message>
    <message>
        <source>its folder cannot be made</source>
        <translation>无法创建其文件夹</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>无法写入 %1：%2</translation>
    </message>
    <message>
        <source>%1 could not be removed: %2</source>
        <translation>无法移除 %1：%2</translation>
    </message>
</context>
<context>
    <name>nookle::DataFolderRow</name>
    <message>
        <source>Open Folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>Files are kept in %1</source>
        <translation>文件保存在 %1</translation>
    </message>
</context>
<context>
    <name>nookle::DragAllButton</name>
    <message>
        <source>Drag All</source>
        <translation>拖动全部</translation>
    </message>
    <message>
        <source>Selects all items. Drag it to take all of them along.</source>
        <translation>选择所有项目。拖动它可将所有项目一并带走。</translation>
    </message>
</context>
<context>
    <name>nookle::DropHandler</name>
    <message>
        <source>it could not be saved among the temporary files</source>
        <translation>无法保存为临时文件</translation>
    </message>
    <message>
        <source>The other program has saved nothing that can be added to the shelf.</source>
        <translation>另一个程序未保存任何可添加到暂存架的内容。</translation>
    </message>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>未找到可添加到暂存架的内容。</translation>
    </message>
</context>
<context>
    <name>nookle::DroppedImage</name>
    <message>
        <source>Image</source>
        <translation>图片</translation>
    </message>
</context>
<context>
    <name>nookle::EmptyShelfView</name>
    <message>
        <source>Drop here</source>
        <translation>拖放到此处</translation>
    </message>
</context>
<context>
    <name>nookle::Failure</name>
    <message>
        <source>another program holds the shelf</source>
        <translation>另一个程序正在使用暂存架</translation>
    </message>
    <message>
        <source>too many indexes were moved aside</source>
        <translation>移走的索引过多</translation>
    </message>
    <message>
        <source>the unreadable index cannot be moved to %1: %2</source>
        <translation>无法将不可读的索引移动到 %1：%2</translation>
    </message>
    <message>
        <source>the disk does not answer</source>
        <translation>磁盘没有响应</translation>
    </message>
    <message>
        <source>no usable file name, or a link for a folder: &quot;%1&quot;</source>
        <translation>文件名不可用，或文件夹处是一个链接：“%1”</translation>
    </message>
</context>
<context>
    <name>nookle::KdeShortcuts</name>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>桌面尚未响应。</translation>
    </message>
    <message>
        <source>Another program may hold %1. The desktop&apos;s settings can give the shortcut other keys.</source>
        <translation>可能有其他程序占用了 %1。可在桌面设置中为该快捷键指定其他按键。</translation>
    </message>
</context>
<context>
    <name>nookle::LoginItemSection</name>
    <message>
        <source>General</source>
        <translation>常规</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>登录时启动</translation>
    </message>
    <message>
        <source>Allow Nookle under Login Items in System Settings.</source>
        <translation>请在系统设置的启动应用程序中启用 Nookle。</translation>
    </message>
    <message>
        <source>Open System Settings</source>
        <translation>打开系统设置</translation>
    </message>
</context>
<context>
    <name>nookle::NullBackend</name>
    <message>
        <source>The shelf cannot be shown on this desktop</source>
        <translation>无法在此会话中显示暂存架</translation>
    </message>
</context>
<context>
    <name>nookle::PinButton</name>
    <message>
        <source>Allow Shelf to Hide</source>
        <translation>允许暂存架隐藏</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>保持暂存架打开</translation>
    </message>
</context>
<context>
    <name>nookle::PortalShortcuts</name>
    <message>
        <source>The desktop does not answer.</source>
        <translation>桌面没有响应。</translation>
    </message>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>桌面尚未响应。</translation>
    </message>
    <message>
        <source>The desktop gives shortcuts only to programs that are installed. It does not find %1.</source>
        <translation>桌面只为已安装的程序提供快捷键，未找到 %1。</translation>
    </message>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>您已拒绝该快捷键。</translation>
    </message>
    <message>
        <source>The desktop does not say which keys are bound.</source>
        <translation>桌面未说明绑定了哪些按键。</translation>
    </message>
    <message>
        <source>The desktop has ended the shortcut.</source>
        <translation>桌面已终止该快捷键。</translation>
    </message>
    <message>
        <source>The desktop&apos;s service for shortcuts has ended.</source>
        <translation>桌面的快捷键服务已终止。</translation>
    </message>
    <message>
        <source>The desktop has refused the shortcut.</source>
        <translation>桌面拒绝了该快捷键。</translation>
    </message>
    <message>
        <source>You have declined the shortcut, or the desktop could not bind it.</source>
        <translation>您已拒绝该快捷键，或桌面无法绑定它。</translation>
    </message>
    <message>
        <source>No keys are set for it in the desktop&apos;s settings.</source>
        <translation>桌面设置中没有为它设置按键。</translation>
    </message>
</context>
<context>
    <name>nookle::Question</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>nookle::SelectionActions</name>
    <message numerus="yes">
        <source>Open %n Item(s)</source>
        <translation>
            <numerusform>打开 %n 个项目</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Show %n Item(s) in Finder</source>
        <translation>
            <numerusform>在文件夹中显示 %n 个项目</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Copy %n Item(s)</source>
        <translation>
            <numerusform>复制 %n 个项目</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Unpin %n Item(s)</source>
        <translation>
            <numerusform>取消固定 %n 个项目</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Pin %n Item(s)</source>
        <translation>
            <numerusform>固定 %n 个项目</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Remove %n Item(s)</source>
        <translation>
            <numerusform>移除 %n 个项目</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Open %n item(s) at once?</source>
        <translation>
            <numerusform>一次打开 %n 个项目？</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message numerus="yes">
        <source>Open %n folder(s) at once?</source>
        <translation>
            <numerusform>一次打开 %n 个文件夹？</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nookle::ServiceProvider</name>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>未找到可添加到暂存架的内容。</translation>
    </message>
</context>
<context>
    <name>nookle::SessionShortcuts</name>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>您已拒绝该快捷键。</translation>
    </message>
    <message>
        <source>In the desktop&apos;s settings, keys can be bound to this command: %1</source>
        <translation>可在桌面设置中为此命令绑定按键：%1</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsView</name>
    <message>
        <source>Shelf</source>
        <translation>暂存架</translation>
    </message>
    <message>
        <source>Show when dragging to the edge</source>
        <translation>拖动到屏幕边缘时显示</translation>
    </message>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in automatically.</source>
        <translation>将内容拖动到屏幕右边缘，暂存架会自动滑出。</translation>
    </message>
    <message>
        <source>Remove items</source>
        <translation>移除项目</translation>
    </message>
    <message>
        <source>Pinned items always stay. Copies such as images go to the Trash.</source>
        <translation>固定的项目会一直保留。图片等副本会移至回收站。</translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation>截图</translation>
    </message>
    <message>
        <source>Add new screenshots to the shelf</source>
        <translation>将新截图添加到暂存架</translation>
    </message>
    <message>
        <source>Move them from the desktop to the shelf</source>
        <translation>将其从桌面移动到暂存架</translation>
    </message>
    <message>
        <source>Otherwise the screenshot stays where it is and the shelf only refers to it.</source>
        <translation>否则截图保留在原处，暂存架仅引用它。</translation>
    </message>
    <message>
        <source>Folder: </source>
        <translation>文件夹: </translation>
    </message>
    <message>
        <source>Reserve space while the shelf is kept open</source>
        <translation>暂存架保持打开时预留空间</translation>
    </message>
    <message>
        <source>Maximised windows then end at the shelf instead of reaching below it.</source>
        <translation>最大化的窗口会止于暂存架，而不会延伸到其下方。</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsWindowController</name>
    <message>
        <source>Nookle Settings</source>
        <translation>Nookle 设置</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfActions</name>
    <message>
        <source>Undo Remove</source>
        <translation>撤消移除</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Remove Unpinned Items</source>
        <translation>移除未固定的项目</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>保持暂存架打开</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>设置…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>退出 Nookle</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemActions</name>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Show in Finder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>取消固定</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>固定</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>%1 (%2 of %3, added %4)</source>
        <translation>%1（第 %2 个，共 %3 个，添加于 %4）</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemView</name>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文本</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>链接</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>pinned</source>
        <translation>已固定</translation>
    </message>
    <message>
        <source>unavailable</source>
        <translation>不可用</translation>
    </message>
    <message>
        <source>Unavailable</source>
        <translation>不可用</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the facts about an item</comment>
        <translation>，</translation>
    </message>
    <message>
        <source>Show Menu</source>
        <translation>显示菜单</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfShortcuts</name>
    <message>
        <source>Show or hide the shelf</source>
        <translation>显示或隐藏暂存架</translation>
    </message>
    <message>
        <source>Show the shelf with the keyboard focus</source>
        <translation>显示暂存架并获取键盘焦点</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfStore</name>
    <message>
        <source>The image could not be added to the shelf: %1</source>
        <translation>无法将图片添加到暂存架：%1</translation>
    </message>
    <message>
        <source>The shelf is full. Remove something large and try again.</source>
        <translation>暂存架已满。请移除较大的内容后重试。</translation>
    </message>
    <message>
        <source>Could not be brought back from the Trash: %1</source>
        <translation>无法从回收站恢复：%1</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfView</name>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in.</source>
        <translation>将内容拖动到屏幕右边缘，暂存架就会滑出。</translation>
    </message>
</context>
<context>
    <name>nookle::ShortcutRow</name>
    <message>
        <source>Ask Again</source>
        <translation>再次询问</translation>
    </message>
    <message>
        <source>Show and hide</source>
        <translation>显示和隐藏</translation>
    </message>
    <message>
        <source>⌃⌥⌘D</source>
        <translation>Ctrl+Alt+Super+D</translation>
    </message>
    <message>
        <source>Control, Alt, Super and D</source>
        <translation>Ctrl、Alt、Super 和 D</translation>
    </message>
    <message>
        <source>Wanted: %1</source>
        <translation>期望的按键：%1</translation>
    </message>
</context>
<context>
    <name>nookle::StatusMenu</name>
    <message>
        <source>Show Shelf</source>
        <translation>显示暂存架</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>保持暂存架打开</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>设置…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>退出 Nookle</translation>
    </message>
</context>
<context>
    <name>nookle::TileList</name>
    <message>
        <source>Shelf</source>
        <translation>暂存架</translation>
    </message>
</context>
<context>
    <name>nookle::WaylandClipboard</name>
    <message>
        <source>This desktop does not let the shelf read what is selected.</source>
        <translation>此桌面不允许暂存架读取所选内容。</translation>
    </message>
    <message>
        <source>Nothing was copied: this desktop lets the shelf copy only while it has the keyboard focus.</source>
        <translation>未复制任何内容：此桌面仅允许暂存架在拥有键盘焦点时复制。</translation>
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
        <translation>可能有其他程序占用了 %1。</translation>
    </message>
    <message>
        <source>This keyboard has no %1.</source>
        <translation>此键盘没有 %1。</translation>
    </message>
</context>
</TS>
