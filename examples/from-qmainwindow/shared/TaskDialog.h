// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef TASKDIALOG_H
#define TASKDIALOG_H

#include <QDialog>

QT_BEGIN_NAMESPACE
class QLineEdit;
QT_END_NAMESPACE

/*! Asks what is to be done. The same in both programs. */
class TaskDialog : public QDialog
{
    Q_OBJECT

public:
    explicit TaskDialog(QWidget *parent = nullptr);

    QString task() const;

private:
    QLineEdit *m_task = nullptr;
};

#endif // TASKDIALOG_H
