// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "TitleBarHost.h"

#include <QAction>
#include <QtGui/QPaintEvent>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QProxyStyle>

#include <functional>

class tst_KestTitleBar_Title : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void titleFollowsTheIcon();
    void blanksBelongToTheTitle();
    void titleStaysOnOneLine();
    void titleHasTheBarsFontAndColourWhateverTheStyleLeaves();
    void titleIsCentredBesideANarrowMenuBar();
    void titleMovesAsideForAWideMenuBar();
    void titleChangeRepaints();
    void whatMovesTheTitleOrTheIconPaintsAnew();
    void titleIsTheCaptionThatQtSets_data();
    void titleIsTheCaptionThatQtSets();
    void modifiedMarkComesAndGoes();
    void filePathTitlesTheBar();
    void titleOfADisabledBarHasItsColour();

    void rightToLeftIconAndTitleAreMirrored();
    void rightToLeftTitleIsMirroredBesideAMenuBar();
    void rightToLeftNothingOverlaps();
    void directionCanChangeAtAnyTime();
};

void tst_KestTitleBar_Title::titleFollowsTheIcon()
{
    Host host;
    for (QWidget *child : host.bar->findChildren<QWidget *>())
        child->hide();
    const QString title = QStringLiteral("Some Title");
    host.setWindowTitle(title);
    QCOMPARE(painted(host.bar), expectedPainting(host.bar, title, 8 + 0 + 16, QRect(), QPixmap()));
    QPixmap pixmap(24, 24);
    pixmap.fill(Qt::blue);
    host.bar->setIconPixmap(pixmap);
    QCOMPARE(painted(host.bar),
             expectedPainting(host.bar, title, 8 + 24 + 16, QRect(8, 12, 24, 24), pixmap));
}

void tst_KestTitleBar_Title::blanksBelongToTheTitle()
{
    Host host;
    for (QWidget *child : host.bar->findChildren<QWidget *>())
        child->hide();
    for (const QString &title :
         { QStringLiteral("Some Title      "), QStringLiteral("    Some Title"),
           QStringLiteral("Some     Title") }) {
        host.setWindowTitle(title);
        QCOMPARE(painted(host.bar),
                 expectedPainting(host.bar, title, 8 + 0 + 16, QRect(), QPixmap()));
    }
}

// Also one with places to break at, where a hyphen would be wider than what is left of it.
void tst_KestTitleBar_Title::titleStaysOnOneLine()
{
    Host host;
    for (QWidget *child : host.bar->findChildren<QWidget *>())
        child->hide();
    for (const QString &end : { QString(), QStringLiteral("."), QStringLiteral("i") }) {
        const QString title = QStringLiteral("word word") + QChar(QChar::SoftHyphen) + end;
        host.setWindowTitle(title);
        QCOMPARE(painted(host.bar), expectedPainting(host.bar, title, 24, QRect(), QPixmap()));
    }
}

void tst_KestTitleBar_Title::titleHasTheBarsFontAndColourWhateverTheStyleLeaves()
{
    class Style : public QProxyStyle
    {
    public:
        void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                           const QWidget *widget) const override
        {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
            if (leaves) {
                painter->setFont(QFont(QStringLiteral("DejaVu Serif"), 20));
                painter->setPen(Qt::magenta);
            }
        }

        bool leaves = false;
    };
    Style style;
    Host host;
    host.setWindowTitle(QStringLiteral("Some Title"));
    host.bar->setStyle(&style);
    const QImage expected = painted(host.bar);
    style.leaves = true;
    QCOMPARE(painted(host.bar), expected);
}

void tst_KestTitleBar_Title::titleIsCentredBesideANarrowMenuBar()
{
    Host host;
    host.bar->menuBar()->addMenu(QStringLiteral("File"));
    host.show();
    const QString title = QStringLiteral("Some Title");
    host.setWindowTitle(title);
    host.bar->menuBar()->setGeometry(40, 10, 60, 28);
    const int width = host.bar->fontMetrics().size(Qt::TextSingleLine, title).width();
    QCOMPARE(painted(host.bar),
             expectedPainting(host.bar, title, (600 - width) / 2, QRect(), QPixmap()));
}

void tst_KestTitleBar_Title::titleMovesAsideForAWideMenuBar()
{
    Host host;
    host.bar->menuBar()->addMenu(QStringLiteral("File"));
    host.show();
    const QString title = QStringLiteral("Some Title");
    host.setWindowTitle(title);
    const int width = host.bar->fontMetrics().size(Qt::TextSingleLine, title).width();
    const int centred = (600 - width) / 2;
    for (const int right : { centred - 1, centred, centred + 1, 400 }) {
        host.bar->menuBar()->setGeometry(QRect(QPoint(40, 10), QPoint(right, 38)));
        const int x = right < centred ? centred : (600 - right - width) / 2;
        QCOMPARE(painted(host.bar), expectedPainting(host.bar, title, x, QRect(), QPixmap()));
    }
}

void tst_KestTitleBar_Title::titleChangeRepaints()
{
    Host host;
    host.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host));
    QCoreApplication::processEvents();
    PaintCounter counter(host.bar);
    host.setWindowTitle(QStringLiteral("new"));
    QTRY_COMPARE(counter.count, 1);
    QVERIFY(host.bar->findChildren<QLabel *>().isEmpty());
}

void tst_KestTitleBar_Title::whatMovesTheTitleOrTheIconPaintsAnew()
{
    Host host;
    host.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host));
    host.bar->menuBar()->addMenu(QStringLiteral("Menu"));
    QTest::qWait(20);
    const auto paintsFor = [&host](const std::function<void()> &change) {
        class Painted : public QObject
        {
        public:
            bool eventFilter(QObject *, QEvent *event) override
            {
                if (event->type() == QEvent::Paint)
                    region += static_cast<QPaintEvent *>(event)->region();
                return false;
            }
            QRegion region;
        } filter;
        host.bar->installEventFilter(&filter);
        change();
        QTest::qWait(20);
        return filter.region == QRegion(host.bar->rect());
    };
    QVERIFY(paintsFor([&host] { host.bar->setProperty("geoRate", 1.5); }));
    QVERIFY(paintsFor([&host] { host.bar->setMenuBar(nullptr); }));
    for (QWidget *child : host.bar->findChildren<QWidget *>())
        child->hide();
    QTest::qWait(20);
    QVERIFY(paintsFor([&host] { host.bar->setLayoutDirection(Qt::RightToLeft); }));
}

void tst_KestTitleBar_Title::titleIsTheCaptionThatQtSets_data()
{
    QTest::addColumn<QString>("title");
    for (const char *title :
         { "plain", "notes[*]", "[*]notes", "notes[*] - editor", "a[*][*]b", "a[*][*][*]b",
           "a[*][*][*][*]b", "one[*] and two[*]", "one[*] and [*][*] three", "[*]", "[*][*]",
           "a[*]b[*]c", "half[* of *] it" })
        QTest::newRow(title) << QString::fromLatin1(title);
}

void tst_KestTitleBar_Title::titleIsTheCaptionThatQtSets()
{
    QFETCH(QString, title);
    Host host;
    host.setWindowTitle(title);
    host.show();
    for (QWidget *child : host.bar->findChildren<QWidget *>())
        child->hide();
    for (const bool modified : { false, true, false }) {
        host.setWindowModified(modified);
        QCOMPARE(painted(host.bar),
                 expectedPainting(host.bar, host.windowHandle()->title(), 8 + 0 + 16, QRect(),
                                  QPixmap()));
    }
    // Measured it is too, where it is centred.
    host.bar->menuBar()->setGeometry(40, 10, 60, 28);
    const QString shown = host.windowHandle()->title();
    const int width = host.bar->fontMetrics().size(Qt::TextSingleLine, shown).width();
    QCOMPARE(painted(host.bar),
             expectedPainting(host.bar, shown, (600 - width) / 2, QRect(), QPixmap()));
}

void tst_KestTitleBar_Title::modifiedMarkComesAndGoes()
{
    Host host;
    host.setWindowTitle(QStringLiteral("notes[*]"));
    host.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host));
    for (const bool modified : { true, false }) {
        QCoreApplication::processEvents();
        PaintCounter counter(host.bar);
        host.setWindowModified(modified);
        QTRY_COMPARE(counter.count, 1);
    }
    // Also on a bar whose parent is no window, and has no caption at the window system.
    auto *frame = new QWidget(&host);
    auto *bar = new KestTitleBar(frame);
    frame->setWindowTitle(QStringLiteral("part[*]"));
    frame->show();
    QTest::qWait(50); // until nothing is left to paint
    PaintCounter counter(bar);
    frame->setWindowModified(true);
    QTRY_COMPARE(counter.count, 1);
}

void tst_KestTitleBar_Title::filePathTitlesTheBar()
{
    Host host;
    host.setWindowFilePath(QStringLiteral("/home/ann/notes.txt"));
    host.show();
    for (QWidget *child : host.bar->findChildren<QWidget *>())
        child->hide();
    QVERIFY(QTest::qWaitForWindowExposed(&host));
    QCOMPARE(painted(host.bar),
             expectedPainting(host.bar, QStringLiteral("notes.txt"), 24, QRect(), QPixmap()));
    for (const QString &name : { QStringLiteral("other.txt"), QStringLiteral("third.txt") }) {
        QCoreApplication::processEvents();
        PaintCounter counter(host.bar);
        host.setWindowFilePath(QStringLiteral("/home/ann/") + name);
        QTRY_COMPARE(counter.count, 1);
        QCOMPARE(painted(host.bar), expectedPainting(host.bar, name, 24, QRect(), QPixmap()));
    }
}

void tst_KestTitleBar_Title::titleOfADisabledBarHasItsColour()
{
    Host host;
    host.setWindowTitle(QStringLiteral("MMMM"));
    QPalette palette = host.bar->palette();
    palette.setColor(QPalette::Active, QPalette::WindowText, Qt::red);
    palette.setColor(QPalette::Disabled, QPalette::WindowText, Qt::blue);
    host.bar->setPalette(palette);
    const auto has = [&host](QRgb color) {
        const QImage image = painted(host.bar);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) == color)
                    return true;
            }
        }
        return false;
    };
    QVERIFY(!has(0xFF0000FF));
    host.bar->setEnabled(false);
    QVERIFY(has(0xFF0000FF));
    QVERIFY(!has(0xFFFF0000));
}

void tst_KestTitleBar_Title::rightToLeftIconAndTitleAreMirrored()
{
    Host host;
    for (QWidget *child : host.bar->findChildren<QWidget *>())
        child->hide();
    const QString title = QStringLiteral("Some Title");
    host.setWindowTitle(title);
    host.setWindowIcon(icon({ QSize(24, 24) }));
    const int width = host.bar->fontMetrics().size(Qt::TextSingleLine, title).width();
    const QRect titleRect(8 + 24 + 16, 0, width, 48);
    host.setLayoutDirection(Qt::RightToLeft);
    QCOMPARE(host.bar->doIconRect(), QRect(600 - 8 - 24, 12, 24, 24));
    QPixmap pixmap(24, 24);
    pixmap.fill(Qt::red);
    QCOMPARE(painted(host.bar),
             expectedPainting(host.bar, title, mirrored(host.bar, titleRect).left(),
                              QRect(600 - 8 - 24, 12, 24, 24), pixmap));
    QCOMPARE(host.row()->contentsMargins(), QMargins(0, 0, 24 + 8 + 16, 0));
    host.bar->setIconVisible(false);
    QCOMPARE(host.row()->contentsMargins(), QMargins());
    host.bar->setIconVisible(true);
    QCOMPARE(host.row()->contentsMargins(), QMargins(0, 0, 24 + 8 + 16, 0));
}

void tst_KestTitleBar_Title::rightToLeftTitleIsMirroredBesideAMenuBar()
{
    Host host;
    host.setLayoutDirection(Qt::RightToLeft);
    host.bar->menuBar()->addMenu(QStringLiteral("File"));
    host.show();
    const QString title = QStringLiteral("Some Title");
    host.setWindowTitle(title);
    const int width = host.bar->fontMetrics().size(Qt::TextSingleLine, title).width();
    const int centred = (600 - width) / 2;
    for (const int right : { 100, centred - 1, centred, 400 }) {
        host.bar->menuBar()->setGeometry(
            mirrored(host.bar, QRect(QPoint(40, 10), QPoint(right, 38))));
        const int x = right < centred ? centred : (600 - right - width) / 2;
        const QRect rect = mirrored(host.bar, QRect(x, 0, width, 48));
        QCOMPARE(painted(host.bar),
                 expectedPainting(host.bar, title, rect.left(), QRect(), QPixmap()));
    }
}

void tst_KestTitleBar_Title::rightToLeftNothingOverlaps()
{
    Host leftToRight;
    Host rightToLeft;
    rightToLeft.setLayoutDirection(Qt::RightToLeft);
    QAction action(icon({ QSize(16, 16) }), QString());
    for (Host *host : { &leftToRight, &rightToLeft }) {
        host->setWindowIcon(icon({ QSize(24, 24) }));
        host->setWindowTitle(QStringLiteral("title"));
        host->bar->menuBar()->addMenu(QStringLiteral("File"));
        host->bar->addAction(&action);
        host->show();
    }
    QTRY_VERIFY(rightToLeft.bar->menuBar()->isVisible());
    QCOMPARE(rightToLeft.bar->doIconRect(),
             mirrored(rightToLeft.bar, leftToRight.bar->doIconRect()));
    for (const char *name : { "minimumSizeBtn", "maximumSizeBtn", "closeBtn" }) {
        QCOMPARE(rightToLeft.button(name)->geometry(),
                 mirrored(rightToLeft.bar, leftToRight.button(name)->geometry()));
    }
    QCOMPARE(rightToLeft.actionRow()->itemAt(0)->widget()->geometry(),
             mirrored(rightToLeft.bar, leftToRight.actionRow()->itemAt(0)->widget()->geometry()));
    QCOMPARE(rightToLeft.bar->menuBar()->geometry(),
             mirrored(rightToLeft.bar, leftToRight.bar->menuBar()->geometry()));
    QVERIFY(!rightToLeft.bar->menuBar()->geometry().intersects(rightToLeft.bar->doIconRect()));
}

void tst_KestTitleBar_Title::directionCanChangeAtAnyTime()
{
    Host host;
    host.setWindowIcon(icon({ QSize(24, 24) }));
    const QMargins margins = host.row()->contentsMargins();
    const QMargins actionMargins = host.actionRow()->contentsMargins();
    const QRect rect = host.bar->doIconRect();
    host.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host));
    QCoreApplication::processEvents();
    PaintCounter counter(host.bar);
    host.setLayoutDirection(Qt::RightToLeft);
    QTRY_VERIFY(counter.count > 0);
    QCOMPARE(host.row()->contentsMargins(), QMargins(0, 0, margins.left(), 0));
    QCOMPARE(host.actionRow()->contentsMargins(),
             QMargins(actionMargins.right(), actionMargins.top(), actionMargins.left(),
                      actionMargins.bottom()));
    host.setLayoutDirection(Qt::LeftToRight);
    QCOMPARE(host.row()->contentsMargins(), margins);
    QCOMPARE(host.actionRow()->contentsMargins(), actionMargins);
    QCOMPARE(host.bar->doIconRect(), rect);
    // A bar that is made right to left is as one that became so.
    QWidget window;
    window.setLayoutDirection(Qt::RightToLeft);
    KestTitleBar bar(&window);
    QCOMPARE(bar.findChild<QHBoxLayout *>(QStringLiteral("actionLayout"))->contentsMargins().left(),
             9);
}

QTEST_MAIN(tst_KestTitleBar_Title)
#include "tst_kesttitlebar_title.moc"
