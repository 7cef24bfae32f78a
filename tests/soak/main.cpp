// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// Does what programs do over and over, and shows what that leaves behind:
//   kest_soak ROUNDS [ACTIVITY...]
// For each activity it prints a table of what the process holds after the warm-up and after each
// tenth of the rounds, and exits with 1 where something grew.

#include "Activities.h"
#include "Figures.h"

#include "KestApplication.h"

#include <QtCore/QTimer>
#include <QtGui/QPixmapCache>

#include <cstdio>

namespace {

const int Samples = 10;

// Memory is cut into pieces and put together again: what it may grow by in all, in kB, and for each
// round, in bytes. Everything else is exact.
const qint64 MemorySlack = 512;
const qint64 MemorySlackPerRound = 16;

struct Course
{
    Figures first;
    Figures last;
};

void printRow(const char *activity, int round, const Figures &row)
{
    std::printf("| %s | %d |", activity, round);
    for (qint64 value : row)
        std::printf(" %lld |", static_cast<long long>(value));
    std::printf("\n");
    std::fflush(stdout);
}

// The platform's limits and the library's diagnoses, once a round, would bury the tables.
void dropMessage(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type != QtDebugMsg && !text.startsWith(QLatin1String("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

// Every round is an event of its own, so that what waits for the event loop is done in between.
Course soak(const char *name, Activity (*make)(), int rounds)
{
    Course course;
    {
        const Activity activity = make();
        const int warmUp = qMax(rounds / 5, 20);
        const int step = qMax(rounds / Samples, 1);
        int round = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            if (round >= warmUp && (round - warmUp) % step == 0) {
                course.last = figures();
                if (course.first.isEmpty())
                    course.first = course.last;
                printRow(name, round - warmUp, course.last);
            }
            if (round - warmUp >= rounds)
                QCoreApplication::quit();
            else
                activity(round++);
        });
        timer.start(0);
        QCoreApplication::exec();
    }
    return course;
}

// Whether nothing grew by more than in the control.
bool isFlat(const char *name, const Course &course, const Course &control, int rounds)
{
    const QStringList names = figureNames();
    bool flat = true;
    for (int i = 0; i < names.size(); ++i) {
        const qint64 growth = course.last[i] - course.first[i];
        qint64 limit = control.first.isEmpty() ? 0 : control.last[i] - control.first[i];
        if (isMemory(names[i]))
            limit += MemorySlack + MemorySlackPerRound * rounds / 1024;
        if (growth <= limit)
            continue;
        flat = false;
        std::printf("soak: %s: %s grew by %lld, at most %lld\n", name, qPrintable(names[i]),
                    static_cast<long long>(growth), static_cast<long long>(limit));
    }
    return flat;
}

} // namespace

int main(int argc, char *argv[])
{
    countObjects();
    qInstallMessageHandler(dropMessage);
    KestApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    // It fills up to 10 MB before it lets go of anything.
    QPixmapCache::setCacheLimit(0);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    const int rounds = arguments.value(0).toInt();
    if (rounds < 1) {
        std::fprintf(stderr, "usage: kest_soak ROUNDS [ACTIVITY...]\n");
        return 2;
    }
    const QStringList wanted = arguments.mid(1);

    std::printf("| activity | rounds | %s |\n",
                qPrintable(figureNames().join(QStringLiteral(" | "))));
    std::printf("|---|---|%s\n",
                qPrintable(QString(QStringLiteral("---|")).repeated(figureNames().size())));
    bool flat = true;
    for (const NamedActivity &activity : activities()) {
        if (!wanted.isEmpty() && !wanted.contains(QString::fromLatin1(activity.name)))
            continue;
        Course control;
        if (activity.makeControl) {
            const QByteArray name = activity.name + QByteArray(", plain Qt");
            control = soak(name.constData(), activity.makeControl, rounds);
        }
        const Course course = soak(activity.name, activity.make, rounds);
        flat &= isFlat(activity.name, course, control, rounds);
    }
    std::printf("soak: %s\n", flat ? "flat" : "not flat");
    return flat ? 0 : 1;
}
