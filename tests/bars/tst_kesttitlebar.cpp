// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestTitleBar.h"

#include "Announcements.h"
#include "KestMaximumSizeButton.h"
#include "OnEvent.h"
#include "TitleBarHost.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QMetaProperty>
#include <QtCore/QPointer>
#include <QtCore/QTranslator>
#include <QtGui/QAccessible>
#include <QtGui/QResizeEvent>
#include <QtGui/QWindowStateChangeEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QVBoxLayout>

class tst_KestTitleBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metaObject();
    void defaults();
    void formIsBuiltAsDesigned();
    void formKeepsAnObjectName();
    void windowTitleIsTranslatable();
    void screenReaderFindsTheBar();
    void maximiseButtonIsCalledByWhatItDoes();
    void nameOfTheMaximiseButtonMayBeTheHosts();
    void newNameOfTheMaximiseButtonMayDeleteTheBar();
    void sheetPaintsTheGround();
    void barWithoutParentIsHarmless();

    void closeButtonClosesTheWindow();
    void minimiseButtonMinimisesTheWindow();
    void maximiseButtonMaximisesAndRestores();
    void maximiseButtonRestoresAFullScreenWindow();
    void maximiseButtonLosesItsHover();
    void maximiseButtonKeepsTheHoverThatItHas();
    void maximiseButtonThatLostItsHoverIsNotToldAgain();
    void maximiseButtonIsPaintedWithoutItsHover();
    void slotsActOnTheWindowOfANestedBar();

    void buttonsAreHiddenByTheWindowsFlags_data();
    void buttonsAreHiddenByTheWindowsFlags();
    void buttonsAreNeverShownAgain();
    void showSetsMappedAndTheState();
    void stateChangesFlipTheProperty();
    void maximiseButtonIsPolishedForAChangeAlone();
    void fixedSizeHidesTheMaximiseButton();
    void fixedSizeHasTwoDimensions();
    void fixedSizeWithoutHintChangesNothing();
    void buttonsStayAsTheyAreForOtherChanges();

    void onlyTheParentIsFollowed();
    void barFollowsTheWindowItIsPutInto();
    void formerParentIsFilteredNoMore();
    void barHearsOfItsNewParentItself();
    void sameParentAgainChangesNothing();
    void captionIsFollowedOnce();
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
    QCOMPARE(bar.font().weight(), QFont::Bold);
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

void tst_KestTitleBar::screenReaderFindsTheBar()
{
    Host host;
    QAccessibleInterface *const bar = QAccessible::queryAccessibleInterface(host.bar);
    QCOMPARE(bar->role(), QAccessible::Pane);
    QCOMPARE(bar->text(QAccessible::Name), QStringLiteral("Title bar"));
    QCOMPARE(bar->text(QAccessible::Description), QString());
    QVERIFY(!bar->state().busy);
    host.bar->setAccessibleName(QStringLiteral("Top"));
    QCOMPARE(bar->text(QAccessible::Name), QStringLiteral("Top"));
}

void tst_KestTitleBar::maximiseButtonIsCalledByWhatItDoes()
{
    Host host;
    const QWidget *const button = host.button("maximumSizeBtn");
    const Announcements reader;
    host.setWindowState(Qt::WindowMaximized);
    QCOMPARE(button->accessibleName(), QStringLiteral("Restore"));
    host.setWindowState(Qt::WindowNoState);
    QCOMPARE(button->accessibleName(), QStringLiteral("Maximize"));
    host.showMaximized();
    QCOMPARE(button->accessibleName(), QStringLiteral("Restore"));
    QEvent languageChange(QEvent::LanguageChange);
    QCoreApplication::sendEvent(host.bar, &languageChange);
    QCOMPARE(button->accessibleName(), QStringLiteral("Restore"));
    host.showNormal();
    QCOMPARE(button->accessibleName(), QStringLiteral("Maximize"));
    // One that comes to a maximised window.
    QWidget other;
    other.setWindowState(Qt::WindowMaximized);
    const TitleBar late(&other);
    QCOMPARE(late.findChild<QWidget *>(QStringLiteral("maximumSizeBtn"))->accessibleName(),
             QStringLiteral("Restore"));
}

void tst_KestTitleBar::nameOfTheMaximiseButtonMayBeTheHosts()
{
    Host host;
    QWidget *const button = host.button("maximumSizeBtn");
    button->setAccessibleName(QStringLiteral("Grow"));
    host.setWindowState(Qt::WindowMaximized);
    QCOMPARE(button->accessibleName(), QStringLiteral("Grow"));
    host.setWindowState(Qt::WindowNoState);
    QCOMPARE(button->accessibleName(), QStringLiteral("Grow"));
}

void tst_KestTitleBar::newNameOfTheMaximiseButtonMayDeleteTheBar()
{
    Host host;
    const QPointer<TitleBar> bar(host.bar);
    Announcements reader;
    reader.onEach([&bar] { delete bar; });
    host.setWindowState(Qt::WindowMaximized);
    QVERIFY(bar.isNull());
    QCOMPARE(reader.take(), QStringList(QStringLiteral("name Restore")));
    host.setWindowState(Qt::WindowNoState);
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

void tst_KestTitleBar::barWithoutParentIsHarmless()
{
    KestTitleBar bar;
    bar.updateWindowIcon();
    bar.show();
    painted(&bar);
    bar.onMaximumSizeBtn();
    QVERIFY(bar.isMaximized());
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

void tst_KestTitleBar::maximiseButtonThatLostItsHoverIsNotToldAgain()
{
    Host host;
    host.show();
    QCoreApplication::processEvents();
    QCursor::setPos(host.mapToGlobal(QPoint(10, 250)));
    QWidget *const button = host.button("maximumSizeBtn");
    int leaves = 0;
    OnEvent counter(button, QEvent::Leave, [&leaves] { ++leaves; });
    button->setAttribute(Qt::WA_UnderMouse);
    host.resize(host.width() - 20, host.height());
    button->setAttribute(Qt::WA_UnderMouse, false);
    QTest::qWait(20);
    QCOMPARE(leaves, 0);
    // Nor one that is there no more.
    button->setAttribute(Qt::WA_UnderMouse);
    host.resize(host.width() - 20, host.height());
    delete button;
    QTest::qWait(20);
}

void tst_KestTitleBar::maximiseButtonIsPaintedWithoutItsHover()
{
    Host host;
    host.show();
    QVERIFY(QTest::qWaitForWindowExposed(&host));
    QCursor::setPos(host.mapToGlobal(QPoint(10, 250)));
    QTest::qWait(50); // until nothing is left to paint
    QWidget *const button = host.button("maximumSizeBtn");
    button->setAttribute(Qt::WA_UnderMouse);
    PaintCounter paints(button);
    // No more than the event: a window that has another size paints everything.
    QResizeEvent event(host.size(), host.size());
    QCoreApplication::sendEvent(&host, &event);
    QTRY_VERIFY(!button->underMouse());
    QTRY_VERIFY(paints.count > 0);
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

void tst_KestTitleBar::buttonsStayAsTheyAreForOtherChanges()
{
    Host host;
    host.show();
    for (const char *name : { "minimumSizeBtn", "maximumSizeBtn", "closeBtn" })
        host.button(name)->hide();
    host.setWindowTitle(QStringLiteral("title[*]"));
    host.setWindowModified(true);
    host.setWindowIcon(icon({ QSize(16, 16) }));
    QWindowStateChangeEvent state(host.windowState());
    QCoreApplication::sendEvent(&host, &state);
    for (const char *name : { "minimumSizeBtn", "maximumSizeBtn", "closeBtn" })
        QVERIFY(host.button(name)->isHidden());
}

void tst_KestTitleBar::onlyTheParentIsFollowed()
{
    class Other : public QWidget
    {
    public:
        using QWidget::QWidget;
        int sizes = 0;

    protected:
        void resizeEvent(QResizeEvent *) override { ++sizes; }
    };
    Host host;
    host.show();
    Other other(nullptr, host.windowFlags());
    other.setFixedSize(50, 50);
    other.installEventFilter(host.bar);
    QResizeEvent event(QSize(50, 50), QSize(40, 40));
    QCoreApplication::sendEvent(&other, &event);
    QVERIFY(!host.button("maximumSizeBtn")->isHidden());
    // Nor is anything kept from the others.
    QCOMPARE(other.sizes, 1);
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

void tst_KestTitleBar::formerParentIsFilteredNoMore()
{
    class Bar : public KestTitleBar
    {
    public:
        using KestTitleBar::KestTitleBar;
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            filtered += event->type() == QEvent::User;
            return KestTitleBar::eventFilter(watched, event);
        }

        int filtered = 0;
    };
    QWidget first;
    QWidget second;
    auto *bar = new Bar(&first);
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&first, &event);
    QCOMPARE(bar->filtered, 1);
    bar->setParent(&second);
    QCoreApplication::sendEvent(&first, &event);
    QCOMPARE(bar->filtered, 1);
    QCoreApplication::sendEvent(&second, &event);
    QCOMPARE(bar->filtered, 2);
}

void tst_KestTitleBar::barHearsOfItsNewParentItself()
{
    class Bar : public KestTitleBar
    {
    public:
        int heard = 0;

    protected:
        void changeEvent(QEvent *event) override
        {
            heard += event->type() == QEvent::ParentChange;
            KestTitleBar::changeEvent(event);
        }
    };
    QWidget window;
    auto *bar = new Bar;
    bar->setParent(&window);
    QCOMPARE(bar->heard, 1);
}

void tst_KestTitleBar::sameParentAgainChangesNothing()
{
    Host host;
    host.setWindowIcon(icon({ QSize(32, 32) }));
    host.bar->setIconSize(QSize(20, 20)); // for the next icon
    QEvent event(QEvent::ParentChange);
    QCoreApplication::sendEvent(host.bar, &event);
    QCOMPARE(host.bar->doIconRect().size(), QSize(32, 32));
    QWidget other;
    host.bar->setParent(&other);
    host.bar->setParent(&host);
    QCOMPARE(host.bar->doIconRect().size(), QSize(20, 20));
}

void tst_KestTitleBar::captionIsFollowedOnce()
{
    Host first;
    first.show();
    const auto followers = [](const QWidget &window) {
        class Access : public QObject
        {
        public:
            using QObject::receivers;
        };
        return (static_cast<const QObject *>(window.windowHandle())->*&Access::receivers)(
            SIGNAL(windowTitleChanged(QString)));
    };
    const int once = followers(first);
    QVERIFY(once > 0);
    for (int i = 0; i < 3; ++i) {
        first.bar->hide();
        first.bar->show();
    }
    QCOMPARE(followers(first), once);
    // And that of a former window no more.
    QWidget second;
    second.resize(600, 300);
    first.bar->setParent(&second);
    second.show();
    first.bar->show();
    QCOMPARE(followers(first), once - 1);
}

QTEST_MAIN(tst_KestTitleBar)
#include "tst_kesttitlebar.moc"
