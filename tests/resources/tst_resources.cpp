// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "SheetRules.h"

#include "KestNavigationBar.h"
#include "KestStyleSheet.h"
#include "KestTitleBar.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QResource>
#include <QtCore/QSet>
#include <QtGui/QIcon>
#include <QtGui/QImageReader>
#include <QtGui/QPainter>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QVBoxLayout>

namespace {

const char SheetFolder[] = ":/stylesheet/Resources/stylesheet/";

QString sheetText(const QString &name)
{
    QFile file(QLatin1String(SheetFolder) + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// The value that the sheet's rules for exactly this selector give a property last.
QString valueIn(const QString &sheet, const QString &selector, const QString &property)
{
    QString value;
    for (const Rule &rule : rulesOf(sheet)) {
        if (rule.selectors.contains(selector) && rule.declarations.contains(property))
            value = rule.declarations.value(property);
    }
    return value;
}

QStringList urlsOf(const QString &sheet)
{
    QStringList urls;
    QRegularExpressionMatchIterator matches =
        QRegularExpression(QStringLiteral("url\\(([^)]*)\\)")).globalMatch(sheet);
    while (matches.hasNext())
        urls.append(matches.next().captured(1));
    return urls;
}

QStringList deadUrlsOf(const QString &sheet)
{
    QStringList dead;
    for (const QString &url : urlsOf(sheet)) {
        if (!QFile::exists(url))
            dead.append(url);
    }
    dead.sort();
    return dead;
}

QSet<QString> expectedPaths()
{
    QSet<QString> paths;
    const auto add = [&paths](const QString &folder, const QStringList &names) {
        for (const QString &name : names)
            paths.insert(folder + name);
    };
    const auto combine = [](const QStringList &first, const QStringList &second) {
        QStringList all;
        for (const QString &a : first) {
            for (const QString &b : second)
                all.append(a + b);
        }
        return all;
    };
    const auto list = [](const char *names) {
        return QString::fromLatin1(names).split(QLatin1Char(' '));
    };
    const QStringList png { QStringLiteral(".png") };

    add(QLatin1String(SheetFolder), list("default-light.css sw-light.css tool.css kest-blue.css"));
    const QString own = QStringLiteral(":/KestWidgets/Resources/");
    add(own,
        combine(list("close minimize maximize maximize_max help people copy search drop-down "
                     "tree-open tree-close hideButton messageTip"),
                list(".png -light.png")));
    add(own,
        list("system_menu.png clear-light.png warning.png info.png Error.png ok.png "
             "cancel.png edit.png loading.gif"));
    add(own + QStringLiteral("image_dark/"),
        list("restore.png Minimize-2.png close3.png Maximize-3.png"));
    add(QStringLiteral(":/kest/Resources/image/"),
        list("logo_kest.png logo_kest_blue.png kest.png kest_320.png ComboBox/arrow_down.png "
             "ComboBox/arrow_down_selected.png"));
    const QStringList states { QString(), QStringLiteral("-hover"), QStringLiteral("-pressed"),
                               QStringLiteral("-disabled") };
    add(QStringLiteral(":/QCheckBox/Resources/QCheckBox/checkbox-"),
        combine(combine(list("checked unchecked partiallychecked"), states), png));
    add(QStringLiteral(":/QRadioButton/Resources/QRadioButton/radiobutton-"),
        combine(combine(list("checked unchecked"), states), png));
    add(QStringLiteral(":/QScrollBar/Resources/QScrollBar/"),
        combine(combine(list("addLineH addLineV subLineH subLineV"), states.mid(0, 3)), png));
    add(QStringLiteral(":/QSpinBox/Resources/QSpinBox/"),
        list("up-button.png up-button-pressed.png up-button-disabled.png down-button.png "
             "down-button-pressed.png down-button-disabled.png"));
    add(QStringLiteral(":/QComboBox/Resources/QComboBox/"),
        list("down-arrow.png down-arrow-pressed.png down-arrow-disabled.png"));
    add(QStringLiteral(":/Docking/Resources/QRavDocking/"),
        list("dockTitleFixed.svg dockTitleFloat.svg"));
    return paths;
}

QStringList warnings;

void collectWarning(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    // The offscreen platform says so of every window.
    if (type == QtWarningMsg && !text.startsWith(QLatin1String("This plugin does not support")))
        warnings.append(text);
}

double luminance(const QColor &color)
{
    return 0.213 * color.red() + 0.715 * color.green() + 0.072 * color.blue();
}

} // namespace

class tst_Resources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void treeHoldsExactlyTheseFiles();
    void sheetsAreCompressedAndImagesAreNot();
    void noFileIsForOneLanguageOnly();
    void imagesLoad();
    void glyphsStandOutFromTheirGrounds_data();
    void glyphsStandOutFromTheirGrounds();
    void busyAnimationTurnsSmoothlyOnTransparentGround();

    void sheetsHaveTheirMeasure_data();
    void sheetsHaveTheirMeasure();
    void noRuleIsRepeated_data();
    void noRuleIsRepeated();
    void urlsLeadToImages_data();
    void urlsLeadToImages();
    void lightSheetThemesNoWidgetOfTheLibrary();
    void declarations_data();
    void declarations();
    void idleRulesAreForTheHostsFamily();

    void sheetsParseWithoutWarnings_data();
    void sheetsParseWithoutWarnings();
    void titleBarHasTheSheetsGround();
    void maximiseButtonFollowsItsProperty_data();
    void maximiseButtonFollowsItsProperty();
    void listItemsOfComboBoxesHaveTheirHeight();
    void buttonsHaveTheirHeightAndGround();
    void separatorOfTheNavigationBarIsALine();
};

void tst_Resources::cleanup()
{
    qApp->setStyleSheet(QString());
}

void tst_Resources::treeHoldsExactlyTheseFiles()
{
    const QSet<QString> expected = expectedPaths();
    QCOMPARE(expected.size(), 92);
    QSet<QString> found;
    const QStringList folders { QStringLiteral(":/stylesheet"),   QStringLiteral(":/KestWidgets"),
                                QStringLiteral(":/kest"),         QStringLiteral(":/QCheckBox"),
                                QStringLiteral(":/QRadioButton"), QStringLiteral(":/QScrollBar"),
                                QStringLiteral(":/QSpinBox"),     QStringLiteral(":/QComboBox"),
                                QStringLiteral(":/Docking") };
    for (const QString &folder : folders) {
        QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext())
            found.insert(files.next());
    }
    QCOMPARE(QStringList((expected - found).values()), QStringList());
    QCOMPARE(QStringList((found - expected).values()), QStringList());
}

void tst_Resources::sheetsAreCompressedAndImagesAreNot()
{
    for (const QString &path : expectedPaths()) {
        const QResource resource(path);
        QVERIFY2(resource.isValid(), qPrintable(path));
        const auto expected = path.endsWith(QLatin1String(".css")) ? QResource::ZlibCompression
                                                                   : QResource::NoCompression;
        QVERIFY2(resource.compressionAlgorithm() == expected, qPrintable(path));
    }
}

void tst_Resources::noFileIsForOneLanguageOnly()
{
    const QLocale locales[] = { QLocale::c(), QLocale(QStringLiteral("de_DE")),
                                QLocale(QStringLiteral("zh_CN")) };
    for (const QString &path : expectedPaths()) {
        const QByteArray plain = QResource(path).uncompressedData();
        for (const QLocale &locale : locales)
            QVERIFY2(QResource(path, locale).uncompressedData() == plain, qPrintable(path));
    }
}

void tst_Resources::imagesLoad()
{
    for (const QString &path : expectedPaths()) {
        if (path.endsWith(QLatin1String(".css")) || path.endsWith(QLatin1String(".svg")))
            continue;
        const QImage image(path);
        QVERIFY2(!image.isNull(), qPrintable(path));
        QVERIFY2(image.hasAlphaChannel(), qPrintable(path));
        // A drawing on a transparent ground: a pixel of the rim is free, and something is drawn.
        bool drawn = false;
        bool free = false;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const int alpha = qAlpha(image.pixel(x, y));
                drawn = drawn || alpha > 200;
                free = free || alpha == 0;
            }
        }
        QVERIFY2(drawn && free, qPrintable(path));
    }
    for (const char *name : { "dockTitleFixed.svg", "dockTitleFloat.svg" }) {
        QFile file(QStringLiteral(":/Docking/Resources/QRavDocking/") + QLatin1String(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("<svg"));
    }
}

void tst_Resources::glyphsStandOutFromTheirGrounds_data()
{
    QTest::addColumn<QString>("glyph");
    QTest::addColumn<QColor>("ground");
    const QString own = QStringLiteral(":/KestWidgets/Resources/");
    for (const char *name : { "close", "minimize", "maximize", "maximize_max" }) {
        QTest::addRow("%s on the light title bar", name)
            << own + QLatin1String(name) + QStringLiteral("-light.png") << QColor(0xD9D9D9);
        QTest::addRow("%s, hovered", name)
            << own + QLatin1String(name) + QStringLiteral("-light.png") << QColor(0xC6C6C6);
        QTest::addRow("%s on the slate title bar", name)
            << own + QLatin1String(name) + QStringLiteral(".png") << QColor(0x33474A);
    }
    QTest::newRow("help on the navigation bar")
        << own + QStringLiteral("help-light.png") << QColor(0xF3F3F3);
    for (const char *name : { "restore", "Minimize-2", "close3", "Maximize-3" }) {
        QTest::addRow("%s on the blue title bar", name)
            << own + QStringLiteral("image_dark/%1.png").arg(QLatin1String(name))
            << QColor(0x24568F);
    }
}

void tst_Resources::glyphsStandOutFromTheirGrounds()
{
    QFETCH(QString, glyph);
    QFETCH(QColor, ground);
    const QImage image(glyph);
    QVERIFY(!image.isNull());
    double strongest = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() > 250)
                strongest = qMax(strongest, qAbs(luminance(pixel) - luminance(ground)));
        }
    }
    QVERIFY2(strongest > 90, qPrintable(QString::number(strongest)));
}

void tst_Resources::busyAnimationTurnsSmoothlyOnTransparentGround()
{
    // What the file says: a QMovie takes the time that it needs itself off a frame's delay.
    QImageReader reader(QStringLiteral(":/KestWidgets/Resources/loading.gif"));
    const int count = reader.imageCount();
    QVERIFY(count >= 12);
    QCOMPARE(reader.loopCount(), -1); // without end
    int delay = 0;
    QSet<QByteArray> frames;
    for (int i = 0; i < count; ++i) {
        const QImage image = reader.read();
        QCOMPARE(image.size(), QSize(48, 48));
        if (i == 0)
            delay = reader.nextImageDelay();
        QVERIFY(delay >= 30 && delay <= 100);
        QCOMPARE(reader.nextImageDelay(), delay);
        for (const QPoint &corner :
             { QPoint(0, 0), QPoint(47, 0), QPoint(0, 47), QPoint(47, 47), QPoint(24, 24) }) {
            QCOMPARE(image.pixelColor(corner).alpha(), 0);
        }
        frames.insert(QByteArray(reinterpret_cast<const char *>(image.constBits()),
                                 int(image.sizeInBytes())));
    }
    QCOMPARE(frames.size(), count);
}

void tst_Resources::sheetsHaveTheirMeasure_data()
{
    QTest::addColumn<int>("rules");
    QTest::newRow("default-light.css") << 108;
    QTest::newRow("sw-light.css") << 138;
    QTest::newRow("tool.css") << 159;
    QTest::newRow("kest-blue.css") << 122;
}

void tst_Resources::sheetsHaveTheirMeasure()
{
    QFETCH(int, rules);
    const QList<Rule> found = rulesOf(sheetText(QString::fromLatin1(QTest::currentDataTag())));
    QCOMPARE(found.size(), rules);
    for (const Rule &rule : found)
        QVERIFY2(!rule.declarations.isEmpty(), qPrintable(rule.selectors.join(QLatin1Char(','))));
}

void tst_Resources::noRuleIsRepeated_data()
{
    sheetsHaveTheirMeasure_data();
}

void tst_Resources::noRuleIsRepeated()
{
    QSet<QString> seen;
    for (Rule rule : rulesOf(sheetText(QString::fromLatin1(QTest::currentDataTag())))) {
        rule.selectors.sort();
        const QString key = rule.selectors.join(QLatin1Char(','));
        QVERIFY2(!seen.contains(key), qPrintable(key));
        seen.insert(key);
    }
}

void tst_Resources::urlsLeadToImages_data()
{
    QTest::addColumn<QStringList>("dead");
    QTest::newRow("default-light.css") << QStringList();
    QTest::newRow("kest-blue.css") << QStringList();
    // Images that hosts bring along, or that earlier versions had.
    QTest::newRow("sw-light.css") << QStringList {
        QStringLiteral(":/KestWidgets/Resources/clear.png"),
        QStringLiteral(":/QRavDocking/Resources/dockTitleFixed.svg"),
        QStringLiteral(":/QRavDocking/Resources/dockTitleFloat.svg")
    };
    QTest::newRow("tool.css") << QStringList { QStringLiteral(
                                                   ":/QRavTabWidget/Resources/close-tab.png"),
                                               QStringLiteral(":/images/collapse.png"),
                                               QStringLiteral(":/images/expand.png"),
                                               QStringLiteral(":/images/toolbox-open.png"),
                                               QStringLiteral(":/utility/resource/open.png"),
                                               QStringLiteral(":/utility/resource/print.png"),
                                               QStringLiteral(":/utility/resource/save.png") };
}

void tst_Resources::urlsLeadToImages()
{
    QFETCH(QStringList, dead);
    const QString sheet = sheetText(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(urlsOf(sheet).size() > dead.size());
    QCOMPARE(deadUrlsOf(sheet), dead);
}

void tst_Resources::lightSheetThemesNoWidgetOfTheLibrary()
{
    const QString sheet = sheetText(QStringLiteral("default-light.css"));
    QVERIFY(!sheet.contains(QRegularExpression(QStringLiteral("[.# \\n](Kest|QRav)\\w"))));
}

void tst_Resources::declarations_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QString>("selector");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("value");

    int number = 0;
    const auto row = [&number](const char *sheet, const char *selector, const char *property,
                               const char *value) {
        QTest::addRow("%d %s %s %s", ++number, sheet, selector, property)
            << QString::fromLatin1(sheet) << QString::fromLatin1(selector)
            << QString::fromLatin1(property) << QString::fromLatin1(value);
    };
    const char light[] = "default-light.css";
    row(light, "QPushButton", "min-height", "27px");
    row(light, "QPushButton", "background", "#E1E1E1");
    row(light, "QPushButton:hover", "border-color", "#2477CE");
    row(light, "QPushButton:default", "background", "#2477CE");
    row(light, "QComboBox QListView::item", "padding-left", "5px");
    row(light, "QComboBox QListView::item", "height", "21px");

    const char own[] = "sw-light.css";
    row(own, ".KestTitleBar", "background", "#D9D9D9");
    row(own, ".KestTitleBar", "color", "rgba(94,94,94,1)");
    row(own, "KestTitleBar QAbstractButton", "background", "transparent");
    row(own, "KestTitleBar QAbstractButton", "padding", "0px 5px");
    row(own, "KestTitleBar QAbstractButton:hover", "background", "#C6C6C6");
    row(own, "KestTitleBar QAbstractButton:pressed", "background", "#C0C0C0");
    row(own, ".KestTitleBar #closeBtn", "image", "url(:/KestWidgets/Resources/close-light.png)");
    row(own, ".KestTitleBar #minimumSizeBtn", "image",
        "url(:/KestWidgets/Resources/minimize-light.png)");
    row(own, ".KestTitleBar #maximumSizeBtn[maximumsized=true]", "image",
        "url(:/KestWidgets/Resources/maximize-light.png)");
    row(own, ".KestTitleBar #maximumSizeBtn[maximumsized=false]", "image",
        "url(:/KestWidgets/Resources/maximize_max-light.png)");
    row(own, "KestTitleBar QMenuBar", "background", "#D9D9D9");
    row(own, "KestTitleBar QMenuBar::item", "background", "#D9D9D9");
    row(own, ".KestNavigationBar", "background", "#F3F3F3");
    row(own, ".KestNavigationBar", "color", "#4F4F4F");
    row(own, ".KestNavigationBar", "border-bottom", "1px solid #D9D9D9");
    row(own, "KestNavigationBar::separator", "width", "1px");
    row(own, "KestNavigationBar::separator", "background", "#CCCCCC");
    row(own, "KestNavigationBar::separator", "margin", "8px 0px");
    row(own, "KestNavigationBar #help", "image", "url(:/KestWidgets/Resources/help-light.png)");

    const char blue[] = "kest-blue.css";
    row(blue, "QWidget", "font-size", "18px");
    row(blue, "KestTitleBar", "min-height", "48px");
    row(blue, "KestTitleBar", "max-height", "48px");
    row(blue, "KestTitleBar", "font-size", "20px");
    row(blue, "KestTitleBar", "font-weight", "bold");
    row(blue, "KestTitleBar QAbstractButton", "padding", "0px 12px");
    row(blue, "KestTitleBar QAbstractButton:hover", "background", "#4d94db");
    row(blue, "KestTitleBar QAbstractButton:pressed", "background", "#5f97cf");
    row(blue, "KestTitleBar #closeBtn", "min-width", "24px");
    row(blue, "KestTitleBar #closeBtn", "max-height", "24px");
    row(blue, "KestTitleBar #closeBtn", "padding", "12px 12px");
    row(blue, "KestTitleBar #closeBtn:hover", "background", "#E81123");
    row(blue, "KestTitleBar #closeBtn", "image",
        "url(:/KestWidgets/Resources/image_dark/close3.png)");
    row(blue, "KestTitleBar #minimumSizeBtn", "image",
        "url(:/KestWidgets/Resources/image_dark/Minimize-2.png)");
    row(blue, "KestTitleBar #maximumSizeBtn[maximumsized=true]", "image",
        "url(:/KestWidgets/Resources/image_dark/restore.png)");
    row(blue, "KestTitleBar #maximumSizeBtn[maximumsized=false]", "image",
        "url(:/KestWidgets/Resources/image_dark/Maximize-3.png)");
    row(blue, "KestTitleBar::separator", "width", "1px");
    row(blue, "KestTitleBar::separator", "background", "#C4C4C4");
    row(blue, "KestTitleBar::separator", "margin", "12px 0px");

    // Larger controls, and both kinds of rules.
    const char tool[] = "tool.css";
    row(tool, "QPushButton", "min-height", "33px");
    row(tool, ".KestTitleBar", "background", "#33474A");
}

void tst_Resources::declarations()
{
    QFETCH(QString, sheet);
    QFETCH(QString, selector);
    QFETCH(QString, property);
    QFETCH(QString, value);
    QCOMPARE(valueIn(sheetText(sheet), selector, property), value);
}

void tst_Resources::idleRulesAreForTheHostsFamily()
{
    const QString sheet = sheetText(QStringLiteral("sw-light.css"));
    for (const char *name :
         { "QRavComboBox", "QRavTabWidget", "QRavDockTitle", "QRavNavigationSidePane",
           "QRavToolButton", "#KestWidgets_closeBtn", "[KestWidgets_active=" }) {
        QVERIFY2(sheet.contains(QLatin1String(name)), name);
    }
}

void tst_Resources::sheetsParseWithoutWarnings_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::newRow("default") << KestStyleSheet::defaultStyleSheet();
    for (const char *name : { "tool.css", "kest-blue.css" })
        QTest::newRow(name) << sheetText(QString::fromLatin1(name));
    for (const float rate : { 1.25f, 1.5f, 2.0f }) {
        QTest::addRow("default at %d %%", int(rate * 100))
            << KestStyleSheet::scaleSheet(KestStyleSheet::defaultStyleSheet(), rate);
    }
}

void tst_Resources::sheetsParseWithoutWarnings()
{
    QFETCH(QString, sheet);
    warnings.clear();
    const QtMessageHandler old = qInstallMessageHandler(collectWarning);
    qApp->setStyleSheet(sheet);
    {
        QWidget window;
        auto *layout = new QVBoxLayout(&window);
        auto *title = new KestTitleBar(&window);
        title->menuBar()->addMenu(QStringLiteral("Menu"))->addAction(QStringLiteral("Item"));
        layout->addWidget(title);
        auto *navigation = new KestNavigationBar(&window);
        layout->addWidget(navigation);
        navigation->addAction(QStringLiteral("Action"), KestNavigationBar::Left);
        navigation->addSeparator(KestNavigationBar::Left)->setParent(navigation);
        auto *tabs = new QTabWidget;
        tabs->addTab(new QTreeWidget, QStringLiteral("Tree"));
        tabs->addTab(new QTableWidget(50, 50), QStringLiteral("Table"));
        tabs->setCurrentIndex(1);
        for (QWidget *widget : std::initializer_list<QWidget *> {
                 new QPushButton, new QToolButton, new QCheckBox, new QRadioButton, new QLineEdit,
                 new QComboBox, new QSpinBox, new QProgressBar, new QSlider(Qt::Horizontal),
                 new QScrollBar(Qt::Horizontal), tabs }) {
            layout->addWidget(widget);
        }
        window.grab();
    }
    qInstallMessageHandler(old);
    QCOMPARE(warnings, QStringList());
}

void tst_Resources::titleBarHasTheSheetsGround()
{
    qApp->setStyleSheet(KestStyleSheet::defaultStyleSheet());
    QWidget window;
    KestTitleBar bar(&window);
    bar.resize(600, 42);
    const QImage image = bar.grab().toImage();
    QCOMPARE(image.pixelColor(300, 4), QColor(0xD9D9D9));
    QCOMPARE(image.pixelColor(2, 40), QColor(0xD9D9D9));
    QCOMPARE(bar.palette().color(QPalette::WindowText).rgb(), qRgb(94, 94, 94));
}

void tst_Resources::maximiseButtonFollowsItsProperty_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<int>("size");
    QTest::addColumn<QString>("maximized");
    QTest::addColumn<QString>("restored");
    const QString own = QStringLiteral(":/KestWidgets/Resources/");
    QTest::newRow("default") << KestStyleSheet::defaultStyleSheet() << 16
                             << own + QStringLiteral("maximize-light.png")
                             << own + QStringLiteral("maximize_max-light.png");
    QTest::newRow("kest-blue") << sheetText(QStringLiteral("kest-blue.css")) << 24
                               << own + QStringLiteral("image_dark/restore.png")
                               << own + QStringLiteral("image_dark/Maximize-3.png");
}

void tst_Resources::maximiseButtonFollowsItsProperty()
{
    QFETCH(QString, sheet);
    QFETCH(int, size);
    QFETCH(QString, maximized);
    QFETCH(QString, restored);
    qApp->setStyleSheet(sheet);
    QWidget window;
    KestTitleBar bar(&window);
    bar.resize(600, 48);
    auto *button = bar.findChild<QWidget *>(QStringLiteral("maximumSizeBtn"));
    QVERIFY(button);
    QImage seen[2];
    for (const bool on : { false, true }) {
        button->setProperty("maximumsized", on);
        seen[on] = button->grab().toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
        // The glyph alone in the middle of the button, at the size that the sheet gives it.
        QImage expected(button->size(), QImage::Format_ARGB32_Premultiplied);
        expected.fill(seen[on].pixel(0, 0));
        QPainter painter(&expected);
        QRect place(0, 0, size, size);
        place.moveTopLeft(QPoint((button->width() - size) / 2, (button->height() - size) / 2));
        QIcon(on ? maximized : restored).paint(&painter, place);
        painter.end();
        QCOMPARE(seen[on], expected);
    }
    QVERIFY(seen[0] != seen[1]);
}

void tst_Resources::listItemsOfComboBoxesHaveTheirHeight()
{
    qApp->setStyleSheet(KestStyleSheet::defaultStyleSheet());
    QComboBox combo;
    combo.setView(new QListView);
    combo.addItems({ QStringLiteral("one"), QStringLiteral("two") });
    combo.show();
    QCOMPARE(combo.view()->sizeHintForRow(0), 21);
}

void tst_Resources::buttonsHaveTheirHeightAndGround()
{
    qApp->setStyleSheet(KestStyleSheet::defaultStyleSheet());
    QPushButton button(QStringLiteral("Button"));
    button.resize(button.sizeHint());
    QCOMPARE(button.height(), 27 + 2 * (2 + 1)); // and its padding and border
    QCOMPARE(button.grab().toImage().pixelColor(6, 6), QColor(0xE1E1E1));
}

void tst_Resources::separatorOfTheNavigationBarIsALine()
{
    qApp->setStyleSheet(KestStyleSheet::defaultStyleSheet());
    KestNavigationBar bar;
    QAction *const separator = bar.addSeparator(KestNavigationBar::Left);
    separator->setParent(&bar);
    bar.resize(300, 50);
    const QImage image = bar.grab().toImage();
    const QRect rect = bar.actionRect(separator);
    QCOMPARE(rect.width(), 1);
    const int x = rect.left();
    QCOMPARE(image.pixelColor(x, rect.top() + 7), QColor(0xF3F3F3));
    QCOMPARE(image.pixelColor(x, rect.top() + 8), QColor(0xCCCCCC));
    QCOMPARE(image.pixelColor(x, rect.bottom() - 8), QColor(0xCCCCCC));
    QCOMPARE(image.pixelColor(x, rect.bottom() - 7), QColor(0xF3F3F3));
    QCOMPARE(image.pixelColor(x + 2, 25), QColor(0xF3F3F3));
    QCOMPARE(image.pixelColor(150, 49), QColor(0xD9D9D9)); // the bar's bottom line
}

QTEST_MAIN(tst_Resources)
#include "tst_resources.moc"
