// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef SCREENREADER_H
#define SCREENREADER_H

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtGui/QAccessible>

/*! Listens to what Qt tells screen readers of the program while it is active, one reader at a time.
    A real one goes on hearing everything. */
class ScreenReader : public QObject
{
    Q_OBJECT

public:
    explicit ScreenReader(QObject *parent = nullptr);
    ~ScreenReader() override;

    bool isActive() const;
    void setActive(bool active);

    /*! Does not listen to what is in \a widget, which shows what is heard. */
    void ignore(const QObject *widget) { m_ignored.append(widget); }

    /*! What a screen reader asks, by name, and the answers of a widget in the same order. */
    static QStringList questions();
    static QStringList answersOf(QAccessibleInterface *iface);

Q_SIGNALS:
    void heard(const QString &announcement);

private:
    static void hear(QAccessibleEvent *event);
    void announce(QAccessibleEvent *event);

    QList<const QObject *> m_ignored;
    bool m_woken = false; // Qt told nobody before
};

#endif // SCREENREADER_H
