#include "DataFolderRow.h"

#include "DescriptionLabel.h"
#include "FileUrl.h"

#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>

#include <utility>

namespace nookle {

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
    m_button->setEnabled(QFileInfo::exists(QFile::decodeName(filePath(m_folder.url))));
    QWidget::showEvent(event);
}

} // namespace nookle
