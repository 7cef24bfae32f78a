// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef CODEEDIT_H
#define CODEEDIT_H

#include <QtWidgets/QPlainTextEdit>

/*! A text of code: letters of one width on white, whatever the theme, and long lines stay lines.
   Tab leads out of it. */
class CodeEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit CodeEdit(QWidget *parent = nullptr);
};

#endif // CODEEDIT_H
