// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef MESSAGECOPY_H
#define MESSAGECOPY_H

#include <QtCore/QString>

QT_BEGIN_NAMESPACE
class QDialogButtonBox;
class QLabel;
QT_END_NAMESPACE

/*!
    Returns a message box with the given \a title, \a text and \a buttons as plain text, in the form
    in which Windows copies its own: each of the three between rows of dashes, the buttons in one
   line in the order in which they are read. The text or the buttons may be null.
*/
QString copyOfMessage(const QString &title, const QLabel *text, const QDialogButtonBox *buttons);

#endif // MESSAGECOPY_H
