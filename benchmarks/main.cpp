// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Contest.h"
#include "FilledWindow.h"

#include "KestStyleSheet.h"
#include "KestWindow.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtGui/QPaintEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QProxyStyle>

#include <algorithm>
#include <cstdio>
#include <ctime>

#include <malloc.h>
#include <sys/resource.h>

#if __has_include(<valgrind/callgrind.h>)
#    include <valgrind/callgrind.h>
#else
#    define CALLGRIND_START_INSTRUMENTATION
#    define CALLGRIND_STOP_INSTRUMENTATION
#    define CALLGRIND_ZERO_STATS
#    define CALLGRIND_DUMP_STATS_AT(text) Q_UNUSED(text)
#endif

namespace {

qint64 cpuNanoseconds()
{
    timespec time;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return time.tv_sec * qint64(1000000000) + time.tv_nsec;
}

qint64 pageFaults()
{
    rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt;
}

void print(const QJsonObject &object)
{
    std::puts(QJsonDocument(object).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}

qint64 median(QVector<qint64> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

class CountingStyle : public QProxyStyle
{
public:
    using QProxyStyle::polish;
    void polish(QWidget *widget) override
    {
        ++polishes;
        QProxyStyle::polish(widget);
    }

    int polishes = 0;
};

class EventCounter : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Resize)
            ++resizes;
        if (event->type() != QEvent::Paint)
            return false;
        for (const QRect &rect : static_cast<QPaintEvent *>(event)->region())
            pixels += rect.width() * rect.height();
        return false;
    }

    int resizes = 0;
    qint64 pixels = 0;
};

// The contestants take turns, so that what else the machine does meets all of them.
void time(const Row &row)
{
    QVector<QVector<qint64>> times(row.contestants.size());
    for (int round = -1; round < row.rounds; ++round) {
        for (int i = 0; i < row.contestants.size(); ++i) {
            const Work work = row.contestants.at(i).prepare();
            const qint64 begin = cpuNanoseconds();
            work();
            const qint64 end = cpuNanoseconds();
            if (round >= 0) // the first one warms up
                times[i].append(end - begin);
        }
    }
    for (int i = 0; i < row.contestants.size(); ++i) {
        print({ { "row", row.name },
                { "contestant", row.contestants.at(i).name },
                { "cpu", double(median(times.at(i))) / 1000 } });
    }
}

// For callgrind: writes the instructions down under the names of row and contestant.
void countInstructions(const Row &row, const Contestant &contestant)
{
    contestant.prepare()();
    settle();
    const Work work = contestant.prepare();
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    work();
    CALLGRIND_STOP_INSTRUMENTATION;
    CALLGRIND_DUMP_STATS_AT(QString(row.name + '/' + contestant.name).toUtf8().constData());
}

void countEvents(const Row &row, const Contestant &contestant, CountingStyle *style)
{
    contestant.prepare()();
    settle();
    QVector<qint64> faults;
    QVector<qint64> polishes;
    QVector<qint64> pixels;
    QVector<qint64> resizes;
    for (int i = 0; i < 5; ++i) {
        const Work work = contestant.prepare();
        EventCounter counter;
        qApp->installEventFilter(&counter);
        const int polishesBefore = style->polishes;
        const qint64 faultsBefore = pageFaults();
        work();
        faults.append(pageFaults() - faultsBefore);
        polishes.append(style->polishes - polishesBefore);
        pixels.append(counter.pixels);
        resizes.append(counter.resizes);
    }
    print({ { "row", row.name },
            { "contestant", contestant.name },
            { "faults", median(faults) },
            { "polishes", median(polishes) },
            { "pixels", median(pixels) },
            { "resizes", median(resizes) } });
}

qint64 heapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks + info.hblkhd);
}

qint64 privateKilobytes()
{
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    qint64 sum = 0;
    if (file.open(QIODevice::ReadOnly)) {
        const QList<QByteArray> lines = file.readAll().split('\n');
        for (const QByteArray &line : lines) {
            if (line.startsWith("Private_"))
                sum += line.simplified().split(' ').value(1).toLongLong();
        }
    }
    return sum;
}

// Of one window more, once all that windows share is there.
template <class Window>
void printMemory(const QString &name)
{
    const int count = 4;
    std::vector<std::unique_ptr<Window>> windows;
    qint64 heap = 0;
    qint64 kilobytes = 0;
    for (int i = 0; i <= count; ++i) {
        if (i == 1) {
            heap = heapBytes();
            kilobytes = privateKilobytes();
        }
        windows.push_back(std::make_unique<Window>());
        fillWindow(*windows.back());
        showAndPaint(windows.back().get());
        settle();
    }
    print({ { "row", "memory" },
            { "contestant", name },
            { "heap", (heapBytes() - heap) / count },
            { "private", (privateKilobytes() - kilobytes) * 1024 / count } });
}

} // namespace

// bench [--theme] cpu|instructions|events ROW[/CONTESTANT]...
// bench [--theme] memory KestWindow|QMainWindow
// bench [--theme] start
int main(int argc, char *argv[])
{
    auto *style = new CountingStyle;
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    const bool theme = arguments.removeOne(QStringLiteral("--theme"));
    const QString mode = arguments.isEmpty() ? QString() : arguments.takeFirst();
    if (mode == QLatin1String("events"))
        QApplication::setStyle(style);
    QApplication app(argc, argv);
    if (theme)
        app.setStyleSheet(KestStyleSheet::defaultStyleSheet());

    if (mode == QLatin1String("start")) {
        KestWindow window;
        fillWindow(window);
        showAndPaint(&window);
        return 0;
    }
    if (mode == QLatin1String("memory")) {
        if (arguments.value(0) == QLatin1String("KestWindow"))
            printMemory<KestWindow>(arguments.at(0));
        else
            printMemory<QMainWindow>(arguments.value(0));
        return 0;
    }

    QVector<Row> rows = windowRows() + barRows() + dialogRows() + widgetRows() + sheetRows();
    for (Row &row : rows) {
        row.contestants += peers(row.name);
        if (mode == QLatin1String("cpu") && arguments.contains(row.name))
            time(row);
        for (const Contestant &contestant : qAsConst(row.contestants)) {
            if (!arguments.contains(row.name)
                && !arguments.contains(row.name + '/' + contestant.name)) {
                continue;
            }
            if (mode == QLatin1String("instructions"))
                countInstructions(row, contestant);
            else if (mode == QLatin1String("events"))
                countEvents(row, contestant, style);
        }
    }
    return 0;
}
