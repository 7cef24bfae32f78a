// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// KestApplication::checkOtherProcess() where the other processes are many, dead, stopped, hostile
// or none at all.

#include "Instances.h"
#include "TestedQt.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <algorithm>
#include <limits>
#include <memory>
#include <vector>

#ifdef Q_OS_UNIX
#    include <csignal>
#    include <sys/stat.h>
#    include <unistd.h>
#endif

namespace {

// A process that serves a name, or does not: see taken().
class Owner
{
public:
    explicit Owner(const QString &name, const QString &mode = QStringLiteral("serve"))
    {
        process.start(probeProgram(), { mode, name });
    }

    ~Owner()
    {
        process.closeWriteChannel();
        if (!process.waitForFinished(20000))
            process.kill();
    }

    QByteArray line()
    {
        QElapsedTimer timer;
        timer.start();
        while (!process.canReadLine() && timer.elapsed() < 60000) {
            if (!process.waitForReadyRead(100) && process.state() == QProcess::NotRunning)
                break;
        }
        return process.readLine().trimmed();
    }

    // Waits until its window has been presented so many times.
    bool isPresented(int times)
    {
        while (presented < times) {
            const QByteArray text = line();
            if (!text.startsWith("presented="))
                return false;
            presented = text.mid(10).toInt();
        }
        return presented == times;
    }

    int descriptors() const
    {
        const QDir folder(QStringLiteral("/proc/%1/fd").arg(process.processId()));
        return folder.entryList(QDir::Files | QDir::System).size();
    }

    // The memory of its own that it has in use, in kB. With the sanitizers none is ever returned.
    int memory() const
    {
#ifdef KEST_SANITIZED
        return 0;
#endif
        QFile statm(QStringLiteral("/proc/%1/statm").arg(process.processId()));
        if (!statm.open(QIODevice::ReadOnly))
            return -1;
        const QList<QByteArray> pages = statm.readAll().split(' ');
        return (pages[1].toInt() - pages[2].toInt()) * 4;
    }

    QProcess process;
    int presented = 0;
};

bool isTaken(const QByteArray &answer)
{
    return answer.startsWith("taken=1");
}

bool isFree(const QByteArray &answer)
{
    return answer.startsWith("taken=0");
}

QByteArray check(const QString &name, const QString &mode = QStringLiteral("check"))
{
    return runProbe({ mode, name });
}

} // namespace

class tst_SingleInstance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anyTextIsAName_data();
    void anyTextIsAName();
    void silentPeerHoldsNobodyUp();
    void processHasOneName();
#ifdef Q_OS_UNIX
    // Pipes may have several servers.
    void oneOfManyRacingProcessesClaimsTheName_data();
    void oneOfManyRacingProcessesClaimsTheName();
    void namesAreFilesBelowTheTemporaryFolder();
    void separatorsNameFolders();
    void longestNameIsThatOfASocket();
    void filesAtTheNameAreLeftAlone_data();
    void filesAtTheNameAreLeftAlone();
    void killedProcessKeepsItsNameUntilItIsCleared();
    void stoppedProcessKeepsItsName();
    void stoppedProcessWithAFullQueueKeepsItsName();
    void nameOfAnotherUserCountsAsTaken();
#endif
#ifdef Q_OS_LINUX
    void laterProcessStaysConnectedUntilItEnds();
    void tenThousandConnectionsLeaveNothingBehind();
    void openConnectionsAreBounded();
    void whatPeersSendIsNotKept();
#endif
};

void tst_SingleInstance::anyTextIsAName_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks") << uniqueName() + QStringLiteral(" of my  editor ");
    QTest::newRow("letters beyond ASCII")
        << uniqueName() + QString::fromUtf8(" \xc3\xbc \xe5\x90\x8d");
    QTest::newRow("percent and quotes") << uniqueName() + QStringLiteral("%1%s'$HOME;");
}

void tst_SingleInstance::anyTextIsAName()
{
    QFETCH(QString, name);
    Owner owner(name);
    QVERIFY(isFree(owner.line()));
    QVERIFY(isTaken(check(name)));
    QVERIFY(owner.isPresented(1));
    QVERIFY(!isServed(name.left(41))); // which all of them begin with
#ifdef Q_OS_UNIX
    // Windows' pipes are the same in capitals, and its programs are told what its code page has.
    QVERIFY(isServed(name));
    QVERIFY(!isServed(name.toUpper()));
#endif
}

void tst_SingleInstance::silentPeerHoldsNobodyUp()
{
    const QString name = uniqueName();
    Owner owner(name);
    QVERIFY(isFree(owner.line()));
    QLocalSocket silent;
    silent.connectToServer(name);
    QVERIFY(silent.waitForConnected(20000));
    QVERIFY(owner.isPresented(1));
    const QByteArray answer = check(name);
    QVERIFY(isTaken(answer));
    QVERIFY2(millisecondsIn(answer) < 1000, answer.constData());
    QVERIFY(owner.isPresented(2));
    // Neither is it sent away, nor told anything.
    QTest::qWait(50);
    QCOMPARE(silent.state(), QLocalSocket::ConnectedState);
    QCOMPARE(silent.bytesAvailable(), qint64(0));
    owner.process.closeWriteChannel();
    QVERIFY(owner.process.waitForFinished(20000));
    QTRY_COMPARE(silent.state(), QLocalSocket::UnconnectedState);
    QVERIFY(!isServed(name));
}

void tst_SingleInstance::processHasOneName()
{
    const QString name = uniqueName();
    Owner owner(name, QStringLiteral("again"));
    QVERIFY(isFree(owner.line()));
    QCOMPARE(owner.line(), QByteArray("again=1"));
    QVERIFY(!isServed(QStringLiteral("another")));
    // Each call has the windows presented once.
    QVERIFY(isTaken(check(name)));
    QVERIFY(owner.isPresented(1));
    QVERIFY(owner.isPresented(2));
    QVERIFY(!owner.process.waitForReadyRead(100));
}

#ifdef Q_OS_UNIX

void tst_SingleInstance::oneOfManyRacingProcessesClaimsTheName_data()
{
    QTest::addColumn<int>("processes");
    QTest::newRow("two") << 2;
    QTest::newRow("twenty") << 20;
    QTest::newRow("hundred") << 100;
}

void tst_SingleInstance::oneOfManyRacingProcessesClaimsTheName()
{
    QFETCH(int, processes);
    const QString name = uniqueName();
    std::vector<std::unique_ptr<Owner>> racers;
    for (int i = 0; i < processes; ++i)
        racers.push_back(std::make_unique<Owner>(name, QStringLiteral("race")));
    for (const auto &racer : racers)
        QCOMPARE(racer->line(), QByteArray("ready"));
    for (const auto &racer : racers)
        racer->process.write("go\n");
    for (const auto &racer : racers)
        racer->process.waitForBytesWritten();
    int owners = 0;
    for (const auto &racer : racers) {
        const QByteArray answer = racer->line();
        QVERIFY2(isFree(answer) || isTaken(answer), answer.constData());
        owners += isFree(answer);
    }
    QCOMPARE(owners, 1);
    QVERIFY(isServed(name));
}

void tst_SingleInstance::namesAreFilesBelowTheTemporaryFolder()
{
    const QString name = uniqueName();
    const QString file = QDir::tempPath() + QLatin1Char('/') + name;
    {
        Owner owner(name);
        QVERIFY(isFree(owner.line()));
        QVERIFY(QFile::exists(file));
        QVERIFY(isTaken(check(file)));
        QVERIFY(owner.isPresented(1));
    }
    QVERIFY(!QFile::exists(file));
}

void tst_SingleInstance::separatorsNameFolders()
{
    const QTemporaryDir folder;
    const QString name = QDir(folder.path()).dirName() + QStringLiteral("/editor");
    QVERIFY(isTaken(check(name + QStringLiteral("/one")))); // no such folder
    Owner owner(name);
    QVERIFY(isFree(owner.line()));
    QVERIFY(QFile::exists(folder.filePath(QStringLiteral("editor"))));
    QVERIFY(isTaken(check(name)));
    QVERIFY(owner.isPresented(1));
}

void tst_SingleInstance::longestNameIsThatOfASocket()
{
    const QTemporaryDir folder;
    QString name = folder.path() + QLatin1Char('/');
    name += QString(LongestServerName - name.toUtf8().size(), QLatin1Char('n'));
    {
        Owner owner(name);
        QVERIFY(isFree(owner.line()));
        QVERIFY(QFile::exists(name));
        QVERIFY(isTaken(check(name)));
        QVERIFY(owner.isPresented(1));
    }
    QVERIFY(isTaken(check(name + QLatin1Char('n'))));
    QVERIFY(
        isTaken(check(QString(LongestServerName, QLatin1Char('n'))))); // and the folder before it
    QVERIFY(isTaken(check(QString(5000, QLatin1Char('n')))));
    QVERIFY(QDir(folder.path()).isEmpty());
}

void tst_SingleInstance::filesAtTheNameAreLeftAlone_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("length");
    QTest::newRow("file") << QStringLiteral("file") << 10;
    QTest::newRow("file, name too long for a socket") << QStringLiteral("file") << 200;
    QTest::newRow("folder") << QStringLiteral("folder") << 10;
    QTest::newRow("link to nothing") << QStringLiteral("link") << 10;
    QTest::newRow("link to nothing, name too long") << QStringLiteral("link") << 200;
    QTest::newRow("link to a file, name too long") << QStringLiteral("link to a file") << 200;
    QTest::newRow("pipe") << QStringLiteral("pipe") << 10;
}

void tst_SingleInstance::filesAtTheNameAreLeftAlone()
{
    QFETCH(QString, kind);
    QFETCH(int, length);
    const QTemporaryDir folder;
    const QString name = folder.filePath(QString(length, QLatin1Char('n')));
    const QByteArray path = QFile::encodeName(name);
    const QByteArray text("what somebody wrote");
    const bool hasText = kind.endsWith(QLatin1String("file"));
    if (hasText) {
        QFile file(kind == QLatin1String("file") ? name : folder.filePath(QStringLiteral("f")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(text), qint64(text.size()));
    }
    if (kind.startsWith(QLatin1String("link")))
        QVERIFY(QFile::link(folder.filePath(QStringLiteral("f")), name));
    else if (kind == QLatin1String("folder"))
        QVERIFY(QDir().mkdir(name));
    else if (kind == QLatin1String("pipe"))
        QCOMPARE(mkfifo(path.constData(), 0600), 0);
    struct stat before
    {
    };
    QCOMPARE(lstat(path.constData(), &before), 0);

    QVERIFY(isTaken(check(name)));
    QVERIFY(isTaken(check(QDir::temp().relativeFilePath(name))));

    struct stat after
    {
    };
    QCOMPARE(lstat(path.constData(), &after), 0);
    QCOMPARE(after.st_ino, before.st_ino);
    QCOMPARE(after.st_mode, before.st_mode);
    if (hasText) {
        QFile file(name);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), text);
    }
}

void tst_SingleInstance::killedProcessKeepsItsNameUntilItIsCleared()
{
    const QString name = uniqueName();
    {
        Owner owner(name);
        QVERIFY(isFree(owner.line()));
        owner.process.kill();
        QVERIFY(owner.process.waitForFinished(20000));
    }
    const QString file = QDir::tempPath() + QLatin1Char('/') + name;
    QVERIFY(!isServed(name));
    QVERIFY(QFile::exists(file));
    QVERIFY(isTaken(check(name)));
    QVERIFY(isTaken(check(name)));
    QVERIFY(QFile::exists(file));
    QVERIFY(QFile::remove(file));
    Owner next(name);
    QVERIFY(isFree(next.line()));
    QVERIFY(isTaken(check(name)));
    QVERIFY(next.isPresented(1));
}

void tst_SingleInstance::stoppedProcessKeepsItsName()
{
    const QString name = uniqueName();
    Owner owner(name);
    QVERIFY(isFree(owner.line()));
    QCOMPARE(::kill(pid_t(owner.process.processId()), SIGSTOP), 0);
    const QByteArray answer = check(name);
    QVERIFY(isTaken(answer));
    QVERIFY2(millisecondsIn(answer) < 1000, answer.constData());
    QVERIFY(!owner.process.waitForReadyRead(100));
    QCOMPARE(::kill(pid_t(owner.process.processId()), SIGCONT), 0);
    // It hears of what happened meanwhile.
    QVERIFY(owner.isPresented(1));
}

void tst_SingleInstance::stoppedProcessWithAFullQueueKeepsItsName()
{
    const QString name = uniqueName();
    Owner owner(name);
    QVERIFY(isFree(owner.line()));
    QCOMPARE(::kill(pid_t(owner.process.processId()), SIGSTOP), 0);
    std::vector<std::unique_ptr<QLocalSocket>> waiting;
    do {
        QVERIFY(waiting.size() < 1000);
        waiting.push_back(std::make_unique<QLocalSocket>());
        waiting.back()->connectToServer(name);
    } while (waiting.back()->state() == QLocalSocket::ConnectedState);
    waiting.back()->abort();

    // It gives up after 100 ms, or a little more on a busy machine.
    int least = std::numeric_limits<int>::max();
    for (int i = 0; i < 5; ++i) {
        const QByteArray answer = check(name);
        QVERIFY(isTaken(answer));
        QVERIFY2(millisecondsIn(answer) >= 100, answer.constData());
        least = std::min(least, millisecondsIn(answer));
    }
    QVERIFY2(least < 200, qPrintable(QString::number(least)));

    QCOMPARE(::kill(pid_t(owner.process.processId()), SIGCONT), 0);
    QVERIFY(owner.isPresented(int(waiting.size()) - 1));
    QVERIFY(isTaken(check(name)));
    QVERIFY(owner.isPresented(int(waiting.size())));
}

void tst_SingleInstance::nameOfAnotherUserCountsAsTaken()
{
    const QString name = uniqueName();
    const QString file = QDir::tempPath() + QLatin1Char('/') + name;
    Owner owner(name);
    QVERIFY(isFree(owner.line()));
    // Whom the user lets in is the user's to say, as for any file.
    struct stat made
    {
    };
    QCOMPARE(stat(QFile::encodeName(file).constData(), &made), 0);
    const mode_t mask = umask(0);
    umask(mask);
    QCOMPARE(made.st_mode & 0777, 0777 & ~mask);
    // Only root can be another user; for anybody else a socket without rights is such a one.
    QCOMPARE(chmod(QFile::encodeName(file).constData(), getuid() == 0 ? 0755 : 0), 0);
    QVERIFY(isTaken(check(name, QStringLiteral("foreign"))));
    QVERIFY(QFile::exists(file));
    QCOMPARE(chmod(QFile::encodeName(file).constData(), 0755), 0);
    // The first that its owner hears of.
    QVERIFY(isTaken(check(name)));
    QVERIFY(owner.isPresented(1));
}

#endif // Q_OS_UNIX

#ifdef Q_OS_LINUX

void tst_SingleInstance::laterProcessStaysConnectedUntilItEnds()
{
    const QString name = uniqueName();
    Owner owner(name);
    QVERIFY(isFree(owner.line()));
    int meanwhile = 0;
    {
        Owner later(name);
        QVERIFY(isTaken(later.line()));
        QVERIFY(owner.isPresented(1));
        QTest::qWait(50);
        meanwhile = owner.descriptors();
    }
    QTRY_COMPARE(owner.descriptors(), meanwhile - 1);
}

void tst_SingleInstance::tenThousandConnectionsLeaveNothingBehind()
{
    const QString name = uniqueName();
    Owner owner(name);
    QVERIFY(isFree(owner.line()));
    const int descriptors = owner.descriptors();
    QVERIFY(descriptors > 2);
    int memory = -1;
    for (int i = 1; i <= 10000; ++i) {
        QLocalSocket socket;
        socket.connectToServer(name);
        QVERIFY(socket.waitForConnected(20000));
        socket.abort();
        if (i % 100 == 0)
            QVERIFY(owner.isPresented(i));
        if (i == 1000)
            memory = owner.memory();
    }
    QVERIFY(memory >= 0);
    QTRY_VERIFY(owner.descriptors() <= descriptors + 1);
    QVERIFY2(owner.memory() < memory + 1024, qPrintable(QString::number(owner.memory() - memory)));
    QVERIFY(isTaken(check(name)));
    QVERIFY(owner.isPresented(10001));
}

void tst_SingleInstance::openConnectionsAreBounded()
{
    const QString name = uniqueName();
    Owner owner(name);
    QVERIFY(isFree(owner.line()));
    const int descriptors = owner.descriptors();
    std::vector<std::unique_ptr<QLocalSocket>> sockets;
    for (int i = 1; i <= 400; ++i) {
        sockets.push_back(std::make_unique<QLocalSocket>());
        sockets.back()->connectToServer(name);
        QVERIFY(sockets.back()->waitForConnected(20000));
        QVERIFY(owner.isPresented(i));
    }
    QTRY_VERIFY(owner.descriptors() <= descriptors + 70);
    // Those who came last are the ones that it still has.
    QTRY_COMPARE(sockets[400 - 65]->state(), QLocalSocket::UnconnectedState);
    for (int i = 0; i < 400; ++i)
        QCOMPARE(sockets[size_t(i)]->state() == QLocalSocket::ConnectedState, i >= 400 - 64);
    QVERIFY(isTaken(check(name)));
    QVERIFY(owner.isPresented(401));
}

void tst_SingleInstance::whatPeersSendIsNotKept()
{
    const QString name = uniqueName();
    Owner owner(name);
    QVERIFY(isFree(owner.line()));
    QLocalSocket socket;
    socket.connectToServer(name);
    QVERIFY(socket.waitForConnected(20000));
    QVERIFY(owner.isPresented(1));
    const int memory = owner.memory();
    const QByteArray much(1 << 20, 'x');
    for (int i = 0; i < 32; ++i) {
        socket.write(much);
        if (!socket.waitForBytesWritten(200))
            break;
    }
    QTest::qWait(100);
    QVERIFY2(owner.memory() < memory + 4096, qPrintable(QString::number(owner.memory() - memory)));
    QVERIFY(isTaken(check(name)));
    QVERIFY(owner.isPresented(2));
}

#endif // Q_OS_LINUX

QTEST_GUILESS_MAIN(tst_SingleInstance)

#include "tst_singleinstance.moc"
