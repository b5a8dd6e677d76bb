<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_Hans" sourcelanguage="en">
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
    <name>nookle::DropHandler</name>
    <message>
        <source>it could not be saved among the temporary files</source>
        <translation>无法保存为临时文件</translation>
    </message>
    <message>
        <source>The other program has saved nothing that can be added to the shelf.</source>
        <translation>另一个程序未保存任何可添加到暂存架的内容。</translation>
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
    <name>nookle::HotKey</name>
    <message>
        <source>Show or hide the shelf</source>
        <translation>显示或隐藏暂存架</translation>
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
    <name>nookle::ServiceProvider</name>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>未找到可添加到暂存架的内容。</translation>
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
        <source>⌃⌥⌘D</source>
        <translation>Ctrl+Alt+Super+D</translation>
    </message>
    <message>
        <source>Control, Alt, Super and D</source>
        <translation>Ctrl、Alt、Super 和 D</translation>
    </message>
    <message>
        <source>Show and hide</source>
        <translation>显示和隐藏</translation>
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
</context>
<context>
    <name>nookle::SettingsWindowController</name>
    <message>
        <source>Nookle Settings</source>
        <translation>Nookle 设置</translation>
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
    <name>nookle::ShelfStore</name>
    <message>
        <source>The image could not be added to the shelf: %1</source>
        <translation>无法将图片添加到暂存架：%1</translation>
    </message>
    <message>
        <source>The shelf is full. Remove something large and try again.</source>
        <translation>暂存架已满。请移除较大的内容后重试。</translation>
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
</TS>
