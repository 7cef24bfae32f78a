// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestCircleProgressBar.h"
#include "KestComboBox.h"
#include "KestSwitchButton.h"

#include "RealInput.h"
#include "Rendering.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QVBoxLayout>

class tst_Indicators_Window : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void clickTogglesTheSwitch();
    void releaseBesideTheSwitchTogglesNothing();
    void handleIsAtItsEndAfterTheMouseLeft();
    void keyboardReachesAndTogglesTheSwitch();
    void disabledSwitchIgnoresTheMouse();
    void clickOpensTheListOnceAndAnItemCloses();
    void keysOpenTheListAndChoose();
    void escapeLeavesTheChoice();
    void clickOutsideClosesTheList();
    void slotFillsTheListThatAClickOpens();
    void busyRingRestsInAMinimisedWindow();
    void restoredRingGoesOnTurning();

private:
    static QPoint centerOf(const QWidget *widget)
    {
        return widget->mapToGlobal(widget->rect().center());
    }
    QPoint item(int row) const
    {
        const QAbstractItemView *view = m_combo->view();
        return view->viewport()->mapToGlobal(
            view->visualRect(m_combo->model()->index(row, 0)).center());
    }
    void openByClick();

    QWidget *m_window = nullptr;
    KestSwitchButton *m_switch = nullptr;
    KestComboBox *m_combo = nullptr;
};

void tst_Indicators_Window::init()
{
    m_window = new QWidget;
    m_switch = new KestSwitchButton;
    m_switch->setFixedSize(80, 40);
    m_combo = new KestComboBox;
    m_combo->addItems(
        { QStringLiteral("Apple"), QStringLiteral("Banana"), QStringLiteral("Cherry") });
    auto *layout = new QVBoxLayout(m_window);
    layout->addWidget(m_switch);
    layout->addWidget(m_combo);
    layout->addStretch();
    m_window->resize(300, 300);
    RealInput::moveTo(QPoint(5, 5));
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    RealInput::settle();
}

void tst_Indicators_Window::cleanup()
{
    delete m_window;
    RealInput::settle();
}

void tst_Indicators_Window::openByClick()
{
    RealInput::click(centerOf(m_combo));
    QTRY_VERIFY(m_combo->view()->isVisible());
    // The release of a click that opened the list does not choose from it for this long.
    QTest::qWait(QApplication::doubleClickInterval() + 50);
}

void tst_Indicators_Window::clickTogglesTheSwitch()
{
    QSignalSpy toggled(m_switch, &QAbstractButton::toggled);
    RealInput::click(centerOf(m_switch));
    QTRY_COMPARE(toggled.count(), 1);
    QVERIFY(m_switch->isChecked());
    RealInput::click(m_switch->mapToGlobal(QPoint(2, 20)));
    QTRY_COMPARE(toggled.count(), 2);
    QVERIFY(!m_switch->isChecked());
}

void tst_Indicators_Window::releaseBesideTheSwitchTogglesNothing()
{
    QSignalSpy toggled(m_switch, &QAbstractButton::toggled);
    RealInput::moveTo(centerOf(m_switch));
    RealInput::press();
    QTRY_VERIFY(m_switch->isDown());
    RealInput::glideTo(m_switch->mapToGlobal(QPoint(150, 150)));
    RealInput::release();
    QTRY_VERIFY(!m_switch->isDown());
    QCOMPARE(toggled.count(), 0);
}

void tst_Indicators_Window::handleIsAtItsEndAfterTheMouseLeft()
{
    const QPoint left = m_switch->mapToGlobal(QPoint(20, 20));
    const QPoint right = m_switch->mapToGlobal(QPoint(60, 20));
    QTRY_COMPARE(RealInput::pixel(left), 0xFFFFFFu);
    QTRY_COMPARE(RealInput::pixel(right), 0xEEEEEEu);
    RealInput::click(centerOf(m_switch));
    RealInput::moveTo(QPoint(5, 5));
    QTRY_VERIFY(m_switch->isChecked());
    // Any paint after the motion shows the handle at its end.
    QTRY_VERIFY((m_switch->update(), RealInput::settle(), RealInput::pixel(right) == 0xFFFFFFu));
    QCOMPARE(RealInput::pixel(left), 0x326CF3u);
}

void tst_Indicators_Window::keyboardReachesAndTogglesTheSwitch()
{
    m_combo->setFocus();
    RealInput::key(QStringLiteral("Shift+Tab"));
    QTRY_VERIFY(m_switch->hasFocus());
    RealInput::key(QStringLiteral("space"));
    QTRY_VERIFY(m_switch->isChecked());
    RealInput::key(QStringLiteral("space"));
    QTRY_VERIFY(!m_switch->isChecked());
    RealInput::key(QStringLiteral("Tab"));
    QTRY_VERIFY(m_combo->hasFocus());
}

void tst_Indicators_Window::disabledSwitchIgnoresTheMouse()
{
    m_switch->setEnabled(false);
    RealInput::click(centerOf(m_switch));
    QVERIFY(!m_switch->isChecked());
    m_switch->setEnabled(true);
    RealInput::click(centerOf(m_switch));
    QTRY_VERIFY(m_switch->isChecked());
}

void tst_Indicators_Window::clickOpensTheListOnceAndAnItemCloses()
{
    QSignalSpy announced(m_combo, &KestComboBox::aboutToShowPopup);
    QSignalSpy activated(m_combo, qOverload<int>(&QComboBox::activated));
    for (const int row : { 2, 0, 1 }) {
        announced.clear();
        activated.clear();
        openByClick();
        QCOMPARE(announced.count(), 1);
        RealInput::glideTo(item(row));
        RealInput::click(item(row));
        QTRY_VERIFY(!m_combo->view()->isVisible());
        QCOMPARE(m_combo->currentIndex(), row);
        QCOMPARE(announced.count(), 1);
        QCOMPARE(activated.count(), 1);
    }
}

void tst_Indicators_Window::keysOpenTheListAndChoose()
{
    QSignalSpy announced(m_combo, &KestComboBox::aboutToShowPopup);
    m_combo->setFocus();
    RealInput::key(QStringLiteral("Alt+Down"));
    QTRY_VERIFY(m_combo->view()->isVisible());
    RealInput::key(QStringLiteral("Down"));
    RealInput::key(QStringLiteral("Return"));
    QTRY_VERIFY(!m_combo->view()->isVisible());
    QCOMPARE(m_combo->currentText(), QStringLiteral("Banana"));
    QCOMPARE(announced.count(), 1);
}

void tst_Indicators_Window::escapeLeavesTheChoice()
{
    m_combo->setFocus();
    openByClick();
    RealInput::key(QStringLiteral("Down"));
    RealInput::key(QStringLiteral("Escape"));
    QTRY_VERIFY(!m_combo->view()->isVisible());
    QCOMPARE(m_combo->currentText(), QStringLiteral("Apple"));
}

void tst_Indicators_Window::clickOutsideClosesTheList()
{
    QSignalSpy announced(m_combo, &KestComboBox::aboutToShowPopup);
    openByClick();
    RealInput::click(m_window->mapToGlobal(QPoint(290, 290)));
    QTRY_VERIFY(!m_combo->view()->isVisible());
    QCOMPARE(m_combo->currentIndex(), 0);
    QCOMPARE(announced.count(), 1);
}

void tst_Indicators_Window::slotFillsTheListThatAClickOpens()
{
    m_combo->clear();
    connect(m_combo, &KestComboBox::aboutToShowPopup, m_combo,
            [this] { m_combo->addItem(QStringLiteral("Late")); });
    openByClick();
    RealInput::glideTo(item(0));
    RealInput::click(item(0));
    QTRY_VERIFY(!m_combo->view()->isVisible());
    QCOMPARE(m_combo->currentText(), QStringLiteral("Late"));
    QCOMPARE(m_combo->count(), 1);
}

void tst_Indicators_Window::busyRingRestsInAMinimisedWindow()
{
    AnimationClock clock;
    auto *ring = new KestCircleProgressBar;
    m_window->layout()->addWidget(ring);
    ring->setRange(0, 0);
    QTRY_VERIFY(clock.isRunning());
    for (int i = 0; i < 3; ++i) {
        m_window->showMinimized();
        RealInput::settle();
        QTRY_VERIFY(!clock.isRunning());
        m_window->showNormal();
        RealInput::settle();
        QTRY_VERIFY(clock.isRunning());
    }
    m_window->hide();
    QTRY_VERIFY(!clock.isRunning());
}

void tst_Indicators_Window::restoredRingGoesOnTurning()
{
    auto *ring = new KestCircleProgressBar;
    m_window->layout()->addWidget(ring);
    ring->setRange(0, 0);
    m_window->showMinimized();
    RealInput::settle();
    m_window->showNormal();
    RealInput::settle();
    PaintCounter paints(ring);
    QTRY_VERIFY(paints.count > 20);
}

QTEST_MAIN(tst_Indicators_Window)

#include "tst_indicators_window.moc"
