#include "core/Settings.h"
#include "editor/EmojiCatalog.h"
#include "editor/ShotEditorModel.h"
#include "support/ArchiveFixtures.h"
#include "support/QtPrinters.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

namespace nubo {
namespace {

TEST(ShotCreationTool, GestureArithmetic)
{
    struct Case {
        const char* name;
        ShotGesture gesture;
        QRectF expected;
    };
    const Case rects[] = {
        {"plain drag, standardised", {{30, 40}, {10, 10}, false, false, true}, {10, 10, 20, 30}},
        {"Shift squares keeping signs", {{0, 0}, {30, -10}, true, false, true}, {0, -30, 30, 30}},
        {"Shift with a vertical drag", {{0, 0}, {0, 25}, true, false, true}, {0, 0, 25, 25}},
        {"Alt grows from the centre", {{50, 50}, {60, 70}, false, true, true}, {40, 30, 20, 40}},
        {"Shift and Alt", {{50, 50}, {60, 70}, true, true, true}, {30, 30, 40, 40}},
    };
    for (const Case& c : rects) {
        EXPECT_EQ(ShotCreationTool::dragRect(c.gesture), c.expected) << c.name;
    }
    // Lines and arrows snap to 45° with Shift.
    const QPointF snapped =
        ShotCreationTool::lineEnd({{0, 0}, {100, 58}, true, false, true}); // about 30°
    EXPECT_NEAR(snapped.x(), snapped.y(), 1e-9);
    EXPECT_EQ(ShotCreationTool::lineEnd({{0, 0}, {100, 58}, false, false, true}), QPointF(100, 58));

    struct TextCase {
        ShotGesture gesture;
        double size;
        QRectF expected;
    };
    const TextCase texts[] = {
        {{{10, 10}, {10, 10}, false, false, false}, 20, {10, 10, 160, 30}},
        {{{10, 10}, {10, 10}, false, false, false}, 40, {10, 10, 240, 60}},
        {{{10, 10}, {15, 12}, false, false, true}, 20, {10, 10, 24, 30}},
        {{{10, 10}, {210, 110}, false, false, true}, 20, {10, 10, 200, 100}},
    };
    for (const TextCase& c : texts) {
        EXPECT_EQ(ShotCreationTool::textBox(c.gesture, c.size), c.expected);
    }
    EXPECT_EQ(ShotCreationTool::emojiRect({50, 50}, 30), QRectF(35, 35, 30, 30));
    EXPECT_EQ(ShotCreationTool::emojiRect({50, 50}, 0), QRectF(49.5, 49.5, 1, 1));
}

// The picker's emoji come from Debian's copy of Unicode's list: groups, names
// and skin tones folded under their base, what a search finds.
TEST(EmojiCatalog, ReadsUnicodesListWithTonesUnderTheirBase)
{
    const EmojiCatalog& catalog = EmojiCatalog::installed();
    ASSERT_TRUE(catalog.problem().isEmpty()) << catalog.problem().toStdString();
    EXPECT_GT(catalog.entries().size(), 1800);
    EXPECT_TRUE(catalog.groups().contains(QStringLiteral("Smileys & Emotion")));
    EXPECT_FALSE(catalog.groups().contains(QStringLiteral("Component")));
    struct Case {
        const char* search;
        const char* first;    // the first emoji found
        int tone;             // 0: none
        const char* inTone;   // the first found in that tone
    };
    const Case cases[] = {
        {"waving", "\U0001F44B", 3, "\U0001F44B\U0001F3FD"},
        {"woman gesturing ok", "\U0001F646\u200D\u2640\uFE0F", 1,
         "\U0001F646\U0001F3FB\u200D\u2640\uFE0F"}, // a joined sequence
        {"GRINNING face", "\U0001F600", 2, "\U0001F600"},     // no tones: itself
        {"rocket", "\U0001F680", 0, "\U0001F680"},
        {"flag germ", "\U0001F1E9\U0001F1EA", 0, "\U0001F1E9\U0001F1EA"},
        {"ocket", nullptr, 0, nullptr}, // words are matched from their start
        {"", nullptr, 0, nullptr},
    };
    for (const Case& c : cases) {
        const QList<qsizetype> found = catalog.search(QString::fromUtf8(c.search));
        if (!c.first) {
            EXPECT_TRUE(found.isEmpty()) << c.search;
            continue;
        }
        ASSERT_FALSE(found.isEmpty()) << c.search;
        const EmojiEntry& entry = catalog.entries()[found.first()];
        EXPECT_EQ(entry.emoji, QString::fromUtf8(c.first)) << c.search;
        EXPECT_EQ(entry.inTone(c.tone), QString::fromUtf8(c.inTone)) << c.search;
        EXPECT_EQ(catalog.find(QString::fromUtf8(c.inTone)), found.first()) << c.search;
    }
    // A base with FE0F whose tones have none: "☝️" and "☝🏿".
    const qsizetype up = catalog.find(QStringLiteral("\u261D\uFE0F"));
    ASSERT_GE(up, 0);
    EXPECT_EQ(catalog.entries()[up].inTone(5), QStringLiteral("\u261D\U0001F3FF"));
}

// A damaged list is read as far as it makes sense, never past its limits.
TEST(EmojiCatalog, PassesOverWhatItCannotRead)
{
    const QByteArray text =
        "# group: Smileys & Emotion\n"
        "1F600 ; fully-qualified # \xF0\x9F\x98\x80 E1.0 grinning face\n"
        "1F601 ; minimally-qualified # x E1.0 not offered\n"
        "D800 ; fully-qualified # x E1.0 a lone surrogate\n"
        "110000 ; fully-qualified # x E1.0 beyond Unicode\n"
        "ZZZZ ; fully-qualified # x E1.0 not a number\n"
        "1F602 ; fully-qualified\n"
        "1F44B 1F3FB ; fully-qualified # x E1.0 a tone without its base\n"
        "# group: Component\n"
        "1F3FB ; fully-qualified # x E1.0 light skin tone\n"
        "# group: People\n"
        "1F44B ; fully-qualified # \xF0\x9F\x91\x8B E0.6 waving hand\n"
        "1F44B 1F3FB ; fully-qualified # x E1.0 waving hand: light skin tone\n"
        "1F603 ; fully-qualified # \xF0\x9F\x98\x83 E0.6 grinning face with big eyes";
    const EmojiCatalog catalog = EmojiCatalog::parse(text);
    QStringList names;
    for (const EmojiEntry& entry : catalog.entries()) {
        names << entry.name;
    }
    EXPECT_EQ(names, (QStringList{"grinning face", "waving hand", "grinning face with big eyes"}));
    EXPECT_EQ(catalog.groups(), (QStringList{"Smileys & Emotion", "People"}));
    EXPECT_FALSE(catalog.entries()[1].hasTones()) << "one tone of five is offered as all";
    EXPECT_TRUE(EmojiCatalog::parse(QByteArray(64, '\0')).entries().isEmpty());
    EXPECT_TRUE(EmojiCatalog::parse({}).entries().isEmpty());
}

TEST(ShotToolKind, EveryToolHasALetterOfItsOwn)
{
    QSet<QChar> shortcuts;
    for (const ShotToolKind tool : allCases<ShotToolKind>()) {
        shortcuts.insert(toolShortcut(tool));
    }
    EXPECT_EQ(shortcuts.size(), qsizetype(enumCount<ShotToolKind>()));
}

class EditorModel : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_dir.isValid());
        m_preferences =
            std::make_unique<ShotPreferences>(m_dir.filePath(QStringLiteral("prefs.ini")));
        m_model = std::make_unique<ShotEditorModel>(
            ShotDocument::fromImage(test::patternImage(1000, 800), 1), *m_preferences);
    }
    // A press, one drag and a release with the active tool.
    void drag(QPointF from, QPointF to, bool shift = false)
    {
        m_model->beginCreation({from, from, shift, false, false});
        m_model->updateCreation({from, (from + to) / 2, shift, false, true});
        m_model->endCreation({from, to, shift, false, true});
    }

    QTemporaryDir m_dir;
    std::unique_ptr<ShotPreferences> m_preferences;
    std::unique_ptr<ShotEditorModel> m_model;
};

TEST_F(EditorModel, ADragIsOneStepAndSelectsTheNewAnnotation)
{
    m_model->setActiveTool(ShotToolKind::arrow);
    drag({10, 10}, {100, 50});
    ASSERT_EQ(m_model->document().annotations.size(), 1);
    EXPECT_EQ(m_model->history().past.size(), 1);
    const Annotation& arrow = m_model->document().annotations.first();
    EXPECT_EQ(std::get<ArrowAnnotation>(arrow.kind).to, QPointF(100, 50));
    EXPECT_EQ(m_model->selection(), QSet<QUuid>{arrow.id});
    EXPECT_FALSE(m_model->selectionIsExplicit());
    // A pen stroke grows with every drag event.
    m_model->setActiveTool(ShotToolKind::draw);
    drag({0, 0}, {20, 20});
    EXPECT_EQ(std::get<PenAnnotation>(m_model->document().annotations.last().kind).points.size(),
              3);
    EXPECT_EQ(m_model->history().past.size(), 2);
}

TEST_F(EditorModel, ReturnToSelectExceptForDrawAndNumber)
{
    struct Case {
        ShotToolKind tool;
        bool setting;
        ShotToolKind after;
    };
    const Case cases[] = {{ShotToolKind::arrow, true, ShotToolKind::select},
                          {ShotToolKind::rect, true, ShotToolKind::select},
                          {ShotToolKind::draw, true, ShotToolKind::draw},
                          {ShotToolKind::number, true, ShotToolKind::number},
                          {ShotToolKind::arrow, false, ShotToolKind::arrow}};
    for (const Case& c : cases) {
        m_preferences->setValue(keys::returnToSelect, c.setting);
        m_model->setActiveTool(c.tool);
        drag({10, 10}, {60, 60});
        EXPECT_EQ(m_model->activeTool(), c.after) << toString(c.tool).toStdString();
    }
}

TEST_F(EditorModel, UndoIsIgnoredWhileSomethingIsUnderWay)
{
    m_model->setActiveTool(ShotToolKind::rect);
    drag({10, 10}, {50, 50});
    ASSERT_TRUE(m_model->canUndo());
    struct Case {
        const char* name;
        std::function<void()> enter, leave;
    };
    const Case cases[] = {
        {"during a drag",
         [&] {
             m_model->beginCreation({{5, 5}, {5, 5}, false, false, false});
         },
         [&] {
             m_model->endCreation({{5, 5}, {9, 9}, false, false, true});
         }},
        {"while editing text", [&] { m_model->setEditingText(true); },
         [&] {
             m_model->setEditingText(false);
         }},
        {"during a crop session", [&] { m_model->setActiveTool(ShotToolKind::crop); },
         [&] {
             m_model->abandonCrop();
         }},
        {"inside a transaction", [&] { m_model->beginEdit(); },
         [&] {
             m_model->abandonEdit();
         }},
    };
    for (const Case& c : cases) {
        c.enter();
        const ShotDocument before = m_model->document();
        m_model->undo();
        m_model->redo();
        EXPECT_EQ(m_model->document(), before) << c.name;
        c.leave();
    }
    const qsizetype steps = m_model->history().past.size();
    m_model->undo();
    EXPECT_EQ(m_model->history().past.size(), steps - 1);
}

TEST_F(EditorModel, TransactionsRecordOnceOrReturnToTheSnapshot)
{
    const ShotDocument opened = m_model->document();
    EXPECT_TRUE(m_model->beginEdit());
    EXPECT_FALSE(m_model->beginEdit()) << "one transaction at a time";
    ShotDocument changed = opened;
    changed.crop = QRectF(0, 0, 10, 10);
    m_model->apply(changed);
    changed.crop = QRectF(0, 0, 20, 20);
    m_model->apply(changed);
    EXPECT_EQ(m_model->history().past.size(), 0);
    m_model->commitEdit();
    EXPECT_EQ(m_model->history().past.size(), 1);
    EXPECT_EQ(m_model->document().crop, QRectF(0, 0, 20, 20));

    EXPECT_TRUE(m_model->beginEdit());
    changed.crop = QRectF(5, 5, 5, 5);
    m_model->apply(changed);
    m_model->abandonEdit();
    EXPECT_EQ(m_model->document().crop, QRectF(0, 0, 20, 20));
    EXPECT_EQ(m_model->history().past.size(), 1);

    // A gesture that ends where it began records nothing.
    EXPECT_TRUE(m_model->beginEdit());
    m_model->commitEdit();
    EXPECT_EQ(m_model->history().past.size(), 1);
}

TEST_F(EditorModel, NudgesAreCoalescedIntoOneStep)
{
    m_model->setActiveTool(ShotToolKind::rect);
    drag({10, 10}, {50, 50});
    m_model->select(m_model->selection(), true);
    const qsizetype steps = m_model->history().past.size();
    for (int i = 0; i < 5; ++i) {
        m_model->nudge({1, 0});
    }
    EXPECT_TRUE(m_model->isNudging());
    // The run ends by itself after a pause.
    QElapsedTimer waited;
    waited.start();
    while (m_model->isNudging() && waited.elapsed() < 3000) {
        QCoreApplication::processEvents();
        QThread::msleep(10);
    }
    EXPECT_FALSE(m_model->isNudging());
    EXPECT_EQ(m_model->history().past.size(), steps + 1);
    EXPECT_EQ(std::get<ShapeAnnotation>(m_model->document().annotations.first().kind).rect,
              QRectF(15, 10, 40, 40));
    m_model->undo();
    EXPECT_EQ(std::get<ShapeAnnotation>(m_model->document().annotations.first().kind).rect,
              QRectF(10, 10, 40, 40));
}

TEST_F(EditorModel, UndoAndRedoRestoreTheSelectionOfEachStep)
{
    m_model->setActiveTool(ShotToolKind::rect);
    drag({10, 10}, {50, 50});
    const QUuid first = m_model->document().annotations.first().id;
    m_model->setActiveTool(ShotToolKind::ellipse);
    drag({100, 100}, {150, 150});
    m_model->select({first}, true);
    m_model->deleteSelection();
    EXPECT_TRUE(m_model->selection().isEmpty());
    EXPECT_EQ(m_model->document().annotations.size(), 1);

    m_model->undo();
    EXPECT_EQ(m_model->selection(), QSet<QUuid>{first});
    EXPECT_TRUE(m_model->selectionIsExplicit());
    EXPECT_EQ(m_model->document().annotations.size(), 2);
    m_model->redo();
    EXPECT_TRUE(m_model->selection().isEmpty());
    EXPECT_EQ(m_model->document().annotations.size(), 1);
    EXPECT_EQ(m_model->undoSelections().size(), m_model->history().past.size());
}

TEST_F(EditorModel, CropSizesFollowTheAspectAndTheCanvas)
{
    struct Case {
        const char* name;
        CropAspect aspect;
        double width, height;
        QSizeF expected;
    };
    const double nan = std::nan("");
    const Case cases[] = {
        {"16:9, height typed", CropAspect::sixteenNine, 1000, 300, {1600.0 / 3, 300}},
        {"square, width too wide", CropAspect::square, 2000, 800, {800, 800}},
        {"free is capped by the canvas", CropAspect::free, 5000, 100, {1000, 100}},
        {"zero is ignored", CropAspect::free, 0, 100, {1000, 800}},
        {"not a number is ignored", CropAspect::free, nan, 100, {1000, 800}},
    };
    for (const Case& c : cases) {
        ShotCropSession session{{0, 0, 1000, 800}, c.aspect, {0, 0, 1000, 800}};
        session.setSize(c.width, c.height);
        EXPECT_NEAR(session.rect.width(), c.expected.width(), 1e-9) << c.name;
        EXPECT_NEAR(session.rect.height(), c.expected.height(), 1e-9) << c.name;
        EXPECT_TRUE(session.bounds.contains(session.rect)) << c.name;
    }
    EXPECT_EQ(ShotCropSession::fitted({-50, -50, 2000, 400}, {0, 0, 1000, 800}),
              QRectF(0, 0, 1000, 200));
}

TEST_F(EditorModel, CommittingACropIsOneStep)
{
    m_model->setActiveTool(ShotToolKind::crop);
    ASSERT_TRUE(m_model->cropSession().has_value());
    EXPECT_EQ(m_model->cropSession()->rect, QRectF(0, 0, 1000, 800));
    m_model->setCropRect({100, 100, 300, 200});
    EXPECT_EQ(m_model->cropSizeInPixels(), QSizeF(300, 200));
    m_model->commitCrop();
    EXPECT_EQ(m_model->document().crop, QRectF(100, 100, 300, 200));
    EXPECT_EQ(m_model->activeTool(), ShotToolKind::select);
    EXPECT_EQ(m_model->history().past.size(), 1);
    m_model->undo();
    EXPECT_FALSE(m_model->document().crop.has_value());

    // Less than a point wide leaves the document uncropped.
    m_model->setActiveTool(ShotToolKind::crop);
    m_model->setCropRect({10, 10, 0.5, 300});
    EXPECT_EQ(m_model->cropSession()->rect.width(), 1) << "each side at least 1 point";
}

TEST_F(EditorModel, ExportScaleAndStylesPersist)
{
    EXPECT_EQ(m_model->exportScale(), 1);
    ShotEditorModel retina(ShotDocument::fromImage(test::patternImage(200, 100), 2),
                           *m_preferences);
    EXPECT_EQ(retina.exportScale(), 2);

    ShotStyle thick({0, 0.5, 1, 1}, 9, 33, false, 20);
    m_model->setStyle(ShotToolKind::text, thick);
    ShotEditorModel reopened(ShotDocument::fromImage(test::patternImage(10, 10), 1),
                             *m_preferences);
    EXPECT_EQ(reopened.style(ShotToolKind::text), thick);
    EXPECT_EQ(reopened.style(ShotToolKind::arrow), ShotStyle());
    m_preferences->setValue("shot.style.arrow", QStringLiteral("{broken"));
    EXPECT_EQ(reopened.style(ShotToolKind::arrow), ShotStyle());
}

} // namespace
} // namespace nubo

namespace nubo {
namespace {

TEST_F(EditorModel, ResizeHandlesMoveTheirEdges)
{
    struct Case {
        ResizeHandle handle;
        QPointF to;
        QRectF expected;
    };
    const QRectF box(100, 100, 200, 100);
    const Case cases[] = {
        {ResizeHandle::topLeft, {50, 80}, {50, 80, 250, 120}},
        {ResizeHandle::top, {999, 150}, {100, 150, 200, 50}},
        {ResizeHandle::topRight, {350, 90}, {100, 90, 250, 110}},
        {ResizeHandle::right, {150, 999}, {100, 100, 50, 100}},
        {ResizeHandle::bottomRight, {400, 300}, {100, 100, 300, 200}},
        {ResizeHandle::bottom, {0, 120}, {100, 100, 200, 20}},
        {ResizeHandle::bottomLeft, {120, 250}, {120, 100, 180, 150}},
        {ResizeHandle::left, {350, 0}, {300, 100, 50, 100}}, // past the other edge: flipped
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ShotGeometry::resized(box, c.handle, c.to), c.expected)
            << toString(c.handle).toStdString();
    }

    // An arrow scales with its box; one step per resize gesture.
    m_model->setActiveTool(ShotToolKind::arrow);
    drag({100, 100}, {300, 200});
    m_model->beginEdit();
    m_model->resizeSelection(ResizeHandle::bottomRight, {500, 300});
    m_model->commitEdit();
    const auto& arrow = std::get<ArrowAnnotation>(m_model->document().annotations.first().kind);
    EXPECT_EQ(arrow.from, QPointF(100, 100));
    EXPECT_EQ(arrow.to, QPointF(500, 300));
    EXPECT_EQ(m_model->history().past.size(), 2);
}

TEST_F(EditorModel, ZOrderCopyPasteAndAddedImages)
{
    m_model->setActiveTool(ShotToolKind::rect);
    drag({10, 10}, {50, 50});
    m_model->setActiveTool(ShotToolKind::ellipse);
    drag({20, 20}, {60, 60});
    const QUuid rect = m_model->document().annotations[0].id;
    const QUuid ellipse = m_model->document().annotations[1].id;
    m_model->select({rect});
    m_model->bringForward();
    EXPECT_EQ(m_model->document().annotations[1].id, rect);
    m_model->bringForward(); // already on top: nothing changes, nothing recorded
    const qsizetype steps = m_model->history().past.size();
    m_model->sendBackward();
    EXPECT_EQ(m_model->document().annotations[0].id, rect);
    EXPECT_EQ(m_model->history().past.size(), steps + 1);

    // Copy and paste: new ids, moved by the offset, selected, one step.
    m_model->select({rect, ellipse});
    const QByteArray copied = m_model->copySelection();
    ASSERT_FALSE(copied.isEmpty());
    ASSERT_TRUE(m_model->paste(copied, {10, 10}));
    ASSERT_EQ(m_model->document().annotations.size(), 4);
    const Annotation& pasted = m_model->document().annotations[2];
    EXPECT_NE(pasted.id, rect);
    EXPECT_EQ(std::get<ShapeAnnotation>(pasted.kind).rect, QRectF(20, 20, 40, 40));
    EXPECT_EQ(m_model->selection().size(), 2);
    EXPECT_FALSE(m_model->selection().contains(rect));
    m_model->undo();
    EXPECT_EQ(m_model->document().annotations.size(), 2);
    EXPECT_EQ(m_model->selection(), (QSet<QUuid>{rect, ellipse}));
    EXPECT_FALSE(m_model->paste("not json"));
    EXPECT_FALSE(m_model->paste("[{\"id\": 5}]"));
    EXPECT_EQ(m_model->document().annotations.size(), 2);

    // An added image is a new layer; the canvas grows to hold it.
    m_model->addImageLayer(test::patternImage(300, 200), {900, 700});
    ASSERT_EQ(m_model->document().layers.size(), 2);
    EXPECT_EQ(m_model->document().layers[1].frame, QRectF(900, 700, 300, 200));
    EXPECT_EQ(m_model->document().canvasBounds, QRectF(0, 0, 1200, 900));
    m_model->undo();
    EXPECT_EQ(m_model->document().layers.size(), 1);
}

TEST_F(EditorModel, AddedImagesKeepTheShotWithinItsLimits)
{
    // One bit a pixel, so that images this large cost the test little memory.
    const auto image = [](int width, int height) {
        QImage mono(width, height, QImage::Format_Mono);
        mono.fill(1);
        return mono;
    };
    struct Case {
        const char* name;
        QImage image;
        QPointF at;
        const char* problem; // part of the message; nullptr when it is added
    };
    const Case cases[] = {
        {"a side over 65536 pixels", image(100000, 2), {0, 0}, "is too large"},
        {"more pixels than one image may have", image(20000, 20000), {0, 0}, "is too large"},
        {"a canvas grown past 65536 points", image(60000, 10), {10000, 0}, "at most 65,536"},
        {"no image at all", QImage(), {0, 0}, "There is no image to add"},
        {"a wide one within the limits", image(60000, 10), {0, 0}, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const ShotDocument before = m_model->document();
        const QString problem = m_model->addImageLayer(c.image, c.at);
        if (c.problem) {
            EXPECT_TRUE(problem.contains(QLatin1String(c.problem))) << problem.toStdString();
            EXPECT_EQ(m_model->document(), before) << "nothing added";
        } else {
            EXPECT_EQ(problem, QString());
            EXPECT_EQ(m_model->document().layers.size(), before.layers.size() + 1);
        }
    }
    // Several images, each within the limits, may not hold more than the
    // shot's total together.
    m_model->undo();
    QString problem;
    for (int i = 0; i < 4 && problem.isEmpty(); ++i) {
        problem = m_model->addImageLayer(image(16384, 16384), {0, 0});
    }
    EXPECT_TRUE(problem.contains(QLatin1String("pixels together"))) << problem.toStdString();
    EXPECT_LE(m_model->document().layers.size(), 2);
}

} // namespace
} // namespace nubo

namespace nubo {
namespace {

TEST_F(EditorModel, TheStyleBarChangesTheToolAndTheSelection)
{
    m_model->setActiveTool(ShotToolKind::rect);
    drag({10, 10}, {50, 50});
    ShotStyle thick = m_model->shownStyle();
    thick.lineWidth = 12;
    const qsizetype steps = m_model->history().past.size();
    m_model->applyStyle(thick);
    EXPECT_EQ(m_model->document().annotations.first().style.lineWidth, 12);
    EXPECT_EQ(m_model->history().past.size(), steps + 1);
    EXPECT_EQ(m_model->style(ShotToolKind::rect).lineWidth, 12) << "new rectangles take it too";
    m_model->select({});
    thick.lineWidth = 3;
    m_model->applyStyle(thick);
    EXPECT_EQ(m_model->document().annotations.first().style.lineWidth, 12)
        << "nothing selected: tool only";
    EXPECT_EQ(m_model->history().past.size(), steps + 1);
}

} // namespace
} // namespace nubo

namespace nubo {
namespace {

TEST_F(EditorModel, TextIsTypedInTheStepThatMadeIt)
{
    m_model->setActiveTool(ShotToolKind::text);
    QUuid started;
    QObject::connect(m_model.get(), &ShotEditorModel::textEditingStarted,
                     [&](const QUuid& id) { started = id; });
    const auto click = [&](QPointF p) {
        m_model->beginCreation({p, p, false, false, false});
        m_model->endCreation({p, p, false, false, false});
    };
    click({100, 100});
    ASSERT_FALSE(started.isNull());
    const QUuid first = started;
    EXPECT_TRUE(m_model->isEditingText());
    EXPECT_FALSE(m_model->canUndo());
    m_model->setEditedText(QStringLiteral("Hello\nthere"), 80);
    m_model->endTextEditing();
    ASSERT_EQ(m_model->document().annotations.size(), 1);
    const auto& content =
        std::get<TextAnnotation>(m_model->document().annotations.first().kind).content;
    EXPECT_EQ(content.text, QStringLiteral("Hello\nthere"));
    EXPECT_EQ(content.rect, QRectF(100, 100, 160, 80)) << "the box grew with the text";
    EXPECT_EQ(m_model->history().past.size(), 1) << "made and typed: one step";

    // A new box left empty leaves nothing behind.
    click({300, 300});
    m_model->endTextEditing();
    EXPECT_EQ(m_model->document().annotations.size(), 1);
    EXPECT_EQ(m_model->history().past.size(), 1);

    // Emptying an existing text removes it, as a step of its own.
    ASSERT_TRUE(m_model->beginTextEditing(first));
    m_model->setEditedText(QString(), 0);
    m_model->endTextEditing();
    EXPECT_TRUE(m_model->document().annotations.isEmpty());
    EXPECT_EQ(m_model->history().past.size(), 2);
    m_model->undo();
    EXPECT_EQ(m_model->document().annotations.size(), 1);
}

} // namespace
} // namespace nubo
