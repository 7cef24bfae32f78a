// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestIPAddressEdit.h"
#include "TestedQt.h"

#include "Announcements.h"
#include "IPAddressState.h"
#include "KestStyleSheet.h"
#include "RecordingStyle.h"
#include "Rendering.h"

#include <QAction>
#include <QtCore/QMimeData>
#include <QtCore/QPointer>
#include <QtGui/QClipboard>
#include <QtGui/QFocusEvent>
#include <QtGui/QPainter>
#include <QtGui/private/qfont_p.h>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyleOptionFrame>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <utility>

namespace {

const QString RoomOfSection = QStringLiteral(" 000") + QChar();
const QString RoomOfAddress = QStringLiteral(" 000 . 000 . 000 . 000") + QChar();

// An edit with what it has announced.
class Edit : public KestIPAddressEdit
{
    Q_OBJECT

public:
    explicit Edit(const QString &state = QStringLiteral("||| @0"), QWidget *parent = nullptr)
        : KestIPAddressEdit(parent),
          changed(this, &KestIPAddressEdit::editChanged),
          finished(this, &KestIPAddressEdit::editingFinished)
    {
        setState(this, state);
        resize(sizeHint() + QSize(60, 0));
    }

    using KestIPAddressEdit::initStyleOption;
    using KestIPAddressEdit::inputMethodQuery;

    QSignalSpy changed;
    QSignalSpy finished;
};

// Whether an edit that is shown, and whose cursor does not blink, is painted for what is done.
bool isPaintedFor(Edit *edit, const std::function<void()> &action)
{
    recordOf(edit)->blinkTimer.stop();
    QCoreApplication::processEvents();
    PaintCounter paints(edit);
    action();
    QCoreApplication::processEvents();
    return paints.count > 0;
}

void setClipboard(const QString &text)
{
    QGuiApplication::clipboard()->setText(text);
}

QAction *actionOf(const QWidget *edit, QKeySequence::StandardKey key)
{
    const QList<QAction *> actions = edit->actions();
    for (QAction *action : actions) {
        if (action->shortcut() == QKeySequence(key))
            return action;
    }
    return nullptr;
}

// What a program offers is asked for when it is wanted.
class Offer : public QMimeData
{
public:
    std::function<void()> onAsked;
    QStringList formats() const override { return { QStringLiteral("text/plain") }; }
    bool hasFormat(const QString &format) const override { return formats().contains(format); }

protected:
    QVariant retrieveData(const QString &, AskedType) const override
    {
        if (onAsked)
            onAsked();
        return QStringLiteral("7");
    }
};

void sendMouse(QWidget *widget, QEvent::Type type, const QPointF &point,
               Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    const Qt::MouseButtons buttons =
        type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button);
    QMouseEvent event(type, point, widget->mapToGlobal(point.toPoint()),
                      type == QEvent::MouseMove ? Qt::NoButton : button, buttons, modifiers);
    QCoreApplication::sendEvent(widget, &event);
}

void sendMouseAt(QWidget *widget, double x)
{
    QMouseEvent event(QEvent::MouseButtonPress, QPointF(x, 1), QPointF(), QPointF(), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void sendFocus(QWidget *widget, QEvent::Type type, Qt::FocusReason reason)
{
    QFocusEvent event(type, reason);
    QCoreApplication::sendEvent(widget, &event);
}

// Where the sections and their texts are, worked out anew.
struct Places
{
    explicit Places(const Edit &edit)
    {
        QStyleOptionFrame option;
        edit.initStyleOption(&option);
        contents = edit.style()->subElementRect(QStyle::SE_LineEditContents, &option, &edit);
        const QFontMetrics metrics(edit.font());
        dot = metrics.boundingRect(QLatin1Char('.')).width();
        section = metrics.boundingRect(RoomOfSection).width();
    }

    QRect rect(int i) const
    {
        return QRect(contents.left() + i * (dot + section), contents.top(), section,
                     contents.height());
    }

    QRect contents;
    int dot;
    int section;
};

// A line of text, laid out.
std::unique_ptr<QTextLayout> line(const QString &text, const QFont &font)
{
    auto layout = std::make_unique<QTextLayout>(text, font);
    layout->beginLayout();
    layout->createLine();
    layout->endLayout();
    return layout;
}

QPoint originIn(const QRect &rect, const QTextLayout &layout)
{
    const QRectF bounds = layout.boundingRect();
    return QPoint(qRound(rect.left() + (rect.width() - bounds.width()) * 0.5),
                  qRound(rect.top() + (rect.height() - bounds.height()) * 0.5));
}

// The edit as it is meant to look: its frame, texts with selections, dots and cursor.
QImage expectedLook(const Edit &edit, const QStringList &texts, int selected, int cursor,
                    qreal ratio = 1.0)
{
    QImage image = canvas(edit.size(), ratio);
    QPainter painter(&image);
    painter.setClipRect(edit.rect()); // which may end within a pixel
    painter.setFont(edit.font());
    painter.setPen(edit.palette().color(edit.foregroundRole()));
    painter.setLayoutDirection(edit.layoutDirection());
    QStyleOptionFrame option;
    edit.initStyleOption(&option);
    edit.style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, &edit);
    const Places places(edit);
    for (int i = 0; i < 4; ++i) {
        const auto layout = line(texts.at(i), edit.font());
        const QRect rect = places.rect(i);
        const QPoint origin = originIn(rect, *layout);
        QVector<QTextLayout::FormatRange> ranges;
        if (i == selected) {
            QTextLayout::FormatRange range { 0, int(texts.at(i).length()), QTextCharFormat() };
            range.format.setBackground(edit.palette().highlight());
            range.format.setForeground(edit.palette().highlightedText());
            ranges.append(range);
        }
        const QSizeF size = layout->boundingRect().size();
        const QRect clip(origin, QSize(qRound(size.width()), qRound(size.height())));
        layout->draw(&painter, origin, ranges, clip);
        if (cursor / 4 == i)
            layout->drawCursor(&painter, origin, cursor % 4);
        if (i < 3) {
            painter.drawText(
                QRectF(rect.right() + 1, origin.y(), places.dot, layout->boundingRect().height()),
                QStringLiteral("."), QTextOption());
        }
    }
    return image;
}

} // namespace

class tst_KestIPAddressEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void metaObject();
    void newEdit();
    void layoutsAreCentredAndKept();
    void actions();

    void addresses_data();
    void addresses();
    void setAddressKeepsCursorAndSelection();

    void ranges_data();
    void ranges();
    void rangeColors();
    void movedRanges_data();
    void movedRanges();

    void keys_data();
    void keys();
    void typing_data();
    void typing();
    void everyOtherKeyIsSwallowed();
    void keysWithoutEffectPaintNothing_data();
    void keysWithoutEffectPaintNothing();
    void keypadDigitsAreDigits();
    void sectionsTakeNoDigitOfSeveralCharactersTooMany();
    void typedKeysAreNoShortcuts();

    void readOnlyKeys_data();
    void readOnlyKeys();

    void copy_data();
    void copy();
    void paste_data();
    void paste();
    void readOnlyIsNotPastedInto();
    void shortcutsCopyAndPaste();

    void clickSetsTheCursor_data();
    void clickSetsTheCursor();
    void fractionsOfPixelsAreRounded();
    void clickClearsTheSelection();
    void clicksBesideTheSectionsAreTheirEnds();
    void otherButtonsDoNothing();
    void shiftClick_data();
    void shiftClick();
    void drag();
    void dragStaysInItsSection();
    void dragWithModifiersDoesNotSelect();
    void moveAfterTheReleaseDoesNotSelect();
    void mouseRepaints();
    void releaseWithModifiersGoesOnSelecting();
    void mouseIsSwallowed();
    void dragAfterADoubleClickDoesNotSelect();
    void doubleClick_data();
    void doubleClick();

    void contextMenu_data();
    void contextMenu();
    void editMayDieWhileItsMenuIsOpen();

    void focusIn();
    void focusOut_data();
    void focusOut();
    void focusChangesRepaint();
    void cursorBlinks();
    void blinkRepaintsTheCursorAlone_data();
    void blinkRepaintsTheCursorAlone();
    void zeroFlashTimeBlinksOnEveryPass();
    void returnFinishesEditing();
    void returnMayDeleteTheEdit();
    void changeMayDeleteTheEdit_data();
    void changeMayDeleteTheEdit();

    void announcementMayDeleteTheEdit_data();
    void announcementMayDeleteTheEdit();
    void clipboardMayDeleteTheEdit_data();
    void clipboardMayDeleteTheEdit();
    void clipboardMayMakeTheEditReadOnly();
    void newAddressesRepaint();
    void readOnlyRepaints();
    void styleMayDeleteTheEdit_data();
    void styleMayDeleteTheEdit();
    void readOnlyEffects();
    void readOnlyPolishesOnlyForStyleSheets();
    void readOnlyMayDeleteTheEdit_data();
    void readOnlyMayDeleteTheEdit();
    void newerReadOnlyWins_data();
    void newerReadOnlyWins();
    void inputMethods();

    void sizeHints();
    void hintOfANewEditCountsTheSheet();
    void sectionsArePacked();
    void editWithoutFrameHasNoLine();
    void invalidContentsRectIsReplaced();
    void fontChangeLaysOutAnew();
    void changesOfTheFontMoveTheSections();

    void look_data();
    void look();
    void cursorIsDrawnOnlyWhileVisible();
    void cursorFollowsTheLinesAscent();
    void rightToLeftKeepsTheOrder();
    void sheetsThemeTheFrame();

    void screenReaderReadsTheAddress();
    void screenReaderMovesAndSelects();
    void screenReaderRepaints();
    void movesOfAScreenReaderClearTheSelection();
    void offsetsFromOutsideMayBeAny();
    void columnsFromOutsideMayBeAny();
    void rangesFromOutsideMayBeAny();
    void changesAreAnnounced();
    void selectionIsAnnouncedAsItChanges();
    void screenReaderEditsTheAddress();
    void selectionStaysUntilAllOfItIsDeleted();
    void nothingIsMadeForNoReader();
    void subclassMayHaveItsOwnInterface();
};

void tst_KestIPAddressEdit::init()
{
    QGuiApplication::clipboard()->clear();
}

void tst_KestIPAddressEdit::metaObject()
{
    const QMetaObject &meta = KestIPAddressEdit::staticMetaObject;
    for (const char *slot : { "updateTextLayout()", "onCustomContextMenuRequested(QPoint)" })
        QVERIFY2(meta.indexOfSlot(slot) >= meta.methodOffset(), slot);
    for (const char *signal : { "editChanged()", "editingFinished()" })
        QVERIFY2(meta.indexOfSignal(signal) >= meta.methodOffset(), signal);
    KestIPAddressEdit edit;
    QVERIFY(edit.setProperty("ipAddress", QStringLiteral("1.2.3.4")));
    QCOMPARE(edit.property("ipAddress").toString(), QStringLiteral("1.2.3.4"));
    QCOMPARE(edit.property("readOnly"), QVariant(false));
    QVERIFY(edit.setProperty("readOnly", true));
    QVERIFY(edit.isReadOnly());
}

void tst_KestIPAddressEdit::newEdit()
{
    QWidget parent;
    KestIPAddressEdit edit(&parent);
    QCOMPARE(edit.parentWidget(), &parent);
    QCOMPARE(edit.ipAddress(), QStringLiteral("0.0.0.0"));
    QCOMPARE(stateOf(&edit), QStringLiteral("||| @0"));
    QVERIFY(!edit.isReadOnly());
    QCOMPARE(edit.sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(edit.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(edit.sizePolicy().controlType(), QSizePolicy::LineEdit);
    QCOMPARE(edit.contextMenuPolicy(), Qt::CustomContextMenu);
    QCOMPARE(edit.focusPolicy(), Qt::StrongFocus);
    QCOMPARE(recordOf(&edit)->blinkTimer.interval(), QApplication::cursorFlashTime() / 2);
    QVERIFY(!recordOf(&edit)->blinkTimer.isActive());
    QVERIFY(!recordOf(&edit)->cursorVisible);
    QCOMPARE(recordOf(&edit)->verticalMargin, 1);
    QCOMPARE(recordOf(&edit)->horizontalMargin, 2);
    QVERIFY(recordOf(&edit)->frame);
    QCOMPARE(recordOf(&edit)->cursorAscentOffset, 0);
    QCOMPARE(recordOf(&edit)->pressSection, 0);
    QCOMPARE(recordOf(&edit)->pressPosition, 0);
    QVERIFY(!recordOf(&edit)->mousePressed);
    QCOMPARE(edit.cursor().shape(), Qt::IBeamCursor);
    QVERIFY(edit.testAttribute(Qt::WA_InputMethodEnabled));
    QVERIFY(edit.testAttribute(Qt::WA_MacShowFocusRect));
}

void tst_KestIPAddressEdit::layoutsAreCentredAndKept()
{
    // As soon as there are any, and after each change of the font.
    Edit edit;
    for (int i = 0; i < 2; ++i) {
        for (const QTextLayout &layout : recordOf(&edit)->layouts) {
            QCOMPARE(layout.textOption().alignment(), Qt::AlignCenter);
            QVERIFY(layout.cacheEnabled());
            QCOMPARE(layout.font(), edit.font());
            QCOMPARE(layout.lineCount(), 1);
        }
        QVERIFY(recordOf(&edit)->dotLayout.cacheEnabled());
        edit.setFont(QFont(edit.font().family(), 23));
    }
}

void tst_KestIPAddressEdit::actions()
{
    const Edit edit;
    QCOMPARE(edit.actions().size(), 2);
    const QAction *const copy = edit.actions().at(0);
    const QAction *const paste = edit.actions().at(1);
    QCOMPARE(copy->text(), QStringLiteral("Copy"));
    QCOMPARE(copy->shortcut(), QKeySequence(QKeySequence::Copy));
    QCOMPARE(paste->text(), QStringLiteral("Paste"));
    QCOMPARE(paste->shortcut(), QKeySequence(QKeySequence::Paste));
    for (const QAction *action : { copy, paste }) {
        QCOMPARE(action->shortcutContext(), Qt::WidgetWithChildrenShortcut);
        QCOMPARE(action->parent(), &edit);
    }
}

void tst_KestIPAddressEdit::addresses_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<bool>("accepted");
    const auto row = [](const char *address, bool accepted) {
        QTest::newRow(address) << QString::fromLatin1(address) << accepted;
    };
    row("1.2.3.4", true);
    row("255.255.255.255", true);
    row("0.0.0.0", true);
    row("192.168.001.1", true);
    row("010.1.0.000", true);
    row("", false);
    row("1.2.3", false);
    row("1.2.3.4.5", false);
    row("1..2.3", false);
    row("1.2.3.", false);
    row(".1.2.3", false);
    row("1.2.3.256", false);
    row("999.2.3.4", false);
    row("1.2.3.0001", false);
    row("1.2.3.-1", false);
    row("1.2.a.4", false);
    row("1.2.0x1.4", false);
}

void tst_KestIPAddressEdit::addresses()
{
    QFETCH(QString, address);
    QFETCH(bool, accepted);
    Edit edit(QStringLiteral("9|8|7|6 @0"));
    edit.setIPAddress(address);
    QCOMPARE(edit.ipAddress(), accepted ? address : QStringLiteral("9.8.7.6"));
    QCOMPARE(edit.changed.count(), accepted ? 4 : 0);
    QCOMPARE(edit.finished.count(), 0);
}

void tst_KestIPAddressEdit::setAddressKeepsCursorAndSelection()
{
    Edit edit(QStringLiteral("9|8|7|6 @5 1:0-1"));
    edit.setIPAddress(QStringLiteral("10.20.30.40"));
    QCOMPARE(stateOf(&edit), QStringLiteral("10|20|30|40 @5 1:0-1"));
}

void tst_KestIPAddressEdit::ranges_data()
{
    QTest::addColumn<int>("a");
    QTest::addColumn<int>("b");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::newRow("forwards") << 0 << 2 << 0 << 2;
    QTest::newRow("backwards") << 7 << 5 << 1 << 2;
    QTest::newRow("empty") << 13 << 13 << 1 << 0;
    QTest::newRow("last section") << 12 << 15 << 0 << 3;
    QTest::newRow("negative") << -1 << 2 << -1 << 3;
}

void tst_KestIPAddressEdit::ranges()
{
    QFETCH(int, a);
    QFETCH(int, b);
    const QTextLayout::FormatRange range = createFormatRange(a, b, QPalette());
    QTEST(range.start, "start");
    QTEST(range.length, "length");
}

void tst_KestIPAddressEdit::rangeColors()
{
    QPalette palette;
    palette.setBrush(QPalette::Active, QPalette::Highlight, QBrush(Qt::red, Qt::Dense3Pattern));
    palette.setColor(QPalette::Active, QPalette::HighlightedText, Qt::yellow);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, Qt::blue);
    palette.setCurrentColorGroup(QPalette::Active);
    const QTextCharFormat format = createFormatRange(0, 1, palette).format;
    QCOMPARE(format.background(), QBrush(Qt::red, Qt::Dense3Pattern));
    QCOMPARE(format.foreground().color(), QColor(Qt::yellow));
    palette.setCurrentColorGroup(QPalette::Disabled);
    QCOMPARE(createFormatRange(0, 1, palette).format.background().color(), QColor(Qt::blue));
}

void tst_KestIPAddressEdit::movedRanges_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("end");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("newStart");
    QTest::addColumn<int>("newEnd");
    QTest::newRow("end outwards") << 1 << 2 << 2 << 3 << 1 << 3;
    QTest::newRow("end inwards") << 0 << 3 << 3 << 1 << 0 << 1;
    QTest::newRow("end onto the start") << 1 << 2 << 2 << 1 << 1 << 1;
    QTest::newRow("end across the start") << 1 << 2 << 6 << 4 << 0 << 1;
    QTest::newRow("start outwards") << 1 << 2 << 1 << 0 << 0 << 2;
    QTest::newRow("start inwards") << 0 << 3 << 12 << 14 << 2 << 3;
    QTest::newRow("start across the end") << 0 << 1 << 0 << 3 << 1 << 3;
    QTest::newRow("empty, forwards") << 1 << 1 << 1 << 2 << 1 << 2;
    QTest::newRow("empty, backwards") << 2 << 2 << 2 << 0 << 0 << 2;
    QTest::newRow("empty, elsewhere") << 2 << 2 << 1 << 3 << 1 << 3;
    QTest::newRow("from neither end") << 0 << 3 << 1 << 2 << 1 << 2;
}

void tst_KestIPAddressEdit::movedRanges()
{
    QFETCH(int, start);
    QFETCH(int, end);
    QFETCH(int, from);
    QFETCH(int, to);
    QTextLayout::FormatRange range { start, end - start, QTextCharFormat() };
    QCOMPARE(moveFormatRange(range, from, to), to % 4);
    QTEST(range.start, "newStart");
    QTEST(range.start + range.length, "newEnd");
}

void tst_KestIPAddressEdit::keys_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("changes");
    const auto row = [](const char *before, const char *key, const char *after, int changes) {
        QTest::newRow(
            qPrintable(QStringLiteral("%1 %2").arg(QLatin1String(before), QLatin1String(key))))
            << QString::fromLatin1(before) << QString::fromLatin1(key) << QString::fromLatin1(after)
            << changes;
    };
    // Digits.
    row("||| @0", "1", "1||| @1", 1);
    row("1||| @1", "9", "19||| @2", 1);
    row("19||| @2", "2", "192||| @4", 1); // on to the next section
    row("||19| @10", "2", "||192| @12", 1);
    row("|||19 @14", "2", "|||192 @15", 1); // there is none
    row("25||| @2", "6", "25||| @2", 0);
    row("25||| @2", "5", "255||| @4", 1);
    row("12||| @0", "3", "12||| @0", 0); // too large
    row("12||| @0", "1", "112||| @1", 1); // no step on from within
    row("12||| @1", "0", "102||| @2", 1);
    row("123||| @0", "1", "123||| @0", 0);
    row("123||| @2", "1", "123||| @2", 0);
    row("123||| @3", "1", "123||| @3", 0);
    row("|||255 @15", "1", "|||255 @15", 0);
    row("00||| @2", "0", "000||| @4", 1);
    row("1||| @3", "2", "12||| @4", 1); // behind the end counts as the end
    row("||| @2", "2", "2||| @3", 1);
    row("12||| @3", "3", "123||| @5", 1);
    row("192|1|| @5 0:0-3", "7", "7|1|| @1", 2); // what is selected goes first
    row("192|168|| @0 0:0-3 1:0-2", "7", "|87|| @6", 3);
    // Backspace.
    row("12||| @2", "Backspace", "1||| @1", 1);
    row("123||| @1", "Backspace", "23||| @0", 1);
    row("123||| @0", "Backspace", "123||| @0", 0);
    row("|12|3| @8", "Backspace", "|1|3| @5", 1);
    row("|12|| @4", "Backspace", "|12|| @0", 1); // what is empty is set all the same
    row("1|12|| @4", "Backspace", "|12|| @0", 1);
    row("123|12|| @4", "Backspace", "12|12|| @2", 1);
    row("||| @2", "Backspace", "||| @2", 0); // behind the end of nothing
    row("1||| @3", "Backspace", "1||| @2", 1);
    row("123|456|| @6 0:1-2 1:0-2", "Backspace", "13|6|| @5", 2);
    row("12||| @1 0:0-0", "Backspace", "12||| @2", 1);
    row("12||| @1 0:1-3", "Backspace", "1||| @1", 1);
    // Left and up.
    for (const char *key : { "Left", "Up" }) {
        row("12||| @2", key, "12||| @1", 0);
        row("12||| @0", key, "12||| @0", 0);
        row("12|3|| @4", key, "12|3|| @2", 0); // behind the last digit
        row("|3|| @4", key, "|3|| @0", 0);
        row("123|3|| @4", key, "123|3|| @3", 0);
        row("1||| @3", key, "1||| @1", 0);
        row("|||1 @16", key, "|||1 @13", 0);
        row("12||| @2 0:0-1", key, "12||| @2", 0);
        row("12||| @2 3:0-0", key, "12||| @2", 0);
    }
    for (const char *key : { "Shift+Left", "Shift+Up" }) {
        row("12||| @2", key, "12||| @1 0:1-2", 0);
        row("12||| @1 0:1-2", key, "12||| @0 0:0-2", 0);
        row("12||| @0 0:0-2", key, "12||| @0 0:0-2", 0);
        row("12||| @2 0:0-2", key, "12||| @1 0:0-1", 0);
        row("12||| @1 0:0-1", key, "12||| @0 0:0-0", 0);
        row("12|3|| @4", key, "12|3|| @4", 0);
        row("12|34|| @5 0:0-2", key, "12|34|| @4 0:0-2 1:0-1", 0);
        row("1||| @3", key, "1||| @2 0:2-3", 0);
    }
    // Right and down.
    for (const char *key : { "Right", "Down" }) {
        row("12||| @0", key, "12||| @1", 0);
        row("12||| @2", key, "12||| @4", 0);
        row("||| @0", key, "||| @4", 0);
        row("|||12 @14", key, "|||12 @14", 0);
        row("|||123 @15", key, "|||123 @15", 0);
        row("|||1 @15", key, "|||1 @16", 0); // behind the end
        row("|||1 @16", key, "|||1 @16", 0);
        row("1||| @3", key, "1||| @4", 0);
        row("12||| @0 0:0-1", key, "12||| @0", 0);
    }
    for (const char *key : { "Shift+Right", "Shift+Down" }) {
        row("12||| @0", key, "12||| @1 0:0-1", 0);
        row("12||| @1 0:0-1", key, "12||| @2 0:0-2", 0);
        row("12||| @2 0:0-2", key, "12||| @3 0:0-3", 0); // past the last digit
        row("12||| @3 0:0-3", key, "12||| @3 0:0-3", 0);
        row("12||| @0 0:0-2", key, "12||| @1 0:1-2", 0);
        row("12||| @1 0:1-2", key, "12||| @2 0:2-2", 0);
        row("|||1 @15", key, "|||1 @15", 0);
        row("||| @12", key, "||| @13 3:0-1", 0);
    }
    // Delete.
    row("12||| @0", "Delete", "2||| @0", 1);
    row("12||| @1", "Delete", "1||| @1", 1);
    row("12|3|| @2", "Delete", "12|3|| @2", 0);
    row("12|3|| @3", "Delete", "12|3|| @3", 0);
    row("12|34|| @4 1:0-1", "Delete", "12|4|| @5", 1);
    // Dots.
    row("12||| @2", ".", "12||| @4", 0);
    row("12||| @1", ".", "12||| @1", 0);
    row("||| @0", ".", "||| @0", 0);
    row("|||1 @13", ".", "|||1 @13", 0);
    row("12||| @2 0:0-2", ".", "12||| @4 0:0-2", 0);
    row("12||| @3", ".", "12||| @3", 0);
    // Others.
    row("12||| @2 0:0-2 3:0-0", "Escape", "12||| @2", 0);
    row("12||| @1 0:0-2", "Home", "12||| @1 0:0-2", 0);
    row("12||| @1 0:0-2", "End", "12||| @1 0:0-2", 0);
    row("12||| @1 0:0-2", "Ctrl+A", "12||| @1 0:0-2", 0);
    row("12||| @1 0:0-2", "A", "12||| @1 0:0-2", 0);
    row("12||| @1 0:0-2", "-", "12||| @1 0:0-2", 0);
    // Other modifiers than Shift are no matter.
    row("12||| @2", "Ctrl+Left", "12||| @1", 0);
    row("12||| @0", "Num+Right", "12||| @1", 0);
    row("12||| @2", "Num+Shift+Left", "12||| @1 0:1-2", 0);
    row("12||| @0", "Ctrl+Shift+Right", "12||| @1 0:0-1", 0);
    row("12||| @2", "Ctrl+Backspace", "1||| @1", 1);
}

void tst_KestIPAddressEdit::keys()
{
    QFETCH(QString, before);
    QFETCH(QString, key);
    Edit edit(before);
    typeKey(&edit, key);
    QTEST(stateOf(&edit), "after");
    QTEST(int(edit.changed.count()), "changes");
    QCOMPARE(edit.finished.count(), 0);
}

void tst_KestIPAddressEdit::typing_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QStringList>("states");
    QTest::newRow("an address") << "19216801." << QStringList { "1||| @1",        "19||| @2",
                                                                "192||| @4",      "192|1|| @5",
                                                                "192|16|| @6",    "192|168|| @8",
                                                                "192|168|0| @9",  "192|168|01| @10",
                                                                "192|168|01| @12" };
    QTest::newRow("with dots") << "1.2.3.4.5"
                               << QStringList { "1||| @1",     "1||| @4",     "1|2|| @5",
                                                "1|2|| @8",    "1|2|3| @9",   "1|2|3| @12",
                                                "1|2|3|4 @13", "1|2|3|4 @13", "1|2|3|45 @14" };
    QTest::newRow("too large") << "256" << QStringList { "2||| @1", "25||| @2", "25||| @2" };
}

void tst_KestIPAddressEdit::typing()
{
    QFETCH(QString, keys);
    QFETCH(QStringList, states);
    QCOMPARE(keys.length(), states.size());
    Edit edit;
    for (int i = 0; i < keys.length(); ++i) {
        typeKey(&edit, QString(keys.at(i)));
        QCOMPARE(stateOf(&edit), states.at(i));
    }
}

void tst_KestIPAddressEdit::everyOtherKeyIsSwallowed()
{
    Edit edit;
    for (int key : { Qt::Key_A, Qt::Key_Escape, Qt::Key_Return, Qt::Key_Home, Qt::Key_F5 }) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&edit, &event);
        QVERIFY(event.isAccepted());
    }
}

void tst_KestIPAddressEdit::keysWithoutEffectPaintNothing_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<bool>("readOnly");
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("painted");
    for (const bool readOnly : { false, true }) {
        for (const char *key : { "5", "Backspace", "Delete" }) {
            QTest::addRow("%s%s", key, readOnly ? ", read-only" : "")
                << QStringLiteral("12||| @1") << readOnly << QString::fromLatin1(key) << !readOnly;
        }
    }
    for (const char *key : { "Shift+Left", "Shift+Up", "Shift+Right", "Shift+Down" }) {
        const bool back = QByteArray(key) == "Shift+Left" || QByteArray(key) == "Shift+Up";
        for (const int position : { 4, 5, 7 }) {
            QTest::addRow("%s at %d", key, position)
                << QStringLiteral("1|123|| @%1").arg(position) << false << QString::fromLatin1(key)
                << (position != (back ? 4 : 7));
        }
    }
}

void tst_KestIPAddressEdit::keysWithoutEffectPaintNothing()
{
    QFETCH(QString, state);
    QFETCH(bool, readOnly);
    QFETCH(QString, key);
    Edit edit(state);
    edit.setReadOnly(readOnly);
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    edit.clearFocus(); // nor does the cursor blink
    QCoreApplication::processEvents();
    PaintCounter paints(&edit);
    // Without the press of Shift, which is a key of its own.
    const int code = QKeySequence::fromString(key, QKeySequence::PortableText)[0];
    QKeyEvent event(QEvent::KeyPress, code & ~Qt::KeyboardModifierMask,
                    Qt::KeyboardModifiers(code & Qt::KeyboardModifierMask), key.left(1));
    QCoreApplication::sendEvent(&edit, &event);
    QCoreApplication::processEvents();
    QTEST(paints.count > 0, "painted");
}

void tst_KestIPAddressEdit::keypadDigitsAreDigits()
{
    Edit edit;
    QTest::keyClick(&edit, Qt::Key_7, Qt::KeypadModifier);
    QCOMPARE(stateOf(&edit), QStringLiteral("7||| @1"));
}

// A dead key gives the digit behind it a text of two characters.
void tst_KestIPAddressEdit::sectionsTakeNoDigitOfSeveralCharactersTooMany()
{
    Edit edit;
    setState(&edit, QStringLiteral("12|1|| @1"));
    const auto type = [&edit](const QString &text) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_5, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&edit, &event);
    };
    QSignalSpy changed(&edit, &KestIPAddressEdit::editChanged);
    type(QStringLiteral("^5"));
    QCOMPARE(stateOf(&edit), QStringLiteral("12|1|| @1"));
    setState(&edit, QStringLiteral("12|1|| @2"));
    type(QStringLiteral("^5"));
    QCOMPARE(stateOf(&edit), QStringLiteral("12|1|| @2"));
    QCOMPARE(changed.count(), 0);
    setState(&edit, QStringLiteral("12|1|| @5"));
    type(QStringLiteral("^5"));
    QCOMPARE(stateOf(&edit), QStringLiteral("12|1^5|| @7"));
    QCOMPARE(changed.count(), 1);
    // Nor one without any into a full section.
    setState(&edit, QStringLiteral("123||| @1"));
    type(QString());
    QCOMPARE(stateOf(&edit), QStringLiteral("123||| @1"));
    QCOMPARE(changed.count(), 1);
}

void tst_KestIPAddressEdit::typedKeysAreNoShortcuts()
{
    Edit edit;
    const auto overrides = [&edit](int key, const QString &text,
                                   Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::ShortcutOverride, key, modifiers, text);
        event.ignore();
        const bool handled = QCoreApplication::sendEvent(&edit, &event);
        return handled && event.isAccepted();
    };
    for (const char digit : { '0', '1', '5', '8', '9' })
        QVERIFY(overrides(digit, QString(QLatin1Char(digit))));
    QVERIFY(overrides(Qt::Key_5, QStringLiteral("5"), Qt::KeypadModifier));
    QVERIFY(overrides(Qt::Key_5, QStringLiteral("5"), Qt::ShiftModifier));
    QVERIFY(!overrides(Qt::Key_Slash, QStringLiteral("/")));
    QVERIFY(!overrides(Qt::Key_Colon, QStringLiteral(":")));
    QVERIFY(overrides(Qt::Key_Period, QStringLiteral(".")));
    QVERIFY(overrides(Qt::Key_Delete, QString()));
    QVERIFY(overrides(Qt::Key_Backspace, QString()));
    for (const Qt::KeyboardModifier modifier :
         { Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier }) {
        QVERIFY(!overrides(Qt::Key_5, QStringLiteral("5"), modifier));
        QVERIFY(!overrides(Qt::Key_Delete, QString(), modifier | Qt::ShiftModifier));
    }
    QVERIFY(!overrides(Qt::Key_A, QStringLiteral("a")));
    edit.setReadOnly(true);
    QVERIFY(!overrides(Qt::Key_5, QStringLiteral("5")));
}

void tst_KestIPAddressEdit::readOnlyKeys_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("after");
    QTest::newRow("digit") << "5"
                           << "12|3|| @2 0:0-2";
    QTest::newRow("Backspace") << "Backspace"
                               << "12|3|| @2 0:0-2";
    QTest::newRow("Delete") << "Delete"
                            << "12|3|| @2 0:0-2";
    QTest::newRow("Left") << "Left"
                          << "12|3|| @2";
    QTest::newRow("Shift+Left") << "Shift+Left"
                                << "12|3|| @1 0:0-1";
    QTest::newRow("Shift+Right") << "Shift+Right"
                                 << "12|3|| @3 0:0-3";
    QTest::newRow("dot") << "."
                         << "12|3|| @4 0:0-2";
    QTest::newRow("Escape") << "Escape"
                            << "12|3|| @2";
}

void tst_KestIPAddressEdit::readOnlyKeys()
{
    QFETCH(QString, key);
    Edit edit(QStringLiteral("12|3|| @2 0:0-2"));
    edit.setReadOnly(true);
    typeKey(&edit, key);
    QTEST(stateOf(&edit), "after");
    QCOMPARE(edit.changed.count(), 0);
}

void tst_KestIPAddressEdit::copy_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("copied");
    QTest::newRow("nothing selected") << "192|168|| @0"
                                      << "old";
    QTest::newRow("one section") << "192|168|| @0 1:1-3"
                                 << "68";
    QTest::newRow("the first of two") << "192|168|| @0 0:0-2 1:0-3"
                                      << "19";
    QTest::newRow("past the last digit") << "1|168|| @0 0:0-3"
                                         << "1";
    QTest::newRow("an empty one first") << "192|168|| @0 0:1-1 1:0-3"
                                        << "";
}

void tst_KestIPAddressEdit::copy()
{
    QFETCH(QString, state);
    for (bool readOnly : { false, true }) {
        setClipboard(QStringLiteral("old"));
        Edit edit(state);
        edit.setReadOnly(readOnly);
        actionOf(&edit, QKeySequence::Copy)->trigger();
        QTEST(QGuiApplication::clipboard()->text(), "copied");
        QCOMPARE(stateOf(&edit), state);
        QCOMPARE(edit.changed.count(), 0);
    }
}

void tst_KestIPAddressEdit::paste_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("changes");
    const auto row = [](const char *name, const char *before, const char *text, const char *after,
                        int changes) {
        QTest::newRow(name) << QString::fromLatin1(before) << QString::fromLatin1(text)
                            << QString::fromLatin1(after) << changes;
    };
    row("nothing", "1||| @1 0:0-1", "", "1||| @1 0:0-1", 0);
    row("an address", "9|||8 @13 3:0-1", "1.2.3.4", "1|2|3|4 @13 3:0-1", 4);
    row("a bad address", "9|||8 @13 3:0-1", "1.2.3.256", "9|||8 @13 3:0-1", 0);
    row("four empty parts", "9|||8 @13", "...", "9|||8 @13", 0);
    row("into an empty section", "||| @4", "7", "|7|| @5", 1);
    row("no number", "||| @0", "ab", "ab||| @1", 1);
    row("more than one digit", "1||| @1", "10", "110||| @2", 1);
    row("before the digits", "10||| @0", "1", "110||| @1", 1);
    row("too long", "10||| @0", "12", "10||| @0", 0);
    row("too long alone", "||| @0", "1234", "||| @0", 0);
    row("three parts", "||| @0", "1.2.3", "||| @0", 0);
    row("two parts that fit", "||| @0", "1.2", "1.2||| @1", 1);
    row("too large", "99||| @2", "9", "99||| @3", 0); // the cursor moves all the same
    row("negative", "||| @0", "-1", "||| @1", 0);
    row("at the end of a full section", "255||| @3", "1", "255||| @3", 0);
    row("behind the end", "1||| @3", "2", "12||| @4", 1);
    row("over a selection", "192||| @1 0:0-2", "4", "42||| @2", 1);
    row("over a selection from its end", "192||| @3 0:1-3", "4", "14||| @3", 1);
    row("over a selection, too long", "192||| @3 0:1-2", "45", "192||| @3 0:1-2", 0);
    row("over a selection, too large", "192||| @3 0:0-1", "9", "192||| @1", 0);
    row("selected elsewhere", "192|1|| @5 0:0-2", "2", "192|12|| @6", 1);
    row("selected past the end", "1||| @3 0:2-3", "7", "1||| @3", 1);
    row("behind all", "|||1 @16", "2", "|||21 @13", 1);
    row("with a line's end", "||| @0", "7\n", "7\n||| @1", 1);
    row("too long with a line's end", "1||| @1", "23\n", "1||| @1", 0);
}

void tst_KestIPAddressEdit::paste()
{
    QFETCH(QString, before);
    QFETCH(QString, text);
    Edit edit(before);
    setClipboard(text);
    actionOf(&edit, QKeySequence::Paste)->trigger();
    QTEST(stateOf(&edit), "after");
    QTEST(int(edit.changed.count()), "changes");
    if (text == QLatin1String("ab"))
        QCOMPARE(edit.ipAddress(), QStringLiteral("ab.0.0.0"));
}

void tst_KestIPAddressEdit::readOnlyIsNotPastedInto()
{
    for (const char *text : { "1.2.3.4", "7" }) {
        Edit edit(QStringLiteral("||| @0"));
        edit.setReadOnly(true);
        setClipboard(QString::fromLatin1(text));
        actionOf(&edit, QKeySequence::Paste)->trigger();
        QCOMPARE(stateOf(&edit), QStringLiteral("||| @0"));
        QCOMPARE(edit.changed.count(), 0);
    }
    // What the clipboard holds is not even asked for.
    Edit edit;
    edit.setReadOnly(true);
    auto *offer = new Offer;
    bool asked = false;
    offer->onAsked = [&asked] { asked = true; };
    QGuiApplication::clipboard()->setMimeData(offer);
    actionOf(&edit, QKeySequence::Paste)->trigger();
    QGuiApplication::clipboard()->clear();
    QVERIFY(!asked);
}

void tst_KestIPAddressEdit::shortcutsCopyAndPaste()
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *edit = new Edit(QStringLiteral("192||| @0 0:0-3"));
    layout->addWidget(edit);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    edit->setFocus();
    QTest::keySequence(edit, QKeySequence(QKeySequence::Copy));
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("192"));
    setClipboard(QStringLiteral("1.2.3.4"));
    QTest::keySequence(edit, QKeySequence(QKeySequence::Paste));
    QCOMPARE(edit->ipAddress(), QStringLiteral("1.2.3.4"));
}

void tst_KestIPAddressEdit::clickSetsTheCursor_data()
{
    QTest::addColumn<QString>("texts");
    QTest::newRow("full") << "192|168|100|255";
    QTest::newRow("short") << "1|22||3";
    QTest::newRow("empty") << "|||";
}

void tst_KestIPAddressEdit::clickSetsTheCursor()
{
    QFETCH(QString, texts);
    Edit edit(texts + QStringLiteral(" @0"));
    const Places places(edit);
    for (int x = -5; x < edit.width() + 5; ++x) {
        int expected = x < places.rect(3).left() ? 0 : 12;
        for (int i = 0; i < 4; ++i) {
            QRect hit = places.rect(i);
            if (i < 3)
                hit.setRight(hit.right() + places.dot);
            else if (x > hit.right())
                hit.setRight(x);
            if (x < hit.left() || x > hit.right())
                continue;
            const auto layout = line(texts.split(QLatin1Char('|')).at(i), edit.font());
            const int left = originIn(places.rect(i), *layout).x();
            expected =
                4 * i + layout->lineAt(0).xToCursor(x - left, QTextLine::CursorBetweenCharacters);
        }
        sendMouse(&edit, QEvent::MouseButtonPress, QPointF(x, 10));
        QCOMPARE(recordOf(&edit)->cursorPosition, expected);
        sendMouse(&edit, QEvent::MouseButtonRelease, QPointF(x, 10));
    }
}

void tst_KestIPAddressEdit::fractionsOfPixelsAreRounded()
{
    Edit edit(QStringLiteral("111|222|| @0"));
    const Places places(edit);
    // The last pixel of the first section's dot, and the first of the second section.
    const int border = places.rect(1).left();
    sendMouse(&edit, QEvent::MouseButtonPress, QPointF(border - 0.51, 10));
    QCOMPARE(recordOf(&edit)->cursorPosition, 3);
    sendMouse(&edit, QEvent::MouseButtonPress, QPointF(border - 0.5, 10));
    QCOMPARE(recordOf(&edit)->cursorPosition, 4);
}

void tst_KestIPAddressEdit::clickClearsTheSelection()
{
    Edit edit(QStringLiteral("192|168|| @0 0:0-2 1:0-1"));
    sendMouse(&edit, QEvent::MouseButtonPress, pointOf(&edit, 5));
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|| @5"));
}

void tst_KestIPAddressEdit::clicksBesideTheSectionsAreTheirEnds()
{
    // Of a text that sticks out of its section on both sides, as wide characters do.
    Edit edit(QStringLiteral("mmmmmmmm|||1 @16"));
    const int left = Places(edit).rect(0).left();
    sendMouse(&edit, QEvent::MouseButtonPress, QPointF(left - 1, 10));
    QCOMPARE(recordOf(&edit)->cursorPosition, 0);
    sendMouse(&edit, QEvent::MouseButtonPress, QPointF(left, 10));
    QVERIFY(recordOf(&edit)->cursorPosition > 0);
    sendMouse(&edit, QEvent::MouseButtonPress, QPointF(edit.width(), 10));
    QCOMPARE(recordOf(&edit)->cursorPosition, 13);
}

void tst_KestIPAddressEdit::otherButtonsDoNothing()
{
    const QString state = QStringLiteral("192|168|| @0 0:0-2");
    Edit edit(state);
    const QPoint point = pointOf(&edit, 5);
    for (Qt::MouseButton button : { Qt::RightButton, Qt::MiddleButton }) {
        sendMouse(&edit, QEvent::MouseButtonPress, point, button);
        sendMouse(&edit, QEvent::MouseMove, pointOf(&edit, 6), button);
        sendMouse(&edit, QEvent::MouseButtonRelease, point, button);
        sendMouse(&edit, QEvent::MouseButtonDblClick, point, button);
        QCOMPARE(stateOf(&edit), state);
    }
    sendMouse(&edit, QEvent::MouseButtonPress, point, Qt::LeftButton, Qt::ControlModifier);
    sendMouse(&edit, QEvent::MouseButtonDblClick, point, Qt::LeftButton, Qt::ShiftModifier);
    QCOMPARE(stateOf(&edit), state);
    // Nor in the cursor's section.
    for (const Qt::KeyboardModifier modifier :
         { Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier }) {
        sendMouse(&edit, QEvent::MouseButtonPress, pointOf(&edit, 2), Qt::LeftButton, modifier);
        QCOMPARE(stateOf(&edit), state);
    }
}

void tst_KestIPAddressEdit::shiftClick_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("after");
    QTest::newRow("forwards") << "192|168|| @0" << 2 << "192|168|| @2 0:0-2";
    QTest::newRow("backwards") << "192|168|| @3" << 1 << "192|168|| @1 0:1-3";
    QTest::newRow("again") << "192|168|| @3 0:1-3" << 2 << "192|168|| @2 0:1-2";
    QTest::newRow("across") << "192|168|| @1 0:1-2" << 3 << "192|168|| @3 0:2-3";
    QTest::newRow("same place") << "192|168|| @1" << 1 << "192|168|| @1 0:1-1";
    QTest::newRow("another section") << "192|168|| @1" << 5 << "192|168|| @1";
    QTest::newRow("selected elsewhere") << "192|168|| @1 1:0-1" << 2 << "192|168|| @2 0:1-2 1:0-1";
}

void tst_KestIPAddressEdit::shiftClick()
{
    QFETCH(QString, before);
    QFETCH(int, position);
    Edit edit(before);
    sendMouse(&edit, QEvent::MouseButtonPress, pointOf(&edit, position), Qt::LeftButton,
              Qt::ShiftModifier);
    QTEST(stateOf(&edit), "after");
    // It is no drag.
    const QString after = stateOf(&edit);
    sendMouse(&edit, QEvent::MouseMove, pointOf(&edit, 0));
    QCOMPARE(stateOf(&edit), after);
}

void tst_KestIPAddressEdit::drag()
{
    Edit edit(QStringLiteral("192|168|| @0"));
    sendMouse(&edit, QEvent::MouseButtonPress, pointOf(&edit, 5));
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|| @5"));
    sendMouse(&edit, QEvent::MouseMove, pointOf(&edit, 7));
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|| @7 1:1-3"));
    sendMouse(&edit, QEvent::MouseMove, pointOf(&edit, 6));
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|| @6 1:1-2"));
    sendMouse(&edit, QEvent::MouseMove, pointOf(&edit, 4));
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|| @4 1:0-1"));
    sendMouse(&edit, QEvent::MouseMove, pointOf(&edit, 5));
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|| @5 1:1-1"));
    sendMouse(&edit, QEvent::MouseButtonRelease, pointOf(&edit, 5));
    QCOMPARE(edit.changed.count(), 0);
}

void tst_KestIPAddressEdit::dragStaysInItsSection()
{
    Edit edit(QStringLiteral("192|168|| @0"));
    sendMouse(&edit, QEvent::MouseButtonPress, pointOf(&edit, 1));
    sendMouse(&edit, QEvent::MouseMove, pointOf(&edit, 3));
    sendMouse(&edit, QEvent::MouseMove, pointOf(&edit, 6));
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|| @3 0:1-3"));
    sendMouse(&edit, QEvent::MouseMove, pointOf(&edit, 2));
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|| @2 0:1-2"));
}

void tst_KestIPAddressEdit::dragWithModifiersDoesNotSelect()
{
    Edit edit(QStringLiteral("192|168|| @0"));
    sendMouse(&edit, QEvent::MouseButtonPress, pointOf(&edit, 1));
    sendMouse(&edit, QEvent::MouseMove, pointOf(&edit, 3), Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|| @1"));
}

void tst_KestIPAddressEdit::moveAfterTheReleaseDoesNotSelect()
{
    Edit edit(QStringLiteral("192|168|| @0"));
    sendMouse(&edit, QEvent::MouseMove, pointOf(&edit, 3));
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|| @0"));
    sendMouse(&edit, QEvent::MouseButtonPress, pointOf(&edit, 1));
    sendMouse(&edit, QEvent::MouseButtonRelease, pointOf(&edit, 1));
    sendMouse(&edit, QEvent::MouseMove, pointOf(&edit, 3));
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|| @1"));
}

void tst_KestIPAddressEdit::mouseRepaints()
{
    Edit edit(QStringLiteral("192|168|| @0"));
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    const auto isPainted = [&edit](QEvent::Type type, int position,
                                   Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        return isPaintedFor(&edit, [&] {
            sendMouse(&edit, type, pointOf(&edit, position), Qt::LeftButton, modifiers);
        });
    };
    QVERIFY(isPainted(QEvent::MouseButtonPress, 1));
    QVERIFY(isPainted(QEvent::MouseMove, 2));
    QVERIFY(!isPainted(QEvent::MouseButtonRelease, 2));
    QVERIFY(!isPainted(QEvent::MouseMove, 3));
    QVERIFY(isPainted(QEvent::MouseButtonPress, 1, Qt::ShiftModifier));
    QVERIFY(isPainted(QEvent::MouseButtonDblClick, 5));
}

void tst_KestIPAddressEdit::releaseWithModifiersGoesOnSelecting()
{
    Edit edit(QStringLiteral("192|168|| @0"));
    sendMouse(&edit, QEvent::MouseButtonPress, pointOf(&edit, 1));
    sendMouse(&edit, QEvent::MouseButtonRelease, pointOf(&edit, 1), Qt::LeftButton,
              Qt::ShiftModifier);
    sendMouse(&edit, QEvent::MouseButtonRelease, pointOf(&edit, 1), Qt::RightButton);
    sendMouse(&edit, QEvent::MouseMove, pointOf(&edit, 3));
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|| @3 0:1-3"));
    edit.setMouseTracking(true); // so that it hears of it without a button, too
    sendMouse(&edit, QEvent::MouseMove, pointOf(&edit, 2), Qt::NoButton);
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|| @2 0:1-2"));
}

void tst_KestIPAddressEdit::mouseIsSwallowed()
{
    Edit edit(QStringLiteral("192|168|| @0"));
    for (const QEvent::Type type : { QEvent::MouseButtonPress, QEvent::MouseMove,
                                     QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick }) {
        for (const Qt::MouseButton button : { Qt::LeftButton, Qt::RightButton }) {
            QMouseEvent event(type, QPointF(5, 5), QPointF(5, 5), button, button, Qt::NoModifier);
            QCoreApplication::sendEvent(&edit, &event);
            QVERIFY(event.isAccepted());
        }
    }
}

void tst_KestIPAddressEdit::dragAfterADoubleClickDoesNotSelect()
{
    Edit edit(QStringLiteral("192|168|| @0"));
    sendMouse(&edit, QEvent::MouseButtonPress, pointOf(&edit, 1));
    sendMouse(&edit, QEvent::MouseButtonRelease, pointOf(&edit, 1));
    sendMouse(&edit, QEvent::MouseButtonDblClick, pointOf(&edit, 1));
    sendMouse(&edit, QEvent::MouseMove, pointOf(&edit, 2));
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|| @3 0:0-3"));
}

void tst_KestIPAddressEdit::doubleClick_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("after");
    QTest::newRow("full") << "192|168|| @0 0:0-1" << 5 << "192|168|| @7 1:0-3";
    QTest::newRow("short") << "192|1|| @0" << 4 << "192|1|| @5 1:0-1";
    QTest::newRow("empty") << "192|1|| @0" << 12 << "192|1|| @12 3:0-0";
}

void tst_KestIPAddressEdit::doubleClick()
{
    QFETCH(QString, before);
    QFETCH(int, position);
    Edit edit(before);
    sendMouse(&edit, QEvent::MouseButtonDblClick, pointOf(&edit, position));
    QTEST(stateOf(&edit), "after");
    const QTextCharFormat format = recordOf(&edit)->selections.at(position / 4).first().format;
    QCOMPARE(format.background(), edit.palette().highlight());
    QCOMPARE(format.foreground(), edit.palette().highlightedText());
}

void tst_KestIPAddressEdit::contextMenu_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("clipboard");
    QTest::addColumn<bool>("readOnly");
    QTest::addColumn<QStringList>("entries");
    const QStringList none;
    QTest::newRow("nothing") << "1||| @0"
                             << "" << false << none;
    QTest::newRow("copy") << "1||| @0 0:0-1"
                          << "" << false << QStringList { "Copy" };
    QTest::newRow("copy in any section") << "1||2| @0 2:0-1"
                                         << "" << false << QStringList { "Copy" };
    QTest::newRow("empty selection") << "1||| @0 0:1-1"
                                     << "" << false << none;
    QTest::newRow("paste") << "1||| @0"
                           << "x" << false << QStringList { "Paste" };
    QTest::newRow("both") << "1||| @0 0:0-1"
                          << "x" << false << QStringList { "Copy", "Paste" };
    QTest::newRow("read-only") << "1||| @0 0:0-1"
                               << "x" << true << QStringList { "Copy" };
    QTest::newRow("read-only, nothing") << "1||| @0"
                                        << "x" << true << none;
}

void tst_KestIPAddressEdit::contextMenu()
{
    QFETCH(QString, state);
    QFETCH(QString, clipboard);
    QFETCH(bool, readOnly);
    Edit edit(state);
    edit.setReadOnly(readOnly);
    setClipboard(clipboard);
    edit.move(100, 80);
    edit.show();
    QStringList entries;
    QPoint where;
    QTimer::singleShot(0, &edit, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        where = menu->pos();
        const QList<QAction *> actions = menu->actions();
        for (const QAction *action : actions)
            entries.append(action->text());
        menu->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(7, 9), edit.mapToGlobal(QPoint(7, 9)));
    QCoreApplication::sendEvent(&edit, &event);
    QCoreApplication::processEvents();
    QTEST(entries, "entries");
    if (!entries.isEmpty())
        QCOMPARE(where, edit.mapToGlobal(QPoint(7, 9)));
    QVERIFY(!edit.findChild<QMenu *>());
    QCOMPARE(edit.actions().size(), 2);
}

void tst_KestIPAddressEdit::editMayDieWhileItsMenuIsOpen()
{
    setClipboard(QStringLiteral("1"));
    auto *edit = new Edit;
    edit->show();
    QTimer::singleShot(0, qApp, [edit] { delete edit; });
    QMetaObject::invokeMethod(edit, "onCustomContextMenuRequested", Q_ARG(QPoint, QPoint(1, 1)));
    QVERIFY(!QApplication::activePopupWidget());
}

void tst_KestIPAddressEdit::focusIn()
{
    Edit edit(QStringLiteral("1||| @0 0:0-1"));
    sendFocus(&edit, QEvent::FocusIn, Qt::TabFocusReason);
    QVERIFY(recordOf(&edit)->cursorVisible);
    QVERIFY(recordOf(&edit)->blinkTimer.isActive());
    QCOMPARE(stateOf(&edit), QStringLiteral("1||| @0 0:0-1"));
    QCOMPARE(edit.finished.count(), 0);
}

void tst_KestIPAddressEdit::focusOut_data()
{
    QTest::addColumn<Qt::FocusReason>("reason");
    QTest::addColumn<bool>("selected");
    QTest::newRow("Tab") << Qt::TabFocusReason << false;
    QTest::newRow("mouse") << Qt::MouseFocusReason << false;
    QTest::newRow("another window") << Qt::ActiveWindowFocusReason << false;
    QTest::newRow("menu") << Qt::PopupFocusReason << true;
    QTest::newRow("menu bar") << Qt::MenuBarFocusReason << true;
}

void tst_KestIPAddressEdit::focusOut()
{
    QFETCH(Qt::FocusReason, reason);
    QFETCH(bool, selected);
    Edit edit(QStringLiteral("1||| @1 0:0-1"));
    sendFocus(&edit, QEvent::FocusIn, Qt::OtherFocusReason);
    sendFocus(&edit, QEvent::FocusOut, reason);
    QVERIFY(!recordOf(&edit)->cursorVisible);
    QVERIFY(!recordOf(&edit)->blinkTimer.isActive());
    QCOMPARE(stateOf(&edit),
             selected ? QStringLiteral("1||| @1 0:0-1") : QStringLiteral("1||| @1"));
    QCOMPARE(edit.finished.count(), 1);
    QCOMPARE(edit.changed.count(), 0);
}

void tst_KestIPAddressEdit::focusChangesRepaint()
{
    QWidget window;
    auto *edit = new Edit(QStringLiteral("1||| @0"), &window);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    recordOf(edit)->blinkTimer.setInterval(100000);
    edit->clearFocus();
    QCoreApplication::processEvents();
    PaintCounter paints(edit);
    sendFocus(edit, QEvent::FocusIn, Qt::OtherFocusReason);
    QCoreApplication::processEvents();
    QCOMPARE(paints.count, 1);
    sendFocus(edit, QEvent::FocusOut, Qt::OtherFocusReason);
    QCoreApplication::processEvents();
    QCOMPARE(paints.count, 2);
}

void tst_KestIPAddressEdit::cursorBlinks()
{
    Edit edit;
    sendFocus(&edit, QEvent::FocusIn, Qt::OtherFocusReason);
    QTimer &timer = recordOf(&edit)->blinkTimer;
    timer.setInterval(100000); // only by hand
    for (bool visible : { false, true, false }) {
        QTimerEvent event(timer.timerId());
        QCoreApplication::sendEvent(&timer, &event);
        QCOMPARE(recordOf(&edit)->cursorVisible, visible);
    }
    // Keys leave the phase alone.
    typeKey(&edit, QStringLiteral("1"));
    QVERIFY(!recordOf(&edit)->cursorVisible);
}

void tst_KestIPAddressEdit::blinkRepaintsTheCursorAlone_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<int>("ascent"); // of the text, compared with the font
    for (const char *state :
         { "192|168|0|1 @0", "192|168|0|1 @3", "192|168|0|1 @6", "||| @8", "1|22|133|244 @15" }) {
        QTest::addRow("%s", state) << QString::fromLatin1(state) << Qt::LeftToRight << 0;
        QTest::addRow("%s, right to left", state)
            << QString::fromLatin1(state) << Qt::RightToLeft << 0;
        QTest::addRow("%s, higher", state) << QString::fromLatin1(state) << Qt::LeftToRight << 3;
    }
}

void tst_KestIPAddressEdit::blinkRepaintsTheCursorAlone()
{
    QFETCH(QString, state);
    QFETCH(Qt::LayoutDirection, direction);
    class PaintedRegion : public QObject
    {
    public:
        QRegion region;
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::Paint)
                region += static_cast<QPaintEvent *>(event)->region();
            return false;
        }
    };
    QWidget window;
    window.setLayoutDirection(direction);
    auto *edit = new Edit(state, &window);
    window.resize(edit->size());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    edit->setFocus();
    setState(edit, state);
    QFETCH(int, ascent);
    recordOf(edit)->cursorAscentOffset = ascent;
    QTimer &timer = recordOf(edit)->blinkTimer;
    timer.setInterval(100000); // only by hand
    QCoreApplication::processEvents();
    const QImage before = rendered(edit);

    PaintedRegion painted;
    edit->installEventFilter(&painted);
    QTimerEvent event(timer.timerId());
    QCoreApplication::sendEvent(&timer, &event);
    QTRY_VERIFY(!painted.region.isEmpty());
    edit->removeEventFilter(&painted);
    // The cursor, and a pixel around it.
    const int position = recordOf(edit)->cursorPosition;
    const auto layout = line(recordOf(edit)->text(position / 4), edit->font());
    const QPoint origin = originIn(Places(*edit).rect(position / 4), *layout);
    const QRectF cursor(origin.x() + layout->lineAt(0).cursorToX(position % 4), origin.y() + ascent,
                        1, layout->lineAt(0).height());
    const QRect area = painted.region.boundingRect();
    QCOMPARE(area, cursor.toAlignedRect().adjusted(-1, -1, 1, 1) & edit->rect());

    const QImage after = rendered(edit);
    QVERIFY(after != before);
    for (int y = 0; y < after.height(); ++y) {
        for (int x = 0; x < after.width(); ++x) {
            if (!area.contains(x, y))
                QCOMPARE(after.pixel(x, y), before.pixel(x, y));
        }
    }
}

void tst_KestIPAddressEdit::zeroFlashTimeBlinksOnEveryPass()
{
    const int before = QApplication::cursorFlashTime();
    QApplication::setCursorFlashTime(0);
    Edit edit;
    QApplication::setCursorFlashTime(before);
    QCOMPARE(recordOf(&edit)->blinkTimer.interval(), 0);
    sendFocus(&edit, QEvent::FocusIn, Qt::OtherFocusReason);
    QCoreApplication::processEvents();
    const bool first = recordOf(&edit)->cursorVisible;
    QCoreApplication::processEvents();
    QCOMPARE(recordOf(&edit)->cursorVisible, !first);
}

void tst_KestIPAddressEdit::returnFinishesEditing()
{
    Edit edit(QStringLiteral("1||| @1 0:0-1"));
    for (int key : { Qt::Key_Return, Qt::Key_Enter })
        QTest::keyClick(&edit, Qt::Key(key));
    QCOMPARE(edit.finished.count(), 2);
    QTest::keyClick(&edit, Qt::Key_Enter, Qt::KeypadModifier);
    QTest::keyClick(&edit, Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(edit.finished.count(), 4);
    edit.finished.clear();
    for (int key : { Qt::Key_Return, Qt::Key_Enter })
        QTest::keyClick(&edit, Qt::Key(key));
    // What writes a dot is a dot.
    QTest::sendKeyEvent(QTest::Press, &edit, Qt::Key_Enter, QStringLiteral("."), Qt::NoModifier);
    QCOMPARE(edit.finished.count(), 2);
    QCOMPARE(stateOf(&edit), QStringLiteral("1||| @4 0:0-1"));
    setState(&edit, QStringLiteral("1||| @1 0:0-1"));
    edit.setReadOnly(true);
    QTest::keyClick(&edit, Qt::Key_Return);
    QCOMPARE(edit.finished.count(), 3);
    QCOMPARE(edit.changed.count(), 0);
    QCOMPARE(stateOf(&edit), QStringLiteral("1||| @1 0:0-1"));
}

void tst_KestIPAddressEdit::returnMayDeleteTheEdit()
{
    for (QEvent::Type type : { QEvent::KeyPress, QEvent::FocusOut }) {
        const QPointer<KestIPAddressEdit> edit(new KestIPAddressEdit);
        connect(edit, &KestIPAddressEdit::editingFinished, qApp, [edit] { delete edit; });
        if (type == QEvent::KeyPress) {
            QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
            static_cast<QObject *>(edit)->event(&event);
        } else {
            QFocusEvent event(QEvent::FocusOut);
            static_cast<QObject *>(edit)->event(&event);
        }
        QVERIFY(edit.isNull());
    }
}

void tst_KestIPAddressEdit::changeMayDeleteTheEdit_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("what");
    QTest::newRow("digit") << "1||| @1"
                           << "5";
    QTest::newRow("digit over a selection") << "1|2|| @1 0:0-1 1:0-1"
                                            << "5";
    QTest::newRow("Backspace") << "1||| @1"
                               << "Backspace";
    QTest::newRow("Backspace, selection") << "1|2|| @1 0:0-1 1:0-1"
                                          << "Backspace";
    QTest::newRow("Backspace over a dot") << "1||| @4"
                                          << "Backspace";
    QTest::newRow("Delete") << "1||| @0"
                            << "Delete";
    QTest::newRow("Delete, selection") << "1|2|| @1 0:0-1 1:0-1"
                                       << "Delete";
    QTest::newRow("paste") << "1||| @0"
                           << "paste 2";
    QTest::newRow("paste an address") << "1||| @0"
                                      << "paste 1.2.3.4";
    QTest::newRow("set by the program") << "1||| @0"
                                        << "set";
}

void tst_KestIPAddressEdit::changeMayDeleteTheEdit()
{
    QFETCH(QString, state);
    QFETCH(QString, what);
    const QPointer<KestIPAddressEdit> edit(new KestIPAddressEdit);
    setState(edit, state);
    connect(edit, &KestIPAddressEdit::editChanged, qApp, [edit] { delete edit; });
    if (what == QLatin1String("set")) {
        edit->setIPAddress(QStringLiteral("1.2.3.4"));
    } else if (what.startsWith(QLatin1String("paste "))) {
        setClipboard(what.mid(6));
        actionOf(edit, QKeySequence::Paste)->trigger();
    } else {
        const int key = QKeySequence::fromString(what)[0];
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, what);
        static_cast<QObject *>(edit)->event(&event);
    }
    QVERIFY(edit.isNull());
}

void tst_KestIPAddressEdit::announcementMayDeleteTheEdit_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("what");
    QTest::addColumn<int>("announcement"); // the one that it dies in
    const auto row = [](const char *state, const char *what, int announcements) {
        for (int i = 0; i < announcements; ++i) {
            QTest::addRow("%s at %s, %d", what, state, i)
                << QString::fromLatin1(state) << QString::fromLatin1(what) << i;
        }
    };
    row("1||| @1", "5", 2);
    row("1|2|| @1 0:0-1 1:0-1", "5", 6);
    row("1||| @1", "Backspace", 2);
    row("1|2|| @1 0:0-1 1:0-1", "Backspace", 4);
    row("1||| @4", "Backspace", 2);
    row("1||| @0", "Delete", 1);
    row("1||| @1", "Left", 1);
    row("1||| @0", "Right", 1);
    row("1||| @1", ".", 1);
    row("1||| @0", "Shift+Right", 2);
    row("1||| @1", "Shift+Left", 2);
    row("1||| @0", "paste 2", 2);
    row("1||| @0", "paste 1.2.3.4", 3);
    row("1||| @0", "set", 3);
    row("1||| @0", "press", 1);
    row("1||| @0", "drag", 3);
    row("1||| @0", "shift press", 2);
    row("1||| @0", "double click", 2);
    row("1||| @1 0:0-1", "Return", 1);
    row("1||| @0", "read-only", 1);
    row("1||| @0", "move", 1);
    row("1||| @0", "select", 2);
    row("1||| @0", "deselect", 3);
    row("1||| @0", "select and leave", 3);
    row("1||| @0", "select and Escape", 3);
    row("1||| @0", "value", 3);
    row("1||| @0", "replace", 3);
}

void tst_KestIPAddressEdit::announcementMayDeleteTheEdit()
{
    QFETCH(QString, state);
    QFETCH(QString, what);
    QFETCH(int, announcement);
    const QPointer<KestIPAddressEdit> edit(new KestIPAddressEdit);
    edit->resize(edit->sizeHint());
    setState(edit, state);
    QAccessibleInterface *const face = QAccessible::queryAccessibleInterface(edit);
    Announcements reader;
    int left = announcement;
    reader.onEach([&] {
        if (left-- == 0)
            delete edit;
    });
    const QPointF point(pointOf(edit, 1));
    if (what == QLatin1String("set")) {
        edit->setIPAddress(QStringLiteral("1.2.3.4"));
    } else if (what == QLatin1String("press")) {
        sendMouse(edit, QEvent::MouseButtonPress, point);
    } else if (what == QLatin1String("drag")) {
        sendMouse(edit, QEvent::MouseButtonPress, pointOf(edit, 0));
        if (edit)
            sendMouse(edit, QEvent::MouseMove, point);
    } else if (what == QLatin1String("shift press")) {
        sendMouse(edit, QEvent::MouseButtonPress, point, Qt::LeftButton, Qt::ShiftModifier);
    } else if (what == QLatin1String("double click")) {
        sendMouse(edit, QEvent::MouseButtonDblClick, point);
    } else if (what == QLatin1String("read-only")) {
        edit->setReadOnly(true);
    } else if (what == QLatin1String("move")) {
        face->textInterface()->setCursorPosition(1);
    } else if (what == QLatin1String("select")) {
        face->textInterface()->setSelection(0, 0, 1);
    } else if (what == QLatin1String("deselect")) {
        face->textInterface()->setSelection(0, 0, 1);
        if (edit)
            face->textInterface()->removeSelection(0);
    } else if (what == QLatin1String("select and leave")) {
        face->textInterface()->setSelection(0, 0, 1);
        QFocusEvent out(QEvent::FocusOut);
        if (edit)
            QCoreApplication::sendEvent(edit, &out);
    } else if (what == QLatin1String("select and Escape")) {
        face->textInterface()->setSelection(0, 0, 1);
        if (edit)
            typeKey(edit, QStringLiteral("Escape"));
    } else if (what == QLatin1String("replace")) {
        face->editableTextInterface()->replaceText(0, 7, QStringLiteral("1.2.3.4"));
    } else if (what == QLatin1String("value")) {
        face->setText(QAccessible::Value, QStringLiteral("1.2.3.4"));
    } else if (what.startsWith(QLatin1String("paste "))) {
        setClipboard(what.mid(6));
        actionOf(edit, QKeySequence::Paste)->trigger();
    } else {
        const int code = QKeySequence::fromString(what)[0];
        QKeyEvent event(QEvent::KeyPress, code & ~Qt::KeyboardModifierMask,
                        Qt::KeyboardModifiers(code & Qt::KeyboardModifierMask), what);
        static_cast<QObject *>(edit)->event(&event);
    }
    QVERIFY(edit.isNull());
    QCOMPARE(reader.take().size(), announcement + 1);
}

void tst_KestIPAddressEdit::clipboardMayDeleteTheEdit_data()
{
    QTest::addColumn<bool>("menu");
    QTest::newRow("paste") << false;
    QTest::newRow("menu") << true;
}

void tst_KestIPAddressEdit::clipboardMayDeleteTheEdit()
{
    QFETCH(bool, menu);
    const QPointer<KestIPAddressEdit> edit(new KestIPAddressEdit);
    auto *offer = new Offer;
    offer->onAsked = [edit] { delete edit; };
    QGuiApplication::clipboard()->setMimeData(offer);
    if (menu)
        QMetaObject::invokeMethod(edit, "onCustomContextMenuRequested", Q_ARG(QPoint, QPoint()));
    else
        actionOf(edit, QKeySequence::Paste)->trigger();
    QVERIFY(edit.isNull());
    QGuiApplication::clipboard()->clear();
}

void tst_KestIPAddressEdit::clipboardMayMakeTheEditReadOnly()
{
    Edit edit(QStringLiteral("1||| @1"));
    auto *offer = new Offer;
    offer->onAsked = [&edit] { edit.setReadOnly(true); };
    QGuiApplication::clipboard()->setMimeData(offer);
    actionOf(&edit, QKeySequence::Paste)->trigger();
    QVERIFY(edit.isReadOnly());
    QCOMPARE(stateOf(&edit), QStringLiteral("1||| @1"));
    QCOMPARE(edit.changed.count(), 0);
    QGuiApplication::clipboard()->clear();
}

void tst_KestIPAddressEdit::newAddressesRepaint()
{
    Edit edit(QStringLiteral("1||| @1"));
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    recordOf(&edit)->blinkTimer.stop();
    QCoreApplication::processEvents();
    PaintCounter paints(&edit);
    for (const QString &text : { QStringLiteral("7"), QStringLiteral("1.2.3.4") }) {
        paints.count = 0;
        setClipboard(text);
        actionOf(&edit, QKeySequence::Paste)->trigger();
        QCoreApplication::processEvents();
        QCOMPARE(paints.count, 1);
    }
    paints.count = 0;
    edit.setIPAddress(QStringLiteral("5.6.7.8"));
    QCoreApplication::processEvents();
    QCOMPARE(paints.count, 1);
}

void tst_KestIPAddressEdit::readOnlyRepaints()
{
    Edit edit;
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    for (const bool readOnly : { true, true, false, false })
        QVERIFY(isPaintedFor(&edit, [&edit, readOnly] { edit.setReadOnly(readOnly); }));
}

void tst_KestIPAddressEdit::styleMayDeleteTheEdit_data()
{
    QTest::addColumn<bool>("metric");
    QTest::addColumn<QString>("what");
    for (const char *what : { "hint", "press", "move", "double click", "character", "offset" }) {
        QTest::addRow("%s, metric", what) << true << QString::fromLatin1(what);
        if (qstrcmp(what, "hint") != 0)
            QTest::addRow("%s, rectangle", what) << false << QString::fromLatin1(what);
    }
}

void tst_KestIPAddressEdit::styleMayDeleteTheEdit()
{
    class Style : public QProxyStyle
    {
    public:
        mutable QPointer<QWidget> inMetric;
        mutable QPointer<QWidget> inRect;
        int pixelMetric(PixelMetric metric, const QStyleOption *option,
                        const QWidget *widget) const override
        {
            if (inMetric && widget == inMetric) {
                delete inMetric;
                return 1;
            }
            return QProxyStyle::pixelMetric(metric, option, widget);
        }
        QRect subElementRect(SubElement element, const QStyleOption *option,
                             const QWidget *widget) const override
        {
            if (inRect && widget == inRect) {
                delete inRect;
                return QRect(0, 0, 10, 10);
            }
            return QProxyStyle::subElementRect(element, option, widget);
        }
    } style;
    QFETCH(bool, metric);
    QFETCH(QString, what);
    const QPointer<KestIPAddressEdit> edit(new KestIPAddressEdit);
    edit->setStyle(&style);
    edit->resize(edit->sizeHint());
    QAccessibleTextInterface *const text =
        QAccessible::queryAccessibleInterface(edit)->textInterface();
    const QPoint point = pointOf(edit, 1);
    const QPoint global = edit->mapToGlobal(point);
    if (what == QLatin1String("move"))
        sendMouse(edit, QEvent::MouseButtonPress, point);
    (metric ? style.inMetric : style.inRect) = edit.data();
    if (what == QLatin1String("hint"))
        QCOMPARE(edit->minimumSizeHint(), QSize());
    else if (what == QLatin1String("press"))
        sendMouse(edit, QEvent::MouseButtonPress, point);
    else if (what == QLatin1String("move"))
        sendMouse(edit, QEvent::MouseMove, point);
    else if (what == QLatin1String("double click"))
        sendMouse(edit, QEvent::MouseButtonDblClick, point);
    else if (what == QLatin1String("character"))
        QCOMPARE(text->characterRect(0), QRect());
    else
        QCOMPARE(text->offsetAtPoint(global), -1);
    QVERIFY(edit.isNull());
}

void tst_KestIPAddressEdit::readOnlyEffects()
{
    class Counter : public QObject
    {
    public:
        int count = 0;
        bool eventFilter(QObject *, QEvent *event) override
        {
            count += event->type() == QEvent::ReadOnlyChange;
            return false;
        }
    } counter;
    Edit edit;
    edit.installEventFilter(&counter);
    edit.setReadOnly(true);
    QVERIFY(edit.isReadOnly());
    QVERIFY(!edit.testAttribute(Qt::WA_InputMethodEnabled));
    QVERIFY(!edit.testAttribute(Qt::WA_MacShowFocusRect));
    QCOMPARE(edit.cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(counter.count, 1);
    QStyleOptionFrame option;
    edit.initStyleOption(&option);
    QVERIFY(option.state & QStyle::State_ReadOnly);
    QVERIFY(option.state & QStyle::State_Sunken);
    edit.setReadOnly(false);
    QCOMPARE(edit.cursor().shape(), Qt::IBeamCursor);
    QVERIFY(edit.testAttribute(Qt::WA_InputMethodEnabled));
    QCOMPARE(counter.count, 2);
    edit.initStyleOption(&option);
    QVERIFY(!(option.state & QStyle::State_ReadOnly));
}

void tst_KestIPAddressEdit::readOnlyPolishesOnlyForStyleSheets()
{
    const auto polishes = [](RecordingStyle &style, QWidget *edit,
                             const std::function<void()> &set) {
        style.polished.clear();
        style.unpolished.clear();
        set();
        const int count = style.polished.count(edit);
        return count == style.unpolished.count(edit) ? count : -1;
    };
    RecordingStyle style;
    QWidget window;
    window.setStyle(&style);
    Edit edit(QStringLiteral("||| @0"), &window);
    edit.setStyle(&style);
    window.show();
    const auto writable = [&edit] { edit.setReadOnly(false); };
    const auto readOnly = [&edit] { edit.setReadOnly(true); };
    QCOMPARE(polishes(style, &edit, readOnly), 0);
    QCOMPARE(polishes(style, &edit, writable), 0);

    edit.setStyle(nullptr);
    QCOMPARE(edit.style(), QApplication::style());
    edit.setStyle(&style);
    // Of the edit, or of what it is in.
    for (QWidget *sheeted : { static_cast<QWidget *>(&edit), &window }) {
        sheeted->setStyleSheet(
            QStringLiteral("KestIPAddressEdit[readOnly=\"true\"] { color: red }"));
        QCOMPARE(polishes(style, &edit, readOnly), 1);
        QCOMPARE(edit.palette().color(QPalette::Text), QColor(Qt::red));
        QCOMPARE(polishes(style, &edit, readOnly), 0); // no change
        QCOMPARE(polishes(style, &edit, writable), 1);
        QVERIFY(edit.palette().color(QPalette::Text) != QColor(Qt::red));
        QCOMPARE(polishes(style, &edit, writable), 0);
        sheeted->setStyleSheet(QString());
        QCOMPARE(polishes(style, &edit, readOnly), 0);
        QCOMPARE(polishes(style, &edit, writable), 0);
    }

    // The events come in any case.
    int changes = 0;
    class Filter : public QObject
    {
    public:
        explicit Filter(int *changes) : m_changes(changes) { }
        bool eventFilter(QObject *, QEvent *event) override
        {
            *m_changes += event->type() == QEvent::ReadOnlyChange ? 1 : 0;
            return false;
        }

    private:
        int *m_changes;
    } filter(&changes);
    edit.installEventFilter(&filter);
    Announcements reader;
    edit.setReadOnly(false);
    QCOMPARE(changes, 1);
    QCOMPARE(reader.take(), QStringList({ QStringLiteral("read-only") }));
}

namespace {

// Calls back where making an edit read-only leaves it.
class ReadOnlyProbe : public QObject
{
public:
    ReadOnlyProbe(QEvent::Type type, const std::function<void()> &action)
        : m_type(type), m_action(action)
    { }

    bool eventFilter(QObject *, QEvent *event) override
    {
        const bool acts = event->type() == m_type && m_action;
        if (acts)
            std::exchange(m_action, nullptr)();
        return acts; // as Qt wants it where the receiver may be gone
    }

private:
    QEvent::Type m_type;
    std::function<void()> m_action;
};

class PolishProbe : public QProxyStyle
{
public:
    std::function<void()> onPolish;
    std::function<void()> onUnpolish;

    using QProxyStyle::polish;
    using QProxyStyle::unpolish;
    void polish(QWidget *widget) override
    {
        QProxyStyle::polish(widget);
        if (onPolish && qobject_cast<KestIPAddressEdit *>(widget))
            std::exchange(onPolish, nullptr)();
    }
    void unpolish(QWidget *widget) override
    {
        QProxyStyle::unpolish(widget);
        if (onUnpolish && qobject_cast<KestIPAddressEdit *>(widget))
            std::exchange(onUnpolish, nullptr)();
    }
};

void addReadOnlyRows()
{
    QTest::addColumn<int>("where");
    QTest::newRow("cursor") << int(QEvent::CursorChange);
    QTest::newRow("read-only") << int(QEvent::ReadOnlyChange);
    QTest::newRow("unpolished") << int(QEvent::PolishRequest);
    QTest::newRow("polished") << int(QEvent::Polish);
}

} // namespace

void tst_KestIPAddressEdit::readOnlyMayDeleteTheEdit_data()
{
    // Not in polish(): the style sheet's style goes on with the widget.
    QTest::addColumn<int>("where");
    QTest::newRow("cursor") << int(QEvent::CursorChange);
    QTest::newRow("read-only") << int(QEvent::ReadOnlyChange);
    QTest::newRow("unpolished") << int(QEvent::PolishRequest);
}

void tst_KestIPAddressEdit::readOnlyMayDeleteTheEdit()
{
    QFETCH(int, where);
    PolishProbe style;
    const QPointer<KestIPAddressEdit> edit(new KestIPAddressEdit);
    edit->setStyle(&style);
    edit->setStyleSheet(QStringLiteral("KestIPAddressEdit { color: red }"));
    edit->ensurePolished();
    const auto end = [edit] { delete edit; };
    ReadOnlyProbe probe(QEvent::Type(where), end);
    edit->installEventFilter(&probe);
    if (where == QEvent::PolishRequest)
        style.onUnpolish = end;
    edit->setReadOnly(true);
    QVERIFY(edit.isNull());
}

void tst_KestIPAddressEdit::newerReadOnlyWins_data()
{
    addReadOnlyRows();
}

void tst_KestIPAddressEdit::newerReadOnlyWins()
{
    QFETCH(int, where);
    PolishProbe style;
    Edit edit;
    edit.setStyle(&style);
    edit.setStyleSheet(QStringLiteral("KestIPAddressEdit[readOnly=\"true\"] { color: red }"));
    edit.ensurePolished();
    const auto back = [&edit] { edit.setReadOnly(false); };
    ReadOnlyProbe probe(QEvent::Type(where), back);
    edit.installEventFilter(&probe);
    if (where == QEvent::PolishRequest)
        style.onUnpolish = back;
    else if (where == QEvent::Polish)
        style.onPolish = back;
    edit.setReadOnly(true);
    QVERIFY(!edit.isReadOnly());
    QCOMPARE(edit.cursor().shape(), Qt::IBeamCursor);
    QVERIFY(edit.testAttribute(Qt::WA_InputMethodEnabled));
    QVERIFY(edit.palette().color(QPalette::Text) != QColor(Qt::red));
}

void tst_KestIPAddressEdit::inputMethods()
{
    Edit edit;
    for (bool readOnly : { false, true }) {
        edit.setReadOnly(readOnly);
        QInputMethodEvent event;
        event.setCommitString(QStringLiteral("1"));
        QCoreApplication::sendEvent(&edit, &event);
        QCOMPARE(event.isAccepted(), !readOnly);
        QCOMPARE(stateOf(&edit), QStringLiteral("||| @0"));
    }
    QCOMPARE(edit.inputMethodQuery(Qt::ImEnabled), QVariant(false));
    QCOMPARE(edit.inputMethodQuery(Qt::ImFont),
             static_cast<QWidget &>(edit).QWidget::inputMethodQuery(Qt::ImFont));
}

void tst_KestIPAddressEdit::sizeHints()
{
    Edit edit;
    edit.setContentsMargins(1, 2, 3, 4);
    QFont font = edit.font();
    font.setPointSize(17);
    edit.setFont(font);
    const QFontMetrics metrics(font);
    QStyleOptionFrame option;
    edit.initStyleOption(&option);
    for (const int margin : { 1, 5, 0 }) {
        recordOf(&edit)->verticalMargin = margin;
        const QSize contents(metrics.boundingRect(RoomOfAddress).width() + 4,
                             metrics.height() + qMax(metrics.leading(), 2 * margin) + 6);
        const QSize expected =
            edit.style()->sizeFromContents(QStyle::CT_LineEdit, &option, contents, &edit);
        QCOMPARE(edit.minimumSizeHint(), expected);
        QCOMPARE(edit.sizeHint(), expected);
    }
    QCOMPARE(option.rect, edit.contentsRect());
    QCOMPARE(option.lineWidth, edit.style()->pixelMetric(QStyle::PM_DefaultFrameWidth));
    QCOMPARE(option.midLineWidth, 0);
    option.midLineWidth = 3; // of what it was used for before
    edit.initStyleOption(&option);
    QCOMPARE(option.midLineWidth, 0);
}

void tst_KestIPAddressEdit::hintOfANewEditCountsTheSheet()
{
    QWidget window;
    window.setStyleSheet(QStringLiteral("* { font-size: 40px }"));
    const KestIPAddressEdit edit(&window);
    QVERIFY(edit.minimumSizeHint().height() >= 40);
}

void tst_KestIPAddressEdit::sectionsArePacked()
{
    Edit edit(QStringLiteral("192|168|100|255 @0"));
    edit.resize(edit.width() + 200, edit.height());
    const Places places(edit);
    for (int i = 0; i < 4; ++i) {
        const QPoint first = pointOf(&edit, 4 * i);
        const auto layout = line(edit.ipAddress().split(QLatin1Char('.')).at(i), edit.font());
        QCOMPARE(first.x(), originIn(places.rect(i), *layout).x());
        QVERIFY(places.rect(i).contains(QPoint(first.x(), places.rect(i).top())));
    }
    QVERIFY(places.rect(3).right() < edit.width() - 200);
}

void tst_KestIPAddressEdit::editWithoutFrameHasNoLine()
{
    Edit edit;
    recordOf(&edit)->frame = false;
    QStyleOptionFrame option;
    edit.initStyleOption(&option);
    QCOMPARE(option.lineWidth, 0);
}

void tst_KestIPAddressEdit::invalidContentsRectIsReplaced()
{
    class NoContents : public QProxyStyle
    {
    public:
        QRect subElementRect(SubElement element, const QStyleOption *option,
                             const QWidget *widget) const override
        {
            return element == SE_LineEditContents
                ? QRect(QPoint(7, 9), QSize(-5, -5))
                : QProxyStyle::subElementRect(element, option, widget);
        }
    } style;
    Edit edit(QStringLiteral("192|168|100|255 @0"));
    edit.setStyle(&style);
    for (const int height : { 60, 61 }) {
        edit.resize(300, height);
        const auto layout = line(QStringLiteral("192"), edit.font());
        const int width = QFontMetrics(edit.font()).boundingRect(RoomOfSection).width();
        const QRect section(0, 0, width, height);
        QCOMPARE(pointOf(&edit, 0).x(), originIn(section, *layout).x());
        const QRect text(originIn(section, *layout), layout->boundingRect().size().toSize());
        QCOMPARE(pointOf(&edit, 0).y(), text.center().y());
    }
    edit.setStyle(nullptr);
}

void tst_KestIPAddressEdit::fontChangeLaysOutAnew()
{
    Edit edit(QStringLiteral("192|168|100|255 @0"));
    const QRectF before = recordOf(&edit)->layouts[0].boundingRect();
    QFont font = edit.font();
    font.setPointSize(30);
    edit.setFont(font);
    const QRectF after = recordOf(&edit)->layouts[0].boundingRect();
    QCOMPARE(after, line(QStringLiteral("192"), font)->boundingRect());
    QVERIFY(after.width() > before.width());
}

void tst_KestIPAddressEdit::changesOfTheFontMoveTheSections()
{
    const QStringList texts { QStringLiteral("192"), QStringLiteral("16"), QStringLiteral("100"),
                              QStringLiteral("255") };
    const QString family = QStringLiteral("Nowhere");
    Edit edit(texts.join(QLatin1Char('|')) + QStringLiteral(" @0"));
    edit.resize(700, 60);
    QCOMPARE(rendered(&edit), expectedLook(edit, texts, -1, -4));
    const QVector<std::function<void()>> changes {
        [&] { edit.setFont(QFont(edit.font().family(), 21)); },
        [&] { edit.setFont(QFont(family, 21)); },
        [&] { edit.setStyleSheet(QStringLiteral("* { font-size: 9px; font-style: italic; }")); },
        [&] { edit.setLayoutDirection(Qt::RightToLeft); },
        [&] { edit.setStyleSheet(QString()); },
    };
    for (int i = 0; i < changes.size(); ++i) {
        changes.at(i)();
        // Which of the two comes first.
        if (i % 2 == 0)
            sendMouseAt(&edit, 0);
        for (const qreal ratio : { 1.0, 1.5 }) {
            QVERIFY2(rendered(&edit, ratio) == expectedLook(edit, texts, -1, -4, ratio),
                     qPrintable(QString::number(i)));
        }
    }
    // What is known of a font is not measured again.
    KestIPAddressEditPrivate *d = recordOf(&edit);
    const int before = d->widths(edit.fontMetrics()).section;
    d->knownWidths.section = before + 1;
    QCOMPARE(d->widths(edit.fontMetrics()).section, before + 1);
    // A font of that name comes, or its stand-in goes.
    QFont::insertSubstitution(family, otherFamily(family));
    QFontCache::instance()->clear();
    Q_EMIT qGuiApp->fontDatabaseChanged();
    const int after = d->widths(edit.fontMetrics()).section;
    QCOMPARE(after, Places(edit).section);
    QVERIFY(after != before);
    QCOMPARE(d->widths(edit.fontMetrics()).dot, Places(edit).dot);
}

void tst_KestIPAddressEdit::look_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("readOnly");
    QTest::addColumn<bool>("cursor");
    QTest::addColumn<qreal>("ratio");
    for (const qreal ratio : { 1.0, 1.25, 1.5, 2.0 }) {
        const auto row = [ratio](const char *name, const char *state, bool enabled, bool readOnly,
                                 bool cursor) {
            QTest::newRow(qPrintable(QStringLiteral("%1, %2").arg(QLatin1String(name)).arg(ratio)))
                << QString::fromLatin1(state) << enabled << readOnly << cursor << ratio;
        };
        row("full", "192|168|100|255 @0", true, false, false);
        row("short", "1|22||3 @0", true, false, false);
        row("empty", "||| @0", true, false, false);
        row("selection", "192|168|| @7 1:0-3", true, false, false);
        row("cursor", "192|168|1| @6", true, false, true);
        row("cursor in an empty section", "192|168|1| @12", true, false, true);
        row("disabled", "192|168|1|1 @0", false, false, false);
        row("read-only", "192|168|1|1 @0", true, true, false);
    }
}

void tst_KestIPAddressEdit::look()
{
    QFETCH(QString, state);
    QFETCH(bool, enabled);
    QFETCH(bool, readOnly);
    QFETCH(bool, cursor);
    QFETCH(qreal, ratio);
    QWidget window;
    auto *edit = new Edit(state, &window);
    edit->setEnabled(enabled);
    edit->setReadOnly(readOnly);
    window.resize(edit->size());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    if (cursor)
        edit->setFocus();
    else
        edit->clearFocus();
    setState(edit, state); // the loss of the focus has cleared the selection
    recordOf(edit)->cursorVisible = cursor;
    recordOf(edit)->blinkTimer.stop();
    const QStringList parts = state.split(QLatin1Char(' '));
    const int selected = parts.size() > 2 ? parts.at(2).at(0).digitValue() : -1;
    const QImage expected = expectedLook(*edit, parts.at(0).split(QLatin1Char('|')), selected,
                                         cursor ? recordOf(edit)->cursorPosition : -4, ratio);
    QCOMPARE(largestDifference(rendered(edit, ratio), expected), 0);
}

void tst_KestIPAddressEdit::cursorIsDrawnOnlyWhileVisible()
{
    QWidget window;
    auto *edit = new Edit(QStringLiteral("192||| @0"), &window);
    window.resize(edit->size());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    edit->setFocus();
    KestIPAddressEditPrivate *d = recordOf(edit);
    d->blinkTimer.stop();
    d->cursorVisible = false;
    const QImage hidden = rendered(edit);
    d->cursorVisible = true;
    const QImage shown = rendered(edit);
    QVERIFY(shown != hidden);
    // The cursor is a line of one pixel at the text's left end.
    const QPoint at = pointOf(edit, 0);
    QVERIFY(shown.pixel(at) != hidden.pixel(at));
    edit->clearFocus();
    const QImage unfocused = rendered(edit);
    d->cursorVisible = true;
    QCOMPARE(rendered(edit), unfocused);
    edit->setFocus();
    d->blinkTimer.stop();
    d->cursorAscentOffset = -4;
    QVERIFY(rendered(edit) != shown);
    edit->setReadOnly(true);
    const QImage readOnly = rendered(edit);
    d->cursorVisible = false;
    QCOMPARE(readOnly, rendered(edit));
}

void tst_KestIPAddressEdit::cursorFollowsTheLinesAscent()
{
    // Text set anew may have an ascent that is not the font's.
    Edit edit;
    recordOf(&edit)->cursorAscentOffset = 7;
    edit.setIPAddress(QStringLiteral("1.2.3.4"));
    const auto layout = line(QStringLiteral("4"), edit.font());
    QCOMPARE(recordOf(&edit)->cursorAscentOffset,
             qRound(layout->lineAt(0).ascent()) - QFontMetrics(edit.font()).ascent());
}

void tst_KestIPAddressEdit::rightToLeftKeepsTheOrder()
{
    Edit edit(QStringLiteral("192|168|1|20 @0"));
    const QImage image = rendered(&edit);
    edit.setLayoutDirection(Qt::RightToLeft);
    QCOMPARE(largestDifference(rendered(&edit), image), 0);
    QVERIFY(pointOf(&edit, 0).x() < pointOf(&edit, 4).x());
    sendMouse(&edit, QEvent::MouseButtonPress, pointOf(&edit, 5));
    QCOMPARE(recordOf(&edit)->cursorPosition, 5);
    typeKey(&edit, QStringLiteral("Right"));
    QCOMPARE(recordOf(&edit)->cursorPosition, 6);
}

void tst_KestIPAddressEdit::sheetsThemeTheFrame()
{
    // As a line edit's.
    QWidget window;
    window.setStyleSheet(KestStyleSheet::defaultStyleSheet());
    auto *edit = new KestIPAddressEdit(&window);
    auto *lineEdit = new QLineEdit(&window);
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(edit);
    layout->addWidget(lineEdit);
    window.resize(300, 120);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(edit->height(), lineEdit->height());
    const auto frameOf = [](QWidget *widget) {
        const QImage image = widget->grab().toImage();
        return image.pixelColor(0, image.height() / 2);
    };
    const auto fillOf = [](QWidget *widget) {
        const QImage image = widget->grab().toImage();
        return image.pixelColor(image.width() - 10, image.height() / 2);
    };
    edit->setFocus();
    const QColor focused = frameOf(edit);
    const QColor plainLine = frameOf(lineEdit);
    lineEdit->setFocus();
    QCOMPARE(frameOf(lineEdit), focused);
    QCOMPARE(frameOf(edit), plainLine);
    QVERIFY(focused != plainLine);
    QCOMPARE(fillOf(edit), QColor(Qt::white));
    for (bool on : { true, false }) {
        edit->setReadOnly(on);
        lineEdit->setReadOnly(on);
        QCOMPARE(fillOf(edit), fillOf(lineEdit));
        QCOMPARE(fillOf(edit) == QColor(Qt::white), !on);
        QCOMPARE(edit->palette().color(edit->foregroundRole()),
                 lineEdit->palette().color(lineEdit->foregroundRole()));
    }
    edit->setEnabled(false);
    lineEdit->setEnabled(false);
    QCOMPARE(fillOf(edit), fillOf(lineEdit));
    QCOMPARE(frameOf(edit), frameOf(lineEdit));
    QVERIFY(fillOf(edit) != QColor(Qt::white));
}

void tst_KestIPAddressEdit::screenReaderReadsTheAddress()
{
    Edit edit(QStringLiteral("192||7|01 @2"));
    edit.setAccessibleName(QStringLiteral("Server"));
    QAccessibleInterface *const reader = QAccessible::queryAccessibleInterface(&edit);
    QVERIFY(reader);
    QCOMPARE(reader->role(), QAccessible::EditableText);
    QCOMPARE(reader->text(QAccessible::Name), QStringLiteral("Server"));
    edit.setAccessibleDescription(QStringLiteral("In the cellar"));
    QCOMPARE(reader->text(QAccessible::Description), QStringLiteral("In the cellar"));
    reader->setText(QAccessible::Description, QStringLiteral("1.2.3.4"));
    QCOMPARE(edit.ipAddress(), QStringLiteral("192.0.7.01"));
    QVERIFY(reader->actionInterface()); // as of any widget
    QVERIFY(!reader->valueInterface());
    QCOMPARE(reader->text(QAccessible::Value), QStringLiteral("192.0.7.01"));
    QVERIFY(!reader->state().readOnly);
    QVERIFY(reader->state().editable);
    QVERIFY(reader->state().selectableText);
    edit.setReadOnly(true);
    QVERIFY(reader->state().readOnly);
    QVERIFY(!reader->state().editable);
    reader->setText(QAccessible::Value, QStringLiteral("1.2.3.4"));
    QCOMPARE(edit.ipAddress(), QStringLiteral("192.0.7.01"));
    edit.setReadOnly(false);
    reader->setText(QAccessible::Value, QStringLiteral("1.2.3.4"));
    QCOMPARE(edit.ipAddress(), QStringLiteral("1.2.3.4"));

    setState(&edit, QStringLiteral("192||7|01 @2"));
    QAccessibleTextInterface *const text = reader->textInterface();
    QVERIFY(text);
    QCOMPARE(text->characterCount(), 10);
    QCOMPARE(text->text(0, 10), QStringLiteral("192.0.7.01"));
    QCOMPARE(text->text(4, 7), QStringLiteral("0.7"));
    int start = -1;
    int end = -1;
    QCOMPARE(text->textAtOffset(1, QAccessible::CharBoundary, &start, &end), QStringLiteral("9"));
    QCOMPARE(text->attributes(3, &start, &end), QString());
    QCOMPARE(start, 0);
    QCOMPARE(end, 10);
    // The window's subclasses are read as well.
    class Own : public KestIPAddressEdit
    {
    } own;
    QCOMPARE(QAccessible::queryAccessibleInterface(&own)->role(), QAccessible::EditableText);
}

void tst_KestIPAddressEdit::screenReaderMovesAndSelects()
{
    Edit edit(QStringLiteral("192||7|01 @0"));
    edit.show();
    QAccessibleTextInterface *const text =
        QAccessible::queryAccessibleInterface(&edit)->textInterface();
    // From offset to position and back.
    const int positions[] = { 0, 1, 2, 3, 4, 4, 8, 9, 12, 13, 14 };
    const int offsets[] = { 0, 1, 2, 3, 4, 4, 6, 7, 8, 9, 10 };
    for (int i = 0; i < 11; ++i) {
        text->setCursorPosition(i);
        QCOMPARE(recordOf(&edit)->cursorPosition, positions[i]);
        QCOMPARE(text->cursorPosition(), offsets[i]);
    }
    text->setCursorPosition(99);
    QCOMPARE(recordOf(&edit)->cursorPosition, 14);
    text->setCursorPosition(-1);
    QCOMPARE(recordOf(&edit)->cursorPosition, 0);
    recordOf(&edit)->cursorPosition = 11; // behind the only digit
    QCOMPARE(text->cursorPosition(), 7);

    QCOMPARE(text->selectionCount(), 0);
    text->setSelection(0, 1, 3);
    QCOMPARE(stateOf(&edit), QStringLiteral("192||7|01 @3 0:1-3"));
    QCOMPARE(text->selectionCount(), 1);
    int start = -1;
    int end = -1;
    text->selection(0, &start, &end);
    QCOMPARE(start, 1);
    QCOMPARE(end, 3);
    text->addSelection(6, 10); // stays in its section
    QCOMPARE(stateOf(&edit), QStringLiteral("192||7|01 @9 2:0-1"));
    text->selection(0, &start, &end);
    QCOMPARE(start, 6);
    QCOMPARE(end, 7);
    text->removeSelection(0);
    QCOMPARE(text->selectionCount(), 0);
    text->selection(0, &start, &end);
    QCOMPARE(end, 0);
    setState(&edit, QStringLiteral("192||7|01 @0 0:0-1 3:0-2"));
    QCOMPARE(text->selectionCount(), 2);
    text->selection(0, &start, &end);
    QCOMPARE(start, 0);
    QCOMPARE(end, 1);
    text->selection(1, &start, &end);
    QCOMPARE(start, 8);
    QCOMPARE(end, 10);
    text->removeSelection(0); // of them all, since there can be one at a time for a reader
    QCOMPARE(stateOf(&edit), QStringLiteral("192||7|01 @0"));

    const auto layout = line(QStringLiteral("192"), edit.font());
    const QPoint origin = originIn(Places(edit).rect(0), *layout);
    for (int offset : { 0, 1, 2 }) {
        const auto edge = [&](int index) {
            return origin.x() + qRound(layout->lineAt(0).cursorToX(index));
        };
        QRect expected(origin, layout->boundingRect().size().toSize());
        expected.setLeft(edge(offset));
        expected.setRight(edge(offset + 1));
        QCOMPARE(text->characterRect(offset).translated(-edit.mapToGlobal(QPoint())), expected);
    }
    for (int offset : { 0, 1, 2, 6, 8, 9 }) {
        const QRect rect = text->characterRect(offset);
        QVERIFY(edit.rect().contains(edit.mapFromGlobal(rect.center())));
        QVERIFY(rect.width() > 2);
        QCOMPARE(text->offsetAtPoint(QPoint(rect.left() + 1, rect.center().y())), offset);
    }
    for (const QPoint &point :
         { QPoint(-1, -1), QPoint(20, -1), QPoint(20, edit.height()), QPoint(-1, 5) })
        QCOMPARE(text->offsetAtPoint(edit.mapToGlobal(point)), -1);
}

void tst_KestIPAddressEdit::screenReaderRepaints()
{
    Edit edit(QStringLiteral("192|168|| @0"));
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    QAccessibleTextInterface *const text =
        QAccessible::queryAccessibleInterface(&edit)->textInterface();
    QVERIFY(isPaintedFor(&edit, [text] { text->setSelection(0, 1, 3); }));
    QVERIFY(isPaintedFor(&edit, [text] { text->addSelection(4, 6); }));
    QVERIFY(isPaintedFor(&edit, [text] { text->removeSelection(0); }));
    QVERIFY(isPaintedFor(&edit, [text] { text->setCursorPosition(2); }));
    QVERIFY(!isPaintedFor(&edit, [text] { text->scrollToSubstring(0, 2); }));
}

void tst_KestIPAddressEdit::movesOfAScreenReaderClearTheSelection()
{
    Edit edit(QStringLiteral("192|168|| @0 0:0-2 1:1-2"));
    QAccessibleTextInterface *const text =
        QAccessible::queryAccessibleInterface(&edit)->textInterface();
    text->scrollToSubstring(0, 5);
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|| @0 0:0-2 1:1-2"));
    text->setCursorPosition(5);
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|| @5"));
}

void tst_KestIPAddressEdit::offsetsFromOutsideMayBeAny()
{
    const int lowest = std::numeric_limits<int>::min();
    const int highest = std::numeric_limits<int>::max();
    Edit edit(QStringLiteral("192||7|01 @0 0:1-3"));
    edit.show();
    QAccessibleTextInterface *const text =
        QAccessible::queryAccessibleInterface(&edit)->textInterface();
    const QString whole = QStringLiteral("192.0.7.01");
    QCOMPARE(text->text(0, 10), whole);
    QCOMPARE(text->text(lowest, highest), whole);
    QCOMPARE(text->text(-1, 11), whole);
    QCOMPARE(text->text(-5, 3), QStringLiteral("192"));
    QCOMPARE(text->text(4, highest), QStringLiteral("0.7.01"));
    QCOMPARE(text->text(9, 10), QStringLiteral("1"));
    for (const auto &empty :
         { qMakePair(3, 3), qMakePair(3, 2), qMakePair(highest, lowest), qMakePair(lowest, lowest),
           qMakePair(highest, highest), qMakePair(10, 12), qMakePair(lowest, -1) })
        QCOMPARE(text->text(empty.first, empty.second), QString());

    int start = 7;
    int end = 7;
    for (const int index : { lowest, -1, 1, highest }) {
        text->selection(index, &start, &end);
        QCOMPARE(start, 0);
        QCOMPARE(end, 0);
    }
    text->selection(0, &start, &end);
    QCOMPARE(start, 1);
    QCOMPARE(end, 3);
    text->attributes(highest, &start, &end);
    QCOMPARE(end, 10);

    text->setSelection(0, lowest, highest);
    QCOMPARE(stateOf(&edit), QStringLiteral("192||7|01 @3 0:0-3"));
    text->setSelection(0, highest, lowest);
    QCOMPARE(stateOf(&edit), QStringLiteral("192||7|01 @14 3:2-2"));
    text->addSelection(lowest, lowest);
    QCOMPARE(stateOf(&edit), QStringLiteral("192||7|01 @0 0:0-0"));
    text->removeSelection(lowest);
    text->setCursorPosition(highest);
    QCOMPARE(stateOf(&edit), QStringLiteral("192||7|01 @14"));
    text->setCursorPosition(lowest);
    QCOMPARE(stateOf(&edit), QStringLiteral("192||7|01 @0"));
    QCOMPARE(text->characterRect(lowest), text->characterRect(0));
    QCOMPARE(text->characterRect(highest), text->characterRect(10));
    QCOMPARE(text->offsetAtPoint(QPoint(lowest / 2, 0)), -1);
    QCOMPARE(text->offsetAtPoint(QPoint(highest / 2, 0)), -1);
    QCOMPARE(text->textBeforeOffset(highest, QAccessible::CharBoundary, &start, &end), QString());
    QCOMPARE(text->textAtOffset(lowest, QAccessible::CharBoundary, &start, &end), QString());
}

void tst_KestIPAddressEdit::columnsFromOutsideMayBeAny()
{
    Edit edit(QStringLiteral("192|168|7|01 @5"));
    for (const double left : { -1e300, -1e10, -std::numeric_limits<double>::infinity() }) {
        sendMouseAt(&edit, left);
        QCOMPARE(stateOf(&edit), QStringLiteral("192|168|7|01 @0"));
        sendMouseAt(&edit, -left);
        QCOMPARE(stateOf(&edit), QStringLiteral("192|168|7|01 @14"));
    }
    sendMouseAt(&edit, std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(stateOf(&edit), QStringLiteral("192|168|7|01 @0"));
}

void tst_KestIPAddressEdit::rangesFromOutsideMayBeAny()
{
    const int lowest = std::numeric_limits<int>::min();
    const int highest = std::numeric_limits<int>::max();
    const auto bounded = [](qint64 number) {
        return int(std::clamp<qint64>(number, lowest, highest));
    };
    for (const int start : { lowest, -1, 0, 3, highest }) {
        for (const int length : { lowest, -1, 0, 3, highest }) {
            for (const int from : { lowest, -1, 0, 3, highest }) {
                for (const int to : { lowest, -1, 0, 3, highest }) {
                    QTextLayout::FormatRange range;
                    range.start = start;
                    range.length = length;
                    QCOMPARE(moveFormatRange(range, from, to), to % 4);
                    const qint64 end = qint64(start) + length;
                    qint64 anchor = from % 4;
                    if (from % 4 == start)
                        anchor = end;
                    else if (from % 4 == end)
                        anchor = start;
                    const int first = bounded(qMin<qint64>(anchor, to % 4));
                    QCOMPARE(range.start, first);
                    QCOMPARE(range.length, bounded(qMax<qint64>(bounded(anchor), to % 4) - first));
                    const QTextLayout::FormatRange made = createFormatRange(from, to, QPalette());
                    QCOMPARE(made.start, qMin(from % 4, to % 4));
                    QCOMPARE(made.length, qAbs(from % 4 - to % 4));
                }
            }
        }
    }
}

void tst_KestIPAddressEdit::changesAreAnnounced()
{
    Edit edit(QStringLiteral("1||| @1"));
    Announcements reader;
    typeKey(&edit, QStringLiteral("9"));
    QCOMPARE(reader.take(),
             QStringList({ QStringLiteral("inserted 9 at 1"), QStringLiteral("cursor 2") }));
    typeKey(&edit, QStringLiteral("Left"));
    edit.setReadOnly(true);
    QCOMPARE(reader.take(),
             QStringList({ QStringLiteral("cursor 1"), QStringLiteral("read-only") }));
    // The cursor's offset counts an empty section's 0, and what is deleted is gone behind it.
    edit.setReadOnly(false);
    setState(&edit, QStringLiteral("1||23| @10"));
    reader.take();
    typeKey(&edit, QStringLiteral("Backspace"));
    QCOMPARE(reader.take(),
             QStringList({ QStringLiteral("cursor 5"), QStringLiteral("removed 3 at 5") }));
    // An empty section sounds like one of a 0.
    typeKey(&edit, QStringLiteral("Backspace"));
    QCOMPARE(reader.take(),
             QStringList({ QStringLiteral("cursor 4"), QStringLiteral("text 2 to 0 at 4") }));
    typeKey(&edit, QStringLiteral("0"));
    QCOMPARE(reader.take(), QStringList({ QStringLiteral("cursor 5") }));
    edit.setIPAddress(QStringLiteral("1.10.0.110"));
    QCOMPARE(
        reader.take(),
        QStringList({ QStringLiteral("inserted 1 at 2"), QStringLiteral("inserted 11 at 7") }));
    edit.setIPAddress(QStringLiteral("1.10.0.10"));
    QCOMPARE(reader.take(), QStringList({ QStringLiteral("removed 1 at 8") }));
}

void tst_KestIPAddressEdit::selectionIsAnnouncedAsItChanges()
{
    Edit edit(QStringLiteral("192|168|| @4"));
    Announcements reader;
    typeKey(&edit, QStringLiteral("Shift+Right"));
    QCOMPARE(reader.take(),
             QStringList({ QStringLiteral("cursor 5"), QStringLiteral("selected 4 to 5") }));
    typeKey(&edit, QStringLiteral("Shift+Right"));
    QCOMPARE(reader.take(),
             QStringList({ QStringLiteral("cursor 6"), QStringLiteral("selected 4 to 6") }));
    typeKey(&edit, QStringLiteral("Left")); // only drops it
    QCOMPARE(reader.take(), QStringList({ QStringLiteral("selected 0 to 0") }));
    typeKey(&edit, QStringLiteral("Left"));
    QCOMPARE(reader.take(), QStringList({ QStringLiteral("cursor 5") }));

    const auto afterSelecting = [&](const std::function<void()> &action) {
        edit.clearFocus();
        typeKey(&edit, QStringLiteral("Shift+Right"));
        reader.take();
        action();
        return reader.take();
    };
    const QString none = QStringLiteral("selected 0 to 0");
    QCOMPARE(afterSelecting([&] { typeKey(&edit, QStringLiteral("Escape")); }), QStringList(none));
    QCOMPARE(afterSelecting([&] {
                 QFocusEvent out(QEvent::FocusOut);
                 QCoreApplication::sendEvent(&edit, &out);
             }),
             QStringList(none));
    setState(&edit, QStringLiteral("192|168|| @4"));
    QCOMPARE(afterSelecting([&] { typeKey(&edit, QStringLiteral("Delete")); }),
             QStringList({ QStringLiteral("removed 1 at 4"), QStringLiteral("cursor 6"), none }));
    setState(&edit, QStringLiteral("192|168|| @4"));
    QCOMPARE(afterSelecting([&] { sendMouse(&edit, QEvent::MouseButtonPress, pointOf(&edit, 0)); }),
             QStringList({ QStringLiteral("cursor 0"), none }));
}

void tst_KestIPAddressEdit::screenReaderEditsTheAddress()
{
    Edit edit(QStringLiteral("192|168|0|1 @0"));
    QAccessibleEditableTextInterface *const editor =
        QAccessible::queryAccessibleInterface(&edit)->editableTextInterface();
    QVERIFY(editor);
    editor->insertText(10, QStringLiteral("2"));
    QCOMPARE(edit.ipAddress(), QStringLiteral("192.168.0.21"));
    editor->deleteText(0, 2);
    QCOMPARE(edit.ipAddress(), QStringLiteral("2.168.0.21"));
    editor->replaceText(2, 5, QStringLiteral("7"));
    QCOMPARE(edit.ipAddress(), QStringLiteral("2.7.0.21"));
    editor->replaceText(-5, 99, QStringLiteral("10.0.0.1"));
    QCOMPARE(edit.ipAddress(), QStringLiteral("10.0.0.1"));
    editor->insertText(99, QStringLiteral("5"));
    QCOMPARE(edit.ipAddress(), QStringLiteral("10.0.0.15"));
    editor->deleteText(8, 7);
    QCOMPARE(edit.ipAddress(), QStringLiteral("10.0.0.15"));
    // What is no address is refused, and so is everything while it is read only.
    editor->insertText(0, QStringLiteral("9"));
    editor->insertText(0, QStringLiteral("9"));
    editor->deleteText(3, 4);
    editor->replaceText(0, 9, QString());
    QCOMPARE(edit.ipAddress(), QStringLiteral("10.0.0.15"));
    edit.setReadOnly(true);
    editor->replaceText(0, 9, QStringLiteral("1.2.3.4"));
    QCOMPARE(edit.ipAddress(), QStringLiteral("10.0.0.15"));
}

void tst_KestIPAddressEdit::selectionStaysUntilAllOfItIsDeleted()
{
    Edit edit(QStringLiteral("192|168|| @0 0:0-2 1:0-1"));
    QAccessibleTextInterface *const text =
        QAccessible::queryAccessibleInterface(&edit)->textInterface();
    QVector<int> counts;
    connect(&edit, &KestIPAddressEdit::editChanged, &edit,
            [&] { counts.append(text->selectionCount()); });
    typeKey(&edit, QStringLiteral("Delete"));
    QCOMPARE(counts, QVector<int>({ 2, 2 }));
    QCOMPARE(stateOf(&edit), QStringLiteral("2|68|| @6"));
}

void tst_KestIPAddressEdit::nothingIsMadeForNoReader()
{
    const Edit first; // factories are asked from the last one on
    const InterfaceRequests requests;
    Edit edit(QStringLiteral("1||| @1"));
    typeKey(&edit, QStringLiteral("9"));
    typeKey(&edit, QStringLiteral("Left"));
    edit.setIPAddress(QStringLiteral("1.2.3.4"));
    edit.setReadOnly(true);
    QCOMPARE(requests.count(), 0);
    QAccessible::queryAccessibleInterface(&edit);
    QVERIFY(requests.count() > 0);
}

void tst_KestIPAddressEdit::subclassMayHaveItsOwnInterface()
{
    const QAccessible::InterfaceFactory make = [](const QString &name,
                                                  QObject *object) -> QAccessibleInterface * {
        return name == QLatin1String(Edit::staticMetaObject.className())
            ? new QAccessibleWidget(qobject_cast<QWidget *>(object), QAccessible::Dial)
            : nullptr;
    };
    QAccessible::installFactory(make);
    Edit own;
    KestIPAddressEdit plain;
    QLineEdit other;
    QCOMPARE(QAccessible::queryAccessibleInterface(&own)->role(), QAccessible::Dial);
    QAccessible::removeFactory(make);
    QCOMPARE(QAccessible::queryAccessibleInterface(&plain)->role(), QAccessible::EditableText);
    // Nobody else's is touched.
    QWidget widget;
    QVERIFY(!QAccessible::queryAccessibleInterface(&widget)->textInterface());
    QCOMPARE(QAccessible::queryAccessibleInterface(&other)->text(QAccessible::Value), QString());
}

QTEST_MAIN(tst_KestIPAddressEdit)
#include "tst_kestipaddressedit.moc"
