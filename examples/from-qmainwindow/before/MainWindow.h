// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef MAINWINDOW_H
#define MAINWINDOW_H

#include <QMainWindow>

QT_BEGIN_NAMESPACE
class QListWidget;
QT_END_NAMESPACE

/*! A list of tasks, with a tool bar, a dialog and a question. */
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void add();
    void clear();
    void about();
    void setModified(bool modified);

    QListWidget *m_tasks = nullptr;
};

#endif // MAINWINDOW_H
