// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef CODEHIGHLIGHTER_H
#define CODEHIGHLIGHTER_H

#include <QtGui/QSyntaxHighlighter>

/*! Colours C++ for a white ground: keywords, classes, texts, numbers, directives and comments to
   the end of the line. */
class CodeHighlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    using QSyntaxHighlighter::QSyntaxHighlighter;

protected:
    void highlightBlock(const QString &text) override;
};

#endif // CODEHIGHLIGHTER_H
