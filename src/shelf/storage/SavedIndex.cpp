#include "SavedIndex.h"

#include "DataFiles.h"
#include "ItemFiles.h"
#include "Log.h"
#include "MainQueue.h"

#include <chrono>
#include <utility>
#include <variant>

namespace nookle {

namespace {

/// In seconds.
constexpr double saveDelay = 0.3;

/// In bytes. An index of this size is encoded and written in no noticeable time.
constexpr qsizetype quickIndex = 4 << 20;

/// How long the end of the program waits for the disk.
constexpr std::chrono::seconds savingPatience(60);

/// The share of the maximum size (one twentieth) that is kept free, because existing items may grow a little and must
/// still be saved.
constexpr qsizetype growthShare = 20;

/// In bytes, as `ShelfIndex::upperBound` counts. A longer text is read once.
constexpr qsizetype longText = 100'000;

} // namespace

SavedIndex::SavedIndex(Environment environment, const QList<ShelfItem>& items, const ItemFiles& itemFiles,
                       MainQueue& queue)
    : m_environment(std::move(environment))
    , m_items(items)
    , m_itemFiles(itemFiles)
    , m_queue(queue)
    , m_file(m_environment.dataFolder, m_environment.largestSize)
    , m_writer(
          [path = m_file.path(), largest = m_environment.largestSize, stamp = m_stamp](const ShelfIndex& index) {
              const auto written = IndexFile::write(index, path, largest);
              if (const auto* failure = std::get_if<Failure>(&written))
                  return std::optional(*failure);
              *stamp = std::get<IndexStamp>(written);
              return std::optional<Failure>();
          },
          queue, savingPatience)
{
    m_writer.onWritten = [this] { m_file.wasWritten(**m_stamp); };
    m_writer.onFailed = [this](const Failure& failure) { log(failure); };
}

SavedIndex::~SavedIndex() = default;

QList<ShelfItem> SavedIndex::load()
{
    return m_file.load();
}

void SavedIndex::schedule()
{
    m_pendingSave.reset();
    m_pendingSave = m_queue.after(saveDelay, [this] { save(Wait::whileShort); });
}

void SavedIndex::saveNow()
{
    save(Wait::untilDone);
}

void SavedIndex::save(Wait wait)
{
    m_pendingSave.reset();
    std::optional<Failure> failure = prepare();
    if (!failure) {
        const bool isShort = !m_writer.isBusy() && ShelfIndex::upperBound(m_items) <= quickIndex;
        m_writer.write({ .items = m_items });
        if (isShort || wait == Wait::untilDone)
            failure = m_writer.finish();
    }
    if (failure)
        log(*failure);
}

std::optional<Failure> SavedIndex::ensureWritten()
{
    if (m_file.isWritten())
        return {};
    if (std::optional<Failure> failure = prepare())
        return failure;
    m_writer.write({ .items = m_items });
    return m_writer.finish();
}

std::optional<Failure> SavedIndex::prepare()
{
    if (std::optional<Failure> failure = makeFolder(m_environment.dataFolder))
        return failure;
    std::optional<Failure> failure = m_environment.claimFolder();
    // While an index is being written, the file on disk may change at any moment, so it is not checked.
    if (!failure && !m_writer.isBusy() && !m_file.isOurs())
        failure = m_file.makeWay(m_itemFiles.folders() != QList<QUuid>());
    const bool wasOff = std::exchange(m_isSavingOff, failure.has_value());
    if (m_isSavingOff && !wasOff)
        logLine(QStringLiteral("saving is off: ") + failure->description);
    return failure;
}

void SavedIndex::log(const Failure& failure) const
{
    // `prepare` has already logged why saving is off.
    if (!m_isSavingOff)
        logLine(QStringLiteral("saving failed: ") + failure.description);
}

bool SavedIndex::hasRoomFor(const QList<ShelfItem>& additions) const
{
    const qsizetype largest = m_environment.largestSize - m_environment.largestSize / growthShare;
    // There may be thousands of additions in a row, so the texts are read only if the quick bound is too large.
    if (ShelfIndex::upperBound(m_items) + ShelfIndex::upperBound(additions) <= largest
        || closeBound(m_items) + ShelfIndex::closeUpperBound(additions) <= largest)
        return true;
    logLine(QStringLiteral("not added: the index would be larger than %1 bytes").arg(largest));
    return false;
}

qsizetype SavedIndex::closeBound(const QList<ShelfItem>& items) const
{
    QHash<QUuid, Bounds> longTexts;
    qsizetype sum = 0;
    for (const ShelfItem& item : items) {
        const qsizetype rough = ShelfIndex::upperBound({ item });
        if (rough < longText) {
            sum += ShelfIndex::closeUpperBound({ item });
            continue;
        }
        Bounds bounds = m_longTexts.value(item.id);
        if (bounds.rough != rough)
            bounds = { rough, ShelfIndex::closeUpperBound({ item }) };
        longTexts.insert(item.id, bounds);
        sum += bounds.close;
    }
    m_longTexts = std::move(longTexts);
    return sum;
}

} // namespace nookle
