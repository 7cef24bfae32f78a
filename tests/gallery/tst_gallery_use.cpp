// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// The gallery as somebody uses it who wants to know the library: by keys and pointer.

#include "GalleryUser.h"
#include "KestLoadingDialog.h"
#include "KestSwitchButton.h"
#include "Themes.h"

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtGui/QClipboard>
#include <QtGui/QScreen>
#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

class tst_Gallery_Use : public GalleryUser
{
    Q_OBJECT

private Q_SLOTS:
    void everyPageHasItsOwnSource();
    void sourceGoesToTheClipboardByButtonAndByKey();
    void sourceIsColoured();
    void sourceCanBeHidden();

    void searchLeavesThePagesThatHaveWhatIsTyped_data();
    void searchLeavesThePagesThatHaveWhatIsTyped();
    void searchPrefersNames();
    void searchIsLeftByKeys();
    void searchThatFindsNothingKeepsThePage();
    void keysStepThroughThePages();
    void keysScale();
    void cardsLeadToTheirPages();

    void groundsOfIndicatorsAreLightOrDark_data();
    void groundsOfIndicatorsAreLightOrDark();
    void darkGroundOutlastsAnotherScale();
    void labelsStandOnTheLineOfTheirFields_data();
    void labelsStandOnTheLineOfTheirFields();
    void placeIsRemembered();

private:
    void search(const QString &text);
    QStringList found() const;
};

void tst_Gallery_Use::search(const QString &text)
{
    press(m_window.get(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), text);
}

QStringList tst_Gallery_Use::found() const
{
    const auto *list = named<QListWidget>(m_window.get(), "pageList");
    QStringList names;
    for (int row = 0; row < list->count(); ++row) {
        if (!list->item(row)->isHidden())
            names.append(list->item(row)->text());
    }
    return names;
}

void tst_Gallery_Use::everyPageHasItsOwnSource()
{
    const auto *source = named<QPlainTextEdit>(m_window.get(), "source");
    for (int i = 0; i < m_window->pageCount(); ++i) {
        m_window->setCurrentPage(i);
        const QString name = QString::fromLatin1(m_window->page(i)->metaObject()->className());
        const QString file = textOf(QStringLiteral(GALLERY_SOURCES "/pages/%1.cpp").arg(name));
        QVERIFY2(file.contains(name + QStringLiteral("::") + name), qPrintable(name));
        const QString shown = source->toPlainText();
        QVERIFY2(shown.startsWith(QStringLiteral("#include \"%1.h\"").arg(name)), qPrintable(name));
        QVERIFY2(file.endsWith(shown), qPrintable(name));
        QVERIFY(source->isVisible());
    }
}

void tst_Gallery_Use::sourceGoesToTheClipboardByButtonAndByKey()
{
    const auto *source = named<QPlainTextEdit>(m_window.get(), "source");
    show("Colors");
    click(named<QPushButton>(m_window.get(), "copySource"));
    QCOMPARE(QGuiApplication::clipboard()->text(), source->toPlainText());
    show("Switch button");
    press(m_window.get(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), source->toPlainText());
    QVERIFY(source->toPlainText().contains(QStringLiteral("KestSwitchButton")));
}

void tst_Gallery_Use::sourceIsColoured()
{
    show("IP address edit");
    const auto *source = named<QPlainTextEdit>(m_window.get(), "source");
    const auto colorOf = [source](const QString &line, const QString &part) {
        const QTextBlock block = source->document()->find(line).block();
        const int at = block.text().indexOf(part);
        const auto formats = block.layout()->formats();
        for (const QTextLayout::FormatRange &range : formats) {
            if (range.start <= at && at + part.size() <= range.start + range.length)
                return range.format.foreground().color();
        }
        return QColor();
    };
    const QString call = QStringLiteral("edit->setReadOnly");
    const QString quoted = QStringLiteral("createPasteButton(const QString &text");
    const QColor keyword = colorOf(quoted, QStringLiteral("const"));
    const QColor name = colorOf(quoted, QStringLiteral("QString"));
    const QColor text = colorOf(QStringLiteral("\"HH:mm:ss.zzz\""), QStringLiteral("HH:mm"));
    const QColor comment = colorOf(QStringLiteral("// Puts"), QStringLiteral("clipboard"));
    const QColor directive = colorOf(QStringLiteral("#include <QtCore"), QStringLiteral("#inc"));
    const QList<QColor> all { keyword, name, text, comment, directive };
    for (int i = 0; i < all.size(); ++i) {
        QVERIFY2(all.at(i).isValid(), qPrintable(QString::number(i)));
        QCOMPARE(all.count(all.at(i)), 1);
    }
    QVERIFY(!colorOf(quoted, QStringLiteral("createPaste")).isValid());
}

void tst_Gallery_Use::sourceCanBeHidden()
{
    const auto *source = named<QPlainTextEdit>(m_window.get(), "source");
    press(m_window.get(), Qt::Key_U, Qt::ControlModifier);
    QVERIFY(!source->isVisible());
    press(m_window.get(), Qt::Key_U, Qt::ControlModifier);
    QVERIFY(source->isVisible());
}

void tst_Gallery_Use::searchLeavesThePagesThatHaveWhatIsTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("pages");
    QTest::newRow("a name") << "ip addr" << QStringList { "IP address edit" };
    QTest::newRow("in the middle, in capitals")
        << "PROGRESS BAR" << QStringList { "Stage progress bar", "Circle progress bar" };
    QTest::newRow("a class of Qt's") << "QTreeWidget" << QStringList { "Standard widgets" };
    QTest::newRow("a class of the library's")
        << "KestLoadingDialog" << QStringList { "Busy overlay", "Long task" };
    QTest::newRow("with a space behind it") << "colors " << QStringList { "Colors" };
}

void tst_Gallery_Use::searchLeavesThePagesThatHaveWhatIsTyped()
{
    QFETCH(QString, typed);
    QFETCH(QStringList, pages);
    const QStringList all = found();
    search(typed);
    QCOMPARE(found(), pages);
    // The first of them is shown at once.
    QVERIFY(m_window->page(pageNamed(qPrintable(pages.constFirst())))->isVisible());
    press(QApplication::focusWidget(), Qt::Key_Escape);
    QCOMPARE(found(), all);
    QVERIFY(m_window->page(pageNamed(qPrintable(pages.constFirst())))->isVisible());
}

void tst_Gallery_Use::searchPrefersNames()
{
    // The overview has a switch as well, and is shown.
    search(QStringLiteral("switch"));
    QCOMPARE(found().constFirst(), QStringLiteral("Overview"));
    QVERIFY(m_window->page(pageNamed("Switch button"))->isVisible());
    // And words do where no name fits.
    search(QStringLiteral("KestMessageBox"));
    QVERIFY(m_window->page(pageNamed("Overview"))->isVisible());
}

void tst_Gallery_Use::searchIsLeftByKeys()
{
    auto *list = named<QListWidget>(m_window.get(), "pageList");
    for (const Qt::Key key : { Qt::Key_Return, Qt::Key_Down }) {
        press(m_window.get(), Qt::Key_F, Qt::ControlModifier);
        press(QApplication::focusWidget(), Qt::Key_Escape);
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("progress bar"));
        press(QApplication::focusWidget(), key);
        QVERIFY(list->hasFocus());
        press(list, Qt::Key_Down);
        QVERIFY(m_window->page(pageNamed("Circle progress bar"))->isVisible());
    }
}

void tst_Gallery_Use::searchThatFindsNothingKeepsThePage()
{
    QWidget *const page = show("Switch button");
    search(QStringLiteral("zebra"));
    QCOMPARE(found(), QStringList());
    QVERIFY(page->isVisible());
    QVERIFY(named<QLabel>(m_window.get(), "nothingFound")->isVisible());
    press(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget()));
    press(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!named<QLabel>(m_window.get(), "nothingFound")->isVisible());
    QVERIFY(page->isVisible());
}

void tst_Gallery_Use::keysStepThroughThePages()
{
    m_window->setCurrentPage(0);
    press(m_window.get(), Qt::Key_PageUp, Qt::ControlModifier);
    QVERIFY(m_window->page(0)->isVisible());
    for (int i = 1; i < m_window->pageCount(); ++i) {
        press(m_window.get(), Qt::Key_PageDown, Qt::ControlModifier);
        QVERIFY2(m_window->page(i)->isVisible(), qPrintable(QString::number(i)));
    }
    press(m_window.get(), Qt::Key_PageDown, Qt::ControlModifier);
    QVERIFY(m_window->page(m_window->pageCount() - 1)->isVisible());
    press(m_window.get(), Qt::Key_PageUp, Qt::ControlModifier);
    QVERIFY(m_window->page(m_window->pageCount() - 2)->isVisible());
}

void tst_Gallery_Use::keysScale()
{
    const auto *scale = named<QSpinBox>(m_window.get(), "sheetScale");
    for (const int percent : { 125, 150, 175, 200, 200 }) {
        press(m_window.get(), Qt::Key_Plus, Qt::ControlModifier);
        QCOMPARE(scale->value(), percent);
    }
    for (const int percent : { 175, 150, 125, 100, 100 }) {
        press(m_window.get(), Qt::Key_Minus, Qt::ControlModifier);
        QCOMPARE(scale->value(), percent);
    }
}

void tst_Gallery_Use::cardsLeadToTheirPages()
{
    const QWidget *const overview = show("Overview");
    const QList<QFrame *> cards = overview->findChildren<QFrame *>(QStringLiteral("card"));
    QVERIFY(cards.size() > 5);
    for (QFrame *card : cards) {
        show("Overview");
        auto *const open = card->findChildren<QPushButton *>().constLast();
        click(open);
        QVERIFY(m_window->page(pageNamed(qPrintable(open->text())))->isVisible());
    }
}

void tst_Gallery_Use::groundsOfIndicatorsAreLightOrDark_data()
{
    QTest::addColumn<QByteArray>("title");
    for (const char *title : { "Stage progress bar", "Circle progress bar", "Switch button" })
        QTest::newRow(title) << QByteArray(title);
}

void tst_Gallery_Use::groundsOfIndicatorsAreLightOrDark()
{
    QFETCH(QByteArray, title);
    QWidget *const page = show(title.constData());
    auto *const dark = named<QCheckBox>(page, "darkGround");
    auto *const states = named<QGroupBox>(page, "states");
    const auto ground = [states] {
        return states->grab().toImage().pixelColor(states->width() / 2, states->height() - 5);
    };
    QCOMPARE(ground(), QColor(Qt::white));
    dark->setFocus();
    press(dark, Qt::Key_Space);
    QVERIFY(ground().lightness() < 60);
    press(dark, Qt::Key_Space);
    QCOMPARE(ground(), QColor(Qt::white));
}

void tst_Gallery_Use::darkGroundOutlastsAnotherScale()
{
    QWidget *const page = show("Circle progress bar");
    named<QCheckBox>(page, "darkGround")->setChecked(true);
    m_window->setScale(150);
    auto *const states = named<QGroupBox>(page, "states");
    const QImage picture = states->grab().toImage();
    QVERIFY(picture.pixelColor(picture.width() / 2, picture.height() - 5).lightness() < 60);
}

void tst_Gallery_Use::labelsStandOnTheLineOfTheirFields_data()
{
    QTest::addColumn<int>("theme");
    QTest::addColumn<int>("percent");
    for (int theme = 0; theme < Theme::all().size(); ++theme) {
        for (const int percent : { 100, 150, 200 })
            QTest::addRow("%d at %d", theme, percent) << theme << percent;
    }
}

void tst_Gallery_Use::labelsStandOnTheLineOfTheirFields()
{
    QFETCH(int, theme);
    QFETCH(int, percent);
    m_window->setTheme(theme);
    m_window->setScale(percent);
    m_window->resize(QSize(1440, 800) * percent / 100);
    int rows = 0;
    for (int i = 0; i < m_window->pageCount(); ++i) {
        m_window->setCurrentPage(i);
        QCoreApplication::processEvents();
        const QList<QFormLayout *> forms = m_window->page(i)->findChildren<QFormLayout *>();
        for (const QFormLayout *form : forms) {
            for (int row = 0; row < form->rowCount(); ++row) {
                QLayoutItem *const label = form->itemAt(row, QFormLayout::LabelRole);
                QLayoutItem *const field = form->itemAt(row, QFormLayout::FieldRole);
                if (!label || !label->widget() || !field || !field->widget()
                    || field->expandingDirections() & Qt::Vertical) {
                    continue;
                }
                ++rows;
                const int off = label->geometry().center().y() - field->geometry().center().y();
                QVERIFY2(qAbs(off) <= 1,
                         qPrintable(QStringLiteral("%1: %2 is %3 off")
                                        .arg(m_window->page(i)->windowTitle(),
                                             static_cast<QLabel *>(label->widget())->text())
                                        .arg(off)));
            }
        }
    }
    QVERIFY(rows > 30);
}

void tst_Gallery_Use::placeIsRemembered()
{
    const QTemporaryDir folder;
    QSettings settings(folder.filePath(QStringLiteral("gallery.ini")), QSettings::IniFormat);
    m_window->setGeometry(40, 30, 740, 500);
    QCoreApplication::processEvents();
    const QRect place = m_window->geometry();
    m_window->savePlace(&settings);

    GalleryWindow other;
    other.restorePlace(settings);
    other.show();
    QVERIFY(QTest::qWaitForWindowExposed(&other));
    QCOMPARE(other.geometry(), place);

    // The first time there is none: then all of it is on the screen.
    const QSettings none(folder.filePath(QStringLiteral("none.ini")), QSettings::IniFormat);
    GalleryWindow first;
    first.restorePlace(none);
    QVERIFY(first.width() <= first.screen()->availableSize().width());
    QVERIFY(first.height() <= first.screen()->availableSize().height());
}

THEME_TEST_MAIN(tst_Gallery_Use)
#include "tst_gallery_use.moc"
