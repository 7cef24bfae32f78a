// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Announcements.h"
#include "KestApplication.h"
#include "KestIPAddressEdit.h"
#include "KestLoadingDialog.h"
#include "KestNavigationBar.h"
#include "KestTitleBar.h"
#include "KestWindow.h"

#include <QAction>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QTranslator>
#include <QtGui/QClipboard>
#include <QtGui/QContextMenuEvent>
#include <QtTest/QtTest>
#include <QtWidgets/QMenu>
#include <QtWidgets/QToolButton>

// What the real catalogues make of the widgets.
class tst_Translations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsAreInTheLanguage_data();
    void textsAreInTheLanguage();
    void textsFollowTheLanguageOfTheProgram();
    void namesForScreenReadersAreInTheLanguage();
    void textsOfTheHostsStay();
    void actionsMayBeGone();
    void newTextMayDeleteTheEdit_data();
    void newTextMayDeleteTheEdit();
    void newNameMayDeleteTheBar_data();
    void newNameMayDeleteTheBar();
    void unknownLanguagesLeaveTheTextsInEnglish();
};

namespace {

KestApplication *app()
{
    return static_cast<KestApplication *>(QCoreApplication::instance());
}

// What a screen reader calls the title bar's buttons, and what the context menu of an address has.
QStringList textsOf(const KestWindow &window, KestIPAddressEdit *edit)
{
    QStringList texts;
    for (const char *name : { "minimumSizeBtn", "maximumSizeBtn", "closeBtn" }) {
        const auto *button = window.titleBar()->findChild<QWidget *>(QLatin1String(name));
        texts.append(button ? button->accessibleName() : QString());
    }
    edit->setIPAddress(QStringLiteral("1.2.3.4"));
    QGuiApplication::clipboard()->setText(QStringLiteral("1"));
    QTest::mouseDClick(edit, Qt::LeftButton, {}, QPoint(10, edit->height() / 2));
    QTimer::singleShot(0, edit, [edit, &texts] {
        const auto *menu = edit->findChild<QMenu *>();
        const QList<QAction *> actions = menu ? menu->actions() : QList<QAction *>();
        for (const QAction *action : actions)
            texts.append(action->text());
        QApplication::activePopupWidget()->close();
    });
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1));
    QCoreApplication::sendEvent(edit, &event);
    return texts;
}

} // namespace

void tst_Translations::textsAreInTheLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("texts");

    const QStringList english { QStringLiteral("Minimize"), QStringLiteral("Maximize"),
                                QStringLiteral("Close"), QStringLiteral("Copy"),
                                QStringLiteral("Paste") };
    const QStringList german { QStringLiteral("Minimieren"), QStringLiteral("Maximieren"),
                               QStringLiteral("Schließen"), QStringLiteral("Kopieren"),
                               QStringLiteral("Einfügen") };
    const QStringList chinese { QStringLiteral("最小化"), QStringLiteral("最大化"),
                                QStringLiteral("关闭"), QStringLiteral("复制"),
                                QStringLiteral("粘贴") };
    QTest::newRow("English") << QStringLiteral("en") << english;
    QTest::newRow("German") << QStringLiteral("de") << german;
    QTest::newRow("Austrian") << QStringLiteral("de_AT") << german;
    QTest::newRow("simplified Chinese") << QStringLiteral("zh_CN") << chinese;
    QTest::newRow("Chinese without a country") << QStringLiteral("zh") << chinese;
    QTest::newRow("traditional Chinese") << QStringLiteral("zh_TW") << english;
}

void tst_Translations::textsAreInTheLanguage()
{
    QFETCH(QString, language);
    QFETCH(QStringList, texts);
    app()->loadTranslator(language);
    KestWindow window;
    auto *edit = new KestIPAddressEdit;
    window.setCentralWidget(edit);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(textsOf(window, edit), texts);
}

void tst_Translations::textsFollowTheLanguageOfTheProgram()
{
    app()->loadTranslator(QStringLiteral("de"));
    KestWindow window;
    auto *edit = new KestIPAddressEdit;
    window.setCentralWidget(edit);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QCOMPARE(textsOf(window, edit).first(), QStringLiteral("Minimieren"));

    app()->loadTranslator(QStringLiteral("zh_CN"));
    QCoreApplication::processEvents();
    QTRY_COMPARE(
        textsOf(window, edit),
        (QStringList { QStringLiteral("最小化"), QStringLiteral("最大化"), QStringLiteral("关闭"),
                       QStringLiteral("复制"), QStringLiteral("粘贴") }));
    app()->loadTranslator(QStringLiteral("en"));
    QTRY_COMPARE(
        textsOf(window, edit),
        (QStringList { QStringLiteral("Minimize"), QStringLiteral("Maximize"),
                       QStringLiteral("Close"), QStringLiteral("Copy"), QStringLiteral("Paste") }));
}

void tst_Translations::namesForScreenReadersAreInTheLanguage()
{
    KestWindow window;
    window.setWindowState(Qt::WindowMaximized);
    const QAction *const help =
        window.navigationBar()->addHelp(QUrl(), QIcon(), KestNavigationBar::Left);
    KestLoadingDialog overlay(&window);
    const QList<QWidget *> widgets { window.titleBar(),
                                     window.titleBar()->findChild<QWidget *>(
                                         QStringLiteral("maximumSizeBtn")),
                                     window.navigationBar()->findChild<QToolButton *>(), &overlay };
    const auto names = [&widgets] {
        QStringList names;
        for (QWidget *widget : widgets)
            names += QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
        return names;
    };
    app()->loadTranslator(QStringLiteral("de"));
    QTRY_COMPARE(names(),
                 QStringList({ QStringLiteral("Titelleiste"), QStringLiteral("Wiederherstellen"),
                               QStringLiteral("Hilfe"), QStringLiteral("Bitte warten") }));
    app()->loadTranslator(QStringLiteral("zh_CN"));
    QTRY_COMPARE(names(),
                 QStringList({ QStringLiteral("标题栏"), QStringLiteral("还原"),
                               QStringLiteral("帮助"), QStringLiteral("请稍候") }));
    QCOMPARE(help->text(), QString());
    app()->loadTranslator(QStringLiteral("en"));
    QTRY_COMPARE(names(),
                 QStringList({ QStringLiteral("Title bar"), QStringLiteral("Restore"),
                               QStringLiteral("Help"), QStringLiteral("Please wait") }));
}

void tst_Translations::textsOfTheHostsStay()
{
    app()->loadTranslator(QStringLiteral("de"));
    KestWindow window;
    auto *edit = new KestIPAddressEdit;
    window.setCentralWidget(edit);
    auto *close = window.titleBar()->findChild<QWidget *>(QStringLiteral("closeBtn"));
    close->setAccessibleName(QStringLiteral("Close the editor"));
    edit->actions().first()->setText(QStringLiteral("Take"));
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QStringList texts { QStringLiteral("最小化"), QStringLiteral("最大化"),
                              QStringLiteral("Close the editor"), QStringLiteral("Take"),
                              QStringLiteral("粘贴") };
    app()->loadTranslator(QStringLiteral("zh_CN"));
    QTRY_COMPARE(textsOf(window, edit), texts);
    app()->loadTranslator(QStringLiteral("en"));
    QTRY_COMPARE(textsOf(window, edit).first(), QStringLiteral("Minimize"));
    app()->loadTranslator(QStringLiteral("zh_CN"));
    QTRY_COMPARE(textsOf(window, edit), texts);
}

void tst_Translations::actionsMayBeGone()
{
    app()->loadTranslator(QStringLiteral("de"));
    KestIPAddressEdit edit;
    delete edit.actions().first();
    app()->loadTranslator(QStringLiteral("zh_CN"));
    QTRY_COMPARE(edit.actions().first()->text(), QStringLiteral("粘贴"));
    delete edit.actions().first();
    app()->loadTranslator(QStringLiteral("de"));
    QCoreApplication::processEvents();
}

void tst_Translations::newTextMayDeleteTheEdit_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("copy") << 0;
    QTest::newRow("paste") << 1;
}

void tst_Translations::newTextMayDeleteTheEdit()
{
    QFETCH(int, number);
    app()->loadTranslator(QStringLiteral("en"));
    // On the heap, so that what is touched after its end shows.
    const QPointer<KestIPAddressEdit> edit(new KestIPAddressEdit);
    connect(edit->actions().at(number), &QAction::changed, edit, [&edit] { delete edit; });
    QTranslator german;
    QVERIFY(german.load(QStringLiteral(":/i18n/tst_translations_de.qm")));
    QCoreApplication::installTranslator(&german);
    QTRY_VERIFY(!edit);
}

void tst_Translations::newNameMayDeleteTheBar_data()
{
    QTest::addColumn<int>("number");
    for (int i = 1; i <= 3; ++i)
        QTest::addRow("name %d", i) << i;
}

void tst_Translations::newNameMayDeleteTheBar()
{
    QFETCH(int, number);
    app()->loadTranslator(QStringLiteral("en"));
    QWidget window;
    const QPointer<KestTitleBar> bar(new KestTitleBar(&window));
    Announcements announcements;
    int heard = 0;
    announcements.onEach([&] {
        if (++heard == number)
            delete bar;
    });
    QTranslator german;
    QVERIFY(german.load(QStringLiteral(":/i18n/tst_translations_de.qm")));
    QCoreApplication::installTranslator(&german);
    QTRY_VERIFY(!bar);
    QCOMPARE(heard, number);
}

void tst_Translations::unknownLanguagesLeaveTheTextsInEnglish()
{
    app()->loadTranslator(QStringLiteral("de"));
    app()->loadTranslator(QStringLiteral("sv"));
    QCOMPARE(KestTitleBar::tr("Close"), QStringLiteral("Close"));
}

int main(int argc, char *argv[])
{
    KestApplication application(argc, argv);
    tst_Translations test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_translations.moc"
