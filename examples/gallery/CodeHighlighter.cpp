// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "CodeHighlighter.h"

#include <QtCore/QRegularExpression>
#include <QtGui/QColor>

namespace {

// By the groups of the expression below; each at least 4.5:1 on white.
const QColor colors[] = {
    QColor(0x5F, 0x6B, 0x77), // comments
    QColor(0x1B, 0x6E, 0x2F), // texts
    QColor(0x8A, 0x4B, 0x08), // directives
    QColor(0x0B, 0x4F, 0xA8), // keywords
    QColor(0x6D, 0x28, 0x9E), // classes
    QColor(0xA3, 0x1B, 0x3A), // numbers
};

// One expression for all, so that what begins first wins: a text may hold slashes, a comment
// quotes.
const QRegularExpression &tokens()
{
    static const QRegularExpression expression(QStringLiteral(
        R"((//.*$))"
        R"re(|("(?:\\.|[^"\\])*"|'(?:\\.|[^'\\])+'|(?<=#include )<[^>]*>))re"
        R"(|(^\s*#\s*\w+))"
        R"(|\b(auto|bool|break|case|char|class|const|constexpr|continue|decltype|default|delete|do)"
        R"(|double|else|enum|explicit|false|float|for|if|int|namespace|new|nullptr|operator|override)"
        R"(|private|protected|public|return|sizeof|static|static_cast|struct|switch|this|true|using)"
        R"(|virtual|void|while|Q_EMIT|Q_OBJECT|Q_SIGNALS|Q_SLOTS)\b)"
        R"(|\b((?:Q[A-Z]|Kest)\w*)\b)"
        R"(|\b(0x[0-9A-Fa-f]+|\d[\d.]*)\b)"));
    return expression;
}

} // namespace

void CodeHighlighter::highlightBlock(const QString &text)
{
    QRegularExpressionMatchIterator matches = tokens().globalMatch(text);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const int group = match.lastCapturedIndex();
        setFormat(int(match.capturedStart(group)), int(match.capturedLength(group)),
                  colors[group - 1]);
    }
}
