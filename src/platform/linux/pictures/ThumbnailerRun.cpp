#include "ThumbnailerRun.h"

#include "CommandLine.h"
#include "HelperProcess.h"
#include "MainQueue.h"
#include "Sandbox.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <utility>

namespace nookle {

namespace {

// Enough for a video decoder with a thread for each core.
inline constexpr rlim_t mostMemory = rlim_t(2) << 30;
inline constexpr rlim_t largestOutput = rlim_t(16) << 20;
inline constexpr rlim_t longestComputing = 10;

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
    limit(RLIMIT_CPU, longestComputing);
    limit(RLIMIT_CORE, 0);
}

// Some programs go by the extension. It is kept where it is a plain one.
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

} // namespace

std::unique_ptr<ThumbnailerRun> ThumbnailerRun::tryStart(MainQueue& queue, const ThumbnailerEntry& entry,
                                                         const ThumbnailMaker::Wanted& wanted, double longestRun,
                                                         ThumbnailMaker::Completion completion)
{
    auto input = RegularFile::open(wanted.path, RegularFile::Links::follow);
    const QString inputPath = inputPathFor(wanted.path);
    const QString outputPath = QStringLiteral("%1/%2").arg(QLatin1String(outputFolder), QLatin1String(outputName));
    const auto command = expandedWords(
        entry.command, { inputPath, QStringLiteral("file://%1").arg(inputPath), outputPath, wanted.side });
    if (!input || !command)
        return nullptr;
    std::unique_ptr<ThumbnailerRun> run(new ThumbnailerRun(queue, std::move(completion)));
    if (!run->m_output.isValid())
        return nullptr;
    run->start(*command, *input, inputPath, longestRun);
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
        endHelperProcess(std::move(m_process));
}

void ThumbnailerRun::start(const QStringList& command, const RegularFile& input, const QString& inputPath,
                           double longestRun)
{
    m_limit = m_queue.after(longestRun, [this] { finish(std::nullopt); });
    const int descriptor = input.descriptor.get();
    m_process = makeHelperProcess([descriptor] {
        limitChild();
        ::fcntl(descriptor, F_SETFD, 0);
    });
    // On the next turn: whoever takes the result may destroy the process, which is telling of its end.
    const auto endSoon = [this] { m_limit = m_queue.after(0, [this] { takeOutput(); }); };
    QObject::connect(m_process.get(), &QProcess::finished, m_process.get(), endSoon);
    QObject::connect(m_process.get(), &QProcess::errorOccurred, m_process.get(), endSoon);

    QStringList arguments = sandboxArguments();
    // Bound by the descriptor's name, because an argument cannot hold all bytes of a file name.
    arguments << QStringLiteral("--ro-bind") << QStringLiteral("/proc/self/fd/%1").arg(descriptor) << inputPath;
    arguments << QStringLiteral("--bind") << m_output.path() << QLatin1String(outputFolder);
    m_process->start(sandboxProgram(), arguments + command);
}

void ThumbnailerRun::takeOutput()
{
    const bool hasSucceeded = m_process->state() == QProcess::NotRunning
        && m_process->exitStatus() == QProcess::NormalExit && m_process->exitCode() == 0;
    const QString path = m_output.filePath(QLatin1String(outputName));
    // The program may have put anything there, also a link to another file of the user's.
    auto image = hasSucceeded ? RegularFile::open(QFile::encodeName(path), RegularFile::Links::refuse) : std::nullopt;
    finish(image ? std::optional(ThumbnailMaker::Made{ std::move(image) }) : std::nullopt);
}

void ThumbnailerRun::finish(std::optional<ThumbnailMaker::Made> made)
{
    if (const auto completion = std::exchange(m_completion, nullptr))
        completion(std::move(made));
}

} // namespace nookle
