// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "CodeEdit.h"

#include <QtGui/QFont>
#include <QtGui/QFontInfo>

namespace {

// Not every platform names its own: then the one that is found for the hint.
QString fixedFamily()
{
    QFont font(QStringLiteral("monospace"));
    font.setStyleHint(QFont::Monospace);
    return QFontInfo(font).family();
}

} // namespace

CodeEdit::CodeEdit(QWidget *parent) : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setStyleSheet(
        QStringLiteral("CodeEdit { background: white; color: #24292F; font-family: \"%1\" }")
            .arg(fixedFamily()));
}
