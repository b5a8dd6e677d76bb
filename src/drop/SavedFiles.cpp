#include "SavedFiles.h"

#include "FileUrl.h"
#include "Log.h"

#include <QString>

#include <unistd.h>

#include <filesystem>
#include <system_error>
#include <utility>

namespace nookle {

namespace {

inline constexpr double lookInterval = 0.5;
inline constexpr int mostLooksAtNothing = 120;

} // namespace

SavedFiles::SavedFiles(const QUrl& folder, MainQueue& queue, std::function<void(QList<QUrl>)> arrived)
    : m_folder(folder)
    , m_arrived(std::move(arrived))
    , m_timer(queue.every(lookInterval, [this] { look(); }))
{
}

SavedFiles::~SavedFiles()
{
    if (!isDone())
        removeEmptyFolder();
}

void SavedFiles::removeEmptyFolder() const
{
    ::rmdir(filePath(m_folder).constData());
}

SavedFiles::Listing SavedFiles::list() const
{
    Listing files;
    std::error_code error;
    std::filesystem::directory_iterator entry(filePath(m_folder).toStdString(), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code isNoFile;
        const std::uintmax_t size = entry->file_size(isNoFile);
        files.emplace(entry->path().filename().string(), isNoFile ? 0 : size);
    }
    return files;
}

void SavedFiles::look()
{
    Listing files = list();
    const bool isSettled = files == m_last;
    m_last = std::move(files);
    ++m_looks;
    const bool isTooLate = m_last.empty() && m_looks >= mostLooksAtNothing;
    if (isTooLate || (isSettled && !m_last.empty()))
        finish(m_last);
}

void SavedFiles::finish(const Listing& files)
{
    m_timer.reset();
    if (files.empty()) {
        removeEmptyFolder();
        logLine(QStringLiteral("the source of a drop saved nothing"));
    }
    QList<QUrl> urls;
    for (const auto& [name, size] : files)
        urls.append(fileUrl(filePath(m_folder) + '/' + QByteArray::fromStdString(name)));
    const auto arrived = std::exchange(m_arrived, nullptr);
    arrived(std::move(urls));
}

} // namespace nookle
