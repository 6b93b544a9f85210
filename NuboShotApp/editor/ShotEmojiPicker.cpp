#include "editor/ShotEmojiPicker.h"

#include "core/Settings.h"
#include "editor/EmojiCatalog.h"
#include "render/ShotFonts.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>

namespace nubo {

namespace {

QToolButton* emojiButton(const QString& emoji, const QString& tip, QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setText(emoji);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setFont(ShotEmojiPicker::screenFont(18));
    button->setFixedSize(34, 32);
    return button;
}

} // namespace

QFont ShotEmojiPicker::screenFont(int pixels)
{
    // On screen, at a pixel size, and free to use the colour bitmaps
    // (ShotFonts::emojiFont is for drawing shots: outlines, in points).
    QFont font(ShotFonts::emojiCandidate());
    font.setPixelSize(pixels);
    return font;
}

ShotEmojiPicker::ShotEmojiPicker(const EmojiCatalog& catalog, ShotPreferences& preferences,
                                 QWidget* parent)
    : QWidget(parent, Qt::Popup), m_catalog(catalog), m_preferences(preferences),
      m_search(new QLineEdit(this)), m_grid(new QListWidget(this)),
      m_groups(new QButtonGroup(this)), m_tones(new QButtonGroup(this)), m_name(new QLabel(this))
{
    setObjectName(QStringLiteral("emojiPicker"));
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QStringLiteral("#emojiPicker { background: palette(window);"
                                 " border: 1px solid palette(mid); border-radius: 6px; }"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(6);

    auto* top = new QHBoxLayout;
    m_search->setPlaceholderText(tr("Search emoji"));
    m_search->setClearButtonEnabled(true);
    top->addWidget(m_search, 1);
    // The hand in each tone; the first is the default yellow.
    const QString hand = QStringLiteral("\u270B");
    const char* const toneNames[] = {"Default skin tone", "Light skin tone",
                                     "Medium-light skin tone", "Medium skin tone",
                                     "Medium-dark skin tone", "Dark skin tone"};
    for (int tone = 0; tone <= 5; ++tone) {
        const QString face =
            tone == 0 ? hand : hand + QString::fromUcs4(std::array{char32_t(0x1F3FA + tone)}.data(), 1);
        QToolButton* button = emojiButton(face, QString::fromUtf8(toneNames[tone]), this);
        button->setFixedSize(28, 28);
        button->setFont(ShotEmojiPicker::screenFont(15));
        m_tones->addButton(button, tone);
        top->addWidget(button);
    }
    layout->addLayout(top);

    auto* groups = new QHBoxLayout;
    groups->setSpacing(2);
    QToolButton* recentButton =
        emojiButton(QStringLiteral("\U0001F558"), tr("Recently Used"), this);
    m_groups->addButton(recentButton, recentGroup);
    groups->addWidget(recentButton);
    for (int group = 0; group < m_catalog.groups().size(); ++group) {
        QString face;
        for (const EmojiEntry& entry : m_catalog.entries()) {
            if (entry.group == group) {
                face = entry.emoji;
                break;
            }
        }
        QToolButton* button = emojiButton(face, m_catalog.groups().at(group), this);
        m_groups->addButton(button, group);
        groups->addWidget(button);
    }
    groups->addStretch();
    layout->addLayout(groups);

    m_grid->setViewMode(QListView::IconMode);
    m_grid->setMovement(QListView::Static);
    m_grid->setResizeMode(QListView::Adjust);
    m_grid->setUniformItemSizes(true);
    m_grid->setGridSize(QSize(44, 44));
    m_grid->setFont(ShotEmojiPicker::screenFont(28));
    m_grid->setMouseTracking(true);
    m_grid->setMinimumSize(9 * 44 + 24, 6 * 44 + 4);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    layout->addWidget(m_grid, 1);
    m_name->setMinimumHeight(m_name->fontMetrics().height() + 4);
    m_name->setWordWrap(true);
    m_name->setMaximumWidth(9 * 44 + 24);
    layout->addWidget(m_name);

    connect(m_search, &QLineEdit::textChanged, this, [this] { refresh(); });
    connect(m_search, &QLineEdit::returnPressed, this, [this] {
        if (m_grid->count() > 0) {
            choose((m_grid->currentItem() ? m_grid->currentItem() : m_grid->item(0))->text());
        }
    });
    connect(m_grid, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { choose(item->text()); });
    connect(m_grid, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { choose(item->text()); });
    connect(m_grid, &QListWidget::itemEntered, this,
            [this](QListWidgetItem* item) { m_name->setText(item->toolTip()); });
    connect(m_groups, &QButtonGroup::idClicked, this, [this](int group) {
        const QSignalBlocker quiet(m_search);
        m_search->clear();
        showGroup(group);
    });
    connect(m_tones, &QButtonGroup::idClicked, this, [this](int tone) { setTone(tone); });

    m_tones->button(int(std::clamp<double>(m_preferences.number(keys::emojiSkinTone, 0), 0, 5)))
        ->setChecked(true);
    showGroup(recent().isEmpty() ? 0 : recentGroup);
}

QStringList ShotEmojiPicker::recent() const
{
    QStringList emoji = m_preferences.string(keys::emojiRecent)
                            .value_or(QString())
                            .split(u' ', Qt::SkipEmptyParts);
    // Only what the catalog knows: the stored list is text anyone can edit.
    emoji.removeIf([this](const QString& e) { return m_catalog.find(e) < 0; });
    return emoji.mid(0, recentCount);
}

void ShotEmojiPicker::setTone(int tone)
{
    m_preferences.setValue(keys::emojiSkinTone, std::clamp(tone, 0, 5));
    if (QAbstractButton* button = m_tones->button(std::clamp(tone, 0, 5))) {
        button->setChecked(true);
    }
    refresh();
}

void ShotEmojiPicker::showGroup(int group)
{
    m_group = group;
    if (QAbstractButton* button = m_groups->button(group)) {
        button->setChecked(true);
    }
    refresh();
}

void ShotEmojiPicker::refresh()
{
    const QString words = m_search->text().trimmed();
    if (!words.isEmpty()) {
        // A search looks through every group.
        m_groups->setExclusive(false);
        if (QAbstractButton* checked = m_groups->checkedButton()) {
            checked->setChecked(false);
        }
        m_groups->setExclusive(true);
        fill(m_catalog.search(words));
        m_name->setText(m_grid->count() == 0 ? tr("No emoji is called “%1”.").arg(words)
                                              : m_grid->item(0)->toolTip());
        if (m_grid->count() > 0) {
            m_grid->setCurrentRow(0);
        }
        return;
    }
    if (QAbstractButton* button = m_groups->button(m_group)) {
        button->setChecked(true);
    }
    if (m_group == recentGroup) {
        fill({}, recent());
        m_name->setText(m_grid->count() == 0 ? tr("Emoji you place show here.")
                                             : tr("Recently Used"));
    } else {
        QList<qsizetype> entries;
        for (qsizetype i = 0; i < m_catalog.entries().size(); ++i) {
            if (m_catalog.entries()[i].group == m_group) {
                entries.append(i);
            }
        }
        fill(entries);
        m_name->setText(m_catalog.problem().isEmpty() ? m_catalog.groups().value(m_group)
                                                      : m_catalog.problem());
    }
}

void ShotEmojiPicker::fill(const QList<qsizetype>& entries, const QStringList& recent)
{
    m_grid->clear();
    const int tone = m_tones->checkedId();
    for (const qsizetype index : entries) {
        const EmojiEntry& entry = m_catalog.entries()[index];
        auto* item = new QListWidgetItem(entry.inTone(tone), m_grid);
        item->setToolTip(entry.name);
        item->setTextAlignment(Qt::AlignCenter);
    }
    for (const QString& emoji : recent) {
        auto* item = new QListWidgetItem(emoji, m_grid);
        item->setToolTip(m_catalog.entries()[m_catalog.find(emoji)].name);
        item->setTextAlignment(Qt::AlignCenter);
    }
    m_grid->scrollToTop();
}

QStringList ShotEmojiPicker::shown() const
{
    QStringList emoji;
    for (int i = 0; i < m_grid->count(); ++i) {
        emoji << m_grid->item(i)->text();
    }
    return emoji;
}

void ShotEmojiPicker::choose(const QString& emoji)
{
    QStringList used = recent();
    used.removeAll(emoji);
    used.prepend(emoji);
    m_preferences.setValue(keys::emojiRecent, used.mid(0, recentCount).join(u' '));
    hide();
    emit picked(emoji);
}

void ShotEmojiPicker::popUp(QWidget* anchor)
{
    m_search->clear();
    showGroup(!recent().isEmpty() ? recentGroup : m_group == recentGroup ? 0 : m_group);
    adjustSize();
    QPoint at = anchor->mapToGlobal(QPoint(0, anchor->height()));
    if (const QScreen* screen = anchor->screen()) {
        const QRect room = screen->availableGeometry();
        at.setX(std::clamp(at.x(), room.left(), std::max(room.left(), room.right() - width())));
        if (at.y() + height() > room.bottom()) {
            at.setY(std::max(room.top(), anchor->mapToGlobal(QPoint(0, 0)).y() - height()));
        }
    }
    move(at);
    show();
    m_search->setFocus(Qt::PopupFocusReason);
}

void ShotEmojiPicker::keyPressEvent(QKeyEvent* event)
{
    // Down from the search moves into the grid; Escape closes (as a pop-up does).
    if (event->key() == Qt::Key_Down && m_search->hasFocus() && m_grid->count() > 0) {
        m_grid->setFocus();
        return;
    }
    QWidget::keyPressEvent(event);
}

} // namespace nubo
