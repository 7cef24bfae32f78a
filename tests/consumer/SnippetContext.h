// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef SNIPPETCONTEXT_H
#define SNIPPETCONTEXT_H

#include <KestWidgets>

#include <QtCore/QPointer>
#include <QtCore/QVariantAnimation>
#include <QtNetwork/QHostAddress>
#include <QtNetwork/QLocalServer>
#include <QtNetwork/QLocalSocket>
#include <QtWidgets/QtWidgets>

// What the pieces of code in the documentation take for granted: a host's own classes and objects.

class Copier : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void copied(int files);
};

class Task : public QObject
{
    Q_OBJECT

public:
    void start();
    void abort();

Q_SIGNALS:
    void finished();
};

class Theme : public QObject
{
    Q_OBJECT

public:
    bool isDark() const;
    void setDark(bool dark);
};

class ConnectionForm : public QDialog
{
};

QString userName();
QStringList availablePorts();
void connectToServer();
void connectTo(const QHostAddress &address);
bool save();

class KestFoo : public QWidget
{
    Q_OBJECT

Q_SIGNALS:
    void valueChanged(int value);
};

struct Surroundings : KestFoo
{
    KestWindow window;
    QWidget *editor;
    QStringList files;
    Copier *copier;
    Task task;
    Theme *theme;
    QString name;
    int value;
    QScreen *screen;
    double rate;
    QString sheet;
    QFont unscaledFont;
    QTableView *table;
    QTreeView *tree;
    QListView *list;
    QDial *dial;
};

#endif // SNIPPETCONTEXT_H
