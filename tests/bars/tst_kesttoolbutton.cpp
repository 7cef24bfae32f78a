// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestToolButton.h"

#include "RecordingStyle.h"

#include <QAction>
#include <QtCore/QMetaProperty>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QHelpEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QToolTip>
#include <QtWidgets/QWhatsThis>

#include <algorithm>

namespace {

// An icon of one colour for each mode and state.
QIcon colorfulIcon()
{
    QIcon icon;
    const auto add = [&icon](const QColor &color, QIcon::Mode mode, QIcon::State state) {
        QPixmap pixmap(16, 16);
        pixmap.fill(color);
        icon.addPixmap(pixmap, mode, state);
    };
    add(Qt::red, QIcon::Normal, QIcon::Off);
    add(Qt::darkRed, QIcon::Normal, QIcon::On);
    add(Qt::green, QIcon::Selected, QIcon::Off);
    add(Qt::darkGreen, QIcon::Selected, QIcon::On);
    return icon;
}

QColor middleOf(const QIcon &icon)
{
    return icon.pixmap(16, 16).toImage().pixelColor(8, 8);
}

} // namespace

class tst_KestToolButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void properties();
    void iconGoesToTheDefaultAction();
    void iconStaysWithoutDefaultAction();
    void iconSetInASlotIsKept();
    void toolTipsAreSwallowedWhenOff();
    void otherEventsAreHandledAsByAToolButton();
    void toggleIsPolishedAnew();
    void toggleIsUnpolishedFirst();
    void selectedIconIsPaintedFromTheNextRepaintOn();
    void panelIsLeftToTheStyle();
    void panelFollowsTheSheet();
    void releaseOnTheMenusPartIsNoted();
    void dismissedButtonGoesAtOnce();
    void dismissedButtonOutlivesItsEvents_data();
    void dismissedButtonOutlivesItsEvents();
    void dismissedButtonOutlivesALoopInItsEvent();
    void clickMayDeleteTheButton();
    void styleMayDeleteTheButton();
};

void tst_KestToolButton::properties()
{
    KestToolButton button;
    QVERIFY(button.showToolTips());
    QVERIFY(!button.parent());
    const QMetaObject &meta = KestToolButton::staticMetaObject;
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 2);
    QVERIFY(button.setProperty("showToolTips", false));
    QVERIFY(!button.showToolTips());
    QCOMPARE(button.property("showToolTips"), QVariant(false));
    QCOMPARE(meta.property(meta.indexOfProperty("icon")).userType(), int(QMetaType::QIcon));
    QVERIFY(button.setProperty("icon", colorfulIcon()));
    QCOMPARE(middleOf(button.property("icon").value<QIcon>()), QColor(Qt::red));
}

void tst_KestToolButton::iconGoesToTheDefaultAction()
{
    KestToolButton button;
    QAction action;
    button.setDefaultAction(&action);
    button.setIcon(colorfulIcon());
    QCOMPARE(middleOf(action.icon()), QColor(Qt::red));
    QCOMPARE(middleOf(button.icon()), QColor(Qt::red));
}

void tst_KestToolButton::iconStaysWithoutDefaultAction()
{
    KestToolButton button;
    button.setIcon(colorfulIcon());
    QCOMPARE(middleOf(button.icon()), QColor(Qt::red));
}

void tst_KestToolButton::toolTipsAreSwallowedWhenOff()
{
    KestToolButton button;
    button.setToolTip(QStringLiteral("tip"));
    button.show();
    for (const bool on : { true, false }) {
        button.setShowToolTips(on);
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
        QHelpEvent event(QEvent::ToolTip, QPoint(2, 2), button.mapToGlobal(QPoint(2, 2)));
        QVERIFY(QCoreApplication::sendEvent(&button, &event));
        QCOMPARE(QToolTip::isVisible(), on);
    }
}

void tst_KestToolButton::iconSetInASlotIsKept()
{
    KestToolButton button;
    QAction action;
    button.setDefaultAction(&action);
    QIcon other;
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::blue);
    other.addPixmap(pixmap);
    bool changed = false;
    connect(&action, &QAction::changed, &action, [&] {
        if (!changed) {
            changed = true;
            action.setIcon(other);
        }
    });
    button.setIcon(colorfulIcon());
    QCOMPARE(middleOf(action.icon()), QColor(Qt::blue));
    QCOMPARE(middleOf(button.icon()), QColor(Qt::blue));
}

void tst_KestToolButton::otherEventsAreHandledAsByAToolButton()
{
    KestToolButton button;
    button.setShowToolTips(false);
    button.setWhatsThis(QStringLiteral("explanation"));
    button.show();
    QHelpEvent help(QEvent::WhatsThis, QPoint(2, 2), button.mapToGlobal(QPoint(2, 2)));
    QVERIFY(QCoreApplication::sendEvent(&button, &help));
    const QWidgetList windows = QApplication::topLevelWidgets();
    QVERIFY(std::any_of(windows.cbegin(), windows.cend(), [](const QWidget *window) {
        return window->inherits("QWhatsThat") && window->isVisible();
    }));
    QWhatsThis::hideText();
    // What a tool button does not handle goes on.
    QEvent unknown(QEvent::Clipboard);
    QVERIFY(!QCoreApplication::sendEvent(&button, &unknown));
}

void tst_KestToolButton::toggleIsPolishedAnew()
{
    KestToolButton button;
    RecordingStyle style;
    button.setStyle(&style);
    button.setCheckable(true);
    style.polished.clear();
    style.unpolished.clear();
    button.setChecked(true);
    QCOMPARE(style.unpolished, QList<QWidget *> { &button });
    QCOMPARE(style.polished, QList<QWidget *> { &button });
    button.setChecked(true);
    QCOMPARE(style.polished.size(), 1);
    button.setChecked(false);
    QCOMPARE(style.polished.size(), 2);
}

void tst_KestToolButton::toggleIsUnpolishedFirst()
{
    class Style : public QProxyStyle
    {
    public:
        using QProxyStyle::polish;
        using QProxyStyle::unpolish;
        void polish(QWidget *) override { calls.append(QStringLiteral("polish")); }
        void unpolish(QWidget *) override { calls.append(QStringLiteral("unpolish")); }

        QStringList calls;
    };
    Style style;
    KestToolButton button;
    button.setStyle(&style);
    button.setCheckable(true);
    style.calls.clear();
    button.setChecked(true);
    QCOMPARE(style.calls, (QStringList { QStringLiteral("unpolish"), QStringLiteral("polish") }));
}

void tst_KestToolButton::selectedIconIsPaintedFromTheNextRepaintOn()
{
    RecordingStyle style;
    KestToolButton button;
    button.setStyle(&style);
    button.setIcon(colorfulIcon());
    button.setIconSize(QSize(16, 16));
    button.setCheckable(true);
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    QCoreApplication::processEvents();

    QCOMPARE(middleOf(style.toolButton.icon), QColor(Qt::red));
    style.toolButton = QStyleOptionToolButton();
    button.setSelected(true);
    QCoreApplication::processEvents();
    QVERIFY(style.toolButton.icon.isNull()); // nothing was painted
    button.grab();
    QCOMPARE(middleOf(style.toolButton.icon), QColor(Qt::green));
    button.setChecked(true);
    button.grab();
    QCOMPARE(middleOf(style.toolButton.icon), QColor(Qt::darkGreen));
    button.setSelected(false);
    button.grab();
    QCOMPARE(middleOf(style.toolButton.icon), QColor(Qt::red));
    QCOMPARE(style.toolButton.icon.pixmap(QSize(16, 16), QIcon::Normal, QIcon::On)
                 .toImage()
                 .pixelColor(8, 8),
             QColor(Qt::darkRed));
}

void tst_KestToolButton::panelIsLeftToTheStyle()
{
    RecordingStyle style;
    KestToolButton button;
    button.setStyle(&style);
    button.setText(QStringLiteral("text"));
    button.setDown(true);
    button.grab();
    QCOMPARE(style.complexControl, QStyle::CC_ToolButton);
    QCOMPARE(style.toolButton.text, QStringLiteral("text"));
    QVERIFY(style.toolButton.state & QStyle::State_Sunken);
    button.setEnabled(false);
    button.grab();
    QVERIFY(!(style.toolButton.state & QStyle::State_Enabled));
}

void tst_KestToolButton::panelFollowsTheSheet()
{
    QWidget bar;
    bar.setStyleSheet(QStringLiteral("KestToolButton { background: #ff0000; border: none; }"
                                     "KestToolButton:checked { background: #00ff00; }"));
    KestToolButton button(&bar);
    button.resize(20, 20);
    button.setCheckable(true);
    QCOMPARE(button.grab().toImage().pixelColor(2, 10), QColor(Qt::red));
    button.setChecked(true);
    QCOMPARE(button.grab().toImage().pixelColor(2, 10), QColor(Qt::green));
}

void tst_KestToolButton::releaseOnTheMenusPartIsNoted()
{
    class Button : public KestToolButton
    {
    public:
        using KestToolButton::hitButton;
    };
    Button button;
    QMenu menu;
    menu.addAction(QStringLiteral("entry"));
    button.setMenu(&menu);
    button.setPopupMode(QToolButton::MenuButtonPopup);
    button.resize(80, 30);
    button.show();
    const QPoint arrow(button.width() - 3, 15);
    QTimer::singleShot(0, &menu, &QWidget::close);
    QTest::mousePress(&button, Qt::LeftButton, Qt::NoModifier, arrow);
    QVERIFY(!button.isDown());
    QVERIFY(!button.hitButton(QPoint(10, 15)));
    QTest::mouseRelease(&button, Qt::LeftButton, Qt::NoModifier, arrow);
    QVERIFY(button.hitButton(QPoint(10, 15)));
}

void tst_KestToolButton::dismissedButtonGoesAtOnce()
{
    QWidget bar;
    const QPointer<KestToolButton> button(new KestToolButton(&bar));
    bar.show();
    // Its events are over.
    QTest::mouseClick(button, Qt::LeftButton);
    button->grab();
    button->dismiss();
    QVERIFY(button.isNull());
}

void tst_KestToolButton::dismissedButtonOutlivesItsEvents_data()
{
    QTest::addColumn<bool>("keyboard");
    QTest::newRow("mouse") << false;
    QTest::newRow("keyboard") << true;
}

void tst_KestToolButton::dismissedButtonOutlivesItsEvents()
{
    QFETCH(bool, keyboard);
    QWidget bar;
    const QPointer<KestToolButton> button(new KestToolButton(&bar));
    bar.show();
    bool hidden = false;
    connect(button, &QAbstractButton::pressed, &bar, [&] {
        // Events within the event change nothing.
        button->dismiss();
        hidden = button->isHidden();
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(button, &event);
        button->dismiss();
    });
    if (keyboard)
        QTest::keyPress(button, Qt::Key_Space);
    else
        QTest::mousePress(button, Qt::LeftButton);
    QVERIFY(hidden);
    QVERIFY(button.isNull() || button->isHidden());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(button.isNull());
}

void tst_KestToolButton::dismissedButtonOutlivesALoopInItsEvent()
{
    QWidget bar;
    const QPointer<KestToolButton> button(new KestToolButton(&bar));
    bar.show();
    bool livedOn = false;
    connect(button, &QAbstractButton::clicked, &bar, [&] {
        QTimer::singleShot(0, button, [&] { button->dismiss(); });
        QTest::qWait(50);
        livedOn = !button.isNull();
    });
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(livedOn);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(button.isNull());
}

void tst_KestToolButton::clickMayDeleteTheButton()
{
    for (const bool keyboard : { false, true }) {
        QWidget bar;
        const QPointer<KestToolButton> button(new KestToolButton(&bar));
        bar.show();
        connect(button, &QAbstractButton::clicked, &bar, [button] { delete button; });
        if (keyboard)
            QTest::keyClick(button, Qt::Key_Space);
        else
            QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(button.isNull());
    }
}

void tst_KestToolButton::styleMayDeleteTheButton()
{
    class Style : public QProxyStyle
    {
    public:
        using QProxyStyle::polish;
        using QProxyStyle::unpolish;
        void unpolish(QWidget *widget) override
        {
            if (deadly)
                delete widget;
        }

        bool deadly = false;
    };
    Style style;
    const QPointer<KestToolButton> button(new KestToolButton);
    button->setStyle(&style);
    button->setCheckable(true);
    style.deadly = true;
    // No more than the signal: setChecked() itself needs a button that outlives it.
    Q_EMIT button->toggled(true);
    QVERIFY(button.isNull());
}

QTEST_MAIN(tst_KestToolButton)
#include "tst_kesttoolbutton.moc"
