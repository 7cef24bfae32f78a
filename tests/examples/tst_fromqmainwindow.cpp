// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "MainWindow.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <functional>

// Uses the program by keys; compiled with Qt's classes and with the library's.
class tst_FromQMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void taskIsAddedByTheDialog();
    void cancelledDialogAddsNothing();
    void tasksAreAskedForAtTheEnd();
    void windowIsAsItWasLeft();

private:
    void whenDialogIsOpen(const std::function<void(QDialog *)> &then);
    void addTask(QWidget *window, Qt::Key end);

    int m_dialogs = 0;
};

void tst_FromQMainWindow::init()
{
    QSettings().clear();
    m_dialogs = 0;
}

void tst_FromQMainWindow::whenDialogIsOpen(const std::function<void(QDialog *)> &then)
{
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, [this, timer, then] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isActiveWindow())
            return;
        timer->stop();
        timer->deleteLater();
        ++m_dialogs;
        then(dialog);
    });
    timer->start(1);
}

void tst_FromQMainWindow::addTask(QWidget *window, Qt::Key end)
{
    whenDialogIsOpen([end](const QDialog *dialog) {
        auto *field = dialog->findChild<QLineEdit *>();
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Add a task"));
        QVERIFY(field->hasFocus());
        QTest::keyClicks(field, QStringLiteral("sweep"));
        QTest::keyClick(field, end);
    });
    QTest::keyClick(window, Qt::Key_N, Qt::ControlModifier);
}

void tst_FromQMainWindow::taskIsAddedByTheDialog()
{
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    addTask(&window, Qt::Key_Return);
    QCOMPARE(m_dialogs, 1);
    const auto *tasks = window.findChild<QListWidget *>();
    QCOMPARE(tasks->count(), 1);
    QCOMPARE(tasks->item(0)->text(), QStringLiteral("sweep"));
    QVERIFY(window.isWindowModified());
}

void tst_FromQMainWindow::cancelledDialogAddsNothing()
{
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    addTask(&window, Qt::Key_Escape);
    QCOMPARE(m_dialogs, 1);
    QCOMPARE(window.findChild<QListWidget *>()->count(), 0);
    QVERIFY(window.close());
    QCOMPARE(m_dialogs, 1);
}

void tst_FromQMainWindow::tasksAreAskedForAtTheEnd()
{
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    addTask(&window, Qt::Key_Return);
    whenDialogIsOpen([](QDialog *box) { QTest::keyClick(box, Qt::Key_N); }); // No
    QVERIFY(!window.close());
    whenDialogIsOpen([](QDialog *box) { QTest::keyClick(box, Qt::Key_Y); }); // Yes
    QVERIFY(window.close());
    QCOMPARE(m_dialogs, 3);
}

void tst_FromQMainWindow::windowIsAsItWasLeft()
{
    {
        MainWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        window.setGeometry(30, 40, 500, 300);
        QVERIFY(window.close());
    }
    const MainWindow window;
    QCOMPARE(window.geometry(), QRect(30, 40, 500, 300));
}

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("KestWidgets"));
    QCoreApplication::setApplicationName(QStringLiteral("from-qmainwindow"));
    const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    tst_FromQMainWindow test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_fromqmainwindow.moc"
