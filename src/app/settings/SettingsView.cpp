#include "SettingsView.h"

#include "DescriptionLabel.h"
#include "FileUrl.h"
#include "LoginItemSection.h"
#include "PlainLabel.h"
#include "ShortcutRow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <utility>

namespace nookle {

namespace {

inline constexpr int formWidth = 440;

/// The wheel scrolls the form, and changes no setting that the pointer happens to be over.
class Picker final : public QComboBox {
protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

[[nodiscard]] QHBoxLayout* makeRow(QLabel* title, QWidget* value)
{
    auto* row = new QHBoxLayout;
    row->addWidget(title);
    row->addStretch();
    row->addWidget(value);
    return row;
}

} // namespace

SettingsView::SettingsView(AppSettings& settings, LoginItem& loginItem, GlobalShortcuts& shortcuts,
                           const Abilities& abilities, ScreenshotDirectory screenshotDirectory,
                           DataFolderRow::Folder dataFolder)
    : m_settings(settings)
    , m_shortcuts(shortcuts)
    , m_screenshotDirectory(std::move(screenshotDirectory))
{
    auto* column = new QVBoxLayout(this);
    column->addWidget(new LoginItemSection(loginItem));
    column->addWidget(makeShelfSection(abilities, dataFolder));
    column->addWidget(makeScreenshotSection());
    showScreenshotFolder();
}

QGroupBox* SettingsView::makeShelfSection(const Abilities& abilities, const DataFolderRow::Folder& dataFolder)
{
    auto* section = new QGroupBox(tr("Shelf"));
    auto* column = new QVBoxLayout(section);
    auto* expands = makeToggle(
        tr("Show when dragging to the edge"), [this] { return m_settings.autoExpandOnDrag(); },
        [this](bool isOn) { m_settings.setAutoExpandOnDrag(isOn); }, &AppSettings::autoExpandOnDragChanged);
    auto* aboutExpanding = new DescriptionLabel(*expands);
    aboutExpanding->setDescription(
        tr("Drag something to the right edge of the screen and the shelf slides in automatically."));
    column->addWidget(expands);
    column->addWidget(aboutExpanding);

    if (abilities.canReserveSpace)
        addReservation(*column);

    auto* expiry = makeExpiryPicker();
    auto* expiryTitle = makePlainLabel(tr("Remove items"));
    expiryTitle->setBuddy(expiry);
    auto* aboutExpiry = new DescriptionLabel(*expiry);
    aboutExpiry->setDescription(tr("Pinned items always stay. Copies such as images go to the Trash."));
    column->addLayout(makeRow(expiryTitle, expiry));
    column->addWidget(aboutExpiry);

    column->addWidget(new ShortcutRow(m_shortcuts));
    column->addWidget(new DataFolderRow(dataFolder));
    return section;
}

void SettingsView::addReservation(QVBoxLayout& column)
{
    auto* reserves = makeToggle(
        tr("Reserve space while the shelf is kept open"), [this] { return m_settings.reservesSpace(); },
        [this](bool isOn) { m_settings.setReservesSpace(isOn); }, &AppSettings::reservesSpaceChanged);
    auto* aboutReserving = new DescriptionLabel(*reserves);
    aboutReserving->setDescription(tr("Maximised windows then end at the shelf instead of reaching below it."));
    column.addWidget(reserves);
    column.addWidget(aboutReserving);
}

QGroupBox* SettingsView::makeScreenshotSection()
{
    auto* section = new QGroupBox(tr("Screenshots"));
    auto* column = new QVBoxLayout(section);
    auto* collects = makeToggle(
        tr("Add new screenshots to the shelf"), [this] { return m_settings.collectScreenshots(); },
        [this](bool isOn) { m_settings.setCollectScreenshots(isOn); }, &AppSettings::collectScreenshotsChanged);
    m_screenshotFolder = new DescriptionLabel(*collects);
    auto* moves = makeToggle(
        tr("Move them from the desktop to the shelf"), [this] { return m_settings.moveScreenshots(); },
        [this](bool isOn) { m_settings.setMoveScreenshots(isOn); }, &AppSettings::moveScreenshotsChanged);
    auto* aboutMoving = new DescriptionLabel(*moves);
    aboutMoving->setDescription(tr("Otherwise the screenshot stays where it is and the shelf only refers to it."));
    column->addWidget(collects);
    column->addWidget(m_screenshotFolder);
    column->addWidget(moves);
    column->addWidget(aboutMoving);

    const auto follow = [this, moves] { moves->setEnabled(m_settings.collectScreenshots()); };
    connect(&m_settings, &AppSettings::collectScreenshotsChanged, moves, follow);
    follow();
    return section;
}

QCheckBox* SettingsView::makeToggle(const QString& title, const Getter& value, const Setter& setValue, Signal changed)
{
    auto* toggle = new QCheckBox(title);
    toggle->setChecked(value());
    connect(toggle, &QCheckBox::clicked, this, setValue);
    connect(&m_settings, changed, toggle, [toggle, value] { toggle->setChecked(value()); });
    return toggle;
}

QComboBox* SettingsView::makeExpiryPicker()
{
    auto* picker = new Picker;
    for (const AppSettings::Expiry expiry : AppSettings::allExpiries)
        picker->addItem(AppSettings::title(expiry), QVariant::fromValue(expiry));
    const auto follow = [this, picker] {
        picker->setCurrentIndex(picker->findData(QVariant::fromValue(m_settings.expiry())));
    };
    connect(picker, &QComboBox::activated, this,
            [this, picker] { m_settings.setExpiry(picker->currentData().value<AppSettings::Expiry>()); });
    connect(&m_settings, &AppSettings::expiryChanged, picker, follow);
    follow();
    return picker;
}

QSize SettingsView::sizeHint() const
{
    return { formWidth, layout()->totalHeightForWidth(formWidth) };
}

void SettingsView::showEvent(QShowEvent* event)
{
    showScreenshotFolder();
    QWidget::showEvent(event);
}

void SettingsView::showScreenshotFolder()
{
    const QString folder = QFile::decodeName(filePath(m_screenshotDirectory()));
    m_screenshotFolder->setDescription(QString(tr("Folder: ") + DescriptionLabel::shownPath(folder)));
}

} // namespace nookle
