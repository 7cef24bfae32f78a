// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// Message boxes and the busy overlay as a user meets them: real windows, keys and clicks.

#include "KestLoadingDialog.h"
#include "KestMessageBox.h"
#include "KestStyleSheet.h"
#include "KestTitleBar.h"
#include "KestWindow.h"
#include "RealInput.h"

#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <functional>
#include <memory>

namespace {

using Box = KestMessageBox;

// The middle of a widget on the screen.
QPoint onScreen(QWidget *widget)
{
    QWidget *const window = widget->window();
    return RealInput::windowPosition(window->winId())
        + widget->mapTo(window, widget->rect().center());
}

// Acts on the box that a static function has opened, once it is the active window.
void onOpenBox(const std::function<void(Box *)> &action)
{
    QTimer::singleShot(0, qApp, [action] {
        auto *box = qobject_cast<Box *>(QApplication::activeModalWidget());
        if (!box)
            qFatal("No message box is open");
        const bool active = QTest::qWaitForWindowActive(box);
        RealInput::settle(80);
        action(box);
        // Whatever was meant to close it: the test must not hang.
        QTimer::singleShot(5000, box, &QDialog::reject);
        QVERIFY(active);
    });
}

} // namespace

class tst_Dialogs_Window : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void keysAnswer_data();
    void keysAnswer();
    void tabGoesThroughTheButtons();
    void mnemonicPressesItsButton_data();
    void mnemonicPressesItsButton();
    void firstFocusIsOnAButton();
    void boxThatIsShownAgainHasTheFocusOnAButton();
    void boxIsCopied();
    void clickAnswers();
    void closeButtonAnswersWithTheEscapeButton();
    void boxIsCentredOnItsParent();

    void escapeCancelsTheOverlay();
    void overlayTakesTheClicks();
    void overlayFollowsTheWindow();
    void windowTakesKeysAfterTheOverlay();
    void minimisingTheWindowEndsTheOverlay();
    void overlayLeavesTheShadowFree();

private:
    std::unique_ptr<KestWindow> m_window;
};

void tst_Dialogs_Window::initTestCase()
{
    qApp->setStyleSheet(KestStyleSheet::defaultStyleSheet());
}

void tst_Dialogs_Window::init()
{
    m_window.reset(new KestWindow);
    m_window->setGeometry(250, 150, 600, 420);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    RealInput::settle(60);
}

void tst_Dialogs_Window::cleanup()
{
    m_window.reset();
    RealInput::settle(30);
}

void tst_Dialogs_Window::keysAnswer_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("answer");
    QTest::newRow("Return") << QStringLiteral("Return") << int(Box::Save);
    QTest::newRow("space") << QStringLiteral("space") << int(Box::Save);
    QTest::newRow("Escape") << QStringLiteral("Escape") << int(Box::Cancel);
}

void tst_Dialogs_Window::keysAnswer()
{
    QFETCH(QString, key);
    QFETCH(int, answer);
    onOpenBox([&](Box *) { RealInput::key(key); });
    QCOMPARE(Box::question(m_window.get(), QStringLiteral("Title"), QStringLiteral("Save it?"),
                           Box::Save | Box::Discard | Box::Cancel, Box::Save),
             Box::StandardButton(answer));
}

void tst_Dialogs_Window::tabGoesThroughTheButtons()
{
    QList<Box::StandardButton> visited;
    onOpenBox([&](Box *box) {
        for (int i = 0; i < 2; ++i) {
            visited.append(
                box->standardButton(qobject_cast<QAbstractButton *>(QApplication::focusWidget())));
            RealInput::key(QStringLiteral("Tab"));
        }
        RealInput::key(QStringLiteral("Shift+Tab"));
        RealInput::key(QStringLiteral("Shift+Tab"));
        visited.append(
            box->standardButton(qobject_cast<QAbstractButton *>(QApplication::focusWidget())));
        RealInput::key(QStringLiteral("Escape"));
    });
    Box::question(m_window.get(), QStringLiteral("Title"), QStringLiteral("Save it?"),
                  Box::Ok | Box::Cancel, Box::Ok);
    QCOMPARE(visited.size(), 3);
    QCOMPARE(visited.at(0), Box::Ok);
    QCOMPARE(visited.at(1), Box::Cancel);
    QCOMPARE(visited.at(2), Box::Ok);
}

void tst_Dialogs_Window::mnemonicPressesItsButton_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("with Alt") << QStringLiteral("Alt+s");
    QTest::newRow("alone") << QStringLiteral("s");
    QTest::newRow("capital") << QStringLiteral("Shift+s");
}

void tst_Dialogs_Window::mnemonicPressesItsButton()
{
    QFETCH(QString, key);
    Box box(m_window.get());
    box.setText(QStringLiteral("Which?"));
    QPushButton *const first = box.addButton(QStringLiteral("&First"), Box::AcceptRole);
    QPushButton *const second = box.addButton(QStringLiteral("&Second"), Box::AcceptRole);
    QVERIFY(first);
    QTimer::singleShot(0, &box, [&box, key] {
        const bool active = QTest::qWaitForWindowActive(&box);
        RealInput::settle(80);
        RealInput::key(key);
        QTimer::singleShot(5000, &box, &QDialog::reject);
        QVERIFY(active);
    });
    QCOMPARE(box.exec(), int(QDialog::Accepted));
    QCOMPARE(box.clickedButton(), second);
}

void tst_Dialogs_Window::firstFocusIsOnAButton()
{
    Box::StandardButton focused = Box::NoButton;
    onOpenBox([&](Box *box) {
        focused = box->standardButton(qobject_cast<QAbstractButton *>(QApplication::focusWidget()));
        RealInput::key(QStringLiteral("space"));
    });
    QCOMPARE(Box::question(m_window.get(), QStringLiteral("Title"), QStringLiteral("Really?")),
             Box::Yes);
    QCOMPARE(focused, Box::Yes);
}

void tst_Dialogs_Window::boxThatIsShownAgainHasTheFocusOnAButton()
{
    Box box(Box::Question, QStringLiteral("Title"), QStringLiteral("Again?"), Box::Ok | Box::Cancel,
            m_window.get());
    QList<QWidget *> focused;
    for (int i = 0; i < 2; ++i) {
        QTimer::singleShot(0, &box, [&] {
            const bool active = QTest::qWaitForWindowActive(&box);
            RealInput::settle(80);
            const bool focusIn =
                QTest::qWaitFor([&] { return box.isAncestorOf(QApplication::focusWidget()); });
            focused.append(QApplication::focusWidget());
            // The title bar takes the focus by a click.
            RealInput::click(RealInput::windowPosition(box.winId())
                             + box.titleBar()->mapTo(&box, QPoint(60, 20)));
            RealInput::settle(80);
            RealInput::key(QStringLiteral("Escape"));
            QTimer::singleShot(5000, &box, &QDialog::reject);
            QVERIFY(active && focusIn);
        });
        QCOMPARE(box.exec(), int(QDialog::Rejected));
        // The window manager gives the focus to the parent, sooner or later.
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        RealInput::settle(80);
    }
    QPushButton *const ok = box.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
    QCOMPARE(focused, (QList<QWidget *> { ok, ok }));
}

void tst_Dialogs_Window::boxIsCopied()
{
    QString copied;
    onOpenBox([&](Box *) {
        RealInput::key(QStringLiteral("Control+c"));
        copied = QGuiApplication::clipboard()->text();
        RealInput::key(QStringLiteral("Escape"));
    });
    Box::information(m_window.get(), QStringLiteral("Title"), QStringLiteral("What is said."));
    const QStringList lines = copied.split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 8);
    QCOMPARE(lines.at(1), QStringLiteral("Title"));
    QCOMPARE(lines.at(3), QStringLiteral("What is said."));
    QCOMPARE(lines.at(5), QStringLiteral("OK   "));
    for (const int dashes : { 0, 2, 4, 6 })
        QCOMPARE(lines.at(dashes), QString(27, QLatin1Char('-')));
}

void tst_Dialogs_Window::clickAnswers()
{
    onOpenBox([](Box *box) {
        QPushButton *const no = box->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::No);
        RealInput::click(onScreen(no));
    });
    QCOMPARE(Box::question(m_window.get(), QStringLiteral("Title"), QStringLiteral("Really?")),
             Box::No);
}

void tst_Dialogs_Window::closeButtonAnswersWithTheEscapeButton()
{
    onOpenBox([](Box *box) {
        auto *close = box->titleBar()->findChild<QWidget *>(QStringLiteral("closeBtn"));
        RealInput::click(onScreen(close));
    });
    QCOMPARE(Box::warning(m_window.get(), QStringLiteral("Title"), QStringLiteral("Careful."),
                          Box::Ok | Box::Cancel),
             Box::Cancel);
}

void tst_Dialogs_Window::boxIsCentredOnItsParent()
{
    bool centred = false;
    onOpenBox([&](Box *box) {
        // Where the server has it: of a window without a frame Qt does not always hear from the
        // window manager. Qt allows for a frame of 10 x 40 pixels.
        centred = QTest::qWaitFor(
            [&] {
                const QRect rect(RealInput::windowPosition(box->winId()), box->size());
                const QPoint distance = rect.center() - m_window->geometry().center();
                return qAbs(distance.x()) <= 12 && qAbs(distance.y()) <= 42;
            },
            5000);
        RealInput::key(QStringLiteral("Escape"));
    });
    Box::information(m_window.get(), QStringLiteral("Title"), QStringLiteral("Text."));
    QVERIFY(centred);
}

void tst_Dialogs_Window::escapeCancelsTheOverlay()
{
    KestLoadingDialog overlay(m_window.get());
    overlay.setCancelEnable(true);
    QTimer::singleShot(100, &overlay, [] { RealInput::key(QStringLiteral("Escape")); });
    QTimer::singleShot(5000, &overlay, &KestLoadingDialog::done);
    QCOMPARE(overlay.exec(), KestLoadingDialog::Canceled);
}

void tst_Dialogs_Window::overlayTakesTheClicks()
{
    auto *button = new QPushButton(QStringLiteral("below"), m_window->centralWidget());
    button->setGeometry(100, 100, 120, 40);
    button->show();
    RealInput::settle(60);
    QSignalSpy clicked(button, &QPushButton::clicked);
    const QPoint point = button->mapToGlobal(button->rect().center());
    KestLoadingDialog overlay(m_window.get());
    QTimer::singleShot(100, &overlay, [&] {
        RealInput::click(point);
        RealInput::key(QStringLiteral("space"));
        overlay.done();
    });
    QCOMPARE(overlay.exec(), KestLoadingDialog::Done);
    QCOMPARE(clicked.count(), 0);
    RealInput::settle(60);
    RealInput::click(point);
    QTRY_COMPARE(clicked.count(), 1);
}

void tst_Dialogs_Window::overlayFollowsTheWindow()
{
    KestLoadingDialog overlay(m_window.get());
    QRect geometry;
    QTimer::singleShot(100, &overlay, [&] {
        m_window->resize(640, 470);
        RealInput::settle(200);
        geometry = overlay.geometry();
        overlay.done();
    });
    overlay.exec();
    QCOMPARE(geometry, QRect(0, 0, 640, 470));
}

void tst_Dialogs_Window::windowTakesKeysAfterTheOverlay()
{
    QLineEdit *edits[3];
    for (int i = 0; i < 3; ++i) {
        edits[i] = new QLineEdit(m_window->centralWidget());
        edits[i]->setGeometry(50, 50 + 50 * i, 200, 30);
        edits[i]->show();
    }
    edits[1]->setFocus();
    RealInput::settle(60);
    KestLoadingDialog overlay(m_window.get());
    for (int i = 0; i < 2; ++i) {
        QTimer::singleShot(100, &overlay, [&] {
            RealInput::type(QStringLiteral("lost"));
            RealInput::key(QStringLiteral("Tab"));
            overlay.done();
        });
        QCOMPARE(overlay.exec(), KestLoadingDialog::Done);
        RealInput::type(QStringLiteral("kept"));
    }
    QCOMPARE(edits[1]->text(), QStringLiteral("keptkept"));
    RealInput::key(QStringLiteral("Tab"));
    RealInput::type(QStringLiteral("next"));
    QCOMPARE(edits[2]->text(), QStringLiteral("next"));
    QCOMPARE(edits[0]->text(), QString());
}

void tst_Dialogs_Window::minimisingTheWindowEndsTheOverlay()
{
    auto *edit = new QLineEdit(m_window->centralWidget());
    edit->setGeometry(50, 50, 200, 30);
    edit->show();
    edit->setFocus();
    KestLoadingDialog overlay(m_window.get());
    QTimer::singleShot(100, &overlay, [&] { m_window->showMinimized(); });
    QTimer::singleShot(5000, &overlay, &KestLoadingDialog::done);
    QCOMPARE(overlay.exec(), KestLoadingDialog::Canceled);
    m_window->showNormal();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QVERIFY(!overlay.isVisible());
    RealInput::settle(100);
    RealInput::type(QStringLiteral("back"));
    QCOMPARE(edit->text(), QStringLiteral("back"));
}

void tst_Dialogs_Window::overlayLeavesTheShadowFree()
{
    const QMargins margins = m_window->contentsMargins();
    const QPoint corner = RealInput::windowPosition(m_window->winId());
    const QPoint inShadow = corner + QPoint(margins.left() / 2, m_window->height() / 2);
    const QPoint inside = corner + QPoint(margins.left() + 3, m_window->height() / 2);
    m_window->setAutoFillBackground(true);
    m_window->centralWidget()->setStyleSheet(QStringLiteral("background: black"));
    RealInput::settle(100);
    const unsigned shadowBefore = RealInput::pixel(inShadow);
    const unsigned insideBefore = RealInput::pixel(inside);
    unsigned shadowCovered = 0;
    unsigned insideCovered = 0;
    KestLoadingDialog overlay(m_window.get());
    QTimer::singleShot(200, &overlay, [&] {
        shadowCovered = RealInput::pixel(inShadow);
        insideCovered = RealInput::pixel(inside);
        overlay.done();
    });
    overlay.exec();
    QCOMPARE(insideBefore, 0U);
    QCOMPARE(insideCovered, 0x646464U); // white with an alpha of 100
    if (!margins.isNull())
        QCOMPARE(shadowCovered, shadowBefore);
}

QTEST_MAIN(tst_Dialogs_Window)
#include "tst_dialogs_window.moc"
