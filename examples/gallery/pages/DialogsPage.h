// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef DIALOGSPAGE_H
#define DIALOGSPAGE_H

#include <QtCore/QList>
#include <QtWidgets/QWidget>

class QDialog;
class QLabel;

/*! Dialogs in the library's frame: around an ordinary widget, and around a QDialog whose result
    comes back. */
class DialogsPage : public QWidget
{
    Q_OBJECT

public:
    explicit DialogsPage(QWidget *parent = nullptr);

    /*! Makes one of each dialog, hidden, with \a parent; the caller owns them. */
    static QList<QDialog *> createDialogs(QWidget *parent);

private:
    void run(int index);

    QLabel *m_result;
};

#endif // DIALOGSPAGE_H
