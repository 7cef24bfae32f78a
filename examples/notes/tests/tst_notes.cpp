// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "NotesWindow.h"

#include <KestApplication.h>
#include <KestLoadingDialog.h>
#include <KestMessageBox.h>
#include <KestNavigationBar.h>

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QSettings>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <memory>

// Uses the program as its users do, by keys and pointer.
class tst_Notes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void noteIsWrittenAndSavedByKeys();
    void clickOnATitleOpensTheNote();
    void newTitleRenamesTheFile();
    void twoNotesOfOneTitleHaveTwoFiles();
    void titleWithASlashIsSaved();
    void nothingIsAskedWithoutChanges();
    void unsavedChangesAreAskedFor_data();
    void unsavedChangesAreAskedFor();
    void otherNoteIsOpenedAfterTheQuestionAlone();
    void noteThatCannotBeSavedStaysOpen();
    void deletionIsAskedFor();
    void searchNarrowsTheTitles();
    void backUpCoversTheWindow();
    void escapeEndsTheBackUp();
    void cancelledBackUpCopiesNothingMore();
    void windowIsAsItWasLeft();
    void languageChangesFromTheMenu();

private:
    QString path(const QString &file) const { return m_folder->filePath(file); }
    QString fileText(const QString &title) const;
    void writeFile(const QString &title, const QString &text) const;
    void clickEntry(const QString &text);
    void chooseFromMenu(int menu, const QString &keys);
    void answer(const std::function<void(KestMessageBox *)> &how);

    template <class Widget>
    Widget *part(const char *name) const
    {
        return m_window->findChild<Widget *>(QLatin1String(name));
    }
    QPlainTextEdit *text() const { return part<QPlainTextEdit>("text"); }
    QLineEdit *title() const { return part<QLineEdit>("title"); }
    QListWidget *list() const { return part<QListWidget>("titles"); }
    QStringList shownTitles() const;
    void start();

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<NotesWindow> m_window;
    bool m_answered = false;
};

void tst_Notes::init()
{
    m_window.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    QSettings().clear();
    static_cast<KestApplication *>(qApp)->loadTranslator(QStringLiteral("en"));
    start();
}

void tst_Notes::start()
{
    m_window = std::make_unique<NotesWindow>(m_folder->path());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

QString tst_Notes::fileText(const QString &title) const
{
    QFile file(path(title + QStringLiteral(".txt")));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void tst_Notes::writeFile(const QString &title, const QString &text) const
{
    QFile file(path(title + QStringLiteral(".txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text.toUtf8());
}

QStringList tst_Notes::shownTitles() const
{
    QStringList titles;
    for (int row = 0; row < list()->count(); ++row)
        titles.append(list()->item(row)->text());
    return titles;
}

// On the navigation bar.
void tst_Notes::clickEntry(const QString &text)
{
    KestNavigationBar *const bar = m_window->navigationBar();
    for (int i = 0; i < bar->count(KestNavigationBar::Left); ++i) {
        QAction *const action = bar->actionAt(i, KestNavigationBar::Left);
        if (action->iconText() != text)
            continue;
        const QPoint at = bar->actionRect(action).center();
        QTest::mouseClick(bar->childAt(at), Qt::LeftButton);
        return;
    }
    QFAIL(qPrintable(QStringLiteral("There is no entry ") + text));
}

// Types the letters into the opened menu.
void tst_Notes::chooseFromMenu(int menu, const QString &keys)
{
    QMenuBar *const bar = m_window->menuBar();
    QTest::mouseClick(bar, Qt::LeftButton, {},
                      bar->actionGeometry(bar->actions().at(menu)).center());
    for (const QChar key : keys) {
        QWidget *const popup = QApplication::activePopupWidget();
        QVERIFY(popup);
        QTest::keyClick(popup, key.toLatin1());
    }
}

// Answers the question that comes next.
void tst_Notes::answer(const std::function<void(KestMessageBox *)> &how)
{
    m_answered = false;
    auto *timer = new QTimer(m_window.get());
    connect(timer, &QTimer::timeout, this, [this, timer, how] {
        auto *box = qobject_cast<KestMessageBox *>(QApplication::activeModalWidget());
        if (!box || !box->isActiveWindow())
            return;
        timer->deleteLater();
        timer->stop();
        m_answered = true;
        how(box);
    });
    timer->start(1);
}

void tst_Notes::noteIsWrittenAndSavedByKeys()
{
    QTest::keyClick(m_window.get(), Qt::Key_N, Qt::ControlModifier);
    QVERIFY(title()->hasFocus());
    QTest::keyClicks(title(), QStringLiteral("Shopping"));
    QTest::keyClick(title(), Qt::Key_Return);
    QVERIFY(text()->hasFocus());
    QTest::keyClicks(text(), QStringLiteral("milk and bread"));
    QVERIFY(m_window->isWindowModified());
    QTest::keyClick(text(), Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!m_window->isWindowModified());
    QCOMPARE(fileText(QStringLiteral("Shopping")), QStringLiteral("milk and bread"));
    QCOMPARE(shownTitles(), QStringList { QStringLiteral("Shopping") });
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Shopping[*] - Notes"));
}

void tst_Notes::clickOnATitleOpensTheNote()
{
    writeFile(QStringLiteral("a"), QStringLiteral("first"));
    writeFile(QStringLiteral("b"), QStringLiteral("second"));
    start();
    QCOMPARE(text()->toPlainText(), QStringLiteral("first"));
    const QRect row = list()->visualItemRect(list()->item(1));
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, row.center());
    QTRY_COMPARE(text()->toPlainText(), QStringLiteral("second"));
    QCOMPARE(title()->text(), QStringLiteral("b"));
    QTest::keyClick(list(), Qt::Key_Up);
    QTRY_COMPARE(text()->toPlainText(), QStringLiteral("first"));
}

void tst_Notes::newTitleRenamesTheFile()
{
    writeFile(QStringLiteral("old"), QStringLiteral("text"));
    start();
    title()->selectAll();
    QTest::keyClicks(title(), QStringLiteral("new"));
    clickEntry(QStringLiteral("Save"));
    QCOMPARE(shownTitles(), QStringList { QStringLiteral("new") });
    QCOMPARE(fileText(QStringLiteral("new")), QStringLiteral("text"));
    QVERIFY(!QFile::exists(path(QStringLiteral("old.txt"))));
}

void tst_Notes::twoNotesOfOneTitleHaveTwoFiles()
{
    writeFile(QStringLiteral("a"), QStringLiteral("first"));
    start();
    clickEntry(QStringLiteral("New"));
    QTest::keyClicks(title(), QStringLiteral("a"));
    QTest::keyClicks(text(), QStringLiteral("second"));
    clickEntry(QStringLiteral("Save"));
    QCOMPARE(fileText(QStringLiteral("a")), QStringLiteral("first"));
    QCOMPARE(fileText(QStringLiteral("a 2")), QStringLiteral("second"));
    QCOMPARE(title()->text(), QStringLiteral("a 2"));
}

void tst_Notes::titleWithASlashIsSaved()
{
    QTest::keyClicks(title(), QStringLiteral("../a/b"));
    QTest::keyClicks(text(), QStringLiteral("text"));
    clickEntry(QStringLiteral("Save"));
    QCOMPARE(fileText(QStringLiteral("..-a-b")), QStringLiteral("text"));
}

void tst_Notes::nothingIsAskedWithoutChanges()
{
    QTest::keyClicks(text(), QStringLiteral("a"));
    QTest::keyClick(text(), Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(text(), Qt::Key_Q, Qt::ControlModifier);
    QVERIFY(!m_window->isVisible());
}

void tst_Notes::unsavedChangesAreAskedFor_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<QString>("saved");
    QTest::newRow("save") << int(KestMessageBox::Save) << true << QStringLiteral("text");
    QTest::newRow("discard") << int(KestMessageBox::Discard) << true << QString();
    QTest::newRow("cancel") << int(KestMessageBox::Cancel) << false << QString();
    QTest::newRow("Escape") << 0 << false << QString();
}

void tst_Notes::unsavedChangesAreAskedFor()
{
    QFETCH(int, button);
    QFETCH(bool, closes);
    QFETCH(QString, saved);
    QTest::keyClicks(title(), QStringLiteral("a"));
    QTest::keyClicks(text(), QStringLiteral("text"));
    answer([button](KestMessageBox *box) {
        const QList<QAbstractButton *> buttons = box->findChildren<QAbstractButton *>();
        for (QAbstractButton *candidate : buttons) {
            if (button && box->standardButton(candidate) == button) {
                QTest::mouseClick(candidate, Qt::LeftButton);
                return;
            }
        }
        QTest::keyClick(box, Qt::Key_Escape);
    });
    auto *close = m_window->findChild<QAbstractButton *>(QStringLiteral("closeBtn"));
    QTest::mouseClick(close, Qt::LeftButton);
    QVERIFY(m_answered);
    QCOMPARE(m_window->isVisible(), !closes);
    QCOMPARE(fileText(QStringLiteral("a")), saved);
    QCOMPARE(text()->toPlainText(), QStringLiteral("text"));
}

void tst_Notes::otherNoteIsOpenedAfterTheQuestionAlone()
{
    writeFile(QStringLiteral("a"), QStringLiteral("first"));
    writeFile(QStringLiteral("b"), QStringLiteral("second"));
    start();
    QTest::keyClicks(text(), QStringLiteral("more "));
    const auto chooseSecond = [this] {
        const QRect row = list()->visualItemRect(list()->item(1));
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, row.center());
    };
    answer([](KestMessageBox *box) { QTest::keyClick(box, Qt::Key_Escape); });
    chooseSecond();
    QTRY_VERIFY(m_answered);
    QTRY_COMPARE(list()->currentItem()->text(), QStringLiteral("a"));
    QCOMPARE(text()->toPlainText(), QStringLiteral("more first"));
    answer([](KestMessageBox *box) { QTest::keyClick(box->focusWidget(), Qt::Key_Return); });
    chooseSecond();
    QTRY_COMPARE(text()->toPlainText(), QStringLiteral("second"));
    QCOMPARE(list()->currentItem()->text(), QStringLiteral("b"));
    QCOMPARE(fileText(QStringLiteral("a")), QStringLiteral("more first"));
}

void tst_Notes::noteThatCannotBeSavedStaysOpen()
{
    QTest::keyClicks(title(), QStringLiteral("a"));
    QTest::keyClicks(text(), QStringLiteral("text"));
    QVERIFY(QDir(m_folder->path()).removeRecursively());
    answer([this](KestMessageBox *box) {
        answer([](KestMessageBox *failed) {
            QCOMPARE(failed->icon(), KestMessageBox::Critical);
            QTest::keyClick(failed, Qt::Key_Escape);
        });
        QTest::keyClick(box->focusWidget(), Qt::Key_Return); // saves, and fails
    });
    QTest::keyClick(m_window.get(), Qt::Key_Q, Qt::ControlModifier);
    QVERIFY(m_answered);
    QVERIFY(m_window->isVisible());
    QVERIFY(m_window->isWindowModified());
}

void tst_Notes::deletionIsAskedFor()
{
    writeFile(QStringLiteral("a"), QStringLiteral("first"));
    writeFile(QStringLiteral("b"), QStringLiteral("second"));
    start();
    answer([](KestMessageBox *box) { QTest::keyClick(box->focusWidget(), Qt::Key_Return); });
    clickEntry(QStringLiteral("Delete")); // No is what Enter presses
    QVERIFY(m_answered);
    QCOMPARE(shownTitles().size(), 2);
    answer([](KestMessageBox *box) { QTest::keyClick(box, Qt::Key_Y); });
    clickEntry(QStringLiteral("Delete"));
    QCOMPARE(shownTitles(), QStringList { QStringLiteral("b") });
    QVERIFY(!QFile::exists(path(QStringLiteral("a.txt"))));
    QCOMPARE(text()->toPlainText(), QStringLiteral("second"));
}

void tst_Notes::searchNarrowsTheTitles()
{
    writeFile(QStringLiteral("Apples"), QString());
    writeFile(QStringLiteral("pears"), QString());
    start();
    QTest::keyClick(m_window.get(), Qt::Key_F, Qt::ControlModifier);
    auto *search = part<QLineEdit>("search");
    QVERIFY(search->hasFocus());
    QTest::keyClicks(search, QStringLiteral("PEA"));
    QCOMPARE(shownTitles(), QStringList { QStringLiteral("pears") });
    search->clear();
    QCOMPARE(shownTitles().size(), 2);
}

void tst_Notes::backUpCoversTheWindow()
{
    for (int i = 0; i < 50; ++i)
        writeFile(QString::number(i), QStringLiteral("text"));
    start();
    bool covered = false;
    QTimer::singleShot(0, m_window.get(), [this, &covered] {
        const auto *overlay = m_window->findChild<KestLoadingDialog *>();
        covered = overlay && overlay->isVisible();
    });
    clickEntry(QStringLiteral("Back up"));
    QVERIFY(covered);
    QVERIFY(!m_window->findChild<KestLoadingDialog *>());
    QCOMPARE(QDir(path(QStringLiteral("backup"))).entryList(QDir::Files).size(), 50);
    QCOMPARE(m_window->statusBar()->currentMessage(), QStringLiteral("Notes backed up: 50"));
}

void tst_Notes::escapeEndsTheBackUp()
{
    for (int i = 0; i < 500; ++i)
        writeFile(QString::number(i), QStringLiteral("text"));
    start();
    QTimer::singleShot(0, m_window.get(), [this] {
        QTest::keyClick(m_window->findChild<KestLoadingDialog *>(), Qt::Key_Escape);
    });
    clickEntry(QStringLiteral("Back up"));
    // How far it came is the disk's to say.
    const int copied = QDir(path(QStringLiteral("backup"))).entryList(QDir::Files).size();
    QCOMPARE(m_window->statusBar()->currentMessage(),
             QStringLiteral("Notes backed up: %1").arg(copied));
}

void tst_Notes::cancelledBackUpCopiesNothingMore()
{
    writeFile(QStringLiteral("a"), QStringLiteral("text"));
    const NoteFolder notes(m_folder->path());
    int copied = -1;
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        while (!QThread::currentThread()->isInterruptionRequested())
            QThread::msleep(1);
        copied = notes.backUp();
    }));
    thread->start();
    thread->requestInterruption();
    QVERIFY(thread->wait());
    QCOMPARE(copied, 0);
    QCOMPARE(notes.backUp(), 1);
}

void tst_Notes::windowIsAsItWasLeft()
{
    writeFile(QStringLiteral("a"), QStringLiteral("first"));
    writeFile(QStringLiteral("b"), QStringLiteral("second"));
    start();
    const QRect row = list()->visualItemRect(list()->item(1));
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, row.center());
    QTRY_COMPARE(title()->text(), QStringLiteral("b"));
    m_window->setGeometry(40, 50, 700, 420);
    chooseFromMenu(2, QStringLiteral("w")); // View, Wrap lines
    QCOMPARE(text()->lineWrapMode(), QPlainTextEdit::NoWrap);
    QTest::keyClick(m_window.get(), Qt::Key_Q, Qt::ControlModifier);
    QVERIFY(!m_window->isVisible());
    start();
    QCOMPARE(m_window->size(), QSize(700, 420));
    QCOMPARE(m_window->pos(), QPoint(40, 50));
    QCOMPARE(title()->text(), QStringLiteral("b"));
    QCOMPARE(text()->lineWrapMode(), QPlainTextEdit::NoWrap);
}

void tst_Notes::languageChangesFromTheMenu()
{
    chooseFromMenu(2, QStringLiteral("ld")); // View, Language, Deutsch
    QTRY_COMPARE(m_window->menuBar()->actions().first()->text(), QStringLiteral("&Datei"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Neue Notiz[*] - Notizen"));
    const auto *close = m_window->findChild<QWidget *>(QStringLiteral("closeBtn"));
    QCOMPARE(close->accessibleName(), QStringLiteral("Schließen")); // a text of the library's
    clickEntry(QStringLiteral("Neu"));
    QCOMPARE(NotesWindow::language(), QStringLiteral("de"));
}

int main(int argc, char *argv[])
{
    KestApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("KestWidgets"));
    QCoreApplication::setApplicationName(QStringLiteral("notes"));
    // The settings of the test are nobody's.
    const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    tst_Notes test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_notes.moc"
