#include "MailComposer.h"
#include "SeveralItemsDesktop.h"
#include "Waiting.h"
#include "WritingWindow.h"

#include <QTest>

#include <functional>

using namespace nookle::e2e;

namespace {

const QString note = QStringLiteral("note.txt");

} // namespace

/// Drags of several items into programs that people write with.
class SeveralItemsProgramsTest : public QObject, private SeveralItemsDesktop {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { QVERIFY(startShelf()); }
    void cleanup();
    void cleanupTestCase() { tearDownDesktop(); }

    void fiveFilesAreAttachedToAMessage();
    void theFilesOfAMixedSelectionAreAttachedToAMessage();
    void textsAreInsertedWithABlankLineBetween();
    void linksAreInsertedOneALine();
    void theFilesOfAMixedSelectionAreOpenedByAnEditor();

private:
    /// Opens a text editor with that file of the home folder.
    [[nodiscard]] std::optional<WritingWindow> openEditor(const QString& file);
    /// Has the editor save its text until the file has what is wanted: nothing shows when a drop has been taken.
    [[nodiscard]] bool saves(const WritingWindow& editor, const QString& file,
                             const std::function<bool(const QByteArray&)>& isWanted);
    [[nodiscard]] bool saves(const WritingWindow& editor, const QByteArray& text)
    {
        return saves(editor, note, [&](const QByteArray& saved) { return saved.trimmed() == text; });
    }

    std::unique_ptr<Program> m_editor;
};

void SeveralItemsProgramsTest::initTestCase()
{
    QVERIFY(setUpDesktop({ QSize(1280, 800), QStringLiteral("openbox"), false }));
    m_desktop->setVariable(QStringLiteral("GSETTINGS_SCHEMA_DIR"), qEnvironmentVariable("NOOKLE_SCHEMAS"));
}

void SeveralItemsProgramsTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("several-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    m_editor.reset();
    m_peer.reset();
    QVERIFY(m_shelf->stop());
}

std::optional<WritingWindow> SeveralItemsProgramsTest::openEditor(const QString& file)
{
    m_desktop->writeFile(file, "");
    m_editor = m_desktop->start(QStringLiteral("mousepad"), { QStringLiteral("--disable-server"), home(file) });
    return WritingWindow::find(screen(), "mousepad");
}

bool SeveralItemsProgramsTest::saves(const WritingWindow& editor, const QString& file,
                                     const std::function<bool(const QByteArray&)>& isWanted)
{
    editor.click();
    return waitFor([&] {
        if (!editor.isAtRest())
            return false;
        editor.type('s', true);
        return waitFor([&] { return isWanted(bytesOf(file)); }, patience / 10);
    });
}

void SeveralItemsProgramsTest::fiveFilesAreAttachedToAMessage()
{
    QVERIFY(putFilesOnShelf());
    const auto composer = MailComposer::tryOpen(*m_desktop);
    QVERIFY(composer);
    QVERIFY(showShelf());
    QVERIFY(dragTo(handle(), composer->body()));
    const auto attachments = composer->savedAttachments(files().size());
    QCOMPARE(attachments.size(), files().size());
    for (std::size_t index = 0; index < attachments.size(); ++index) {
        const TestFile& file = files()[index];
        QCOMPARE(attachments[index].content.trimmed(), QByteArray(file.content).trimmed());
        if (QString::fromUtf8(file.name).toLatin1() == file.name)
            QCOMPARE(attachments[index].name, QByteArray(file.name));
    }
}

void SeveralItemsProgramsTest::theFilesOfAMixedSelectionAreAttachedToAMessage()
{
    QVERIFY(putFilesOnShelf());
    QVERIFY(putTextOnShelf("some words"));
    const auto composer = MailComposer::tryOpen(*m_desktop);
    QVERIFY(composer);
    QVERIFY(showShelf());
    clickWithControl(tile(0));
    clickWithControl(tile(1));
    clickWithControl(tile(3));
    QVERIFY(dragTo(tile(0), composer->body()));
    const auto attachments = composer->savedAttachments(2);
    QCOMPARE(attachments.size(), 2U);
    QCOMPARE(attachments[0].name, QByteArray(files()[0].name));
    QCOMPARE(attachments[1].name, QByteArray(files()[2].name));
}

void SeveralItemsProgramsTest::textsAreInsertedWithABlankLineBetween()
{
    QVERIFY(putTextOnShelf("last"));
    QVERIFY(putTextOnShelf("two\nlines"));
    const auto editor = openEditor(note);
    QVERIFY(editor);
    QVERIFY(showShelf());
    QVERIFY(dragTo(handle(), editor->text()));
    QVERIFY(saves(*editor, "two\nlines\n\nlast"));
}

void SeveralItemsProgramsTest::linksAreInsertedOneALine()
{
    for (const char* link : { "http://127.0.0.1:9/three", "http://127.0.0.1:9/two", "http://127.0.0.1:9/one" })
        QVERIFY(putTextOnShelf(link));
    const auto editor = openEditor(note);
    QVERIFY(editor);
    QVERIFY(showShelf());
    QVERIFY(dragTo(handle(), editor->text()));
    QVERIFY(saves(*editor, "http://127.0.0.1:9/one\nhttp://127.0.0.1:9/two\nhttp://127.0.0.1:9/three"));
}

// The editor then shows the last of them, into which a user writes.
void SeveralItemsProgramsTest::theFilesOfAMixedSelectionAreOpenedByAnEditor()
{
    QVERIFY(putFilesOnShelf());
    QVERIFY(putTextOnShelf("some words"));
    const auto editor = openEditor(note);
    QVERIFY(editor);
    QVERIFY(showShelf());
    clickWithControl(tile(0));
    clickWithControl(tile(1));
    clickWithControl(tile(2));
    const QImage before = editor->picture();
    QVERIFY(dragTo(tile(0), editor->text()));
    QVERIFY(waitFor([&] { return editor->picture() != before; }));
    editor->click();
    QVERIFY(editor->isAtRest());
    editor->type('x');
    QVERIFY(saves(*editor, QStringLiteral("letters/ü 100%.txt"),
                  [](const QByteArray& saved) { return saved.contains('x') && saved.contains("another"); }));
    QCOMPARE(bytesOf(note), QByteArray());
}

QTEST_GUILESS_MAIN(SeveralItemsProgramsTest)
#include "SeveralItemsProgramsTest.moc"
