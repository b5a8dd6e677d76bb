#include "BusClient.h"
#include "SandboxProbe.h"
#include "ShelfDesktop.h"
#include "Waiting.h"
#include "WebServer.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLocalServer>
#include <QProcess>
#include <QTest>
#include <QUrl>

#include <grp.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <memory>

using namespace nookle;
using namespace nookle::e2e;

/// What a user puts on the shelf stays between the user and the shelf.
class PrivacyEndToEndTest : public QObject, private ShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nothingOfTheContentIsLogged();
    void temporaryFilesAreGoneAfterUse();
    void noShellIsGivenAnything();
    void onlyTheSessionBusIsAsked();
    void otherUsersOfTheBusAreRefused();
    void otherUsersCannotReachTheShelfAsASecondStart();

private:
    [[nodiscard]] QString path(const QString& name) const { return m_desktop->home(QStringLiteral("files/") + name); }
    [[nodiscard]] static QString uri(const QString& path)
    {
        return QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
    }
    [[nodiscard]] QString busAddress() const
    {
        return m_desktop->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    }
    [[nodiscard]] bool hasItems(int count) const
    {
        return waitFor([&] { return m_shelf->savedItems().size() == count; });
    }
    [[nodiscard]] QStringList temporaryFiles() const;
    /// Puts on the shelf whatever can be put there, each with the secret in it.
    [[nodiscard]] bool putEverythingOnTheShelf();
    void doubleClick(const QPoint& at);
    /// The programs that the shelf has started, each with its arguments.
    [[nodiscard]] QList<QStringList> startedPrograms() const;
    /// The exit code of a call to the shelf by a user of that number, who is in no group.
    [[nodiscard]] int addTextAs(uid_t user) const;
    /// The address at which a second start finds the shelf.
    [[nodiscard]] QByteArray shelfSocket() const;
    /// What the shelf answers a user of that number who asks it to come out.
    [[nodiscard]] QByteArray answerToRequestOf(uid_t user) const;

    WebServer m_server;
    std::unique_ptr<BusClient> m_bus;
};

namespace {

constexpr uid_t nobody = 65534;
constexpr auto secret = "moonlight";

[[nodiscard]] QByteArray pictureWithSecret()
{
    QImage picture(30, 20, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    picture.setText(QStringLiteral("Title"), QLatin1String(secret));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "PNG");
    return bytes;
}

[[nodiscard]] QString programName(const QStringList& command)
{
    return command.first().section(QLatin1Char('/'), -1);
}

} // namespace

void PrivacyEndToEndTest::init()
{
    QVERIFY2(qEnvironmentVariableIsSet("NOOKLE_EXEC"), "run it with ctest, which says what is tested");
    QVERIFY(m_server.isRunning());
    QVERIFY(setUpDesktop({ QSize(1280, 800), QStringLiteral("openbox"), false }));
    m_bus = BusClient::tryConnect(busAddress());
    QVERIFY(m_bus);
    QDir().mkpath(m_desktop->home(QStringLiteral("temporary")));
    m_desktop->setVariable(QStringLiteral("TMPDIR"), m_desktop->home(QStringLiteral("temporary")));
}

void PrivacyEndToEndTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("privacy-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    m_bus.reset();
    tearDownDesktop();
}

QStringList PrivacyEndToEndTest::temporaryFiles() const
{
    return QDir(m_desktop->home(QStringLiteral("temporary")))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

bool PrivacyEndToEndTest::putEverythingOnTheShelf()
{
    const QByteArray word = secret;
    m_server.serve(QStringLiteral("/moonlight?moonlight=1"), "text/html",
                   "<title>" + word + "</title><link rel=icon href='icon.png'>");
    m_server.serve(QStringLiteral("/icon.png"), "image/png", "no picture: " + word);
    const QString address = m_server.url(QStringLiteral("/moonlight?moonlight=1"));
    const auto adds = [this](const QString& type, const QByteArray& payload) {
        const qsizetype before = m_shelf->savedItems().size();
        return offerToShelf(payload, type) && waitFor([&] { return m_shelf->savedItems().size() == before + 1; });
    };
    const auto hasTitle = [this] {
        const QJsonObject content = m_shelf->savedItems().value(0).value(QLatin1String("content")).toObject();
        const QJsonObject link = content.value(QLatin1String("link")).toObject();
        return link.value(QLatin1String("title")).toString() == QLatin1String(secret);
    };
    return adds(QStringLiteral("text/plain;charset=utf-8"), "the " + word)
        && adds(QStringLiteral("image/png"), pictureWithSecret())
        && adds(QStringLiteral("text/uri-list"), address.toLatin1() + "\r\n") && waitFor(hasTitle)
        && offerToShelf("file:///nowhere/a%00%ff" + word + "\r\n" + word + "\r\n")
        && offerToShelf("no picture: " + word, QStringLiteral("image/png"))
        && m_bus->addToShelf({ QString::fromLatin1("file://elsewhere.invalid/" + word) }, {}).type()
        == QDBusMessage::ErrorMessage
        && m_bus->addToShelf({}, QString::fromLatin1("more " + word)).type() == QDBusMessage::ReplyMessage;
}

void PrivacyEndToEndTest::nothingOfTheContentIsLogged()
{
    m_desktop->writeFile(QStringLiteral("data/Nookle/index.json"), R"({"version":1,"items":[{"text":"moonlight"}]})");
    QVERIFY(m_shelf->start());
    QVERIFY(putEverythingOnTheShelf());
    // Nothing can be written into a file.
    const QString folder = m_desktop->home(QStringLiteral("data/Nookle"));
    const QString away = m_desktop->home(QStringLiteral("data/away"));
    QVERIFY(QDir().rename(folder, away));
    m_desktop->writeFile(QStringLiteral("data/Nookle"), "no folder");
    QCOMPARE(m_bus->addToShelf({}, QStringLiteral("even more moonlight")).type(), QDBusMessage::ReplyMessage);
    QVERIFY(waitFor([this] { return m_shelf->log().contains("saving failed"); }));
    QVERIFY(QFile::remove(folder) && QDir().rename(away, folder));
    QVERIFY(m_shelf->stop());
    const QByteArray log = m_shelf->log();
    QVERIFY2(log.contains("index unreadable"), log.constData());
    QVERIFY2(!log.toLower().contains(secret), log.constData());
}

void PrivacyEndToEndTest::temporaryFilesAreGoneAfterUse()
{
    QVERIFY(m_shelf->start());
    QVERIFY(putEverythingOnTheShelf());
    QVERIFY(waitFor([this] { return temporaryFiles().isEmpty(); }));
    QVERIFY(m_shelf->stop());
    QCOMPARE(temporaryFiles(), QStringList());
}

void PrivacyEndToEndTest::doubleClick(const QPoint& at)
{
    screen().moveTo(at);
    for (int click = 0; click < 2; ++click) {
        screen().press();
        screen().release();
    }
}

QList<QStringList> PrivacyEndToEndTest::startedPrograms() const
{
    QFile file(m_desktop->home(QStringLiteral("started")));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QList<QStringList> programs;
    const QStringList words = QString::fromUtf8(file.readAll()).split(QChar(u'\0'));
    for (qsizetype at = 0; at < words.size() - 1;) {
        const qsizetype count = words.at(at).toLongLong();
        programs.append(words.mid(at + 1, count));
        at += 1 + count;
    }
    return programs;
}

// Names that a shell would obey: of a file that is opened and gets a thumbnail, and of a link.
void PrivacyEndToEndTest::noShellIsGivenAnything()
{
    if (!sandboxWorks())
        QSKIP("no program can be confined here, and then there are no thumbnails");
    const QString name = QStringLiteral("it's $(touch x); \"q\" `id` | moonlight.mp4");
    const QString link = QStringLiteral("https://nookle.example/a;b$(touch)'c&moonlight");
    m_desktop->writeFile(QStringLiteral("files/") + name, "no film");
    m_desktop->writeFile(QStringLiteral("data/thumbnailers/film.thumbnailer"),
                         "[Thumbnailer Entry]\nTryExec=cp\nExec=cp %i %o\nMimeType=video/mp4;\n");
    // Programs that open things, and do nothing.
    QVERIFY(QDir().mkpath(m_desktop->home(QStringLiteral("programs"))));
    QVERIFY(QFile::link(QStringLiteral("/bin/true"), m_desktop->home(QStringLiteral("programs/xdg-open"))));
    const QString searchPath = m_desktop->environment().value(QStringLiteral("PATH"));
    m_desktop->setVariable(QStringLiteral("PATH"),
                           QString(m_desktop->home(QStringLiteral("programs")) + QLatin1Char(':') + searchPath));
    m_desktop->preload(qEnvironmentVariable("NOOKLE_EXEC"));
    m_desktop->setVariable(QStringLiteral("EXEC_RECORD"), m_desktop->home(QStringLiteral("started")));
    QVERIFY(m_shelf->start());

    const auto opens = [&](const QString& address, const QPoint& at) {
        doubleClick(at);
        return waitFor([&] {
            const QList<QStringList> programs = startedPrograms();
            return programs.contains(QStringList{ m_desktop->home(QStringLiteral("programs/xdg-open")), address });
        });
    };
    screen().moveTo(QPoint(rightEdge() - 56, 600));
    QCOMPARE(m_bus->addToShelf({ uri(path(name)) }, {}).type(), QDBusMessage::ReplyMessage);
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(rightEdge()); }));
    QVERIFY(opens(uri(path(name)), m_shelf->firstTile()));
    QCOMPARE(m_bus->addToShelf({}, link).type(), QDBusMessage::ReplyMessage);
    QVERIFY(hasItems(2));
    // A little beside, so that it is not one more click of the same series.
    QVERIFY(opens(link, m_shelf->firstTile() + QPoint(15, 15)));

    const QStringList thumbnailer{ QStringLiteral("cp"), QStringLiteral("/tmp/input.mp4"),
                                   QStringLiteral("/tmp/output/thumbnail.png") };
    QVERIFY(waitFor([&] {
        const QList<QStringList> programs = startedPrograms();
        return std::any_of(programs.begin(), programs.end(),
                           [&](const QStringList& command) { return command.mid(command.size() - 3) == thumbnailer; });
    }));
    for (const QStringList& command : startedPrograms()) {
        const QString program = programName(command);
        const QByteArray words = command.join(QLatin1Char(' ')).toUtf8();
        QVERIFY2(program == QLatin1String("xdg-open") || program == QLatin1String("bwrap"), words.constData());
        QVERIFY2(program == QLatin1String("xdg-open") || !words.contains(secret), words.constData());
    }
}

void PrivacyEndToEndTest::onlyTheSessionBusIsAsked()
{
    QLocalServer systemBus;
    const QString address = m_desktop->home(QStringLiteral("system-bus"));
    QVERIFY(systemBus.listen(address));
    m_desktop->setVariable(QStringLiteral("DBUS_SYSTEM_BUS_ADDRESS"), QString(QStringLiteral("unix:path=") + address));
    QVERIFY(m_shelf->start());
    QVERIFY(putEverythingOnTheShelf());
    QVERIFY(m_shelf->stop());
    QCoreApplication::processEvents();
    QVERIFY(!systemBus.hasPendingConnections());
}

int PrivacyEndToEndTest::addTextAs(uid_t user) const
{
    QProcess call;
    call.setChildProcessModifier([user] {
        if (::setgroups(0, nullptr) != 0 || ::setgid(user) != 0 || ::setuid(user) != 0)
            ::_exit(EXIT_FAILURE);
    });
    call.start(QStringLiteral("gdbus"),
               { QStringLiteral("call"), QStringLiteral("--address"), busAddress(), QStringLiteral("--dest"),
                 QStringLiteral("org.nookle.Nookle"), QStringLiteral("--object-path"),
                 QStringLiteral("/org/nookle/Nookle"), QStringLiteral("--method"),
                 QStringLiteral("org.nookle.Nookle1.AddToShelf"), QStringLiteral("[]"), QStringLiteral("'words'") });
    return call.waitForFinished(patience) ? call.exitCode() : -1;
}

void PrivacyEndToEndTest::otherUsersOfTheBusAreRefused()
{
    if (::geteuid() != 0)
        QSKIP("only the administrator can become another user");
    QVERIFY(m_shelf->start());
    QVERIFY(addTextAs(nobody) != 0);
    QCOMPARE(addTextAs(::geteuid()), 0);
    QVERIFY(hasItems(1));
}

QByteArray PrivacyEndToEndTest::shelfSocket() const
{
    const QDir runtime(m_desktop->home(QStringLiteral("runtime")));
    const QStringList sockets = runtime.entryList({ QStringLiteral("org.nookle.Nookle-*") }, QDir::System);
    return sockets.size() == 1 ? QFile::encodeName(runtime.filePath(sockets.first())) : QByteArray();
}

QByteArray PrivacyEndToEndTest::answerToRequestOf(uid_t user) const
{
    const QByteArray path = shelfSocket();
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.isEmpty() || path.size() >= qsizetype(sizeof(address.sun_path)))
        return "no socket";
    std::copy(path.begin(), path.end(), address.sun_path);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    // Who asks is who connects.
    const uid_t self = ::geteuid();
    const bool isConnected =
        ::seteuid(user) == 0 && ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    if (::seteuid(self) != 0)
        qFatal("no way back");
    if (!isConnected)
        return "not connected";
    static_cast<void>(::send(socket, "show\n", 5, MSG_NOSIGNAL));
    std::array<char, 16> answer{};
    const ssize_t length = ::recv(socket, answer.data(), answer.size(), 0);
    ::close(socket);
    return { answer.data(), std::max<qsizetype>(length, 0) };
}

void PrivacyEndToEndTest::otherUsersCannotReachTheShelfAsASecondStart()
{
    if (::geteuid() != 0)
        QSKIP("only the administrator can become another user");
    QVERIFY(m_shelf->start());
    QCOMPARE(answerToRequestOf(nobody), QByteArray("not connected"));
    // Not even when somebody opens the way.
    const QString runtime = m_desktop->home(QStringLiteral("runtime"));
    for (const QString& path : { QFile::decodeName(shelfSocket()), runtime, QFileInfo(runtime).path() })
        QCOMPARE(::chmod(QFile::encodeName(path).constData(), 0777), 0);
    QCOMPARE(answerToRequestOf(nobody), QByteArray());
    QVERIFY(holdsFor([this] { return panelIsGone(); }, 500));
    QCOMPARE(answerToRequestOf(::geteuid()), QByteArray("done\n"));
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(rightEdge()); }));
}

QTEST_GUILESS_MAIN(PrivacyEndToEndTest)
#include "PrivacyEndToEndTest.moc"
