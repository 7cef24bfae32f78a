// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef MESSAGEBOXPAGE_H
#define MESSAGEBOXPAGE_H

#include <QtCore/QList>
#include <QtWidgets/QWidget>

class QDialog;
class QLabel;

/*! Message boxes: each static function with each kind of buttons, buttons and a pixmap of one's
    own. */
class MessageBoxPage : public QWidget
{
    Q_OBJECT

public:
    explicit MessageBoxPage(QWidget *parent = nullptr);

    /*! Makes one box of each kind, hidden, with \a parent; the caller owns them. */
    static QList<QDialog *> createDialogs(QWidget *parent);

private:
    void ask(int function, int buttons);
    void askWithOwnButtons();

    QLabel *m_answer;
};

#endif // MESSAGEBOXPAGE_H
