#include "DataFolderRow.h"

#include "DescriptionLabel.h"
#include "FileUrl.h"

#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>

#include <utility>

namespace nookle {

namespace {

[[nodiscard]] QUrl folderAbove(const QUrl& folder)
{
    return standardized(child(folder, QStringLiteral("..")));
}

} // namespace

DataFolderRow::DataFolderRow(Folder folder)
    : m_folder(std::move(folder))
    , m_button(new QPushButton(tr("Open Folder")))
{
    auto* place = new DescriptionLabel(*m_button);
    const QString path = QFile::decodeName(filePath(m_folder.url));
    place->setDescription(tr("Files are kept in %1").arg(DescriptionLabel::shownPath(path)));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(place, 1);
    row->addWidget(m_button);
    connect(m_button, &QPushButton::clicked, this, [this] { m_folder.open(m_folder.url); });
}

// The folder is made when something is saved for the first time.
void DataFolderRow::showEvent(QShowEvent* event)
{
    updateButton();
    if (!m_button->isEnabled())
        m_appearance = m_folder.watch.watch(folderAbove(m_folder.url), [this] { updateButton(); }).subscription;
    QWidget::showEvent(event);
}

void DataFolderRow::hideEvent(QHideEvent* event)
{
    m_appearance.reset();
    QWidget::hideEvent(event);
}

void DataFolderRow::updateButton()
{
    m_button->setEnabled(QFileInfo::exists(QFile::decodeName(filePath(m_folder.url))));
}

} // namespace nookle
