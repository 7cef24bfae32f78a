// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "MessageCopy.h"

#include <QtCore/QStringList>
#include <QtGui/QTextDocument>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>

namespace {

// What a user reads on the label.
QString readableText(const QLabel *label)
{
    QString text = label->text();
    QTextDocument document;
    if (label->textFormat() == Qt::MarkdownText)
        document.setMarkdown(text);
    else if (label->textFormat() == Qt::RichText
             || (label->textFormat() == Qt::AutoText && Qt::mightBeRichText(text)))
        document.setHtml(text);
    else
        return text;
    return document.toPlainText();
}

// What a user reads on the button: the mark of the mnemonic is none of it, and is doubled to stand
// for itself.
QString readableText(const QAbstractButton *button)
{
    QString text;
    bool marked = false;
    const QString source = button->text();
    for (const QChar character : source) {
        marked = character == QLatin1Char('&') && !marked;
        if (!marked)
            text += character;
    }
    return text;
}

// Hidden buttons are not read.
QString readableText(const QDialogButtonBox *buttons)
{
    QString text;
    // The layout has the buttons in the order in which they are read.
    const QLayout *const row = buttons->layout();
    for (int i = 0; i < row->count(); ++i) {
        const auto *button = qobject_cast<QAbstractButton *>(row->itemAt(i)->widget());
        if (button && !button->isHidden())
            text += readableText(button) + QStringLiteral("   ");
    }
    return text;
}

} // namespace

QString copyOfMessage(const QString &title, const QLabel *text, const QDialogButtonBox *buttons)
{
    const QString dashes(27, QLatin1Char('-'));
    const QStringList lines { dashes, title,
                              dashes, text ? readableText(text) : QString(),
                              dashes, buttons ? readableText(buttons) : QString(),
                              dashes, QString() };
    return lines.join(QLatin1Char('\n'));
}
