// Another program on the desktop, with one window:
//   Peer receive FILE     takes drops and writes what it got into FILE: a line with the action, then the URI list
//   Peer take FORMAT FILE takes drops and writes what it got in that format into FILE; FILE.over gets a byte each time
//                         that something is moved over the window
//   Peer paste FILE FORMAT
//                         writes what the clipboard holds in that format into FILE, and shows an empty window
//   Peer copy FILE TYPE   copies what is in FILE as TYPE, and shows an empty window
//   Peer copy FILE TYPE many  the same, below 6000 formats that nobody knows
//   Peer copy silent      copies a URI list, and never answers who asks for it
//   Peer copy dying       copies a URI list, and ends when somebody asks for it
//   Peer trash            takes files and moves them to the Trash, some time after they were dropped
//   Peer offer FILE TYPE [RESULT [FILE TYPE]...]
//                         offers what is in each FILE as TYPE to whoever it is dragged to, and writes into RESULT
//                         whether it was taken
//   Peer slow FILE TYPE ASKED GATE
//                         the same, but makes the file ASKED when somebody asks for it, and delivers only once there is
//                         a file GATE, or after 0.7 seconds
//   Peer save FILE [MILLISECONDS]
//                         saves what is in FILE, under the name of FILE, to where it is dragged; after that time
//   Peer silent           offers a URI list, and never answers who asks for it
//   Peer dying            offers a URI list, and ends when somebody asks for it
//   Peer endless FILE TYPE RESULT, Peer dripping FILE TYPE RESULT, Peer pieces FILE TYPE
//                         offers what is in FILE as TYPE, but writes for ever, or a byte now and then, or piece by
//                         piece; RESULT gets the number of bytes that were written. Only in Wayland sessions
//   Peer text             shows text that can be selected, scrolled and added to
//   Peer moving           a window that the mouse takes along wherever it is pressed
//   Peer fullscreen       covers the whole screen in red
//   Peer fullscreen MODE [ARGUMENT]...
//                         is in another mode, and covers the whole screen
// It writes a line to standard output for what happens to its window ("entered", "left", "pressed", "focused",
// "unfocused", "dragged over", "drag left", "wheel"), when the target of its own drag begins or ceases to take it
// ("taken", "untaken"), and what happens to the text ("selected", "scrolled", "typed"). In a Wayland session, where
// programs cannot place their windows, it fills the screen.

#include "Announcer.h"
#include "DragSource.h"
#include "MovingWindow.h"
#include "UnboundedPayload.h"

#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QSaveFile>
#include <QScreen>
#include <QScrollBar>
#include <QThread>
#include <QTimer>
#include <QUrl>

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace {

void writeFile(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size())
        file.commit();
}

class Receiver final : public QWidget {
public:
    explicit Receiver(const QString& path)
        : m_path(path)
    {
        setAcceptDrops(true);
    }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override { event->acceptProposedAction(); }

    void dropEvent(QDropEvent* event) override
    {
        event->acceptProposedAction();
        QSaveFile file(m_path);
        if (!file.open(QIODevice::WriteOnly))
            return;
        file.write(event->dropAction() == Qt::CopyAction ? "copy\n" : "other\n");
        file.write(event->mimeData()->data(QStringLiteral("text/uri-list")));
        file.commit();
    }

private:
    QString m_path;
};

/// Takes one format as it comes.
class Taker final : public QWidget {
public:
    Taker(QString format, QString path)
        : m_format(std::move(format))
        , m_path(std::move(path))
    {
        setAcceptDrops(true);
    }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override { event->acceptProposedAction(); }

    void dragMoveEvent(QDragMoveEvent* event) override
    {
        event->acceptProposedAction();
        QFile file(m_path + QStringLiteral(".over"));
        if (file.open(QIODevice::Append))
            file.write(".");
    }

    void dropEvent(QDropEvent* event) override
    {
        event->acceptProposedAction();
        writeFile(m_path, event->mimeData()->data(m_format));
    }

private:
    QString m_format;
    QString m_path;
};

class TrashCan final : public QWidget {
public:
    TrashCan() { setAcceptDrops(true); }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override
    {
        event->setDropAction(Qt::MoveAction);
        event->accept();
    }

    void dropEvent(QDropEvent* event) override
    {
        event->setDropAction(Qt::MoveAction);
        event->accept();
        constexpr int jobStart = 300;
        for (const QUrl& url : event->mimeData()->urls())
            QTimer::singleShot(jobStart, this, [path = url.toLocalFile()] { QFile::moveToTrash(path); });
    }
};

/// A payload that is never delivered.
class Undelivered final : public QMimeData {
public:
    explicit Undelivered(bool isDying)
        : m_isDying(isDying)
    {
    }

    [[nodiscard]] QStringList formats() const override { return { QStringLiteral("text/uri-list") }; }
    [[nodiscard]] bool hasFormat(const QString& format) const override { return formats().contains(format); }

protected:
    [[nodiscard]] QVariant retrieveData(const QString& /*format*/, QMetaType /*type*/) const override
    {
        if (m_isDying)
            std::_Exit(EXIT_FAILURE);
        for (;;)
            QThread::sleep(1);
    }

private:
    bool m_isDying;
};

[[nodiscard]] QByteArray content(const QString& path);

/// A file that this program saves itself where it is dropped, as archive managers do.
class Saved final : public QMimeData {
public:
    Saved(QString path, int delay)
        : m_path(std::move(path))
        , m_delay(delay)
    {
        // The drag has a window only once it is under way, and until then the selection may be another program's.
        m_timer.callOnTimeout(this, [this] {
            DragSource source;
            if (source.isThere() && source.property(format).isEmpty())
                source.setProperty(format, QFileInfo(m_path).fileName().toUtf8());
        });
        constexpr int interval = 20;
        m_timer.start(interval);
    }

    [[nodiscard]] QStringList formats() const override { return { QString::fromLatin1(format) }; }
    [[nodiscard]] bool hasFormat(const QString& name) const override { return formats().contains(name); }

protected:
    [[nodiscard]] QVariant retrieveData(const QString& /*format*/, QMetaType /*type*/) const override
    {
        // The receiver has put the place where the name was.
        const QUrl place = QUrl::fromEncoded(DragSource().property(format));
        QThread::msleep(static_cast<unsigned long>(m_delay));
        writeFile(place.toLocalFile(), content(m_path));
        return QByteArray("S");
    }

private:
    static constexpr const char* format = "XdndDirectSave0";
    QString m_path;
    int m_delay;
    QTimer m_timer;
};

/// A payload that takes its time.
class Late final : public QMimeData {
public:
    Late(QString asked, QString gate)
        : m_asked(std::move(asked))
        , m_gate(std::move(gate))
    {
    }

protected:
    [[nodiscard]] QVariant retrieveData(const QString& format, QMetaType type) const override
    {
        constexpr int longest = 700;
        constexpr int pause = 5;
        QElapsedTimer elapsed;
        elapsed.start();
        writeFile(m_asked, {});
        while (!QFile::exists(m_gate) && elapsed.elapsed() < longest)
            QThread::msleep(pause);
        return QMimeData::retrieveData(format, type);
    }

private:
    QString m_asked;
    QString m_gate;
};

class Source final : public QWidget {
public:
    using MakePayload = std::function<std::unique_ptr<QMimeData>()>;

    explicit Source(MakePayload makePayload, QString result = {})
        : m_makePayload(std::move(makePayload))
        , m_result(std::move(result))
    {
    }

protected:
    void mouseMoveEvent(QMouseEvent* /*event*/) override
    {
        auto* drag = new QDrag(this);
        drag->setMimeData(m_makePayload().release());
        connect(drag, &QDrag::actionChanged, this,
                [](Qt::DropAction action) { Announcer::say(action == Qt::CopyAction ? "taken" : "untaken"); });
        const Qt::DropAction action = drag->exec(Qt::CopyAction);
        if (!m_result.isEmpty())
            writeFile(m_result, action == Qt::CopyAction ? "taken" : "refused");
    }

private:
    MakePayload m_makePayload;
    QString m_result;
};

[[nodiscard]] std::unique_ptr<QWidget> makeText()
{
    auto text = std::make_unique<QPlainTextEdit>(QStringLiteral("Some words that a user may select.\n").repeated(200));
    // Its scroll bar ends at the edge of the window.
    text->setFrameShape(QFrame::NoFrame);
    QObject::connect(text.get(), &QPlainTextEdit::selectionChanged, [] { Announcer::say("selected"); });
    QObject::connect(text.get(), &QPlainTextEdit::textChanged, [] { Announcer::say("typed"); });
    QObject::connect(text->verticalScrollBar(), &QScrollBar::valueChanged, [] { Announcer::say("scrolled"); });
    return text;
}

[[nodiscard]] QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

[[nodiscard]] std::unique_ptr<QMimeData> filled(std::unique_ptr<QMimeData> payload, const QStringList& arguments)
{
    payload->setData(arguments.value(3), content(arguments.value(2)));
    return payload;
}

/// What the program offers that is started with these arguments.
[[nodiscard]] std::unique_ptr<QMimeData> offered(const QStringList& arguments)
{
    auto payload = filled(std::make_unique<QMimeData>(), arguments);
    for (qsizetype next = 5; next + 1 < arguments.size(); next += 2)
        payload->setData(arguments[next + 1], content(arguments[next]));
    return payload;
}

/// What the program copies that is started with these arguments.
[[nodiscard]] std::unique_ptr<QMimeData> copied(const QStringList& arguments)
{
    const QString what = arguments.value(2);
    if (what == QLatin1String("silent") || what == QLatin1String("dying"))
        return std::make_unique<Undelivered>(what == QLatin1String("dying"));
    auto payload = std::make_unique<QMimeData>();
    const int unknown = arguments.value(4) == QLatin1String("many") ? 6000 : 0;
    for (int each = 0; each < unknown; ++each)
        payload->setData(QStringLiteral("application/x-unknown-%1").arg(each), "unknown");
    return filled(std::move(payload), arguments);
}

[[nodiscard]] std::optional<UnboundedPayload::Manner> unboundedManner(const QString& mode)
{
    if (mode == QLatin1String("endless"))
        return UnboundedPayload::Manner::endless;
    if (mode == QLatin1String("dripping"))
        return UnboundedPayload::Manner::dripping;
    return mode == QLatin1String("pieces") ? std::optional(UnboundedPayload::Manner::inPieces) : std::nullopt;
}

[[nodiscard]] std::unique_ptr<QWidget> makeWindow(const QStringList& arguments)
{
    const QString mode = arguments.value(1);
    if (mode == QLatin1String("receive"))
        return std::make_unique<Receiver>(arguments.value(2));
    if (mode == QLatin1String("take"))
        return std::make_unique<Taker>(arguments.value(2), arguments.value(3));
    if (mode == QLatin1String("paste")) {
        writeFile(arguments.value(2), QApplication::clipboard()->mimeData()->data(arguments.value(3)));
        return std::make_unique<QWidget>();
    }
    if (mode == QLatin1String("copy")) {
        QApplication::clipboard()->setMimeData(copied(arguments).release());
        return std::make_unique<QWidget>();
    }
    if (mode == QLatin1String("trash"))
        return std::make_unique<TrashCan>();
    if (mode == QLatin1String("offer"))
        return std::make_unique<Source>([arguments] { return offered(arguments); }, arguments.value(4));
    if (mode == QLatin1String("slow"))
        return std::make_unique<Source>(
            [arguments] { return filled(std::make_unique<Late>(arguments.value(4), arguments.value(5)), arguments); });
    if (mode == QLatin1String("save"))
        return std::make_unique<Source>(
            [arguments] { return std::make_unique<Saved>(arguments.value(2), arguments.value(3).toInt()); });
    if (mode == QLatin1String("silent") || mode == QLatin1String("dying"))
        return std::make_unique<Source>(
            [isDying = mode == QLatin1String("dying")] { return std::make_unique<Undelivered>(isDying); });
    if (const auto manner = unboundedManner(mode))
        return std::make_unique<Source>([manner, arguments] {
            return std::make_unique<UnboundedPayload>(*manner, arguments.value(3), content(arguments.value(2)),
                                                      arguments.value(4));
        });
    if (mode == QLatin1String("fullscreen")) {
        auto window = std::make_unique<QWidget>();
        window->setPalette(QPalette(Qt::red));
        window->setWindowState(Qt::WindowFullScreen);
        return window;
    }
    if (mode == QLatin1String("moving"))
        return std::make_unique<MovingWindow>();
    return makeText();
}

/// To its last pixel, in a colour that the toolkits use for nothing.
void fillScreen(QWidget& window)
{
    window.setWindowFlag(Qt::FramelessWindowHint);
    window.setWindowState(Qt::WindowMaximized);
    window.setPalette(QPalette(QColor(0x30, 0x60, 0x40)));
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("peer"));
    Announcer announcer;
    application.installEventFilter(&announcer);
    QStringList arguments = QApplication::arguments();
    const bool coversAll = arguments.value(1) == QLatin1String("fullscreen") && arguments.size() > 2;
    if (coversAll)
        arguments.removeAt(1);
    const auto window = makeWindow(arguments);
    if (coversAll)
        window->setWindowState(Qt::WindowFullScreen);
    // Without a window manager the state alone covers nothing.
    const bool isFullScreen = window->windowState() == Qt::WindowFullScreen;
    const bool isWayland = qEnvironmentVariable("XDG_SESSION_TYPE") == QLatin1String("wayland");
    const bool isMoving = QApplication::arguments().value(1) == QLatin1String("moving");
    if (isMoving)
        window->setWindowFlag(Qt::FramelessWindowHint);
    else if ((isWayland || qEnvironmentVariableIsSet("WAYLAND_DISPLAY")) && !isFullScreen)
        fillScreen(*window);
    else
        window->setGeometry(isFullScreen ? QApplication::primaryScreen()->geometry() : QRect(60, 100, 400, 300));
    window->show();
    return QApplication::exec();
}
