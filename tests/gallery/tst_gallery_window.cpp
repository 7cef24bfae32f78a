// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// The gallery in a real window: keys, clicks and places go through the system.

#include "GalleryWindow.h"
#include "KestCircleProgressBar.h"
#include "KestNavigationBar.h"
#include "KestSwitchButton.h"
#include "RealInput.h"

#include <QtCore/QFile>
#include <QtCore/QPointer>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QStatusBar>

#include <memory>

namespace {

// The middle of a widget on the screen.
QPoint onScreen(QWidget *widget)
{
    QWidget *const window = widget->window();
    return RealInput::windowPosition(window->winId())
        + widget->mapTo(window, widget->rect().center());
}

QWidget *pageNamed(const GalleryWindow &window, const QString &title)
{
    for (int i = 0; i < window.pageCount(); ++i) {
        if (window.page(i)->windowTitle() == title)
            return window.page(i);
    }
    return nullptr;
}

// Presses Tab until \a widget has the focus. Each Tab is waited for: one that comes late on a busy
// machine would leave the widget again.
bool tabTo(QWidget *widget)
{
    const int stops = 60;
    for (int i = 0; i < stops && !widget->hasFocus(); ++i) {
        const QWidget *const before = QApplication::focusWidget();
        RealInput::key(QStringLiteral("Tab"));
        if (!QTest::qWaitFor([&] { return QApplication::focusWidget() != before; }))
            return false;
    }
    return widget->hasFocus();
}

// Types the name of a file into the dialog that opens next, which keeps the thread until it closes.
std::unique_ptr<QTimer> chooseFileLater(const QString &file)
{
    auto waiting = std::make_unique<QTimer>();
    QObject::connect(waiting.get(), &QTimer::timeout, waiting.get(), [file, timer = waiting.get()] {
        const QPointer<QFileDialog> dialog(
            qobject_cast<QFileDialog *>(QApplication::activeModalWidget()));
        if (!dialog)
            return;
        timer->stop();
        const auto *const field = dialog->findChild<QLineEdit *>();
        if (QTest::qWaitFor([&] { return field->hasFocus(); })) {
            RealInput::key(QStringLiteral("Control+a"));
            RealInput::type(file);
            RealInput::key(QStringLiteral("Return"));
        }
        // Whatever is wrong: the test must not hang.
        if (!QTest::qWaitFor([&] { return !dialog || !dialog->isVisible(); }))
            dialog->close();
    });
    waiting->start(20);
    return waiting;
}

} // namespace

class tst_Gallery_Window : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void keysAloneFindAPageAndCopyItsSource();
    void pointerCopiesTheSource();
    void keysAloneMakeSaveAndOpenATheme();
    void screenReadersViewFollowsRealKeys();
    void pointerRunsAndCancelsTheLongTask();
    void windowComesBackWhereItWas();
};

void tst_Gallery_Window::initTestCase()
{
    // Those of the systems are not the gallery's.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    RealInput::moveTo(QPoint(0, 0));
}

void tst_Gallery_Window::keysAloneFindAPageAndCopyItsSource()
{
    GalleryWindow window;
    window.resize(1100, 700);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    RealInput::settle(100);
    RealInput::key(QStringLiteral("Control+f"));
    RealInput::type(QStringLiteral("switch"));
    RealInput::key(QStringLiteral("Return"));
    QTRY_VERIFY(pageNamed(window, QStringLiteral("Switch button"))->isVisible());
    // By Tab to the source, and its text to the clipboard.
    auto *const source = window.findChild<QPlainTextEdit *>(QStringLiteral("source"));
    QVERIFY(tabTo(source));
    RealInput::key(QStringLiteral("Control+a"));
    RealInput::key(QStringLiteral("Control+c"));
    QTRY_COMPARE(QGuiApplication::clipboard()->text(), source->toPlainText());
    QVERIFY(source->toPlainText().contains(QStringLiteral("SwitchPage")));
}

void tst_Gallery_Window::pointerCopiesTheSource()
{
    GalleryWindow window;
    window.resize(1100, 700);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    // By the button in the navigation bar to the page, by the one above the source to the text.
    const QList<QAbstractButton *> entries =
        window.navigationBar()->findChildren<QAbstractButton *>();
    for (QAbstractButton *entry : entries) {
        if (entry->text() == QStringLiteral("Window"))
            RealInput::click(onScreen(entry));
    }
    QTRY_VERIFY(pageNamed(window, QStringLiteral("Window"))->isVisible());
    QGuiApplication::clipboard()->clear();
    auto *const source = window.findChild<QPlainTextEdit *>(QStringLiteral("source"));
    RealInput::click(onScreen(source->parentWidget()->findChild<QPushButton *>()));
    QTRY_COMPARE(QGuiApplication::clipboard()->text(), source->toPlainText());
    QVERIFY(source->toPlainText().contains(QStringLiteral("WindowPage::WindowPage")));
    QVERIFY(window.statusBar()->currentMessage().startsWith(QStringLiteral("WindowPage.cpp")));
}

void tst_Gallery_Window::keysAloneMakeSaveAndOpenATheme()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("mine.css"));
    const QString sheet = QStringLiteral("QLabel { color: #ff0000 }");
    GalleryWindow window;
    window.resize(1100, 700);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    RealInput::key(QStringLiteral("Control+f"));
    RealInput::type(QStringLiteral("style sheet"));
    RealInput::key(QStringLiteral("Return"));
    QWidget *const page = pageNamed(window, QStringLiteral("Style sheet"));
    QTRY_VERIFY(page->isVisible());
    auto *const editor = page->findChild<QPlainTextEdit *>(QStringLiteral("sheetEditor"));
    QVERIFY(tabTo(editor));
    RealInput::key(QStringLiteral("Control+a"));
    RealInput::type(sheet);
    QTRY_COMPARE(editor->toPlainText(), sheet);
    QTRY_COMPARE(qApp->styleSheet(), sheet);

    const std::unique_ptr<QTimer> saving = chooseFileLater(file);
    RealInput::key(QStringLiteral("Alt+a"));
    QTRY_VERIFY(QFile::exists(file));

    window.setTheme(1);
    QVERIFY(qApp->styleSheet() != sheet);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const std::unique_ptr<QTimer> opening = chooseFileLater(file);
    RealInput::key(QStringLiteral("Alt+o"));
    QTRY_COMPARE(qApp->styleSheet(), sheet);
    QCOMPARE(editor->toPlainText(), sheet);
}

void tst_Gallery_Window::screenReadersViewFollowsRealKeys()
{
    GalleryWindow window;
    window.resize(1100, 700);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    RealInput::key(QStringLiteral("Control+f"));
    RealInput::type(QStringLiteral("accessib"));
    RealInput::key(QStringLiteral("Return"));
    const QWidget *const page = pageNamed(window, QStringLiteral("Accessibility"));
    QTRY_VERIFY(page->isVisible());
    auto *const night = page->findChild<KestSwitchButton *>();
    QVERIFY(tabTo(night));
    const auto answer = [page](const char *question) {
        return page->findChild<QLabel *>(QString::fromLatin1(question))->text();
    };
    QTRY_COMPARE(answer("Name"), QStringLiteral("Night mode"));
    QVERIFY(!answer("State").contains(QStringLiteral("checked")));
    const auto *const announcements = page->findChild<QListWidget *>();
    const int before = announcements->count();
    RealInput::key(QStringLiteral("space"));
    QTRY_VERIFY(night->isChecked());
    QTRY_VERIFY(answer("State").contains(QStringLiteral("checked")));
    QTRY_VERIFY(announcements->count() > before);
}

void tst_Gallery_Window::pointerRunsAndCancelsTheLongTask()
{
    GalleryWindow window;
    window.resize(1100, 700);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QWidget *const page = pageNamed(window, QStringLiteral("Long task"));
    RealInput::key(QStringLiteral("Control+f"));
    RealInput::type(QStringLiteral("long"));
    QTRY_VERIFY(page->isVisible());
    page->findChild<QSpinBox *>()->setValue(100);
    auto *const button = page->findChild<QPushButton *>(QStringLiteral("task"));
    RealInput::click(onScreen(button));
    const auto *const circle = page->findChild<KestCircleProgressBar *>();
    QTRY_VERIFY_WITH_TIMEOUT(circle->value() > 0, 60000);
    RealInput::click(onScreen(button));
    const auto *const result = page->findChild<QLabel *>(QStringLiteral("taskResult"));
    QTRY_VERIFY_WITH_TIMEOUT(result->text().startsWith(QStringLiteral("Cancelled at")), 60000);
    QVERIFY(circle->value() < 100);
}

void tst_Gallery_Window::windowComesBackWhereItWas()
{
    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("gallery.ini")), QSettings::IniFormat);
    QPoint place;
    QSize size;
    for (const bool maximized : { false, true }) {
        {
            GalleryWindow window;
            window.setGeometry(150, 90, 840, 560);
            window.show();
            QVERIFY(QTest::qWaitForWindowActive(&window));
            RealInput::settle(200);
            place = RealInput::windowPosition(window.winId());
            size = window.size();
            if (maximized) {
                window.showMaximized();
                QTRY_VERIFY(window.width() > 1000);
                RealInput::settle(200);
            }
            window.close();
            window.savePlace(&settings);
        }
        GalleryWindow again;
        again.restorePlace(settings);
        again.show();
        QVERIFY(QTest::qWaitForWindowActive(&again));
        RealInput::settle(200);
        QCOMPARE(again.isMaximized(), maximized);
        if (maximized) {
            QTRY_VERIFY(again.width() > 1000);
            again.showNormal();
            RealInput::settle(200);
        }
        QTRY_COMPARE(again.size(), size);
        QTRY_COMPARE(RealInput::windowPosition(again.winId()), place);
    }
}

QTEST_MAIN(tst_Gallery_Window)
#include "tst_gallery_window.moc"
