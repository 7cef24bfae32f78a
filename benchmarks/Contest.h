// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef CONTEST_H
#define CONTEST_H

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVector>

#include <functional>

QT_BEGIN_NAMESPACE
class QEvent;
class QIcon;
class QWidget;
QT_END_NAMESPACE

/*! The part that is measured; what it holds is given up, unmeasured, when it is destroyed. */
using Work = std::function<void()>;

/*! One who does a piece of work. Each turn is prepared, unmeasured, by prepare(). */
struct Contestant
{
    QString name;
    std::function<Work()> prepare;
};

/*! The same piece of work, done by ours first and then by the yardsticks. */
struct Row
{
    QString name;
    int rounds; // of timed turns
    QVector<Contestant> contestants;
};

QVector<Row> windowRows();
QVector<Row> barRows();
QVector<Row> dialogRows();
QVector<Row> widgetRows();
QVector<Row> sheetRows();

/*! Returns what other tool kits have to set against ours in the row \a row. */
QVector<Contestant> peers(const QString &row);

/*! Waits until \a widget has been painted \a times more often than when this was called. */
class PaintWait : public QObject
{
public:
    explicit PaintWait(QWidget *widget);

    void wait(int times = 1);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    int m_paints = 0;
};

/*! Shows \a widget and waits until it is painted. */
void showAndPaint(QWidget *widget);

/*! Lets all that is due happen. */
void settle();

/*! Gives \a widget the keyboard focus, in an active window. */
void giveFocus(QWidget *widget);

/*! Returns a picture for an action. */
QIcon actionIcon();

#endif // CONTEST_H
