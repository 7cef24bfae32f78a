// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestTitleBar.h"

#include "KestMaximumSizeButton.h"
#include "KestSeparator.h"
#include "KestToolButton.h"
#include "OnEvent.h"
#include "TitleBarHost.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QMetaProperty>
#include <QtCore/QPointer>
#include <QtCore/QScopeGuard>
#include <QtCore/QTranslator>
#include <QtGui/QIconEngine>
#include <QtGui/QPainter>
#include <QtGui/QResizeEvent>
#include <QtGui/QWindow>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QVBoxLayout>
#include <QtWidgets/QWidgetAction>

#include <functional>
#include <limits>
#include <memory>
#include <vector>

namespace {

class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *widget) { widget->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }

    int count = 0;
};

// Keeps events of one type from a widget, and from the filters that it has so far.
class Drop : public QObject
{
public:
    Drop(QWidget *widget, QEvent::Type type) : m_type(type) { widget->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override { return event->type() == m_type; }

private:
    const QEvent::Type m_type;
};

// An icon that can be drawn in any size, and notes the largest one that it was asked for.
class Drawing : public QIconEngine
{
public:
    Drawing(const QSize &size, QSize *largest) : m_size(size), m_largest(largest) { }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode, QIcon::State) override
    {
        painter->fillRect(rect, Qt::red);
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode, QIcon::State) override
    {
        *m_largest = m_largest->expandedTo(size);
        QPixmap result(size);
        result.fill(Qt::red);
        return result;
    }
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) const override { return { m_size }; }
    QIconEngine *clone() const override { return new Drawing(*this); }

private:
    QSize m_size;
    QSize *m_largest;
};

QRect mirrored(const QWidget *widget, const QRect &rect)
{
    return QRect(widget->width() - rect.left() - rect.width(), rect.top(), rect.width(),
                 rect.height());
}

QImage expectedPainting(KestTitleBar *bar, const QString &title, int x, const QRect &iconRect,
                        const QPixmap &iconPixmap)
{
    QImage image(bar->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(bar->palette().color(QPalette::Window)); // the bar fills its ground
    QPainter painter(&image);
    painter.setFont(bar->font());
    QStyleOption option;
    option.initFrom(bar);
    bar->style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, bar);
    if (!iconPixmap.isNull())
        painter.drawPixmap(iconRect, iconPixmap);
    const int width = bar->fontMetrics().size(Qt::TextSingleLine, title).width();
    painter.setPen(bar->palette().color(QPalette::WindowText));
    painter.drawText(QRect(x, 0, width, bar->height()),
                     Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip, title);
    return image;
}

} // namespace

class tst_KestTitleBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metaObject();
    void defaults();
    void formIsBuiltAsDesigned();
    void formKeepsAnObjectName();
    void windowTitleIsTranslatable();

    void closeButtonClosesTheWindow();
    void minimiseButtonMinimisesTheWindow();
    void maximiseButtonMaximisesAndRestores();
    void maximiseButtonRestoresAFullScreenWindow();
    void maximiseButtonLosesItsHover();
    void maximiseButtonKeepsTheHoverThatItHas();
    void whatMovesTheTitleOrTheIconPaintsAnew();
    void roomForTheIconIsInDeviceIndependentPixels();
    void menuBarDoesNotFillItsGround();
    void actionIconSizeIsThereWhenItIsAnnounced();
    void titleOfADisabledBarHasItsColour();
    void iconIsTakenAnewWithTheApplications();
    void fixedSizeHasTwoDimensions();
    void onlyTheParentIsFollowed();
    void slotsActOnTheWindowOfANestedBar();

    void buttonsAreHiddenByTheWindowsFlags_data();
    void buttonsAreHiddenByTheWindowsFlags();
    void buttonsAreNeverShownAgain();
    void showSetsMappedAndTheState();
    void stateChangesFlipTheProperty();
    void fixedSizeHidesTheMaximiseButton();
    void fixedSizeWithoutHintChangesNothing();

    void windowIconIsTaken_data();
    void windowIconIsTaken();
    void pixmapOfAFinerScreenHasItsSize();
    void onlyTheRateRepaints();
    void windowIconIsFollowed();
    void windowIconWithoutSizesLeavesTheOldOne();
    void invisibleIconIsNotFollowed();
    void iconSizeIsOnlyStored();
    void customPixmapStaysWhenTheIconChanges();
    void iconPositionIsOnlyStored();
    void iconRect_data();
    void iconRect();
    void iconIsSharpAtHigherScales();

    void iconIsRepaintedWhenItComesAndGoes();
    void rateMakesTheSameIconSharper();
    void rateLeavesAPixmapOfTheHosts();
    void rateNeverMakesAHugePicture_data();
    void rateNeverMakesAHugePicture();
    void ratesWithoutSenseDoNoHarm_data();
    void ratesWithoutSenseDoNoHarm();
    void extremePositionsDoNoHarm_data();
    void extremePositionsDoNoHarm();

    void titleFollowsTheIcon();
    void titleIsCentredBesideANarrowMenuBar();
    void titleMovesAsideForAWideMenuBar();
    void titleChangeRepaints();
    void titleIsTheCaptionThatQtSets_data();
    void titleIsTheCaptionThatQtSets();
    void modifiedMarkComesAndGoes();
    void filePathTitlesTheBar();
    void sheetPaintsTheGround();

    void rightToLeftIconAndTitleAreMirrored();
    void rightToLeftTitleIsMirroredBesideAMenuBar();
    void rightToLeftNothingOverlaps();
    void directionCanChangeAtAnyTime();

    void barFollowsTheWindowItIsPutInto();
    void barTakesTheIconThatItsWindowHas();

    void menuBarIsCreatedOnRequest();
    void menuBarIsReplaced();
    void menuBarIsCleared();
    void sameMenuBarAgainChangesNothing();

    void actionsBecomeButtonsInOrder();
    void separatorsAndWidgetsAreTaken();
    void removedActionLosesItsButton();
    void changedActionLeavesTheBar();
    void removedCustomWidgetLivesOn();
    void actionIconSizeReachesAllButtons();
    void actionIconSizeIsStoredBeforeItIsAnnounced();

    void barWithoutParentIsHarmless();
    void actionsAddedTogetherAreLaidOutTogether();
    void maximiseButtonIsPolishedForAChangeAlone();
};

void tst_KestTitleBar::metaObject()
{
    const QMetaObject &meta = KestTitleBar::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        methods.append(QString::number(meta.method(i).methodType()) + QLatin1Char(' ')
                       + QString::fromLatin1(meta.method(i).methodSignature()));
    }
    methods.sort();
    QCOMPARE(methods,
             (QStringList {
                 QStringLiteral("1 actionIconSizeChanged(QSize)"),
                 QStringLiteral("1 iconSizeChanged(QSize)"), QStringLiteral("2 onCloseBtn()"),
                 QStringLiteral("2 onMaximumSizeBtn()"), QStringLiteral("2 onMinimumSizeBtn()") }));

    Host host;
    QStringList properties;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
        properties.append(QString::fromLatin1(meta.property(i).name()));
    properties.sort();
    QCOMPARE(properties,
             (QStringList { QStringLiteral("actionIconSize"), QStringLiteral("iconIsVisible"),
                            QStringLiteral("iconPos"), QStringLiteral("iconSize") }));
    QVERIFY(host.bar->setProperty("iconIsVisible", false));
    QVERIFY(!host.bar->iconIsVisible());
    QVERIFY(host.bar->setProperty("iconSize", QSize(1, 2)));
    QCOMPARE(host.bar->iconSize(), QSize(1, 2));
    QVERIFY(host.bar->setProperty("iconPos", QSize(3, 4)));
    QCOMPARE(host.bar->getIconPos(), QSize(3, 4));
    QVERIFY(host.bar->setProperty("actionIconSize", QSize(5, 6)));
    QCOMPARE(host.bar->getActionIconSize(), QSize(5, 6));
}

void tst_KestTitleBar::defaults()
{
    Host host;
    QVERIFY(host.bar->iconIsVisible());
    QCOMPARE(host.bar->iconSize(), QSize(32, 32));
    QCOMPARE(host.bar->getIconPos(), QSize(8, 4));
    QCOMPARE(host.bar->getLeftMargin(), 8);
    QCOMPARE(host.bar->getActionIconSize(), QSize(32, 32));
    QCOMPARE(host.bar->focusPolicy(), Qt::StrongFocus);
    QVERIFY(!host.bar->findChild<QMenuBar *>());
}

void tst_KestTitleBar::formIsBuiltAsDesigned()
{
    QWidget parent;
    KestTitleBar bar(&parent);
    QCOMPARE(bar.objectName(), QStringLiteral("KestTitleBar"));
    QCOMPARE(bar.size(), QSize(566, 48));
    QCOMPARE(bar.sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred));
    QCOMPARE(bar.minimumSize(), QSize(0, 42));
    QCOMPARE(bar.maximumSize(), QSize(16777215, 50));
    QCOMPARE(bar.font().pointSize(), 11);
    QCOMPARE(bar.font().weight(), 75);
    QVERIFY(bar.font().bold());
    QVERIFY(!bar.font().italic());
    QVERIFY(!bar.font().underline());
    QVERIFY(bar.autoFillBackground());

    auto *row = qobject_cast<QHBoxLayout *>(bar.layout());
    QVERIFY(row);
    QCOMPARE(row->objectName(), QStringLiteral("horizontalLayout"));
    QCOMPARE(row->spacing(), 0);
    QCOMPARE(row->contentsMargins(), QMargins());
    QCOMPARE(row->count(), 6);
    const int stretches[] = { 0, 1, 0, 0, 0, 0 };
    for (int i = 0; i < 6; ++i)
        QCOMPARE(row->stretch(i), stretches[i]);

    auto *menu = qobject_cast<QHBoxLayout *>(row->itemAt(0)->layout());
    QVERIFY(menu);
    QCOMPARE(menu->objectName(), QStringLiteral("menuLayout"));
    QCOMPARE(menu->spacing(), 0);
    QCOMPARE(menu->sizeConstraint(), QLayout::SetDefaultConstraint);

    QSpacerItem *const spacer = row->itemAt(1)->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizeHint(), QSize(40, 20));
    QCOMPARE(spacer->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum));

    auto *actions = qobject_cast<QHBoxLayout *>(row->itemAt(2)->layout());
    QVERIFY(actions);
    QCOMPARE(actions->objectName(), QStringLiteral("actionLayout"));
    QCOMPARE(actions->spacing(), 6);
    QCOMPARE(actions->contentsMargins().right(), 9);
    QCOMPARE(actions->contentsMargins().left(), QHBoxLayout().contentsMargins().left());

    const char *names[] = { "minimumSizeBtn", "maximumSizeBtn", "closeBtn" };
    const char *spoken[] = { "Minimize", "Maximize", "Close" }; // what a screen reader says
    for (int i = 0; i < 3; ++i) {
        auto *button = qobject_cast<QAbstractButton *>(row->itemAt(3 + i)->widget());
        QVERIFY(button);
        QCOMPARE(button->objectName(), QLatin1String(names[i]));
        QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        QCOMPARE(button->text(), QString());
        QCOMPARE(button->accessibleName(), QLatin1String(spoken[i]));
        QVERIFY(button->icon().isNull());
        QCOMPARE(button->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(button->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(button->metaObject()->className(),
                 i < 2 ? "KestMaximumSizeButton" : "QToolButton");
    }
}

void tst_KestTitleBar::formKeepsAnObjectName()
{
    Host host;
    QCOMPARE(host.bar->metaObject()->className(), "KestTitleBar");
    QCOMPARE(host.bar->objectName(), QStringLiteral("KestTitleBar"));
    // Whatever comes later leaves the host's own.
    host.bar->setObjectName(QStringLiteral("own"));
    host.show();
    QEvent languageChange(QEvent::LanguageChange);
    QCoreApplication::sendEvent(host.bar, &languageChange);
    QCOMPARE(host.bar->objectName(), QStringLiteral("own"));
}

void tst_KestTitleBar::windowTitleIsTranslatable()
{
    class Translator : public QTranslator
    {
    public:
        bool isEmpty() const override { return false; }
        QString translate(const char *context, const char *text, const char *, int) const override
        {
            return qstrcmp(context, "KestTitleBar") == 0
                    && qstrcmp(text, "QFramelessTitleWidget") == 0
                ? QStringLiteral("translated")
                : QString();
        }
    };
    {
        Host host;
        QCOMPARE(host.bar->windowTitle(), QStringLiteral("QFramelessTitleWidget"));
    }
    Translator translator;
    QCoreApplication::installTranslator(&translator);
    Host host;
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(host.bar->windowTitle(), QStringLiteral("translated"));
}

void tst_KestTitleBar::closeButtonClosesTheWindow()
{
    Host host;
    host.show();
    QTest::mouseClick(host.button("closeBtn"), Qt::LeftButton);
    QVERIFY(!host.isVisible());
}

void tst_KestTitleBar::minimiseButtonMinimisesTheWindow()
{
    Host host;
    host.show();
    QTest::mouseClick(host.button("minimumSizeBtn"), Qt::LeftButton);
    QVERIFY(host.isMinimized());
}

void tst_KestTitleBar::maximiseButtonMaximisesAndRestores()
{
    Host host;
    host.show();
    QTest::mouseClick(host.button("maximumSizeBtn"), Qt::LeftButton);
    QVERIFY(host.isMaximized());
    QVERIFY(host.button("maximumSizeBtn")->isVisible());
    QTest::mouseClick(host.button("maximumSizeBtn"), Qt::LeftButton);
    QCOMPARE(host.windowState(), Qt::WindowNoState);
}

void tst_KestTitleBar::maximiseButtonRestoresAFullScreenWindow()
{
    Host host;
    host.showFullScreen();
    QTest::mouseClick(host.button("maximumSizeBtn"), Qt::LeftButton);
    QCOMPARE(host.windowState(), Qt::WindowNoState);
}

void tst_KestTitleBar::maximiseButtonLosesItsHover()
{
    Host host;
    host.show();
    QCursor::setPos(host.mapToGlobal(QPoint(10, 250)));
    QWidget *const button = host.button("maximumSizeBtn");
    button->setAttribute(Qt::WA_UnderMouse);
    host.bar->onMaximumSizeBtn();
    QVERIFY(!button->underMouse());
    // Also when a hover comes while the window is still on its way.
    button->setAttribute(Qt::WA_UnderMouse);
    host.resize(host.width() - 20, host.height());
    QTRY_VERIFY(!button->underMouse());
}

void tst_KestTitleBar::slotsActOnTheWindowOfANestedBar()
{
    QWidget window;
    auto *frame = new QWidget(&window);
    auto *bar = new KestTitleBar(frame);
    window.show();
    bar->onMaximumSizeBtn();
    QVERIFY(window.isMaximized());
    QVERIFY(!frame->isMaximized());
    bar->onMinimumSizeBtn();
    QVERIFY(window.isMinimized());
    bar->onCloseBtn();
    QVERIFY(!window.isVisible());
}

void tst_KestTitleBar::buttonsAreHiddenByTheWindowsFlags_data()
{
    QTest::addColumn<int>("missing");
    QTest::addColumn<QStringList>("shown");
    const QString minimum = QStringLiteral("minimumSizeBtn");
    const QString maximum = QStringLiteral("maximumSizeBtn");
    const QString close = QStringLiteral("closeBtn");
    QTest::newRow("all hints") << 0 << QStringList { minimum, maximum, close };
    QTest::newRow("no close") << int(Qt::WindowCloseButtonHint) << QStringList { minimum, maximum };
    QTest::newRow("no minimise") << int(Qt::WindowMinimizeButtonHint)
                                 << QStringList { maximum, close };
    QTest::newRow("no maximise") << int(Qt::WindowMaximizeButtonHint)
                                 << QStringList { minimum, close };
    QTest::newRow("close only") << int(Qt::WindowMinMaxButtonsHint) << QStringList { close };
}

void tst_KestTitleBar::buttonsAreHiddenByTheWindowsFlags()
{
    QFETCH(int, missing);
    QFETCH(QStringList, shown);
    Host host;
    host.setWindowFlags(host.windowFlags() & ~Qt::WindowFlags(missing));
    host.show();
    QStringList visible;
    for (const char *name : { "minimumSizeBtn", "maximumSizeBtn", "closeBtn" }) {
        if (host.button(name)->isVisible())
            visible.append(QLatin1String(name));
    }
    QCOMPARE(visible, shown);
}

void tst_KestTitleBar::buttonsAreNeverShownAgain()
{
    Host host;
    host.setWindowFlag(Qt::WindowMinimizeButtonHint, false);
    host.show();
    QVERIFY(!host.button("minimumSizeBtn")->isVisible());
    host.setWindowFlag(Qt::WindowMinimizeButtonHint, true);
    host.show();
    QVERIFY(!host.button("minimumSizeBtn")->isVisible());
}

void tst_KestTitleBar::showSetsMappedAndTheState()
{
    Host host;
    QVERIFY(!host.bar->testAttribute(Qt::WA_Mapped));
    host.setWindowState(Qt::WindowMaximized);
    host.part<KestMaximumSizeButton>("maximumSizeBtn")->setMaximumSized(false);
    host.show();
    QVERIFY(host.bar->testAttribute(Qt::WA_Mapped));
    QVERIFY(host.part<KestMaximumSizeButton>("maximumSizeBtn")->maximumSized());
}

void tst_KestTitleBar::stateChangesFlipTheProperty()
{
    Host host;
    host.show();
    auto *button = host.part<KestMaximumSizeButton>("maximumSizeBtn");
    QVERIFY(!button->maximumSized());
    host.showMaximized();
    QVERIFY(button->maximumSized());
    host.showNormal();
    QVERIFY(!button->maximumSized());
    host.showFullScreen();
    QVERIFY(!button->maximumSized());
    host.setWindowState(Qt::WindowMaximized | Qt::WindowMinimized);
    QVERIFY(button->maximumSized());
    QVERIFY(!host.part<KestMaximumSizeButton>("minimumSizeBtn")->maximumSized());
}

void tst_KestTitleBar::fixedSizeHidesTheMaximiseButton()
{
    Host host;
    host.show();
    host.setFixedSize(500, 250);
    QTRY_VERIFY(!host.button("maximumSizeBtn")->isVisible());
    host.setMinimumSize(100, 100);
    host.setMaximumSize(1000, 1000);
    QVERIFY(!host.button("maximumSizeBtn")->isVisible()); // until the next resize
    host.resize(510, 250);
    QTRY_VERIFY(host.button("maximumSizeBtn")->isVisible());
}

void tst_KestTitleBar::fixedSizeWithoutHintChangesNothing()
{
    Host host;
    host.setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    host.show();
    host.resize(510, 260);
    QCoreApplication::processEvents();
    QVERIFY(!host.button("maximumSizeBtn")->isVisible());
    host.button("maximumSizeBtn")->show();
    host.setFixedSize(500, 250);
    QCoreApplication::processEvents();
    QVERIFY(host.button("maximumSizeBtn")->isVisible());
}

void tst_KestTitleBar::windowIconIsTaken_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("shown");
    QTest::newRow("smaller") << QSize(16, 20) << QSize(16, 20);
    QTest::newRow("as high") << QSize(32, 32) << QSize(32, 32);
    QTest::newRow("larger") << QSize(64, 64) << QSize(32, 32);
    QTest::newRow("wide") << QSize(128, 64) << QSize(64, 32);
    QTest::newRow("wide, not high") << QSize(100, 20) << QSize(100, 20);
}

void tst_KestTitleBar::windowIconIsTaken()
{
    QFETCH(QSize, size);
    QFETCH(QSize, shown);
    Host host;
    host.setWindowIcon(icon({ size }));
    QCOMPARE(host.bar->doIconRect(), QRect(QPoint(8, (48 - shown.height()) / 2), shown));
    QCOMPARE(host.row()->contentsMargins(), QMargins(shown.width() + 8 + 16, 0, 0, 0));
    QCOMPARE(painted(host.bar).pixelColor(9, 24), QColor(Qt::red));
}

void tst_KestTitleBar::pixmapOfAFinerScreenHasItsSize()
{
    Host host;
    QPixmap pixmap(60, 40);
    pixmap.fill(Qt::red);
    pixmap.setDevicePixelRatio(2);
    host.bar->setIconPixmap(pixmap);
    QCOMPARE(host.bar->doIconRect(), QRect(8, (48 - 20) / 2, 30, 20));
    QCOMPARE(host.row()->contentsMargins(), QMargins(30 + 8 + 16, 0, 0, 0));
}

void tst_KestTitleBar::onlyTheRateRepaints()
{
    Host host;
    host.show();
    QTest::qWait(50);
    PaintCounter paints(host.bar);
    host.bar->setProperty("another", 2);
    QTest::qWait(50);
    QCOMPARE(paints.count, 0);
    host.bar->setProperty("geoRate", 2.0);
    QTRY_COMPARE(paints.count, 1);
}

void tst_KestTitleBar::windowIconIsFollowed()
{
    Host host;
    host.setWindowIcon(icon({ QSize(16, 16) }, Qt::red));
    QCOMPARE(painted(host.bar).pixelColor(12, 24), QColor(Qt::red));
    host.setWindowIcon(icon({ QSize(24, 24) }, Qt::blue));
    QCOMPARE(painted(host.bar).pixelColor(12, 24), QColor(Qt::blue));
    QCOMPARE(host.bar->doIconRect().size(), QSize(24, 24));

    // The application's icon stands for those without one of their own.
    const auto reset = qScopeGuard([] { QApplication::setWindowIcon(QIcon()); });
    Host other;
    other.show();
    QTRY_VERIFY(other.isVisible());
    QCoreApplication::processEvents();
    PaintCounter paints(other.bar);
    QApplication::setWindowIcon(icon({ QSize(20, 20) }, Qt::green));
    QCOMPARE(other.bar->doIconRect().size(), QSize(20, 20));
    QCOMPARE(painted(other.bar).pixelColor(12, 24), QColor(Qt::green));
    QCOMPARE(host.bar->doIconRect().size(), QSize(24, 24));
    paints.count = 0;
    QTRY_VERIFY(paints.count > 0);
    // That of the application comes first, and is enough.
    Host deaf;
    Drop drop(&deaf, QEvent::WindowIconChange);
    QApplication::setWindowIcon(icon({ QSize(18, 18) }, Qt::blue));
    QCOMPARE(deaf.bar->doIconRect().size(), QSize(18, 18));
}

void tst_KestTitleBar::windowIconWithoutSizesLeavesTheOldOne()
{
    Host host;
    host.setWindowIcon(icon({ QSize(16, 16) }));
    host.setWindowIcon(QIcon());
    host.bar->updateWindowIcon();
    QCOMPARE(host.bar->doIconRect().size(), QSize(16, 16));
    QCOMPARE(host.row()->contentsMargins().left(), 16 + 8 + 16);
}

void tst_KestTitleBar::invisibleIconIsNotFollowed()
{
    Host host;
    host.setWindowIcon(icon({ QSize(16, 16) }, Qt::red));
    host.bar->setIconVisible(false);
    QVERIFY(!host.bar->iconIsVisible());
    QCOMPARE(host.row()->contentsMargins(), QMargins());
    QVERIFY(painted(host.bar).pixelColor(12, 24) != QColor(Qt::red));
    host.setWindowIcon(icon({ QSize(24, 24) }, Qt::blue));
    QCOMPARE(host.bar->doIconRect().size(), QSize(16, 16));
    // Visible again it is as it was: the icon is not taken anew.
    host.bar->setIconVisible(true);
    QCOMPARE(host.row()->contentsMargins(), QMargins(16 + 8 + 16, 0, 0, 0));
    QCOMPARE(painted(host.bar).pixelColor(12, 24), QColor(Qt::red));
    host.bar->updateWindowIcon();
    QCOMPARE(host.bar->doIconRect().size(), QSize(24, 24));
}

void tst_KestTitleBar::iconSizeIsOnlyStored()
{
    Host host;
    host.setWindowIcon(icon({ QSize(64, 64) }));
    QSignalSpy spy(host.bar, &KestTitleBar::iconSizeChanged);
    host.bar->setIconSize(QSize(500, 20));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(host.bar->doIconRect().size(), QSize(32, 32));
    host.bar->updateWindowIcon();
    QCOMPARE(host.bar->doIconRect().size(), QSize(20, 20)); // only the height counts
    QCOMPARE(spy.count(), 0);
}

void tst_KestTitleBar::customPixmapStaysWhenTheIconChanges()
{
    Host host;
    QPixmap pixmap(30, 12);
    pixmap.fill(Qt::green);
    host.bar->setIconPixmap(pixmap);
    QVERIFY(!host.bar->iconIsVisible());
    QCOMPARE(host.row()->contentsMargins(), QMargins(30 + 8 + 16, 0, 0, 0));
    QCOMPARE(host.bar->doIconRect(), QRect(8, 18, 30, 12));
    QCOMPARE(painted(host.bar).pixelColor(20, 24), QColor(Qt::green));
    host.setWindowIcon(icon({ QSize(16, 16) }, Qt::red));
    QCOMPARE(painted(host.bar).pixelColor(20, 24), QColor(Qt::green));
}

void tst_KestTitleBar::iconPositionIsOnlyStored()
{
    Host host;
    host.setWindowIcon(icon({ QSize(16, 16) }));
    const QMargins margins = host.row()->contentsMargins();
    host.bar->setIconPos(QSize(20, 6));
    QCOMPARE(host.bar->getIconPos(), QSize(20, 6));
    QCOMPARE(host.bar->getLeftMargin(), 20);
    QCOMPARE(host.row()->contentsMargins(), margins);
    QCOMPARE(host.bar->doIconRect().left(), 20);
}

void tst_KestTitleBar::iconRect_data()
{
    QTest::addColumn<QSize>("pixmap");
    QTest::addColumn<QVariant>("rate");
    QTest::addColumn<int>("height");
    QTest::addColumn<QRect>("rect");
    QTest::newRow("as it is") << QSize(32, 32) << QVariant() << 48 << QRect(8, 8, 32, 32);
    QTest::newRow("fitted after scaling")
        << QSize(32, 32) << QVariant(1.5) << 48 << QRect(8, 4, 40, 40);
    QTest::newRow("scaled") << QSize(20, 10) << QVariant(1.5) << 48 << QRect(8, 16, 30, 15);
    QTest::newRow("rounded") << QSize(15, 13) << QVariant(1.5) << 48 << QRect(8, 14, 23, 20);
    QTest::newRow("odd room") << QSize(16, 15) << QVariant() << 48 << QRect(8, 16, 16, 15);
    QTest::newRow("wide and fitted") << QSize(80, 40) << QVariant(2.0) << 48 << QRect(8, 4, 80, 40);
    QTest::newRow("smaller rate") << QSize(32, 32) << QVariant(0.5) << 48 << QRect(8, 16, 16, 16);
    QTest::newRow("low bar") << QSize(32, 32) << QVariant() << 42 << QRect(8, 5, 32, 32);
    QTest::newRow("lowest bar, large icon")
        << QSize(40, 40) << QVariant() << 42 << QRect(8, 4, 34, 34);
}

void tst_KestTitleBar::iconRect()
{
    QFETCH(QSize, pixmap);
    QFETCH(QVariant, rate);
    QFETCH(int, height);
    QFETCH(QRect, rect);
    Host host;
    host.bar->resize(600, height);
    host.bar->setIconPixmap(QPixmap(pixmap));
    if (rate.isValid())
        host.bar->setProperty("geoRate", rate);
    QCOMPARE(host.bar->doIconRect(), rect);
}

void tst_KestTitleBar::iconIsSharpAtHigherScales()
{
    Host host;
    // Stripes as wide as a pixel of the scaled icon.
    QImage stripes(64, 64, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x)
            stripes.setPixelColor(x, y, x % 2 ? Qt::black : Qt::white);
    }
    host.bar->setIconSize(QSize(16, 16));
    host.bar->setMaximumHeight(200);
    host.bar->resize(600, 100);
    host.setWindowIcon(QIcon(QPixmap::fromImage(stripes)));
    host.bar->setProperty("geoRate", 4.0);
    QCOMPARE(host.bar->doIconRect(), QRect(8, 18, 64, 64));
    const QImage image = painted(host.bar);
    for (int x = 0; x < 64; ++x)
        QCOMPARE(image.pixelColor(8 + x, 50), stripes.pixelColor(x, 32));
}

void tst_KestTitleBar::iconIsRepaintedWhenItComesAndGoes()
{
    Host host;
    host.setWindowIcon(icon({ QSize(16, 16) }));
    host.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host));
    for (const bool visible : { false, true, false }) {
        QCoreApplication::processEvents();
        PaintCounter counter(host.bar);
        host.bar->setIconVisible(visible);
        QTRY_COMPARE(counter.count, 1);
    }
}

void tst_KestTitleBar::rateMakesTheSameIconSharper()
{
    Host host;
    QSize largest;
    host.setWindowIcon(QIcon(new Drawing(QSize(32, 32), &largest)));
    const QMargins margins = host.row()->contentsMargins();
    host.bar->setIconSize(QSize(8, 8));
    host.bar->setIconPos(QSize(30, 4));
    largest = QSize();
    host.bar->setProperty("geoRate", 1.125);
    painted(host.bar);
    // Neither the new limit nor the new position made it another icon with other room.
    QCOMPARE(host.bar->doIconRect(), QRect(30, 6, 36, 36));
    QCOMPARE(host.row()->contentsMargins(), margins);
    QCOMPARE(largest, QSize(36, 36)); // as many pixels as it is drawn with
    // It is rendered once for a size, also when the bar becomes lower.
    largest = QSize();
    painted(host.bar);
    QCOMPARE(largest, QSize());
    host.bar->resize(600, 42);
    painted(host.bar);
    QCOMPARE(largest, QSize(34, 34));
    // A new icon is never taken for the old one.
    host.bar->setIconSize(QSize(32, 32));
    host.setWindowIcon(icon({ QSize(32, 32) }, Qt::blue));
    QCOMPARE(painted(host.bar).pixelColor(40, 21), QColor(Qt::blue));
}

void tst_KestTitleBar::rateLeavesAPixmapOfTheHosts()
{
    Host host;
    host.setWindowIcon(icon({ QSize(16, 16) }, Qt::red));
    QPixmap pixmap(20, 20);
    pixmap.fill(Qt::green);
    host.bar->setIconPixmap(pixmap);
    host.bar->setIconVisible(true);
    host.bar->setProperty("geoRate", 1.5);
    QCOMPARE(host.bar->doIconRect(), QRect(8, 9, 30, 30));
    QCOMPARE(host.row()->contentsMargins(), QMargins(20 + 8 + 16, 0, 0, 0));
    QCOMPARE(painted(host.bar).pixelColor(20, 24), QColor(Qt::green));
}

void tst_KestTitleBar::rateNeverMakesAHugePicture_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("height");
    QTest::addColumn<QSize>("rendered");
    QTest::newRow("a bar's height") << QSize(32, 32) << 48 << QSize(40, 40);
    QTest::newRow("a high bar") << QSize(32, 32) << 4000 << QSize(512, 512);
    QTest::newRow("a wide icon") << QSize(3200, 32) << 4000 << QSize(3200, 32);
}

void tst_KestTitleBar::rateNeverMakesAHugePicture()
{
    QFETCH(QSize, size);
    QFETCH(int, height);
    QFETCH(QSize, rendered);
    Host host;
    host.bar->setMaximumHeight(height);
    host.bar->resize(600, height);
    QSize largest;
    host.setWindowIcon(QIcon(new Drawing(size, &largest)));
    largest = QSize();
    host.bar->setProperty("geoRate", 300.0);
    painted(host.bar);
    QCOMPARE(largest, rendered);
}

void tst_KestTitleBar::ratesWithoutSenseDoNoHarm_data()
{
    QTest::addColumn<QVariant>("rate");
    QTest::addColumn<QSize>("size");
    const QSize unscaled(32, 16);
    const qreal infinity = std::numeric_limits<qreal>::infinity();
    QTest::newRow("no number") << QVariant(std::numeric_limits<qreal>::quiet_NaN()) << unscaled;
    QTest::newRow("infinity") << QVariant(infinity) << unscaled;
    QTest::newRow("minus infinity") << QVariant(-infinity) << unscaled;
    QTest::newRow("text") << QVariant(QStringLiteral("large")) << QSize(0, 0);
    QTest::newRow("huge") << QVariant(1e10) << QSize(80, 40);
    QTest::newRow("hugest") << QVariant(std::numeric_limits<qreal>::max()) << QSize(80, 40);
    QTest::newRow("zero") << QVariant(0.0) << QSize(0, 0);
}

void tst_KestTitleBar::ratesWithoutSenseDoNoHarm()
{
    QFETCH(QVariant, rate);
    QFETCH(QSize, size);
    Host host;
    host.setWindowTitle(QStringLiteral("title"));
    host.setWindowIcon(icon({ QSize(32, 16) }));
    host.bar->setProperty("geoRate", rate);
    QCOMPARE(host.bar->doIconRect().height(), size.height());
    QVERIFY(qAbs(host.bar->doIconRect().width() - size.width()) <= 1);
    painted(host.bar);
    host.bar->setLayoutDirection(Qt::RightToLeft);
    painted(host.bar);
    host.bar->setProperty("geoRate", -1e10);
    painted(host.bar);
}

void tst_KestTitleBar::extremePositionsDoNoHarm_data()
{
    QTest::addColumn<QSize>("position");
    const int least = std::numeric_limits<int>::min();
    const int most = std::numeric_limits<int>::max();
    QTest::newRow("far right") << QSize(most, 4);
    QTest::newRow("far left") << QSize(least, 4);
    QTest::newRow("no room") << QSize(8, most);
    QTest::newRow("all room") << QSize(8, least);
    QTest::newRow("both ends") << QSize(least, most);
}

void tst_KestTitleBar::extremePositionsDoNoHarm()
{
    QFETCH(QSize, position);
    Host host;
    host.setWindowTitle(QStringLiteral("title"));
    host.bar->setIconPos(position);
    QCOMPARE(host.bar->getIconPos(), position);
    QCOMPARE(host.bar->getLeftMargin(), position.width());
    host.setWindowIcon(icon({ QSize(100, 1), QSize(64, 64) }));
    for (const qreal rate : { 1.0, 300.0, 1e10 }) {
        host.bar->setProperty("geoRate", rate);
        painted(host.bar);
    }
    host.bar->setIconVisible(false);
    host.bar->setIconVisible(true);
    host.bar->setIconPixmap(QPixmap(30, 30));
    for (const Qt::LayoutDirection direction : { Qt::RightToLeft, Qt::LeftToRight }) {
        host.bar->setLayoutDirection(direction);
        host.bar->resize(600, 48);
        painted(host.bar);
        // The icon is far away, or has no room, and is not back on the bar by an overflow.
        if (position.height() == std::numeric_limits<int>::max())
            QVERIFY(!host.bar->doIconRect().isValid());
        if (position.width() != 8)
            QVERIFY(!host.bar->doIconRect().intersects(host.bar->rect()));
    }
    host.show();
}

void tst_KestTitleBar::titleFollowsTheIcon()
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

void tst_KestTitleBar::titleIsCentredBesideANarrowMenuBar()
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

void tst_KestTitleBar::titleMovesAsideForAWideMenuBar()
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

void tst_KestTitleBar::titleChangeRepaints()
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

void tst_KestTitleBar::titleIsTheCaptionThatQtSets_data()
{
    QTest::addColumn<QString>("title");
    for (const char *title :
         { "plain", "notes[*]", "[*]notes", "notes[*] - editor", "a[*][*]b", "a[*][*][*]b",
           "a[*][*][*][*]b", "one[*] and two[*]", "one[*] and [*][*] three", "[*]", "[*][*]",
           "a[*]b[*]c", "half[* of *] it" })
        QTest::newRow(title) << QString::fromLatin1(title);
}

void tst_KestTitleBar::titleIsTheCaptionThatQtSets()
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

void tst_KestTitleBar::modifiedMarkComesAndGoes()
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

void tst_KestTitleBar::filePathTitlesTheBar()
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

void tst_KestTitleBar::sheetPaintsTheGround()
{
    Host host;
    host.setStyleSheet(QStringLiteral(
        "KestTitleBar { background: #102030; border-bottom: 2px solid #405060; color: #AABBCC }"));
    host.show();
    const QImage image = painted(host.bar);
    QCOMPARE(image.pixelColor(300, 20), QColor(0x10, 0x20, 0x30));
    QCOMPARE(image.pixelColor(300, 47), QColor(0x40, 0x50, 0x60));
    QCOMPARE(host.bar->palette().color(QPalette::WindowText), QColor(0xAA, 0xBB, 0xCC));
}

void tst_KestTitleBar::rightToLeftIconAndTitleAreMirrored()
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

void tst_KestTitleBar::rightToLeftTitleIsMirroredBesideAMenuBar()
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

void tst_KestTitleBar::rightToLeftNothingOverlaps()
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

void tst_KestTitleBar::directionCanChangeAtAnyTime()
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

void tst_KestTitleBar::barFollowsTheWindowItIsPutInto()
{
    QWidget first;
    first.setWindowIcon(icon({ QSize(24, 24) }, Qt::red));
    first.setWindowTitle(QStringLiteral("first"));
    first.resize(600, 300);
    first.setWindowState(Qt::WindowMaximized);
    auto *bar = new TitleBar;
    auto *layout = new QVBoxLayout(&first);
    layout->addWidget(bar);
    QCOMPARE(bar->layout()->contentsMargins(), QMargins(24 + 8 + 16, 0, 0, 0));
    bar->resize(600, 48);
    QCOMPARE(painted(bar).pixelColor(12, 24), QColor(Qt::red));
    QVERIFY(
        bar->findChild<KestMaximumSizeButton *>(QStringLiteral("maximumSizeBtn"))->maximumSized());
    first.setWindowIcon(icon({ QSize(16, 16) }, Qt::green));
    QCOMPARE(bar->doIconRect().size(), QSize(16, 16));

    QWidget second;
    second.setWindowTitle(QStringLiteral("second"));
    second.setWindowIcon(icon({ QSize(20, 20) }, Qt::blue));
    bar->setParent(&second);
    QCOMPARE(bar->doIconRect().size(), QSize(20, 20));
    QVERIFY(
        !bar->findChild<KestMaximumSizeButton *>(QStringLiteral("maximumSizeBtn"))->maximumSized());
    // It has nothing to do with the first one any more.
    first.setWindowState(Qt::WindowNoState);
    first.setWindowState(Qt::WindowMaximized);
    first.setWindowIcon(icon({ QSize(30, 30) }));
    QCOMPARE(bar->doIconRect().size(), QSize(20, 20));
    second.setWindowState(Qt::WindowMaximized);
    QVERIFY(
        bar->findChild<KestMaximumSizeButton *>(QStringLiteral("maximumSizeBtn"))->maximumSized());
    // On its own it keeps what it shows, and can be put back.
    bar->setParent(nullptr);
    second.setWindowIcon(icon({ QSize(28, 28) }));
    QCOMPARE(bar->doIconRect().size(), QSize(20, 20));
    bar->setParent(&second);
    QCOMPARE(bar->doIconRect().size(), QSize(28, 28));
    second.show();
    bar->show();
    QVERIFY(QTest::qWaitForWindowExposed(&second));
    QCoreApplication::processEvents();
    PaintCounter counter(bar);
    first.setWindowTitle(QStringLiteral("not any more"));
    first.show();
    QCoreApplication::processEvents();
    QCOMPARE(counter.count, 0);
    second.setWindowTitle(QStringLiteral("new"));
    QTRY_COMPARE(counter.count, 1);
}

void tst_KestTitleBar::barTakesTheIconThatItsWindowHas()
{
    QWidget window;
    window.setWindowIcon(icon({ QSize(24, 24) }));
    TitleBar bar(&window);
    QCOMPARE(bar.doIconRect().size(), QSize(24, 24));
    QCOMPARE(bar.layout()->contentsMargins(), QMargins(24 + 8 + 16, 0, 0, 0));
}

void tst_KestTitleBar::menuBarIsCreatedOnRequest()
{
    Host host;
    host.show();
    QMenuBar *const menuBar = host.bar->menuBar();
    QVERIFY(menuBar);
    QCOMPARE(host.bar->menuBar(), menuBar);
    QVERIFY(menuBar->actions().isEmpty());
    QCOMPARE(menuBar->parentWidget(), host.bar);
    QVERIFY(!menuBar->autoFillBackground());
    QCOMPARE(menuBar->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed));
    QLayout *const row = host.row()->itemAt(0)->layout();
    QCOMPARE(row->count(), 1);
    QCOMPARE(row->itemAt(0)->widget(), menuBar);
    QCOMPARE(row->itemAt(0)->alignment(), Qt::Alignment());
    QTRY_VERIFY(menuBar->isVisible());
}

void tst_KestTitleBar::menuBarIsReplaced()
{
    Host host;
    host.show();
    const QPointer<QMenuBar> old(host.bar->menuBar());
    QTRY_VERIFY(old->isVisible());
    auto *menuBar = new QMenuBar;
    menuBar->addMenu(QStringLiteral("File"));
    menuBar->setAutoFillBackground(true);
    PaintCounter paints(host.bar);
    host.bar->setMenuBar(menuBar);
    QCOMPARE(host.bar->menuBar(), menuBar);
    QVERIFY(old->isHidden());
    QVERIFY(!old->parent());
    QCOMPARE(menuBar->parentWidget(), host.bar);
    QVERIFY(!menuBar->autoFillBackground());
    QCOMPARE(menuBar->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed));
    QLayout *const row = host.row()->itemAt(0)->layout();
    QCOMPARE(row->count(), 1);
    QCOMPARE(row->itemAt(0)->widget(), menuBar);
    QTRY_VERIFY(menuBar->isVisible());
    QTRY_COMPARE(menuBar->width(), row->geometry().width());
    QVERIFY(menuBar->width() > 0);
    QCOMPARE(menuBar->geometry().center().y(), row->geometry().center().y());
    // The title stands elsewhere now.
    QTRY_VERIFY(paints.count > 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(old.isNull());
    QCOMPARE(host.bar->menuBar(), menuBar);
    // One that nobody sees decides where the title stands as well.
    menuBar->hide();
    QTest::qWait(50);
    paints.count = 0;
    host.bar->setMenuBar(nullptr);
    QTRY_VERIFY(paints.count > 0);
}

void tst_KestTitleBar::menuBarIsCleared()
{
    Host host;
    host.bar->setMenuBar(nullptr);
    QVERIFY(!host.bar->findChild<QMenuBar *>());
    const QPointer<QMenuBar> old(host.bar->menuBar());
    host.bar->setMenuBar(nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(old.isNull());
    QVERIFY(!host.bar->findChild<QMenuBar *>());
    QVERIFY(host.bar->menuBar());
}

void tst_KestTitleBar::sameMenuBarAgainChangesNothing()
{
    Host host;
    QMenuBar *const menuBar = host.bar->menuBar();
    host.bar->setMenuBar(menuBar);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(host.bar->menuBar(), menuBar);
    QCOMPARE(host.row()->itemAt(0)->layout()->count(), 1);
    QVERIFY(!menuBar->isHidden());
}

void tst_KestTitleBar::actionsBecomeButtonsInOrder()
{
    Host host;
    QAction first(icon({ QSize(16, 16) }), QStringLiteral("first"));
    QAction second(QStringLiteral("second"));
    QAction third(QStringLiteral("third"));
    first.setObjectName(QStringLiteral("named"));
    host.bar->addAction(&first);
    host.bar->addAction(&second);
    host.bar->insertAction(&second, &third);
    QCOMPARE(host.actionRow()->count(), 3);
    const QAction *const order[] = { &first, &third, &second };
    for (int i = 0; i < 3; ++i) {
        auto *button = qobject_cast<KestToolButton *>(host.actionRow()->itemAt(i)->widget());
        QVERIFY(button);
        QCOMPARE(button->defaultAction(), order[i]);
        QCOMPARE(button->iconSize(), QSize(32, 32));
        QCOMPARE(button->parentWidget(), host.bar);
    }
    QSignalSpy triggered(&first, &QAction::triggered);
    host.show();
    QTest::mouseClick(host.button("named"), Qt::LeftButton);
    QCOMPARE(triggered.count(), 1);
}

void tst_KestTitleBar::separatorsAndWidgetsAreTaken()
{
    Host host;
    QAction separator;
    separator.setSeparator(true);
    host.bar->addAction(&separator);
    auto *line = qobject_cast<KestSeparator *>(host.actionRow()->itemAt(0)->widget());
    QVERIFY(line);
    QCOMPARE(line->orientation(), Qt::Horizontal);
    QWidgetAction custom(nullptr);
    auto *label = new QLabel(QStringLiteral("label"));
    custom.setDefaultWidget(label);
    host.bar->addAction(&custom);
    QCOMPARE(host.actionRow()->itemAt(1)->widget(), label);
    QVERIFY(!label->isHidden());
}

void tst_KestTitleBar::removedActionLosesItsButton()
{
    Host host;
    QAction first;
    QAction second;
    host.bar->addAction(&first);
    host.bar->addAction(&second);
    const QPointer<QWidget> button(host.actionRow()->itemAt(0)->widget());
    host.bar->removeAction(&first);
    QVERIFY(button.isNull());
    QCOMPARE(host.actionRow()->count(), 1);
    host.bar->removeAction(&first);
    host.bar->addAction(&first);
    QCOMPARE(host.actionRow()->count(), 2);
}

void tst_KestTitleBar::changedActionLeavesTheBar()
{
    Host host;
    QAction action(QStringLiteral("before"));
    host.bar->addAction(&action);
    const QPointer<QWidget> button(host.actionRow()->itemAt(0)->widget());
    action.setText(QStringLiteral("after"));
    QVERIFY(button.isNull());
    QCOMPARE(host.actionRow()->count(), 0);
    QCOMPARE(host.bar->actions(), QList<QAction *> { &action });
    action.setText(QStringLiteral("and again")); // no item is met, and nothing happens
    host.bar->removeAction(&action);
    QVERIFY(host.bar->actions().isEmpty());
}

void tst_KestTitleBar::removedCustomWidgetLivesOn()
{
    Host host;
    QWidgetAction action(nullptr);
    const QPointer<QLabel> label(new QLabel);
    action.setDefaultWidget(label);
    host.bar->addAction(&action);
    host.bar->removeAction(&action);
    QVERIFY(!label.isNull());
    QCOMPARE(host.actionRow()->count(), 0);
}

void tst_KestTitleBar::actionIconSizeReachesAllButtons()
{
    Host host;
    QAction first;
    QAction second;
    host.bar->addAction(&first);
    host.bar->addAction(&second);
    QSignalSpy spy(host.bar, &KestTitleBar::actionIconSizeChanged);
    host.bar->setActionIconSize(QSize(32, 32));
    QCOMPARE(spy.count(), 0);
    host.bar->setActionIconSize(QSize(18, 19));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.first().first().toSize(), QSize(18, 19));
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(static_cast<KestToolButton *>(host.actionRow()->itemAt(i)->widget())->iconSize(),
                 QSize(18, 19));
    }
    QAction third;
    host.bar->addAction(&third);
    QCOMPARE(static_cast<KestToolButton *>(host.actionRow()->itemAt(2)->widget())->iconSize(),
             QSize(18, 19));
}

void tst_KestTitleBar::actionIconSizeIsStoredBeforeItIsAnnounced()
{
    Host host;
    QList<QSize> heard;
    connect(host.bar, &KestTitleBar::actionIconSizeChanged, host.bar,
            [&] { heard.append(host.bar->getActionIconSize()); });
    host.bar->setActionIconSize(QSize(20, 24));
    // One side alone is a change, too.
    host.bar->setActionIconSize(QSize(22, 24));
    host.bar->setActionIconSize(QSize(22, 26));
    QCOMPARE(heard, (QList<QSize> { QSize(20, 24), QSize(22, 24), QSize(22, 26) }));
}

void tst_KestTitleBar::barWithoutParentIsHarmless()
{
    KestTitleBar bar;
    bar.updateWindowIcon();
    bar.show();
    painted(&bar);
    bar.onMaximumSizeBtn();
    QVERIFY(bar.isMaximized());
}

void tst_KestTitleBar::actionsAddedTogetherAreLaidOutTogether()
{
    Host host;
    host.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host));
    int places = 0;
    std::vector<std::unique_ptr<OnEvent>> filters;
    for (int i = 0; i < 5; ++i) {
        host.bar->addAction(new QAction(QStringLiteral("action"), &host));
        auto *button = host.bar->findChildren<KestToolButton *>().constLast();
        QVERIFY(button->isVisible());
        filters.push_back(std::make_unique<OnEvent>(button, QEvent::Move, [&places] { ++places; }));
        filters.push_back(
            std::make_unique<OnEvent>(button, QEvent::Resize, [&places] { ++places; }));
    }
    QCOMPARE(places, 0);
    QVERIFY(host.bar->layout()->isEnabled());
    QTRY_VERIFY(places >= 5);
}

void tst_KestTitleBar::maximiseButtonIsPolishedForAChangeAlone()
{
    class CountingStyle : public QProxyStyle
    {
    public:
        using QProxyStyle::polish;
        void polish(QWidget *widget) override
        {
            ++polishes[widget->objectName()];
            QProxyStyle::polish(widget);
        }

        QMap<QString, int> polishes;
    };
    auto *style = new CountingStyle;
    const QString before = QApplication::style()->objectName();
    QApplication::setStyle(style);
    {
        Host host;
        host.show();
        QVERIFY(QTest::qWaitForWindowExposed(&host));
        // As often as any other button.
        QVERIFY(style->polishes.value(QStringLiteral("closeBtn")) > 0);
        QCOMPARE(style->polishes.value(QStringLiteral("maximumSizeBtn")),
                 style->polishes.value(QStringLiteral("closeBtn")));
    }
    QApplication::setStyle(before);
}

void tst_KestTitleBar::maximiseButtonKeepsTheHoverThatItHas()
{
    Host host;
    host.show();
    QWidget *const button = host.button("maximumSizeBtn");
    QCoreApplication::processEvents();
    QCursor::setPos(button->mapToGlobal(button->rect().center()));
    button->setAttribute(Qt::WA_UnderMouse);
    int leaves = 0;
    OnEvent counter(button, QEvent::Leave, [&leaves] { ++leaves; });
    host.resize(host.width(), host.height() - 20);
    QTest::qWait(20);
    QCOMPARE(leaves, 0);
}

void tst_KestTitleBar::whatMovesTheTitleOrTheIconPaintsAnew()
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
}

void tst_KestTitleBar::roomForTheIconIsInDeviceIndependentPixels()
{
    Host host;
    QPixmap pixmap(40, 40);
    pixmap.setDevicePixelRatio(2.0);
    host.bar->setIconPixmap(pixmap);
    QCOMPARE(host.row()->contentsMargins(), QMargins(20 + 8 + 16, 0, 0, 0));
}

void tst_KestTitleBar::menuBarDoesNotFillItsGround()
{
    Host host;
    auto *menuBar = new QMenuBar;
    menuBar->setAutoFillBackground(true);
    host.bar->setMenuBar(menuBar);
    QVERIFY(!menuBar->autoFillBackground());
}

void tst_KestTitleBar::actionIconSizeIsThereWhenItIsAnnounced()
{
    Host host;
    QSize read;
    connect(host.bar, &KestTitleBar::actionIconSizeChanged, host.bar,
            [&] { read = host.bar->getActionIconSize(); });
    host.bar->setActionIconSize(QSize(20, 20));
    QCOMPARE(read, QSize(20, 20));
}

void tst_KestTitleBar::titleOfADisabledBarHasItsColour()
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

void tst_KestTitleBar::iconIsTakenAnewWithTheApplications()
{
    Host host;
    host.removeEventFilter(host.bar);
    host.setWindowIcon(icon({ QSize(24, 24) }));
    host.installEventFilter(host.bar);
    QVERIFY(host.row()->contentsMargins().isNull());
    QEvent event(QEvent::ApplicationWindowIconChange);
    QCoreApplication::sendEvent(&host, &event);
    QCOMPARE(host.row()->contentsMargins().left(), 24 + 8 + 16);
}

void tst_KestTitleBar::fixedSizeHasTwoDimensions()
{
    Host host;
    host.show();
    QWidget *const button = host.button("maximumSizeBtn");
    host.setFixedWidth(500);
    host.resize(500, 280);
    QVERIFY(!button->isHidden());
    host.setMinimumWidth(0);
    host.setMaximumWidth(QWIDGETSIZE_MAX);
    host.setFixedHeight(260);
    host.resize(480, 260);
    QVERIFY(!button->isHidden());
    host.setFixedSize(450, 250);
    QVERIFY(button->isHidden());
}

void tst_KestTitleBar::onlyTheParentIsFollowed()
{
    Host host;
    host.show();
    QWidget other(nullptr, host.windowFlags());
    other.setFixedSize(50, 50);
    other.installEventFilter(host.bar);
    QResizeEvent event(QSize(50, 50), QSize(40, 40));
    QCoreApplication::sendEvent(&other, &event);
    QVERIFY(!host.button("maximumSizeBtn")->isHidden());
}

QTEST_MAIN(tst_KestTitleBar)
#include "tst_kesttitlebar.moc"
