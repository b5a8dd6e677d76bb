#include "IndexFile.h"

#include "DataFiles.h"
#include "Log.h"
#include "Overloaded.h"
#include "ShelfIndex.h"

#include <QFile>

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>
#include <variant>

namespace nookle {

namespace {

namespace fs = std::filesystem;

/// The result of `lookAt`.
enum class Look { isFile, isMissing, isNoFile, fails };

/// Follows links. A link without a target counts as missing.
[[nodiscard]] Look lookAt(const QByteArray& path)
{
    struct stat status {};
    if (::stat(path.constData(), &status) == 0)
        return S_ISREG(status.st_mode) ? Look::isFile : Look::isNoFile;
    return errno == ENOENT || errno == ENOTDIR ? Look::isMissing : Look::fails;
}

[[nodiscard]] bool exists(const QByteArray& path)
{
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path.toStdString(), ignored));
}

[[nodiscard]] Failure lastFailure()
{
    return { QString::fromStdString(std::generic_category().message(errno)) };
}

/// Whether a rename failed because a folder cannot replace a file, or a file a folder.
[[nodiscard]] bool isInTheWay(const std::error_code& error)
{
    return error == std::errc::is_a_directory || error == std::errc::not_a_directory
        || error == std::errc::directory_not_empty || error == std::errc::file_exists;
}

} // namespace

IndexFile::IndexFile(const QByteArray& dataFolder, qsizetype largestSize)
    : m_dataFolder(dataFolder)
    , m_path(dataFolder + "/index.json")
    , m_asidePath(dataFolder + "/index.corrupt.json")
    , m_lostMark(dataFolder + "/index.missing")
    , m_largestSize(largestSize)
    // Until `load` succeeds, the file must not be overwritten.
    , m_obstacle(Failure{ QStringLiteral("it was not there at the start") })
{
}

QList<ShelfItem> IndexFile::load()
{
    // Opening a pipe would wait for its other end, and reading a device might never end.
    const Look look = lookAt(m_path);
    if (look == Look::fails)
        m_obstacle = lastFailure();
    else if (look == Look::isNoFile)
        m_obstacle = Failure{ QStringLiteral("no regular file") };
    if (look != Look::isFile)
        return {};
    QFile file(QFile::decodeName(m_path));
    QByteArray bytes;
    if (file.open(QIODevice::ReadOnly) && file.size() <= m_largestSize)
        bytes = file.readAll();
    if (file.error() != QFile::NoError) {
        m_obstacle = Failure{ file.errorString() };
        return {};
    }
    auto decoded = file.size() > m_largestSize ? Failure{ QStringLiteral("larger than %1 bytes").arg(m_largestSize) }
                                               : ShelfIndex::decode(bytes);
    if (auto* index = std::get_if<ShelfIndex>(&decoded)) {
        m_obstacle.reset();
        m_own.emplace(m_path, bytes);
        m_wasRead = true;
        return std::move(index->items);
    }
    m_obstacle = std::get<Failure>(decoded);
    m_isBroken = bytes.size() == file.size();
    // If moving fails, `makeWay` tries again before the first write.
    if (!setAside())
        m_obstacle.reset();
    return {};
}

bool IndexFile::isOurs()
{
    // The index may be back after the disk did not answer, or after another file was in its place.
    if (m_own && m_own->isOf(m_path)) {
        m_obstacle.reset();
        return true;
    }
    if (m_obstacle)
        return false;
    const Look look = lookAt(m_path);
    if (look == Look::isNoFile)
        m_obstacle = Failure{ QStringLiteral("no regular file") };
    else if (look == Look::fails)
        m_obstacle = lastFailure();
    else if (look == Look::isFile)
        m_obstacle = Failure{ QStringLiteral("another program has written it") };
    m_isBroken = m_isBroken && !m_obstacle;
    return !m_obstacle;
}

std::variant<IndexStamp, Failure> IndexFile::write(const ShelfIndex& index, const QByteArray& path,
                                                   qsizetype largestSize)
{
    const QByteArray bytes = index.encode();
    if (bytes.size() > largestSize)
        return Failure{ QStringLiteral("larger than %1 bytes").arg(largestSize) };
    if (std::optional<Failure> failure = writeAtomically(path, bytes))
        return *std::move(failure);
    return IndexStamp(path, bytes);
}

std::optional<Failure> IndexFile::makeWay(bool hasItemFolders)
{
    if (!m_obstacle)
        return {};
    std::optional<Failure> failure;
    if (lookAt(m_path) != Look::isMissing)
        failure = setAside();
    else if (hasItemFolders && !hasIndexAside())
        failure = writeAtomically(m_lostMark, {});
    if (!failure)
        m_obstacle.reset();
    return failure;
}

std::optional<QByteArray> IndexFile::asidePath() const
{
    constexpr int mostIndexes = 100;
    const auto isFree = [this](const QByteArray& path) { return !exists(path) || (m_isBroken && isNoIndex(path)); };
    if (isFree(m_asidePath))
        return m_asidePath;
    const QByteArray stem = m_asidePath.chopped(qsizetype(std::strlen(".json")));
    for (int number = 2; number <= mostIndexes; ++number) {
        const QByteArray path = stem + '-' + QByteArray::number(number) + ".json";
        if (isFree(path))
            return path;
    }
    return {};
}

bool IndexFile::isNoIndex(const QByteArray& path) const
{
    const Look look = lookAt(path);
    if (look != Look::isFile)
        return look != Look::fails;
    QFile file(QFile::decodeName(path));
    if (!file.open(QIODevice::ReadOnly) || file.size() > m_largestSize)
        return false;
    const QByteArray bytes = file.readAll();
    return file.error() == QFile::NoError && std::holds_alternative<Failure>(ShelfIndex::decode(bytes));
}

bool IndexFile::hasIndexAside() const
{
    const auto names = entriesOf(m_dataFolder);
    return !names || std::any_of(names->begin(), names->end(), [](const QByteArray& name) {
        return name.startsWith("index.corrupt") && name.endsWith(".json");
    });
}

std::optional<Failure> IndexFile::setAside() const
{
    std::error_code error;
    std::error_code ignored;
    const std::optional<QByteArray> asidePath = this->asidePath();
    if (!asidePath)
        return translatedFailure(QT_TRANSLATE_NOOP("nookle::Failure", "too many indexes were moved aside"));
    const fs::path aside = asidePath->toStdString();
    fs::rename(m_path.toStdString(), aside, error);
    if (isInTheWay(error)) {
        fs::remove_all(aside, ignored);
        fs::rename(m_path.toStdString(), aside, error);
    }
    const QString place = QFile::decodeName(*asidePath);
    if (error)
        return translatedFailure(QT_TRANSLATE_NOOP("nookle::Failure", "the unreadable index cannot be moved to %1: %2"),
                                 place, QString::fromStdString(error.message()));
    logLine(QStringLiteral("index unreadable, moved to ") + place + QStringLiteral(": ") + m_obstacle->description);
    return {};
}

bool IndexFile::isWritten() const
{
    return !m_obstacle && lookAt(m_path) == Look::isFile;
}

bool IndexFile::namesEveryItem() const
{
    return m_wasRead && !hasIndexAside() && !exists(m_lostMark);
}

void IndexFile::forgetLostIndex() const
{
    std::error_code ignored;
    fs::remove(m_lostMark.toStdString(), ignored);
}

} // namespace nookle
