// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// The address edit as a user handles it: in a real window, with the real pointer and keyboard.

#include "KestIPAddressEdit.h"

#include "IPAddressState.h"
#include "RealInput.h"

#include <QShortcut>
#include <QtGui/QClipboard>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QVBoxLayout>

#include <memory>

class tst_IPAddress_Window : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void addressIsTyped();
    void mistakesAreCorrected();
    void copiedTextIsPastedIntoAnotherEdit();
    void addressOfALineEditIsPasted();
    void tabLeadsThroughTheEdits();
    void dragSelectsAndTypingReplaces();
    void doubleClickSelectsASection();
    void contextMenuKeepsTheSelection();
    void digitsAreNoShortcutsOfTheWindow();

private:
    QPoint at(int position) const { return m_edit->mapToGlobal(pointOf(m_edit, position)); }
    QString state() const { return stateOf(m_edit); }

    std::unique_ptr<QWidget> m_window;
    QLineEdit *m_line = nullptr;
    KestIPAddressEdit *m_edit = nullptr;
    KestIPAddressEdit *m_second = nullptr;
};

void tst_IPAddress_Window::init()
{
    RealInput::moveTo(QPoint(5, 5));
    QGuiApplication::clipboard()->clear();
    m_window = std::make_unique<QWidget>();
    m_line = new QLineEdit;
    m_edit = new KestIPAddressEdit;
    m_second = new KestIPAddressEdit;
    auto *layout = new QVBoxLayout(m_window.get());
    layout->addWidget(m_line);
    layout->addWidget(m_edit);
    layout->addWidget(m_second);
    m_window->setGeometry(200, 150, 360, 160);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_edit->setFocus();
}

void tst_IPAddress_Window::cleanup()
{
    m_window.reset();
    RealInput::settle();
}

void tst_IPAddress_Window::addressIsTyped()
{
    const QSignalSpy changed(m_edit, &KestIPAddressEdit::editChanged);
    const QSignalSpy finished(m_edit, &KestIPAddressEdit::editingFinished);
    RealInput::type(QStringLiteral("192168.7.25"));
    QTRY_COMPARE(state(), QStringLiteral("192|168|7|25 @14"));
    QCOMPARE(changed.count(), 9);
    RealInput::key(QStringLiteral("Return"));
    QTRY_COMPARE(finished.count(), 1);
    QCOMPARE(m_edit->ipAddress(), QStringLiteral("192.168.7.25"));
}

void tst_IPAddress_Window::mistakesAreCorrected()
{
    RealInput::type(QStringLiteral("1.256"));
    QTRY_COMPARE(state(), QStringLiteral("1|25|| @6"));
    RealInput::key(QStringLiteral("BackSpace"));
    RealInput::key(QStringLiteral("BackSpace"));
    RealInput::key(QStringLiteral("BackSpace"));
    QTRY_COMPARE(state(), QStringLiteral("||| @0"));
    RealInput::type(QStringLiteral("10"));
    RealInput::key(QStringLiteral("Left"));
    RealInput::key(QStringLiteral("Delete"));
    QTRY_COMPARE(state(), QStringLiteral("1||| @1"));
}

void tst_IPAddress_Window::copiedTextIsPastedIntoAnotherEdit()
{
    RealInput::type(QStringLiteral("192"));
    for (int i = 0; i < 2; ++i)
        RealInput::key(QStringLiteral("Left"));
    QTRY_COMPARE(state(), QStringLiteral("192||| @2"));
    RealInput::key(QStringLiteral("Shift+Left"));
    RealInput::key(QStringLiteral("Shift+Left"));
    QTRY_COMPARE(state(), QStringLiteral("192||| @0 0:0-2"));
    RealInput::key(QStringLiteral("Control+c"));
    QTRY_COMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("19"));
    RealInput::key(QStringLiteral("Tab"));
    QTRY_VERIFY(m_second->hasFocus());
    QCOMPARE(state(), QStringLiteral("192||| @0"));
    RealInput::key(QStringLiteral("Control+v"));
    QTRY_COMPARE(stateOf(m_second), QStringLiteral("19||| @1"));
}

void tst_IPAddress_Window::addressOfALineEditIsPasted()
{
    m_line->setFocus();
    RealInput::type(QStringLiteral("10.20.30.40"));
    RealInput::key(QStringLiteral("Control+a"));
    RealInput::key(QStringLiteral("Control+c"));
    RealInput::key(QStringLiteral("Tab"));
    QTRY_VERIFY(m_edit->hasFocus());
    RealInput::key(QStringLiteral("Control+v"));
    QTRY_COMPARE(m_edit->ipAddress(), QStringLiteral("10.20.30.40"));
}

void tst_IPAddress_Window::tabLeadsThroughTheEdits()
{
    const QSignalSpy finished(m_edit, &KestIPAddressEdit::editingFinished);
    RealInput::type(QStringLiteral("1"));
    RealInput::key(QStringLiteral("Tab"));
    QTRY_VERIFY(m_second->hasFocus());
    QCOMPARE(finished.count(), 1);
    RealInput::key(QStringLiteral("Shift+Tab"));
    QTRY_VERIFY(m_edit->hasFocus());
    RealInput::key(QStringLiteral("Shift+Tab"));
    QTRY_VERIFY(m_line->hasFocus());
    QCOMPARE(finished.count(), 2);
    QCOMPARE(state(), QStringLiteral("1||| @1"));
}

void tst_IPAddress_Window::dragSelectsAndTypingReplaces()
{
    m_edit->setIPAddress(QStringLiteral("192.168.1.20"));
    RealInput::drag(at(4) + QPoint(1, 0), at(6) + QPoint(1, 0));
    QTRY_COMPARE(state(), QStringLiteral("192|168|1|20 @6 1:0-2"));
    RealInput::type(QStringLiteral("4"));
    QTRY_COMPARE(state(), QStringLiteral("192|84|1|20 @6"));
    RealInput::click(at(12) + QPoint(1, 0));
    QTRY_COMPARE(state(), QStringLiteral("192|84|1|20 @12"));
}

void tst_IPAddress_Window::doubleClickSelectsASection()
{
    m_edit->setIPAddress(QStringLiteral("192.168.1.20"));
    RealInput::doubleClick(at(5));
    QTRY_COMPARE(state(), QStringLiteral("192|168|1|20 @7 1:0-3"));
}

void tst_IPAddress_Window::contextMenuKeepsTheSelection()
{
    m_edit->setIPAddress(QStringLiteral("192.168.1.20"));
    RealInput::doubleClick(at(5));
    const QString selected = QStringLiteral("192|168|1|20 @7 1:0-3");
    QTRY_COMPARE(state(), selected);
    // The menu has a loop of its own.
    QString open;
    QTimer watch;
    connect(&watch, &QTimer::timeout, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        watch.stop();
        open = state();
        RealInput::click(menu->mapToGlobal(menu->actionGeometry(menu->actions().first()).center()));
    });
    watch.start(50);
    RealInput::click(at(5), RealInput::RightButton);
    QTRY_COMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("168"));
    QCOMPARE(open, selected);
    QCOMPARE(state(), selected);
}

void tst_IPAddress_Window::digitsAreNoShortcutsOfTheWindow()
{
    const QShortcut shortcut(QKeySequence(Qt::Key_5), m_window.get());
    const QSignalSpy activated(&shortcut, &QShortcut::activated);
    RealInput::type(QStringLiteral("5"));
    QTRY_COMPARE(state(), QStringLiteral("5||| @1"));
    QCOMPARE(activated.count(), 0);
    m_edit->setReadOnly(true);
    RealInput::type(QStringLiteral("5"));
    QTRY_COMPARE(activated.count(), 1);
}

QTEST_MAIN(tst_IPAddress_Window)
#include "tst_ipaddress_window.moc"
