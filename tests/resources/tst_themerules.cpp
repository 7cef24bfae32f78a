// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "SheetRules.h"
#include "Themes.h"

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

namespace {

// The states of one element in the order in which their rules have to stand, since of two rules
// that say equally much about a widget the later one holds.
const QStringList StateOrder[] = {
    { QStringLiteral("hover") },
    { QStringLiteral("focus") },
    { QStringLiteral("checked"), QStringLiteral("selected"), QStringLiteral("on"),
      QStringLiteral("open"), QStringLiteral("indeterminate") },
    { QStringLiteral("pressed") },
    { QStringLiteral("disabled") },
};

const int ChosenRank = 3;

struct Selector
{
    QString element; // with what does not change, such as ":horizontal"
    int states = 0;
    int rank = 0; // of the state that comes last
};

int rankOf(const QString &state)
{
    for (int i = 0; i < int(std::size(StateOrder)); ++i) {
        if (StateOrder[i].contains(state))
            return i + 1;
    }
    return 0;
}

Selector parse(const QString &text)
{
    const QRegularExpression state(QStringLiteral("(?<!:):([a-z-]+)"));
    Selector selector;
    selector.element = text;
    QStringList names;
    QRegularExpressionMatchIterator matches = state.globalMatch(text);
    while (matches.hasNext()) {
        const QString name = matches.next().captured(1);
        if (rankOf(name) > 0)
            names.append(name);
    }
    selector.states = names.size();
    for (const QString &name : qAsConst(names)) {
        // A checked box and a partly checked one are never the same, whatever else they are.
        if (rankOf(name) == ChosenRank && names.size() > 1)
            continue;
        selector.rank = qMax(selector.rank, rankOf(name));
        selector.element.remove(
            QRegularExpression(QStringLiteral("(?<!:):%1(?![a-z-])").arg(name)));
    }
    return selector;
}

} // namespace

class tst_ThemeRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void statesStandInTheirOrder_data();
    void statesStandInTheirOrder();
    void lengthsAreWholePixels_data();
    void lengthsAreWholePixels();

private:
    void themes();
};

void tst_ThemeRules::themes()
{
    QTest::addColumn<QString>("theme");
    for (const QString &theme : Themes::names())
        QTest::newRow(qPrintable(theme)) << theme;
}

void tst_ThemeRules::statesStandInTheirOrder_data()
{
    themes();
}

void tst_ThemeRules::statesStandInTheirOrder()
{
    QFETCH(QString, theme);
    QStringList wrong;
    int compared = 0;
    for (const QString &file : Themes::files(theme)) {
        // By element, number of states and property: what a later rule may not take back.
        QMap<QString, int> last;
        for (const Rule &rule : rulesOf(Themes::text(file))) {
            for (const QString &text : rule.selectors) {
                const Selector selector = parse(text);
                // The rules for a host's widgets are the host's.
                if (selector.states == 0 || text.contains(QLatin1String("QRav")))
                    continue;
                for (const QString &property : rule.declarations.keys()) {
                    const QString key = QStringLiteral("%1|%2|%3")
                                            .arg(selector.element)
                                            .arg(selector.states)
                                            .arg(property);
                    if (last.contains(key))
                        ++compared;
                    if (last.value(key) > selector.rank)
                        wrong.append(QStringLiteral("%1 { %2 }").arg(text, property));
                    last[key] = qMax(last.value(key), selector.rank);
                }
            }
        }
    }
    QVERIFY(compared > 20);
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QStringLiteral("; "))));
}

void tst_ThemeRules::lengthsAreWholePixels_data()
{
    themes();
}

// Other lengths do not follow the rate by which a sheet is scaled.
void tst_ThemeRules::lengthsAreWholePixels()
{
    QFETCH(QString, theme);
    const QRegularExpression other(QStringLiteral("\\d\\.\\d+px|\\d(pt|em|ex)\\b"));
    for (const QString &file : Themes::files(theme)) {
        for (const Rule &rule : rulesOf(Themes::text(file))) {
            for (const QString &value : rule.declarations)
                QVERIFY2(!value.contains(other), qPrintable(value));
        }
    }
}

THEME_TEST_MAIN(tst_ThemeRules)
#include "tst_themerules.moc"
