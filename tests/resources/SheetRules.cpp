// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "SheetRules.h"

#include <QtCore/QRegularExpression>

QList<Rule> rulesOf(const QString &sheet)
{
    QString text = sheet;
    text.remove(QRegularExpression(QStringLiteral("/\\*.*?\\*/"),
                                   QRegularExpression::DotMatchesEverythingOption));
    QList<Rule> rules;
    QRegularExpressionMatchIterator matches =
        QRegularExpression(QStringLiteral("([^{}]+)\\{([^{}]*)\\}")).globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        Rule rule;
        for (const QString &selector : match.captured(1).split(QLatin1Char(',')))
            rule.selectors.append(selector.simplified());
        for (const QString &line : match.captured(2).split(QLatin1Char(';'))) {
            const int colon = line.indexOf(QLatin1Char(':'));
            if (colon > 0)
                rule.declarations.insert(line.left(colon).simplified(),
                                         line.mid(colon + 1).simplified());
        }
        rules.append(rule);
    }
    return rules;
}
