// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestIPAddressEdit.h"
#include "KestMessageBox.h"
#include "KestNavigationBar.h"
#include "KestTitleBar.h"
#include "KestWindow.h"
#include "Pixels.h"
#include "SheetRules.h"
#include "Themes.h"

#include <QAction>
#include <QtCore/QHash>
#include <QtCore/QScopedPointer>
#include <QtGui/QImage>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QCommandLinkButton>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QTreeWidget>

namespace {

const int GlyphPixels = 6; // so many pixels at least are a sign that one sees

// Pixels of a part that stand out from most of the part.
int drawnPixels(const QImage &image, const QRect &part)
{
    const QRgb ground = Pixels::commonColor(image, part);
    int count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x)
            count += Pixels::contrast(image.pixel(x, y), ground) >= 2;
    }
    return count;
}

QRect scrollPart(QScrollBar *bar, QStyle::SubControl part)
{
    QStyleOptionSlider option;
    option.initFrom(bar);
    option.orientation = bar->orientation();
    option.state.setFlag(QStyle::State_Horizontal, bar->orientation() == Qt::Horizontal);
    option.maximum = bar->maximum();
    option.pageStep = bar->pageStep();
    option.sliderPosition = bar->value();
    return bar->style()->subControlRect(QStyle::CC_ScrollBar, &option, part, bar);
}

QRect spinPart(QSpinBox *spin, QStyle::SubControl part)
{
    QStyleOptionSpinBox option;
    option.initFrom(spin);
    option.buttonSymbols = QAbstractSpinBox::UpDownArrows;
    option.frame = true;
    return spin->style()->subControlRect(QStyle::CC_SpinBox, &option, part, spin);
}

} // namespace

class tst_ThemeParts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void stepsOfASpinBoxStandOneAboveTheOther_data() { themes(); }
    void stepsOfASpinBoxStandOneAboveTheOther();
    void comboBoxesHaveAnArrow_data() { themes(); }
    void comboBoxesHaveAnArrow();
    void scrollBarsEndInTheirArrows_data();
    void scrollBarsEndInTheirArrows();
    void menuButtonsMakeRoomForTheirArrow_data();
    void menuButtonsMakeRoomForTheirArrow();
    void buttonsWithoutALookShowTheirGround_data() { themes(); }
    void buttonsWithoutALookShowTheirGround();
    void sortedSectionsHaveAnArrow_data() { themes(); }
    void sortedSectionsHaveAnArrow();
    void entriesOfMenusKeepTheirDistance_data() { themes(); }
    void entriesOfMenusKeepTheirDistance();
    void uprightProgressBarsHoldTheirText_data() { themes(); }
    void uprightProgressBarsHoldTheirText();
    void handlesOfSplittersAreSeen_data() { themes(); }
    void handlesOfSplittersAreSeen();
    void menusInATitleBarAreNotBold_data() { themes(); }
    void menusInATitleBarAreNotBold();
    void shortButtonsOfMessageBoxesAreWide_data() { themes(); }
    void shortButtonsOfMessageBoxesAreWide();
    void barsDrawTheirSeparators_data();
    void barsDrawTheirSeparators();
    void textsHaveOneColor_data() { themes(); }
    void textsHaveOneColor();
    void partsHaveTheirImages_data() { themes(); }
    void partsHaveTheirImages();

private:
    static void themes();
};

void tst_ThemeParts::themes()
{
    QTest::addColumn<QString>("theme");
    for (const QString &name : Themes::names())
        QTest::newRow(qPrintable(name)) << name;
}

void tst_ThemeParts::init()
{
    QFETCH(QString, theme);
    Themes::apply(theme);
}

void tst_ThemeParts::stepsOfASpinBoxStandOneAboveTheOther()
{
    QSpinBox spin;
    spin.setValue(50);
    spin.resize(spin.sizeHint());
    const QImage image = spin.grab().toImage();
    const QRect up = spinPart(&spin, QStyle::SC_SpinBoxUp);
    const QRect down = spinPart(&spin, QStyle::SC_SpinBoxDown);
    const QRect field = spinPart(&spin, QStyle::SC_SpinBoxEditField);
    QVERIFY(up.bottom() <= down.top());
    QVERIFY(up.left() > field.right() && down.left() > field.right());
    QVERIFY(drawnPixels(image, up) >= GlyphPixels);
    QVERIFY(drawnPixels(image, down) >= GlyphPixels);

    // One points up and the other down.
    const auto mirrored = image.copy(up).mirrored(false, true);
    QVERIFY(image.copy(up) != mirrored);
}

void tst_ThemeParts::comboBoxesHaveAnArrow()
{
    QComboBox combo;
    combo.addItem(QStringLiteral("One"));
    combo.resize(combo.sizeHint());
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    option.frame = true;
    const QRect arrow = combo.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                      QStyle::SC_ComboBoxArrow, &combo);
    QVERIFY(drawnPixels(combo.grab().toImage(), arrow.adjusted(2, 4, -4, -4)) >= GlyphPixels);
}

void tst_ThemeParts::scrollBarsEndInTheirArrows_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<Qt::Orientation>("orientation");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    for (const QString &name : Themes::names()) {
        QTest::addRow("%s: upright", qPrintable(name)) << name << Qt::Vertical << Qt::LeftToRight;
        QTest::addRow("%s: flat", qPrintable(name)) << name << Qt::Horizontal << Qt::LeftToRight;
        QTest::addRow("%s: flat, from right to left", qPrintable(name))
            << name << Qt::Horizontal << Qt::RightToLeft;
    }
}

void tst_ThemeParts::scrollBarsEndInTheirArrows()
{
    QFETCH(Qt::Orientation, orientation);
    QFETCH(Qt::LayoutDirection, direction);
    QScrollBar bar(orientation);
    bar.setLayoutDirection(direction);
    bar.setRange(0, 100);
    bar.setPageStep(50);
    bar.resize(orientation == Qt::Horizontal ? QSize(200, bar.sizeHint().height())
                                             : QSize(bar.sizeHint().width(), 200));
    const QImage image = bar.grab().toImage();
    const QRect less = scrollPart(&bar, QStyle::SC_ScrollBarSubLine);
    const QRect more = scrollPart(&bar, QStyle::SC_ScrollBarAddLine);
    const QSize size = orientation == Qt::Horizontal ? QSize(bar.height(), bar.height())
                                                     : QSize(bar.width(), bar.width());
    QRect first(QPoint(), size);
    QRect last(bar.rect().bottomRight() - QPoint(size.width() - 1, size.height() - 1), size);
    if (direction == Qt::RightToLeft)
        std::swap(first, last);
    QCOMPARE(less, first);
    QCOMPARE(more, last);
    QVERIFY(drawnPixels(image, less) >= GlyphPixels);
    QVERIFY(drawnPixels(image, more) >= GlyphPixels);
}

void tst_ThemeParts::menuButtonsMakeRoomForTheirArrow_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<QToolButton::ToolButtonPopupMode>("mode");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    for (const QString &name : Themes::names()) {
        for (const auto direction : { Qt::LeftToRight, Qt::RightToLeft }) {
            const char *way = direction == Qt::LeftToRight ? "" : ", from right to left";
            QTest::addRow("%s: beside%s", qPrintable(name), way)
                << name << QToolButton::MenuButtonPopup << direction;
            QTest::addRow("%s: at once%s", qPrintable(name), way)
                << name << QToolButton::InstantPopup << direction;
        }
    }
}

void tst_ThemeParts::menuButtonsMakeRoomForTheirArrow()
{
    QFETCH(QToolButton::ToolButtonPopupMode, mode);
    QFETCH(Qt::LayoutDirection, direction);
    QMenu menu;
    QToolButton button;
    button.setLayoutDirection(direction);
    button.setText(QStringLiteral("MMMM"));
    button.setPopupMode(mode);
    button.setMenu(&menu);
    button.resize(button.sizeHint());
    const QImage with = button.grab().toImage();
    QToolButton plain;
    plain.setText(button.text());
    QVERIFY2(button.width() >= plain.sizeHint().width() + 12,
             qPrintable(QStringLiteral("%1 %2").arg(button.width()).arg(plain.sizeHint().width())));

    // The arrow in the place that is more than the plain button's, and free ground before it.
    const int room = 12;
    const QRect arrow(direction == Qt::LeftToRight ? button.width() - room - 4 : 4, 6, room,
                      button.height() - 12);
    QVERIFY(drawnPixels(with, arrow) >= GlyphPixels);
    const QRgb ground = Pixels::commonColor(with, button.rect());
    const int gap = direction == Qt::LeftToRight ? arrow.left() - 1 : arrow.right() + 1;
    for (int y = arrow.top(); y <= arrow.bottom(); ++y)
        QVERIFY(Pixels::contrast(with.pixel(gap, y), ground) < 2);
}

void tst_ThemeParts::buttonsWithoutALookShowTheirGround()
{
    const QColor ground(Qt::yellow);
    QWidget window;
    window.resize(400, 200);
    window.setPalette(ground);
    QPushButton flat(QStringLiteral("Flat"), &window);
    flat.setFlat(true);
    QCommandLinkButton link(QStringLiteral("Link"), &window);
    link.setDefault(true);
    link.move(0, 60);
    for (QPushButton *button : { &flat, static_cast<QPushButton *>(&link) }) {
        for (const bool enabled : { true, false }) {
            button->setEnabled(enabled);
            button->resize(button->sizeHint());
            const QImage image = window.grab().toImage().copy(button->geometry());
            QCOMPARE(QColor(Pixels::commonColor(image, image.rect())), ground);
            QCOMPARE(QColor(Pixels::commonFrameColor(image, image.rect())), ground);
        }
    }
}

void tst_ThemeParts::sortedSectionsHaveAnArrow()
{
    QTableWidget table(1, 1);
    table.setHorizontalHeaderLabels({ QStringLiteral("A") });
    table.horizontalHeader()->resizeSection(0, 120);
    table.resize(300, 100);
    const auto arrow = [&table](Qt::SortOrder order) {
        table.horizontalHeader()->setSortIndicatorShown(true);
        table.horizontalHeader()->setSortIndicator(0, order);
        const QImage image = table.horizontalHeader()->grab().toImage();
        return image.copy(120 - 24, 2, 22, image.height() - 4);
    };
    const QImage up = arrow(Qt::AscendingOrder);
    const QImage down = arrow(Qt::DescendingOrder);
    QVERIFY(drawnPixels(up, up.rect()) >= GlyphPixels);
    QVERIFY(drawnPixels(down, down.rect()) >= GlyphPixels);
    QVERIFY(up != down);
}

void tst_ThemeParts::entriesOfMenusKeepTheirDistance()
{
    QMenu menu;
    QAction *const plain = menu.addAction(QStringLiteral("MMM"));
    QAction *const ticked = menu.addAction(QStringLiteral("MMM"));
    ticked->setCheckable(true);
    ticked->setChecked(true);
    QPixmap square(16, 16);
    square.fill(Qt::black);
    QAction *const both = menu.addAction(QIcon(square), QStringLiteral("MMM"));
    both->setCheckable(true);
    both->setChecked(true);
    menu.ensurePolished();
    menu.resize(menu.sizeHint());
    const QImage image = menu.grab().toImage();

    // The columns of a row in which something is drawn, from the menu's left edge.
    const auto columns = [&](QAction *action) {
        const QRect row = menu.actionGeometry(action);
        QVector<int> drawn;
        for (int x = row.left(); x <= row.right(); ++x) {
            if (drawnPixels(image, QRect(x, row.top(), 1, row.height())) > 0)
                drawn.append(x - row.left());
        }
        return drawn;
    };
    const QVector<int> text = columns(plain);
    const QVector<int> tick = columns(ticked);
    const QVector<int> icon = columns(both);
    QVERIFY(text.first() >= 24);
    QVERIFY(tick.first() >= 4 && tick.first() < 16);
    QVERIFY(icon.first() >= 4 && icon.first() < 16); // the tick, with the icon after it
    QVERIFY(icon.size() > tick.size());
    QVERIFY(menu.actionGeometry(plain).height() >= menu.fontMetrics().height() + 4);
}

void tst_ThemeParts::uprightProgressBarsHoldTheirText()
{
    QProgressBar bar;
    bar.setOrientation(Qt::Vertical);
    bar.ensurePolished();
    QVERIFY(bar.sizeHint().width()
            >= bar.fontMetrics().horizontalAdvance(QStringLiteral("100%")) + 2);
}

void tst_ThemeParts::handlesOfSplittersAreSeen()
{
    QSplitter splitter;
    for (int i = 0; i < 2; ++i)
        splitter.addWidget(new QWidget);
    splitter.resize(200, 60);
    const QImage image = splitter.grab().toImage();
    const QRect handle = splitter.handle(1)->geometry();
    QCOMPARE(handle.width(), 5);
    QVERIFY(Pixels::commonColor(image, handle) != image.pixel(handle.left() - 3, 30));
}

void tst_ThemeParts::menusInATitleBarAreNotBold()
{
    KestWindow window;
    window.menuBar()->addMenu(QStringLiteral("File"));
    auto *label = new QLabel(QStringLiteral("Label"), window.titleBar());
    window.show();
    const QSize before = window.menuBar()->sizeHint();
    const QString sheet = qApp->styleSheet();
    for (int change = 0; change < 2; ++change) {
        QVERIFY(window.titleBar()->font().bold());
        QVERIFY(!window.menuBar()->font().bold());
        QVERIFY(!label->font().bold());
        qApp->setStyleSheet(sheet + QLatin1Char('\n'));
        qApp->setStyleSheet(sheet);
    }
    QCoreApplication::processEvents();
    QCOMPARE(window.menuBar()->sizeHint(), before);
}

void tst_ThemeParts::shortButtonsOfMessageBoxesAreWide()
{
    KestMessageBox box(KestMessageBox::Information, QStringLiteral("Title"), QStringLiteral("Text"),
                       KestMessageBox::Ok);
    box.ensurePolished();
    int widest = 0;
    for (QPushButton *each : box.findChildren<QPushButton *>()) {
        if (!each->text().isEmpty()) {
            each->ensurePolished();
            widest = qMax(widest, each->minimumWidth());
        }
    }
    QVERIFY(widest >= 56 + 28);
}

void tst_ThemeParts::barsDrawTheirSeparators_data()
{
    QTest::addColumn<QString>("theme");
    QTest::addColumn<bool>("titleBar");
    QTest::addColumn<QColor>("line");
    QTest::addColumn<int>("gap");
    const auto rows = [](const char *theme, QRgb line, int gap) {
        QTest::addRow("%s, title bar", theme) << theme << true << QColor(line) << gap;
        QTest::addRow("%s, navigation bar", theme) << theme << false << QColor(0xCCCCCC) << 8;
    };
    rows("default", 0xBEBEBE, 8);
    rows("tool", 0x5C7479, 10);
    rows("kest-blue", 0xC4C4C4, 12);
}

void tst_ThemeParts::barsDrawTheirSeparators()
{
    QFETCH(bool, titleBar);
    QFETCH(QColor, line);
    QFETCH(int, gap);
    QWidget window;
    window.resize(600, 60);
    QWidget *bar = nullptr;
    if (titleBar)
        bar = new KestTitleBar(&window);
    else
        bar = new KestNavigationBar(&window);
    bar->resize(600, 48);
    QAction separator;
    separator.setSeparator(true);
    bar->addAction(&separator);
    window.show();
    const QWidget *drawn = nullptr;
    for (const QWidget *child : bar->findChildren<QWidget *>()) {
        if (child->inherits("KestSeparator"))
            drawn = child;
    }
    QVERIFY(drawn);
    const QRect place(drawn->mapTo(bar, QPoint(0, 0)), drawn->size());
    const QImage image = bar->grab().toImage();
    int columns = 0;
    for (int x = place.left(); x <= place.right(); ++x) {
        if (image.pixelColor(x, place.center().y()) != line)
            continue;
        ++columns;
        for (int y = place.top(); y <= place.bottom(); ++y) {
            const bool inside = y >= place.top() + gap && y <= place.bottom() - gap;
            QCOMPARE(image.pixelColor(x, y) == line, inside);
        }
    }
    QCOMPARE(columns, 1);
}

void tst_ThemeParts::textsHaveOneColor()
{
    QWidget window;
    QLabel label(&window);
    const QColor text = [&label] {
        label.ensurePolished();
        return label.palette().color(label.foregroundRole());
    }();
    QCheckBox check(&window);
    QRadioButton radio(&window);
    QPushButton button(&window);
    QLineEdit edit(&window);
    QTextEdit area(&window);
    QComboBox box(&window);
    QSpinBox spin(&window);
    QGroupBox group(&window);
    QTreeWidget tree(&window);
    QTableWidget table(&window);
    QToolButton tool(&window);
    QTabBar tabs(&window);
    QProgressBar progress(&window);
    KestIPAddressEdit address(&window);
    for (QWidget *widget : std::initializer_list<QWidget *> { &check, &radio, &button, &edit, &area,
                                                              &box, &spin, &group, &tree, &table,
                                                              &tool, &tabs, &progress, &address }) {
        widget->ensurePolished();
        // The role that a widget names is not always the one that its style writes in.
        for (const QPalette::ColorRole role : { widget->foregroundRole(), QPalette::WindowText,
                                                QPalette::Text, QPalette::ButtonText })
            QVERIFY2(widget->palette().color(QPalette::Active, role) == text,
                     widget->metaObject()->className());
    }
}

void tst_ThemeParts::partsHaveTheirImages()
{
    QFETCH(QString, theme);
    QHash<QString, QString> images; // of each selector, by the last rule that has one
    for (const QString &file : Themes::files(theme)) {
        for (const Rule &rule : rulesOf(Themes::text(file))) {
            const QString image = rule.declarations.value(QStringLiteral("image"));
            if (image.isEmpty())
                continue;
            for (const QString &selector : rule.selectors)
                images.insert(selector, image.section(QLatin1Char('/'), -1).chopped(1));
        }
    }
    const auto expect = [&images](const QString &part, const QString &image) {
        if (images.value(part) != image + QStringLiteral(".png"))
            QFAIL(qPrintable(part + QStringLiteral(": ") + images.value(part)));
    };
    const bool blue = theme == QLatin1String("kest-blue");
    const QString spin = QStringLiteral("QAbstractSpinBox::");
    const QString downArrow = QStringLiteral("down-arrow");
    expect(QStringLiteral("QComboBox::down-arrow"), downArrow);
    expect(spin + QStringLiteral("up-arrow"), QStringLiteral("up-button"));
    expect(spin + downArrow, blue ? downArrow : QStringLiteral("down-button"));
    expect(QStringLiteral("QTabBar::close-button"), QStringLiteral("close-light"));
    for (const QString &state : { QStringLiteral("open"), QStringLiteral("closed") }) {
        const QString branch = QStringLiteral("QTreeView::branch:%1:has-children").arg(state);
        const QString image =
            QStringLiteral("tree-") + (state == QLatin1String("open") ? "open" : "close");
        expect(branch, image + QStringLiteral("-light"));
        expect(branch + QStringLiteral(":selected"), image);
    }
    const QString indicator = QStringLiteral("%1::indicator:%2%3");
    for (const QString &state : { QString(), QStringLiteral("hover"), QStringLiteral("pressed"),
                                  QStringLiteral("disabled") }) {
        const QString selector = state.isEmpty() ? state : QLatin1Char(':') + state;
        const QString suffix = state.isEmpty() ? state : QLatin1Char('-') + state;
        for (const QString &value : { QStringLiteral("checked"), QStringLiteral("unchecked"),
                                      QStringLiteral("indeterminate") }) {
            const bool partly = value == QLatin1String("indeterminate");
            const QString name = partly ? QStringLiteral("partiallychecked") : value;
            expect(indicator.arg(QStringLiteral("QCheckBox"), value, selector),
                   QStringLiteral("checkbox-") + name + suffix);
            if (!partly)
                expect(indicator.arg(QStringLiteral("QRadioButton"), value, selector),
                       QStringLiteral("radiobutton-") + name + suffix);
        }
    }
}

THEME_TEST_MAIN(tst_ThemeParts)
#include "tst_themeparts.moc"
