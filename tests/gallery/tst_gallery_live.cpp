// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// The pages on which something happens: the editor of sheets, the long task, the screen reader.

#include "GalleryUser.h"
#include "KestCircleProgressBar.h"
#include "KestIPAddressEdit.h"
#include "KestLoadingDialog.h"
#include "KestMessageBox.h"
#include "KestStageProgressBar.h"
#include "KestStyleSheet.h"
#include "KestSwitchButton.h"
#include "Themes.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QAccessible>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

namespace {

const int PrimesBelowAMillion = 78498;

// Fills in the file dialog that is open next as its user does.
void chooseFile(const QString &name)
{
    QTimer::singleShot(0, qApp, [name] {
        auto *const dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        auto *const field = dialog->findChild<QLineEdit *>();
        QTRY_VERIFY(field->hasFocus()); // else the list's choice counts for more than the text
        field->selectAll();
        QTest::keyClicks(field, name);
        QTest::keyClick(field, Qt::Key_Return);
        if (dialog->isVisible()) // whatever is wrong: the test must not hang
            dialog->reject();
    });
}

} // namespace

class tst_Gallery_Live : public GalleryUser
{
    Q_OBJECT

private Q_SLOTS:
    void sheetIsShownAsItIsTyped();
    void sheetThatQtCannotReadIsNotShown_data();
    void sheetThatQtCannotReadIsNotShown();
    void chosenSheetIsShown();
    void themeOfTheMenuIsInTheEditor();
    void scaleAndFontSizeAreShown();
    void themeIsSavedAndOpened();
    void fileThatCannotBeOpenedIsTold();

    void longTaskMovesBothBars();
    void longTaskIsCancelledByItsButton();
    void longTaskIsCancelledUnderTheOverlay();
    void longTaskEndsWithTheWindow();

    void screenReadersViewFollowsTheFocus();
    void announcementsAreListed();
    void editingIsListedWithWhatComesAndGoes();
    void readerIsSilentOnOtherPages();
};

void tst_Gallery_Live::sheetIsShownAsItIsTyped()
{
    const QWidget *const page = show("Style sheet");
    auto *const editor = named<QPlainTextEdit>(page, "sheetEditor");
    QCOMPARE(editor->toPlainText(), qApp->styleSheet());
    editor->setFocus();
    press(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, QStringLiteral("QPushButton { min-height: 61px }"));
    QTRY_COMPARE(qApp->styleSheet(), QStringLiteral("QPushButton { min-height: 61px }"));
    QTRY_VERIFY(named<QPushButton>(m_window.get(), "copySource")->height() >= 61);
    // None of the library's: neither in the list nor in the menu.
    QCOMPARE(named<QComboBox>(page, "sheets")->currentIndex(), -1);
    QCOMPARE(editor->toPlainText(), QStringLiteral("QPushButton { min-height: 61px }"));
    m_window->setScale(200);
    QCOMPARE(qApp->styleSheet(), QStringLiteral("QPushButton { min-height: 122px }"));
    QCOMPARE(editor->toPlainText(), QStringLiteral("QPushButton { min-height: 61px }"));
}

void tst_Gallery_Live::sheetThatQtCannotReadIsNotShown_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::newRow("open brace") << "QPushButton { color: red";
    QTest::newRow("declaration alone") << "color: red";
}

void tst_Gallery_Live::sheetThatQtCannotReadIsNotShown()
{
    QFETCH(QString, sheet);
    const QWidget *const page = show("Style sheet");
    auto *const editor = named<QPlainTextEdit>(page, "sheetEditor");
    const QString before = qApp->styleSheet();
    editor->selectAll();
    editor->insertPlainText(sheet);
    const auto *const state = named<QLabel>(page, "sheetState");
    QTRY_VERIFY(state->text().contains(QStringLiteral("cannot read")));
    QCOMPARE(qApp->styleSheet(), before);
    editor->selectAll();
    editor->insertPlainText(QStringLiteral("QPushButton { color: red }"));
    QTRY_COMPARE(qApp->styleSheet(), QStringLiteral("QPushButton { color: red }"));
    QVERIFY(!state->text().contains(QStringLiteral("cannot read")));
}

void tst_Gallery_Live::chosenSheetIsShown()
{
    const QWidget *const page = show("Style sheet");
    auto *const sheets = named<QComboBox>(page, "sheets");
    const auto *const editor = named<QPlainTextEdit>(page, "sheetEditor");
    QCOMPARE(sheets->currentIndex(), 0);
    QCOMPARE(sheets->count(), 5);
    sheets->setFocus();
    QSet<QString> shown { qApp->styleSheet() };
    for (int i = 1; i < sheets->count(); ++i) {
        press(sheets, Qt::Key_Down);
        QCOMPARE(sheets->currentIndex(), i);
        QCOMPARE(qApp->styleSheet(), Themes::text(sheets->currentText()));
        QCOMPARE(editor->toPlainText(), qApp->styleSheet());
        shown.insert(qApp->styleSheet());
    }
    QCOMPARE(shown.size(), 5);
}

void tst_Gallery_Live::themeOfTheMenuIsInTheEditor()
{
    const QWidget *const page = show("Style sheet");
    const auto *const editor = named<QPlainTextEdit>(page, "sheetEditor");
    QStringList sheets;
    for (int i = 0; i < m_window->themeCount(); ++i) {
        m_window->setTheme(i);
        QCOMPARE(editor->toPlainText(), qApp->styleSheet());
        sheets.append(named<QComboBox>(page, "sheets")->currentText());
    }
    QCOMPARE(sheets.mid(1), (QStringList { "tool.css", "kest-blue.css" }));
}

void tst_Gallery_Live::scaleAndFontSizeAreShown()
{
    const QWidget *const page = show("Style sheet");
    auto *const scale = named<QSpinBox>(page, "sheetScale");
    auto *const size = named<QDoubleSpinBox>(page, "fontSize");
    QCOMPARE(scale->value(), 100);
    QCOMPARE(size->value(), QApplication::font().pointSizeF());
    scale->setFocus();
    press(scale, Qt::Key_Up);
    press(scale, Qt::Key_Up);
    QCOMPARE(qApp->styleSheet(),
             KestStyleSheet::scaleSheet(KestStyleSheet::defaultStyleSheet(), 1.5f));
    size->setFocus();
    const double before = size->value();
    press(size, Qt::Key_Up);
    QCOMPARE(QApplication::font().pointSizeF(), (before + 1) * 1.5);
    QCOMPARE(scale->value(), 150);
    QCOMPARE(size->value(), before + 1);
}

void tst_Gallery_Live::themeIsSavedAndOpened()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("own.css"));
    const QString own = QStringLiteral("/* gr\u00FCn */ QLabel { padding: 3px }\n");
    const QWidget *const page = show("Style sheet");
    auto *const editor = named<QPlainTextEdit>(page, "sheetEditor");
    editor->selectAll();
    editor->insertPlainText(own);
    chooseFile(file);
    click(named<QPushButton>(page, "saveSheet"));
    QCOMPARE(textOf(file), own);

    m_window->setTheme(1);
    QVERIFY(editor->toPlainText() != own);
    chooseFile(file);
    click(named<QPushButton>(page, "openSheet"));
    QCOMPARE(editor->toPlainText(), own);
    QCOMPARE(qApp->styleSheet(), own);
}

void tst_Gallery_Live::fileThatCannotBeOpenedIsTold()
{
    const QTemporaryDir folder;
    const QWidget *const page = show("Style sheet");
    const QString before = qApp->styleSheet();
    chooseFile(folder.filePath(QStringLiteral("missing/own.css")));
    bool told = false;
    QTimer closer; // as soon as it is there
    connect(&closer, &QTimer::timeout, &closer, [&told] {
        if (auto *const box = qobject_cast<KestMessageBox *>(QApplication::activeModalWidget())) {
            told = box->text().contains(QStringLiteral("could not be saved"));
            box->close();
        }
    });
    closer.start(10);
    click(named<QPushButton>(page, "saveSheet"));
    QVERIFY(told);
    QCOMPARE(qApp->styleSheet(), before);
}

void tst_Gallery_Live::longTaskMovesBothBars()
{
    QWidget *const page = show("Long task");
    page->findChild<QSpinBox *>()->setValue(1);
    auto *const circle = page->findChild<KestCircleProgressBar *>();
    auto *const stages = page->findChild<KestStageProgressBar *>();
    QSignalSpy circleMoved(circle, &KestCircleProgressBar::valueChanged);
    QSignalSpy stagesMoved(stages, &KestStageProgressBar::valueChanged);
    auto *const button = named<QPushButton>(page, "task");
    const auto *const result = named<QLabel>(page, "taskResult");
    for (int run = 0; run < 2; ++run) {
        circleMoved.clear();
        stagesMoved.clear();
        click(button);
        // The window is alive meanwhile.
        QCOMPARE(button->text().remove(QLatin1Char('&')), QStringLiteral("Cancel"));
        QVERIFY(!page->findChild<KestLoadingDialog *>());
        QTRY_COMPARE_WITH_TIMEOUT(result->text(),
                                  QStringLiteral("%1 primes.").arg(PrimesBelowAMillion), 60000);
        QVERIFY(circleMoved.count() >= 100);
        QVERIFY(stagesMoved.count() >= 100);
        QCOMPARE(circle->value(), 100);
        QCOMPARE(stages->value(), 100);
        QVERIFY(button->text().contains(QStringLiteral("primes")));
    }
}

void tst_Gallery_Live::longTaskIsCancelledByItsButton()
{
    QWidget *const page = show("Long task");
    page->findChild<QSpinBox *>()->setValue(100);
    auto *const button = named<QPushButton>(page, "task");
    button->setFocus();
    press(button, Qt::Key_Space);
    const auto *const circle = page->findChild<KestCircleProgressBar *>();
    QTRY_VERIFY_WITH_TIMEOUT(circle->value() > 0, 60000);
    press(button, Qt::Key_Space);
    QTRY_VERIFY_WITH_TIMEOUT(
        named<QLabel>(page, "taskResult")->text().startsWith(QStringLiteral("Cancelled at")),
        60000);
    QVERIFY(circle->value() < 100);
    QVERIFY(button->hasFocus());
}

void tst_Gallery_Live::longTaskIsCancelledUnderTheOverlay()
{
    QWidget *const page = show("Long task");
    page->findChild<QSpinBox *>()->setValue(100);
    page->findChild<QCheckBox *>()->setChecked(true);
    auto *const button = named<QPushButton>(page, "task");
    const auto *const circle = page->findChild<KestCircleProgressBar *>();
    int moved = 0;
    connect(circle, &KestCircleProgressBar::valueChanged, this, [&moved](int value) {
        if (value == 0 || ++moved > 1) // the task ends a little after it is told
            return;
        auto *const overlay = qobject_cast<KestLoadingDialog *>(QApplication::focusWidget());
        QVERIFY(overlay);
        QTest::keyClick(overlay, Qt::Key_Escape);
    });
    button->setFocus();
    press(button, Qt::Key_Space);
    QVERIFY(moved > 0);
    QTRY_VERIFY_WITH_TIMEOUT(
        named<QLabel>(page, "taskResult")->text().startsWith(QStringLiteral("Cancelled at")),
        60000);
    QVERIFY(button->hasFocus());
}

void tst_Gallery_Live::longTaskEndsWithTheWindow()
{
    QWidget *const page = show("Long task");
    page->findChild<QSpinBox *>()->setValue(100);
    click(named<QPushButton>(page, "task"));
    QTRY_VERIFY_WITH_TIMEOUT(page->findChild<KestCircleProgressBar *>()->value() > 0, 60000);
    const int before = QApplication::topLevelWidgets().size();
    m_window.reset(); // waits for the thread, which would touch what is gone
    QVERIFY(QApplication::topLevelWidgets().size() < before);
}

void tst_Gallery_Live::screenReadersViewFollowsTheFocus()
{
    QWidget *const page = show("Accessibility");
    const QWidget *const report = named<QGroupBox>(page, "focusReport");
    const auto answer = [report](const char *question) {
        return named<QLabel>(report, question)->text();
    };
    auto *const night = page->findChild<KestSwitchButton *>();
    night->setFocus();
    QCOMPARE(answer("Name"), QStringLiteral("Night mode"));
    QCOMPARE(answer("Role"), QStringLiteral("CheckBox"));
    QVERIFY(!answer("State").contains(QStringLiteral("checked")));
    press(night, Qt::Key_Space);
    QVERIFY(answer("State").contains(QStringLiteral("checked")));

    auto *const address = page->findChild<KestIPAddressEdit *>();
    address->setFocus();
    QCOMPARE(answer("Name"), QStringLiteral("Address"));
    QCOMPARE(answer("Value"), QStringLiteral("192.168.0.1"));
    press(address, Qt::Key_Home);
    press(address, Qt::Key_Delete);
    QCOMPARE(answer("Value"), QStringLiteral("92.168.0.1"));

    named<QListWidget>(m_window.get(), "pageList")->setFocus();
    QCOMPARE(answer("Name"), QStringLiteral("Accessibility"));
    QCOMPARE(answer("Role"), QStringLiteral("ListItem"));
}

void tst_Gallery_Live::announcementsAreListed()
{
    QWidget *const page = show("Accessibility");
    const auto *const log = named<QListWidget>(page, "announcements");
    const int before = log->count();
    auto *const night = page->findChild<KestSwitchButton *>();
    night->setFocus();
    press(night, Qt::Key_Space);
    QStringList lines;
    for (int i = before; i < log->count(); ++i)
        lines.append(log->item(i)->text());
    QVERIFY2(lines.contains(QStringLiteral("Focus: CheckBox \"Night mode\"")),
             qPrintable(lines.join(QLatin1Char('\n'))));
    QVERIFY2(!lines.filter(QRegularExpression(QStringLiteral("^StateChanged.*checked"))).isEmpty(),
             qPrintable(lines.join(QLatin1Char('\n'))));

    QTimer::singleShot(0, qApp, [] {
        if (QWidget *const box = QApplication::activeModalWidget())
            box->close();
    });
    click(named<QPushButton>(page, "showMessage"));
    lines.clear();
    for (int i = 0; i < log->count(); ++i)
        lines.append(log->item(i)->text());
    QVERIFY2(!lines.filter(QRegularExpression(QStringLiteral("^Alert: .*\"Message\""))).isEmpty(),
             qPrintable(lines.join(QLatin1Char('\n'))));
    // What lists the announcements announces nothing itself.
    QVERIFY(lines.size() < 60);
}

void tst_Gallery_Live::editingIsListedWithWhatComesAndGoes()
{
    QWidget *const page = show("Accessibility");
    const auto *const log = named<QListWidget>(page, "announcements");
    auto *const address = page->findChild<KestIPAddressEdit *>();
    address->setFocus();
    const int before = log->count();
    press(address, Qt::Key_Delete);
    press(address, Qt::Key_1);
    QTest::keyClick(address, Qt::Key_Right, Qt::ShiftModifier);
    address->setIPAddress(QStringLiteral("292.168.0.1")); // refused
    address->setIPAddress(QStringLiteral("172.168.0.1"));
    QStringList lines;
    for (int i = before; i < log->count(); ++i)
        lines.append(log->item(i)->text());
    const QString edit = QStringLiteral(": EditableText \"Address\"");
    QCOMPARE(lines,
             QStringList(
                 { QStringLiteral("TextRemoved") + edit + QStringLiteral(" - 1"),
                   QStringLiteral("TextInserted") + edit + QStringLiteral(" + 1"),
                   QStringLiteral("TextCaretMoved") + edit + QStringLiteral(" at 1"),
                   QStringLiteral("TextCaretMoved") + edit + QStringLiteral(" at 2"),
                   QStringLiteral("TextSelectionChanged") + edit + QStringLiteral(" from 1 to 2"),
                   QStringLiteral("TextUpdated") + edit + QStringLiteral(" - 9 + 7") }));
}

void tst_Gallery_Live::readerIsSilentOnOtherPages()
{
    QVERIFY(!QAccessible::isActive());
    QWidget *const page = show("Accessibility");
    QVERIFY(QAccessible::isActive());
    show("Colors");
    QVERIFY(!QAccessible::isActive());
    const auto *const log = named<QListWidget>(page, "announcements");
    const int before = log->count();
    named<QListWidget>(m_window.get(), "pageList")->setFocus();
    named<QPushButton>(m_window.get(), "copySource")->setFocus();
    QCOMPARE(log->count(), before);
}

THEME_TEST_MAIN(tst_Gallery_Live)
#include "tst_gallery_live.moc"
