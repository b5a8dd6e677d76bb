<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>nookle::AboutRow</name>
    <message>
        <source>Version %1</source>
        <translation>الإصدار %1</translation>
    </message>
    <message>
        <source>Versions and services of this desktop, for a report. No names of files.</source>
        <translation>إصدارات سطح المكتب هذا وخدماته، لإرفاقها ببلاغ. دون أسماء ملفات.</translation>
    </message>
    <message>
        <source>Copied</source>
        <translation>نُسخ</translation>
    </message>
    <message>
        <source>Copy Diagnostics</source>
        <translation>انسخ معلومات التشخيص</translation>
    </message>
</context>
<context>
    <name>nookle::AppSettings</name>
    <message>
        <source>Never</source>
        <translation>أبدًا</translation>
    </message>
    <message>
        <source>After 1 hour</source>
        <translation>بعد ساعة</translation>
    </message>
    <message>
        <source>After 24 hours</source>
        <translation>بعد 24 ساعة</translation>
    </message>
    <message>
        <source>After 1 week</source>
        <translation>بعد أسبوع</translation>
    </message>
</context>
<context>
    <name>nookle::AutostartLoginItem</name>
    <message>
        <source>A shelf at the edge of the screen</source>
        <translation>رفّ عند حافة الشاشة</translation>
    </message>
    <message>
        <source>its folder cannot be made</source>
        <translation>تعذّر إنشاء مجلده</translation>
    </message>
    <message>
        <source>%1 could not be written: %2</source>
        <translation>تعذّرت كتابة %1: %2</translation>
    </message>
    <message>
        <source>%1 could not be removed: %2</source>
        <translation>تعذّرت إزالة %1: %2</translation>
    </message>
</context>
<context>
    <name>nookle::DataFolderRow</name>
    <message>
        <source>Open Folder</source>
        <translation>افتح المجلد</translation>
    </message>
    <message>
        <source>Files are kept in %1</source>
        <translation>تُحفظ الملفات في %1</translation>
    </message>
</context>
<context>
    <name>nookle::DragAllButton</name>
    <message>
        <source>Drag All</source>
        <translation>اسحب الكل</translation>
    </message>
    <message>
        <source>Selects all items. Drag it to take all of them along.</source>
        <translation>يحدد كل العناصر. اسحبه لأخذها كلها معك.</translation>
    </message>
</context>
<context>
    <name>nookle::DropHandler</name>
    <message>
        <source>it could not be saved among the temporary files</source>
        <translation>تعذّر حفظها ضمن الملفات المؤقتة</translation>
    </message>
    <message>
        <source>The other program has saved nothing that can be added to the shelf.</source>
        <translation>لم يحفظ البرنامج الآخر شيئًا يمكن إضافته إلى الرف.</translation>
    </message>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>لم يُعثر على شيء يمكن إضافته إلى الرف.</translation>
    </message>
</context>
<context>
    <name>nookle::DroppedImage</name>
    <message>
        <source>Image</source>
        <translation>صورة</translation>
    </message>
</context>
<context>
    <name>nookle::EmptyShelfView</name>
    <message>
        <source>Drop here</source>
        <translation>أفلِت هنا</translation>
    </message>
</context>
<context>
    <name>nookle::Failure</name>
    <message>
        <source>another program holds the shelf</source>
        <translation>برنامج آخر يستخدم الرف</translation>
    </message>
    <message>
        <source>too many indexes were moved aside</source>
        <translation>نُحّي عدد كبير جدًا من الفهارس</translation>
    </message>
    <message>
        <source>the unreadable index cannot be moved to %1: %2</source>
        <translation>لا يمكن نقل الفهرس غير المقروء إلى %1: %2</translation>
    </message>
    <message>
        <source>the disk does not answer</source>
        <translation>القرص لا يستجيب</translation>
    </message>
    <message>
        <source>no usable file name, or a link for a folder: &quot;%1&quot;</source>
        <translation>اسم ملف غير صالح، أو رابط بدل مجلد: «%1»</translation>
    </message>
</context>
<context>
    <name>nookle::KdeShortcuts</name>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>لم يستجب سطح المكتب بعد.</translation>
    </message>
    <message>
        <source>Another program may hold %1. The desktop&apos;s settings can give the shortcut other keys.</source>
        <translation>ربما يستخدم برنامج آخر %1. يمكن لإعدادات سطح المكتب أن تعطي الاختصار مفاتيح أخرى.</translation>
    </message>
</context>
<context>
    <name>nookle::LoginItemSection</name>
    <message>
        <source>General</source>
        <translation>عام</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>افتح عند الولوج</translation>
    </message>
    <message>
        <source>Allow Nookle under Login Items in System Settings.</source>
        <translation>فعّل Nookle ضمن تطبيقات بدء التشغيل في إعدادات النظام.</translation>
    </message>
    <message>
        <source>Open System Settings</source>
        <translation>افتح إعدادات النظام</translation>
    </message>
</context>
<context>
    <name>nookle::NullBackend</name>
    <message>
        <source>The shelf cannot be shown on this desktop</source>
        <translation>لا يمكن إظهار الرف في هذه الجلسة</translation>
    </message>
</context>
<context>
    <name>nookle::PinButton</name>
    <message>
        <source>Allow Shelf to Hide</source>
        <translation>اسمح بإخفاء الرف</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>أبقِ الرف مفتوحًا</translation>
    </message>
</context>
<context>
    <name>nookle::PortalShortcuts</name>
    <message>
        <source>The desktop does not answer.</source>
        <translation>لا يستجيب سطح المكتب.</translation>
    </message>
    <message>
        <source>The desktop has not answered yet.</source>
        <translation>لم يستجب سطح المكتب بعد.</translation>
    </message>
    <message>
        <source>The desktop gives shortcuts only to programs that are installed. It does not find %1.</source>
        <translation>لا يمنح سطح المكتب الاختصارات إلا للبرامج المثبّتة. لم يجد %1.</translation>
    </message>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>لقد رفضت الاختصار.</translation>
    </message>
    <message>
        <source>The desktop does not say which keys are bound.</source>
        <translation>لا يذكر سطح المكتب المفاتيح المربوطة.</translation>
    </message>
    <message>
        <source>The desktop has ended the shortcut.</source>
        <translation>أنهى سطح المكتب الاختصار.</translation>
    </message>
    <message>
        <source>The desktop&apos;s service for shortcuts has ended.</source>
        <translation>انتهت خدمة الاختصارات في سطح المكتب.</translation>
    </message>
    <message>
        <source>The desktop has refused the shortcut.</source>
        <translation>رفض سطح المكتب الاختصار.</translation>
    </message>
    <message>
        <source>You have declined the shortcut, or the desktop could not bind it.</source>
        <translation>لقد رفضت الاختصار، أو تعذّر على سطح المكتب ربطه.</translation>
    </message>
    <message>
        <source>No keys are set for it in the desktop&apos;s settings.</source>
        <translation>لم تُعيَّن له مفاتيح في إعدادات سطح المكتب.</translation>
    </message>
</context>
<context>
    <name>nookle::Question</name>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
</context>
<context>
    <name>nookle::SelectionActions</name>
    <message numerus="yes">
        <source>Open %n Item(s)</source>
        <translation>
            <numerusform>افتح %n عنصر</numerusform>
            <numerusform>افتح عنصرًا واحدًا</numerusform>
            <numerusform>افتح عنصرين</numerusform>
            <numerusform>افتح %n عناصر</numerusform>
            <numerusform>افتح %n عنصرًا</numerusform>
            <numerusform>افتح %n عنصر</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Show %n Item(s) in Finder</source>
        <translation>
            <numerusform>أظهر %n عنصر في المجلد</numerusform>
            <numerusform>أظهر عنصرًا واحدًا في المجلد</numerusform>
            <numerusform>أظهر عنصرين في المجلد</numerusform>
            <numerusform>أظهر %n عناصر في المجلد</numerusform>
            <numerusform>أظهر %n عنصرًا في المجلد</numerusform>
            <numerusform>أظهر %n عنصر في المجلد</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Copy %n Item(s)</source>
        <translation>
            <numerusform>انسخ %n عنصر</numerusform>
            <numerusform>انسخ عنصرًا واحدًا</numerusform>
            <numerusform>انسخ عنصرين</numerusform>
            <numerusform>انسخ %n عناصر</numerusform>
            <numerusform>انسخ %n عنصرًا</numerusform>
            <numerusform>انسخ %n عنصر</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Unpin %n Item(s)</source>
        <translation>
            <numerusform>ألغِ تثبيت %n عنصر</numerusform>
            <numerusform>ألغِ تثبيت عنصر واحد</numerusform>
            <numerusform>ألغِ تثبيت عنصرين</numerusform>
            <numerusform>ألغِ تثبيت %n عناصر</numerusform>
            <numerusform>ألغِ تثبيت %n عنصرًا</numerusform>
            <numerusform>ألغِ تثبيت %n عنصر</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Pin %n Item(s)</source>
        <translation>
            <numerusform>ثبّت %n عنصر</numerusform>
            <numerusform>ثبّت عنصرًا واحدًا</numerusform>
            <numerusform>ثبّت عنصرين</numerusform>
            <numerusform>ثبّت %n عناصر</numerusform>
            <numerusform>ثبّت %n عنصرًا</numerusform>
            <numerusform>ثبّت %n عنصر</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Remove %n Item(s)</source>
        <translation>
            <numerusform>أزِل %n عنصر</numerusform>
            <numerusform>أزِل عنصرًا واحدًا</numerusform>
            <numerusform>أزِل عنصرين</numerusform>
            <numerusform>أزِل %n عناصر</numerusform>
            <numerusform>أزِل %n عنصرًا</numerusform>
            <numerusform>أزِل %n عنصر</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Open %n item(s) at once?</source>
        <translation>
            <numerusform>أتريد فتح %n عنصر دفعة واحدة؟</numerusform>
            <numerusform>أتريد فتح عنصر واحد؟</numerusform>
            <numerusform>أتريد فتح عنصرين دفعة واحدة؟</numerusform>
            <numerusform>أتريد فتح %n عناصر دفعة واحدة؟</numerusform>
            <numerusform>أتريد فتح %n عنصرًا دفعة واحدة؟</numerusform>
            <numerusform>أتريد فتح %n عنصر دفعة واحدة؟</numerusform>
        </translation>
    </message>
    <message>
        <source>Open</source>
        <translation>افتح</translation>
    </message>
    <message numerus="yes">
        <source>Open %n folder(s) at once?</source>
        <translation>
            <numerusform>أتريد فتح %n مجلد دفعة واحدة؟</numerusform>
            <numerusform>أتريد فتح مجلد واحد؟</numerusform>
            <numerusform>أتريد فتح مجلدين دفعة واحدة؟</numerusform>
            <numerusform>أتريد فتح %n مجلدات دفعة واحدة؟</numerusform>
            <numerusform>أتريد فتح %n مجلدًا دفعة واحدة؟</numerusform>
            <numerusform>أتريد فتح %n مجلد دفعة واحدة؟</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>nookle::ServiceProvider</name>
    <message>
        <source>Nothing found that can be added to the shelf.</source>
        <translation>لم يُعثر على شيء يمكن إضافته إلى الرف.</translation>
    </message>
</context>
<context>
    <name>nookle::SessionShortcuts</name>
    <message>
        <source>You have declined the shortcut.</source>
        <translation>لقد رفضت الاختصار.</translation>
    </message>
    <message>
        <source>In the desktop&apos;s settings, keys can be bound to this command: %1</source>
        <translation>يمكن ربط مفاتيح بهذا الأمر في إعدادات سطح المكتب: %1</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsView</name>
    <message>
        <source>Shelf</source>
        <translation>الرف</translation>
    </message>
    <message>
        <source>Show when dragging to the edge</source>
        <translation>أظهر عند السحب إلى الحافة</translation>
    </message>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in automatically.</source>
        <translation>اسحب شيئًا إلى الحافة اليمنى للشاشة فينزلق الرف تلقائيًا.</translation>
    </message>
    <message>
        <source>Remove items</source>
        <translation>إزالة العناصر</translation>
    </message>
    <message>
        <source>Pinned items always stay. Copies such as images go to the Trash.</source>
        <translation>تبقى العناصر المثبّتة دائمًا. تنتقل النسخ، كالصور، إلى المهملات.</translation>
    </message>
    <message>
        <source>Screenshots</source>
        <translation>لقطات الشاشة</translation>
    </message>
    <message>
        <source>Add new screenshots to the shelf</source>
        <translation>أضف لقطات الشاشة الجديدة إلى الرف</translation>
    </message>
    <message>
        <source>Move them from the desktop to the shelf</source>
        <translation>انقلها من سطح المكتب إلى الرف</translation>
    </message>
    <message>
        <source>Otherwise the screenshot stays where it is and the shelf only refers to it.</source>
        <translation>وإلا تبقى اللقطة في مكانها ويكتفي الرف بالإشارة إليها.</translation>
    </message>
    <message>
        <source>Folder: </source>
        <translation>المجلد: </translation>
    </message>
    <message>
        <source>Reserve space while the shelf is kept open</source>
        <translation>احجز مكان الرف ما دام مفتوحًا</translation>
    </message>
    <message>
        <source>Maximised windows then end at the shelf instead of reaching below it.</source>
        <translation>تنتهي النوافذ المكبّرة حينها عند الرف بدلًا من أن تمتد تحته.</translation>
    </message>
</context>
<context>
    <name>nookle::SettingsWindowController</name>
    <message>
        <source>Nookle Settings</source>
        <translation>إعدادات Nookle</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfActions</name>
    <message>
        <source>Undo Remove</source>
        <translation>تراجع عن الإزالة</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>ألصق</translation>
    </message>
    <message>
        <source>Remove Unpinned Items</source>
        <translation>أزِل العناصر غير المثبّتة</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>أبقِ الرف مفتوحًا</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>الإعدادات…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>أنهِ Nookle</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>حدّد الكل</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemActions</name>
    <message>
        <source>Open</source>
        <translation>افتح</translation>
    </message>
    <message>
        <source>Show in Finder</source>
        <translation>أظهر في المجلد</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>انسخ</translation>
    </message>
    <message>
        <source>Unpin</source>
        <translation>ألغِ التثبيت</translation>
    </message>
    <message>
        <source>Pin</source>
        <translation>ثبّت</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>أزِل</translation>
    </message>
    <message>
        <source>%1 (%2 of %3, added %4)</source>
        <translation>%1 (%2 من %3، أُضيف %4)</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfItemView</name>
    <message>
        <source>File</source>
        <translation>ملف</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>نص</translation>
    </message>
    <message>
        <source>Link</source>
        <translation>رابط</translation>
    </message>
    <message>
        <source>Image</source>
        <translation>صورة</translation>
    </message>
    <message>
        <source>pinned</source>
        <translation>مثبّت</translation>
    </message>
    <message>
        <source>unavailable</source>
        <translation>غير متاح</translation>
    </message>
    <message>
        <source>Unavailable</source>
        <translation>غير متاح</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the facts about an item</comment>
        <translation>، </translation>
    </message>
    <message>
        <source>Show Menu</source>
        <translation>أظهر القائمة</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfShortcuts</name>
    <message>
        <source>Show or hide the shelf</source>
        <translation>أظهر الرف أو أخفه</translation>
    </message>
    <message>
        <source>Show the shelf with the keyboard focus</source>
        <translation>أظهر الرف مع تركيز لوحة المفاتيح</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfStore</name>
    <message>
        <source>The image could not be added to the shelf: %1</source>
        <translation>تعذّرت إضافة الصورة إلى الرف: %1</translation>
    </message>
    <message>
        <source>The shelf is full. Remove something large and try again.</source>
        <translation>الرف ممتلئ. أزِل شيئًا كبيرًا ثم أعد المحاولة.</translation>
    </message>
    <message>
        <source>Could not be brought back from the Trash: %1</source>
        <translation>تعذّرت الاستعادة من المهملات: %1</translation>
    </message>
</context>
<context>
    <name>nookle::ShelfView</name>
    <message>
        <source>Drag something to the right edge of the screen and the shelf slides in.</source>
        <translation>اسحب شيئًا إلى الحافة اليمنى للشاشة فينزلق الرف.</translation>
    </message>
</context>
<context>
    <name>nookle::ShortcutRow</name>
    <message>
        <source>Ask Again</source>
        <translation>اسأل مجددًا</translation>
    </message>
    <message>
        <source>Show and hide</source>
        <translation>الإظهار والإخفاء</translation>
    </message>
    <message>
        <source>⌃⌥⌘D</source>
        <translation>Ctrl+Alt+Super+D</translation>
    </message>
    <message>
        <source>Control, Alt, Super and D</source>
        <translation>Ctrl وAlt وSuper وD</translation>
    </message>
    <message>
        <source>Wanted: %1</source>
        <translation>المطلوب: %1</translation>
    </message>
</context>
<context>
    <name>nookle::StatusMenu</name>
    <message>
        <source>Show Shelf</source>
        <translation>أظهر الرف</translation>
    </message>
    <message>
        <source>Keep Shelf Open</source>
        <translation>أبقِ الرف مفتوحًا</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>الإعدادات…</translation>
    </message>
    <message>
        <source>Quit Nookle</source>
        <translation>أنهِ Nookle</translation>
    </message>
</context>
<context>
    <name>nookle::TileList</name>
    <message>
        <source>Shelf</source>
        <translation>الرف</translation>
    </message>
</context>
<context>
    <name>nookle::WaylandClipboard</name>
    <message>
        <source>This desktop does not let the shelf read what is selected.</source>
        <translation>سطح المكتب هذا لا يسمح للرف بقراءة ما هو محدَّد.</translation>
    </message>
    <message>
        <source>Nothing was copied: this desktop lets the shelf copy only while it has the keyboard focus.</source>
        <translation>لم يُنسخ شيء: سطح المكتب هذا لا يسمح للرف بالنسخ إلا عندما يكون تركيز لوحة المفاتيح عليه.</translation>
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
        <translation>ربما يستخدم برنامج آخر %1.</translation>
    </message>
    <message>
        <source>This keyboard has no %1.</source>
        <translation>لوحة المفاتيح هذه لا تحتوي على %1.</translation>
    </message>
</context>
</TS>
