#include "ThumbnailerRun.h"

#include "ChildProcess.h"
#include "CommandLine.h"
#include "MainQueue.h"
#include "Sandbox.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <sys/resource.h>

#include <utility>

namespace nookle {

namespace {

// In bytes. Enough for a video decoder with a thread for each core.
inline constexpr rlim_t mostMemory = rlim_t(2) << 30;
inline constexpr rlim_t largestOutput = rlim_t(16) << 20;
inline constexpr rlim_t mostComputing = 10;

constexpr auto outputFolder = "/tmp/output";
constexpr auto outputName = "thumbnail.png";

void limit(__rlimit_resource resource, rlim_t most)
{
    const rlimit value{ most, most };
    ::setrlimit(resource, &value);
}

void limitChild()
{
    limit(RLIMIT_AS, mostMemory);
    limit(RLIMIT_FSIZE, largestOutput);
    limit(RLIMIT_CPU, mostComputing);
    limit(RLIMIT_CORE, 0);
}

// Keeps the letters and digits of the extension, because some programs depend on it.
[[nodiscard]] QString inputPathFor(const QByteArray& path)
{
    QString inputPath = QStringLiteral("/tmp/input");
    const QByteArray name = path.mid(path.lastIndexOf('/') + 1);
    const qsizetype dot = name.lastIndexOf('.');
    if (dot < 0)
        return inputPath;
    inputPath += u'.';
    for (const char character : name.mid(dot + 1)) {
        const QChar letter = QLatin1Char(character);
        if (letter.unicode() < 0x80 && letter.isLetterOrNumber())
            inputPath += letter;
    }
    return inputPath;
}

// The sandbox arguments that make the file at `path` visible as `inputPath`. Not by an inherited descriptor: through
// that, the program could open the file again, even for writing.
[[nodiscard]] QByteArray inputArguments(const QByteArray& path, const QString& inputPath)
{
    const QByteArray end(1, '\0');
    return QByteArray(QByteArrayLiteral("--ro-bind") + end + path + end + inputPath.toLatin1() + end);
}

} // namespace

std::unique_ptr<ThumbnailerRun> ThumbnailerRun::tryStart(MainQueue& queue, const ThumbnailerEntry& entry,
                                                         const ThumbnailMaker::Wanted& wanted, double timeout,
                                                         ThumbnailMaker::Completion completion)
{
    const bool isReadable = RegularFile::open(wanted.path, RegularFile::Links::follow).has_value();
    const QString inputPath = inputPathFor(wanted.path);
    const QString outputPath = QStringLiteral("%1/%2").arg(QLatin1String(outputFolder), QLatin1String(outputName));
    const auto command = expandedWords(
        entry.command, { inputPath, QStringLiteral("file://%1").arg(inputPath), outputPath, wanted.side });
    const auto input = RegularFile::inMemory(inputArguments(wanted.path, inputPath));
    if (!isReadable || !command || !input)
        return nullptr;
    std::unique_ptr<ThumbnailerRun> run(new ThumbnailerRun(queue, std::move(completion)));
    if (!run->m_output.isValid())
        return nullptr;
    run->start(*command, *input, timeout);
    return run;
}

ThumbnailerRun::ThumbnailerRun(MainQueue& queue, ThumbnailMaker::Completion completion)
    : m_queue(queue)
    , m_completion(std::move(completion))
    , m_output(QDir::temp().filePath(QStringLiteral("nookle-thumbnail-XXXXXX")))
{
}

ThumbnailerRun::~ThumbnailerRun()
{
    if (m_process)
        endChildProcess(std::move(m_process));
}

void ThumbnailerRun::start(const QStringList& command, const RegularFile& inputArguments, double timeout)
{
    m_limit = m_queue.after(timeout, [this] { finish(std::nullopt); });
    const int descriptor = inputArguments.descriptor.get();
    m_process = makeChildProcess([descriptor] {
        limitChild();
        passOn(descriptor);
    });
    // In the next turn of the queue: the receiver of the result may destroy the process, whose signal is being handled
    // now.
    const auto endSoon = [this] { m_limit = m_queue.after(0, [this] { takeOutput(); }); };
    QObject::connect(m_process.get(), &QProcess::finished, m_process.get(), endSoon);
    QObject::connect(m_process.get(), &QProcess::errorOccurred, m_process.get(), endSoon);

    QStringList arguments = sandboxArguments();
    // These arguments are passed in a file. A command line argument cannot hold all bytes of a file name, and is
    // visible in the list of processes. The sandbox closes the file before the program starts.
    arguments << QStringLiteral("--args") << QString::number(descriptor);
    arguments << QStringLiteral("--bind") << m_output.path() << QLatin1String(outputFolder);
    m_process->start(sandboxProgram(), arguments + command);
}

void ThumbnailerRun::takeOutput()
{
    const bool hasSucceeded = m_process->state() == QProcess::NotRunning
        && m_process->exitStatus() == QProcess::NormalExit && m_process->exitCode() == 0;
    const QString path = m_output.filePath(QLatin1String(outputName));
    // Links are refused, because the program may have made one to another file of the user.
    auto image = hasSucceeded ? RegularFile::open(QFile::encodeName(path), RegularFile::Links::refuse) : std::nullopt;
    finish(image ? std::optional(ThumbnailMaker::Made{ std::move(image) }) : std::nullopt);
}

void ThumbnailerRun::finish(std::optional<ThumbnailMaker::Made> made)
{
    if (const auto completion = std::exchange(m_completion, nullptr))
        completion(std::move(made));
}

} // namespace nookle
