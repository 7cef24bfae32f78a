// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Instances.h"

#include "KestApplication.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QProcess>
#include <QtCore/QResource>
#include <QtGui/QWindow>
#include <QtNetwork/QLocalServer>
#include <QtNetwork/QLocalSocket>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QWidget>

namespace {

struct Line
{
    QtMsgType type;
    QString text;
};
QList<Line> lines;

void collectLine(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    lines.append({ type, text });
}

// Loads the translators and returns what was written meanwhile.
QStringList warningsOfLoading(KestApplication &app, const QString &lang)
{
    lines.clear();
    const QtMessageHandler old = qInstallMessageHandler(collectLine);
    const bool result = app.loadTranslator(lang);
    qInstallMessageHandler(old);
    QStringList texts;
    for (const Line &line : qAsConst(lines)) {
        if (line.type == QtWarningMsg)
            texts.append(line.text);
    }
    return result ? texts : QStringList { QStringLiteral("returned false") };
}

QString translated(const char *text)
{
    return QCoreApplication::translate("KestApplicationTest", text);
}

// The one name that this process serves.
QString claimedName()
{
    static const QString name = uniqueName();
    return name;
}

KestApplication &application()
{
    return *static_cast<KestApplication *>(qApp);
}

// Claims that name, once: each call has the windows presented once more.
bool claimsItsName()
{
    static const bool claimed = !application().checkOtherProcess(claimedName());
    const bool served = isServed(claimedName());
    QTest::qWait(20); // which has the windows presented
    return claimed && served;
}

} // namespace

class tst_KestApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void metaObjectAddsNothing();
    void defaultArgumentsApplyTheDefaultSheet();
    void defaultSheetIsAppliedOnlyWhenAskedFor();
    void nativeSiblingsAreNotCreated();

    void emptyNameStartsNoServer();
    void firstProcessClaimsTheName();
    void secondProcessFindsTheFirst();
    void nameIsServedUntilTheApplicationEnds();
    void firstProcessPresentsItsWindows();
    void maximizedWindowsAreRestored();
    void presentedWindowMayDeleteOthers();
    void hundredFurtherProcessesAreAnswered();
    void nameOfAKilledProcessCanBeCleared();
    void nameThatCannotBeClaimedCountsAsTaken();

    void bothCataloguesAreInstalled();
    void hostsCatalogueGoesBeforeQts();
    void emptyLanguageMeansTheSystems();
    void countrysCatalogueGoesBeforeItsLanguages();
    void catalogueWithoutALanguageIsNobodys();
    void missingCataloguesAreReported();
    void missingHostCatalogueLeavesQtsInstalled();
    void missingQtCatalogueLeavesTheHostsInstalled();
    void laterLanguageReplacesTheEarlierOne();
    void languageWithoutCataloguesRemovesTheEarlierOnes();
    void removalOfCataloguesIsAnnouncedAtOnce();
    void qtsCatalogueGoesBeforeItIsReportedAndTheHostsAfter();
    void languageLoadedWhileAnotherIsLoadedWins();
};

void tst_KestApplication::metaObjectAddsNothing()
{
    const QMetaObject &meta = KestApplication::staticMetaObject;
    QCOMPARE(meta.className(), "KestApplication");
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void tst_KestApplication::defaultArgumentsApplyTheDefaultSheet()
{
    QCOMPARE(runProbe({ QStringLiteral("defaults") }), QByteArray("sheet=default siblings=0"));
}

void tst_KestApplication::defaultSheetIsAppliedOnlyWhenAskedFor()
{
    QCOMPARE(runProbe({ QStringLiteral("style"), QStringLiteral("0") }),
             QByteArray("sheet=none siblings=0"));
    QCOMPARE(runProbe({ QStringLiteral("style"), QStringLiteral("1") }),
             QByteArray("sheet=default siblings=0"));
}

void tst_KestApplication::nativeSiblingsAreNotCreated()
{
    QVERIFY(QCoreApplication::testAttribute(Qt::AA_DontCreateNativeWidgetSiblings));
    QWidget parent;
    QWidget native(&parent);
    QWidget sibling(&parent);
    native.winId();
    QVERIFY(native.internalWinId());
    QVERIFY(!sibling.internalWinId());
}

void tst_KestApplication::emptyNameStartsNoServer()
{
    QVERIFY(!application().checkOtherProcess(QString()));
    QVERIFY(!application().checkOtherProcess(QStringLiteral("")));
    // A server listens under one name at most: it is still free to take this one.
    QVERIFY(claimsItsName());
}

void tst_KestApplication::firstProcessClaimsTheName()
{
    const QString name = uniqueName();
    QVERIFY(!isServed(name));
    QProcess first;
    first.start(probeProgram(), { QStringLiteral("serve"), name });
    QTRY_VERIFY_WITH_TIMEOUT(first.canReadLine(), 20000);
    QVERIFY(first.readLine().startsWith("taken=0"));
    QVERIFY(isServed(name));
    first.closeWriteChannel();
    QVERIFY(first.waitForFinished(20000));
}

void tst_KestApplication::secondProcessFindsTheFirst()
{
    const QString name = uniqueName();
    QProcess first;
    first.start(probeProgram(), { QStringLiteral("serve"), name });
    QTRY_VERIFY_WITH_TIMEOUT(first.canReadLine(), 20000);
    const QByteArray answer = runProbe({ QStringLiteral("check"), name });
    QVERIFY2(answer.startsWith("taken=1"), answer.constData());
    // The probe gives up after 100 ms; an answer is there at once, even on a busy machine.
    QVERIFY2(millisecondsIn(answer) < 1000, answer.constData());
    first.closeWriteChannel();
    QVERIFY(first.waitForFinished(20000));
}

void tst_KestApplication::nameIsServedUntilTheApplicationEnds()
{
    const QString name = uniqueName();
    QProcess first;
    first.start(probeProgram(), { QStringLiteral("serve"), name });
    QTRY_VERIFY_WITH_TIMEOUT(first.canReadLine(), 20000);
    QVERIFY(isServed(name));
    first.closeWriteChannel();
    QVERIFY(first.waitForFinished(20000));
    QVERIFY(!isServed(name));
    QVERIFY(runProbe({ QStringLiteral("check"), name }).startsWith("taken=0"));
}

void tst_KestApplication::firstProcessPresentsItsWindows()
{
    QVERIFY(claimsItsName());

    QWidget minimized;
    minimized.showMinimized();
    QWidget normal;
    normal.show();
    QWidget hidden;
    hidden.show();
    hidden.hide();
    QWidget neverShown;
    neverShown.winId();
    normal.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&normal));
    QCoreApplication::processEvents();
    QVERIFY(minimized.windowHandle()->isVisible());
    QCOMPARE(minimized.windowHandle()->windowState(), Qt::WindowMinimized);
    const QSignalSpy activated(qApp, &QGuiApplication::focusWindowChanged);

    lines.clear();
    const QtMessageHandler old = qInstallMessageHandler(collectLine);
    const QByteArray answer = runProbe({ QStringLiteral("check"), claimedName() });
    for (int i = 0; i < 100 && minimized.windowHandle()->windowState() != Qt::WindowNoState; ++i)
        QTest::qWait(20);
    qInstallMessageHandler(old);

    QVERIFY2(answer.startsWith("taken=1"), answer.constData());
    QCOMPARE(minimized.windowHandle()->windowState(), Qt::WindowNoState);
    QVERIFY(minimized.isVisible());
    QVERIFY(normal.isVisible());
    QCOMPARE(activated.count(), 0);
    QVERIFY(!hidden.isVisible());
    QVERIFY(!hidden.windowHandle()->isVisible());
    QVERIFY(!neverShown.windowHandle()->isVisible());
    // The offscreen platform cannot raise windows and says so: once for each hidden one.
    int raised = 0;
    for (const Line &line : qAsConst(lines))
        raised += line.text == QLatin1String("This plugin does not support raise()");
    QCOMPARE(raised, 2);
}

void tst_KestApplication::maximizedWindowsAreRestored()
{
    QVERIFY(claimsItsName());
    QWidget window;
    window.showMaximized();
    QCOMPARE(window.windowHandle()->windowState(), Qt::WindowMaximized);
    QVERIFY(runProbe({ QStringLiteral("check"), claimedName() }).startsWith("taken=1"));
    QTRY_COMPARE(window.windowHandle()->windowState(), Qt::WindowNoState);
}

void tst_KestApplication::presentedWindowMayDeleteOthers()
{
    QVERIFY(claimsItsName());
    // Whichever is presented first deletes the others.
    QList<QWidget *> windows;
    for (int i = 0; i < 3; ++i) {
        auto *window = new QWidget;
        window->showMinimized();
        windows.append(window);
    }
    QSet<QWidget *> presented; // the platform may tell of one more than once
    for (QWidget *window : qAsConst(windows)) {
        connect(window->windowHandle(), &QWindow::windowStateChanged, this,
                [&, window](Qt::WindowState state) {
                    if (state != Qt::WindowNoState)
                        return;
                    presented.insert(window);
                    windows.removeOne(window);
                    qDeleteAll(windows);
                    windows = { window };
                });
    }
    QVERIFY(isServed(claimedName())); // which is all that a later process does
    QTRY_VERIFY(!presented.isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(presented.size(), 1);
    QCOMPARE(windows.size(), 1);
    QVERIFY(windows.first()->isVisible());
    qDeleteAll(windows);
}

void tst_KestApplication::hundredFurtherProcessesAreAnswered()
{
    const QString name = uniqueName();
    QProcess first;
    first.start(probeProgram(), { QStringLiteral("serve"), name });
    QTRY_VERIFY_WITH_TIMEOUT(first.canReadLine(), 20000);
    QVERIFY(first.readLine().startsWith("taken=0"));
#ifdef Q_OS_LINUX
    const QDir descriptors(QStringLiteral("/proc/%1/fd").arg(first.processId()));
    const int before = descriptors.entryList(QDir::Files | QDir::System).size();
    QVERIFY(before > 2);
#endif
    const int processes = 100;
    for (int i = 0; i < processes; ++i)
        QVERIFY(runProbe({ QStringLiteral("check"), name }).startsWith("taken=1"));
    for (int i = 1; i <= processes; ++i) {
        QTRY_VERIFY_WITH_TIMEOUT(first.canReadLine(), 5000);
        QCOMPARE(first.readLine().trimmed(), "presented=" + QByteArray::number(i));
    }
#ifdef Q_OS_LINUX
    // A process that has ended leaves nothing open.
    QTRY_VERIFY(descriptors.entryList(QDir::Files | QDir::System).size() <= before + 1);
#endif
    first.closeWriteChannel();
    QVERIFY(first.waitForFinished(20000));
    QVERIFY(!first.canReadLine());
}

void tst_KestApplication::nameOfAKilledProcessCanBeCleared()
{
    const QString name = uniqueName();
    QProcess first;
    first.start(probeProgram(), { QStringLiteral("serve"), name });
    QTRY_VERIFY_WITH_TIMEOUT(first.canReadLine(), 20000);
    first.kill();
    QVERIFY(first.waitForFinished(20000));
    QVERIFY(!isServed(name));
#ifdef Q_OS_UNIX
    QVERIFY(runProbe({ QStringLiteral("check"), name }).startsWith("taken=1"));
    QVERIFY(QLocalServer::removeServer(name));
#endif
    QVERIFY(runProbe({ QStringLiteral("check"), name }).startsWith("taken=0"));
}

void tst_KestApplication::nameThatCannotBeClaimedCountsAsTaken()
{
#ifdef Q_OS_WIN
    const QString name = QStringLiteral("\\\\.\\pipe\\"); // where pipes are, but none itself
#else
    // No socket can be made in a folder that does not exist.
    const QString name = QStringLiteral("/nonexistent-folder/") + uniqueName();
#endif
    const QByteArray answer = runProbe({ QStringLiteral("check"), name });
    QVERIFY2(answer.startsWith("taken=1"), answer.constData());
}

void tst_KestApplication::bothCataloguesAreInstalled()
{
    QCOMPARE(warningsOfLoading(application(), QStringLiteral("de")), QStringList());
    QCOMPARE(translated("toolkit"), QStringLiteral("Werkzeug"));
    QCOMPARE(translated("host"), QStringLiteral("Wirt"));
}

void tst_KestApplication::hostsCatalogueGoesBeforeQts()
{
    for (int i = 0; i < 2; ++i) {
        application().loadTranslator(QStringLiteral("de"));
        QCOMPARE(translated("both"), QStringLiteral("beim Wirt"));
    }
}

void tst_KestApplication::emptyLanguageMeansTheSystems()
{
    application().loadTranslator(QStringLiteral("xx"));
    QCOMPARE(translated("toolkit"), QStringLiteral("toolkit"));
#ifdef Q_OS_WIN
    // The system's language is not changed from here; what was looked for tells it.
    QString locale;
    QDebug(&locale).nospace() << QLocale::system();
    const QStringList warnings = warningsOfLoading(application(), QString());
    QCOMPARE(warnings.value(1),
             QStringLiteral("app translator load error!!! lang= \"\" , local= ") + locale);
#else
    const QByteArray language = qgetenv("LANGUAGE");
    const QByteArray all = qgetenv("LC_ALL");
    qputenv("LC_ALL", "de_DE.UTF-8");
    qputenv("LANGUAGE", "de");
    // Qt reads the system's locale anew when it is told that it has changed.
    QEvent change(QEvent::LocaleChange);
    QCoreApplication::sendEvent(qApp, &change);
    const QLocale system = QLocale::system();
    const QStringList warnings = warningsOfLoading(application(), QString());
    const bool german = system.uiLanguages().value(0).startsWith(QLatin1String("de"));
    const QString toolkit = translated("toolkit");
    qputenv("LC_ALL", all);
    qputenv("LANGUAGE", language);
    QCoreApplication::sendEvent(qApp, &change);
    QVERIFY(german);
    QCOMPARE(warnings, QStringList());
    QCOMPARE(toolkit, QStringLiteral("Werkzeug"));
#endif
}

void tst_KestApplication::countrysCatalogueGoesBeforeItsLanguages()
{
    application().loadTranslator(QStringLiteral("de_AT"));
    QCOMPARE(translated("host"), QStringLiteral("Beisl"));
    QCOMPARE(translated("toolkit"), QStringLiteral("Werkzeug")); // which is the language's alone
    application().loadTranslator(QStringLiteral("de_CH"));
    QCOMPARE(translated("host"), QStringLiteral("Wirt"));
    QCOMPARE(translated("toolkit"), QStringLiteral("outillage")); // Qt's are looked for alike
    application().loadTranslator(QStringLiteral("de_AT"));
    application().loadTranslator(QStringLiteral("de"));
    QCOMPARE(translated("host"), QStringLiteral("Wirt"));
}

void tst_KestApplication::catalogueWithoutALanguageIsNobodys()
{
    const QString name = QCoreApplication::applicationName();
    QCoreApplication::setApplicationName(QStringLiteral("generalhost"));
    application().loadTranslator(QStringLiteral("zh_CN")); // in whose place zh would do
    const QString chinese = translated("host");
    application().loadTranslator(QStringLiteral("sv"));
    const QString swedish = translated("host");
    application().loadTranslator(QStringLiteral("xx")); // which is no language, nor English
    const QString unknown = translated("host");
    QCoreApplication::setApplicationName(name);
    QCOMPARE(chinese, QStringLiteral("hospes"));
    QCOMPARE(swedish, QStringLiteral("host"));
    QCOMPARE(unknown, QStringLiteral("host"));
}

void tst_KestApplication::missingCataloguesAreReported()
{
    QString locale;
    QDebug(&locale).nospace() << QLocale(QStringLiteral("sv"));
    const QStringList expected {
        QStringLiteral("translator system load error!!!"),
        QStringLiteral("app translator load error!!! lang= \"sv\" , local= ") + locale,
    };
    QCOMPARE(warningsOfLoading(application(), QStringLiteral("sv")), expected);
    QVERIFY(locale.contains(QLatin1String("Swedish")));
    QCOMPARE(translated("toolkit"), QStringLiteral("toolkit"));
    QCOMPARE(translated("host"), QStringLiteral("host"));
}

void tst_KestApplication::missingHostCatalogueLeavesQtsInstalled()
{
    const QStringList warnings = warningsOfLoading(application(), QStringLiteral("fr"));
    QCOMPARE(warnings.size(), 1);
    QVERIFY(
        warnings.first().startsWith(QLatin1String("app translator load error!!! lang= \"fr\"")));
    QCOMPARE(translated("toolkit"), QStringLiteral("outillage"));
    QCOMPARE(translated("host"), QStringLiteral("host"));
}

void tst_KestApplication::missingQtCatalogueLeavesTheHostsInstalled()
{
    const QStringList warnings = warningsOfLoading(application(), QStringLiteral("la"));
    QCOMPARE(warnings, QStringList { QStringLiteral("translator system load error!!!") });
    QCOMPARE(translated("toolkit"), QStringLiteral("toolkit"));
    QCOMPARE(translated("host"), QStringLiteral("hospes"));
}

void tst_KestApplication::laterLanguageReplacesTheEarlierOne()
{
    application().loadTranslator(QStringLiteral("de"));
    application().loadTranslator(QStringLiteral("fr"));
    QCOMPARE(translated("toolkit"), QStringLiteral("outillage"));
    QCOMPARE(translated("host"), QStringLiteral("host"));
    application().loadTranslator(QStringLiteral("de"));
    QCOMPARE(translated("toolkit"), QStringLiteral("Werkzeug"));
    QCOMPARE(translated("host"), QStringLiteral("Wirt"));
}

void tst_KestApplication::languageWithoutCataloguesRemovesTheEarlierOnes()
{
    application().loadTranslator(QStringLiteral("de"));
    application().loadTranslator(QStringLiteral("de")); // installed twice, removed all the same
    application().loadTranslator(QStringLiteral("sv"));
    QCOMPARE(translated("toolkit"), QStringLiteral("toolkit"));
    QCOMPARE(translated("host"), QStringLiteral("host"));
}

void tst_KestApplication::removalOfCataloguesIsAnnouncedAtOnce()
{
    class Changes : public QObject
    {
    public:
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (watched == qApp && event->type() == QEvent::LanguageChange)
                ++count;
            return false;
        }

        int count = 0;
    };
    application().loadTranslator(QStringLiteral("de"));
    QCoreApplication::processEvents();
    Changes changes;
    qApp->installEventFilter(&changes);
    application().loadTranslator(QStringLiteral("fr")); // without the host's
    QCOMPARE(changes.count, 2);
    QCoreApplication::processEvents();
    changes.count = 0;
    application().loadTranslator(QStringLiteral("la")); // without Qt's
    QCOMPARE(changes.count, 2);
    // What is not installed is not removed again.
    QCoreApplication::processEvents();
    application().loadTranslator(QStringLiteral("sv"));
    QCoreApplication::processEvents();
    changes.count = 0;
    application().loadTranslator(QStringLiteral("sv"));
    QCoreApplication::processEvents();
    QCOMPARE(changes.count, 0);
}

void tst_KestApplication::qtsCatalogueGoesBeforeItIsReportedAndTheHostsAfter()
{
    static QStringList heard;
    heard.clear();
    class Changes : public QObject
    {
    public:
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (watched == qApp && event->type() == QEvent::LanguageChange)
                heard.append(QStringLiteral("change"));
            return false;
        }
    };
    application().loadTranslator(QStringLiteral("de"));
    QCoreApplication::processEvents();
    Changes changes;
    qApp->installEventFilter(&changes);
    const QtMessageHandler old =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &text) {
            heard.append(text.section(QLatin1Char(' '), 0, 1));
        });
    application().loadTranslator(QStringLiteral("sv"));
    qInstallMessageHandler(old);
    QCOMPARE(heard,
             (QStringList { QStringLiteral("change"), QStringLiteral("translator system"),
                            QStringLiteral("app translator"), QStringLiteral("change") }));
}

void tst_KestApplication::languageLoadedWhileAnotherIsLoadedWins()
{
    // A host's answer to the change of language.
    class French : public QObject
    {
    public:
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::LanguageChange && !loaded) {
                loaded = true;
                application().loadTranslator(QStringLiteral("fr"));
            }
            return false;
        }

        bool loaded = false;
    };
    application().loadTranslator(QStringLiteral("sv"));
    QCoreApplication::processEvents();
    French french;
    qApp->installEventFilter(&french);
    QVERIFY(application().loadTranslator(QStringLiteral("de")));
    QVERIFY(french.loaded);
    QCOMPARE(translated("toolkit"), QStringLiteral("outillage"));
    QCOMPARE(translated("host"), QStringLiteral("host")); // there is no French one
}

int main(int argc, char *argv[])
{
    const QString folder = QFileInfo(QString::fromLocal8Bit(argv[0])).absolutePath();
    const QString catalogues = folder + QStringLiteral("/translations.rcc");
    if (!QResource::registerResource(catalogues))
        qFatal("The catalogues are missing");
    int failures = 0;
    {
        KestApplication app(argc, argv, QCoreApplication::ApplicationFlags, false);
        QCoreApplication::setApplicationName(QStringLiteral("kesthost"));
        tst_KestApplication test;
        failures = QTest::qExec(&test, argc, argv);
    }
    QResource::unregisterResource(catalogues);
    return failures;
}

#include "tst_kestapplication.moc"
