// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef ANNOUNCEMENTS_H
#define ANNOUNCEMENTS_H

#include <QtCore/QStringList>
#include <QtGui/QAccessible>
#include <QtGui/private/qguiapplication_p.h>
#include <QtGui/qpa/qplatformaccessibility.h>
#include <QtGui/qpa/qplatformintegration.h>

#include <functional>

/*! Stands for a screen reader as long as it lives: accessibility is active, and what is announced
    is noted as lines of text ("value 7", "cursor 3"). There can be one at a time. */
class Announcements
{
public:
    Announcements()
    {
        heard().clear();
        setActive(true);
        QAccessible::installUpdateHandler(note);
    }

    ~Announcements()
    {
        QAccessible::installUpdateHandler(nullptr);
        setActive(false);
        onAnnouncement() = nullptr;
    }

    Announcements(const Announcements &) = delete;
    Announcements &operator=(const Announcements &) = delete;

    /*! Returns what was announced since the last call. */
    QStringList take()
    {
        const QStringList lines = heard();
        heard().clear();
        return lines;
    }

    /*! Calls \a action within each announcement. */
    void onEach(const std::function<void()> &action) { onAnnouncement() = action; }

private:
    static QStringList &heard()
    {
        static QStringList lines;
        return lines;
    }

    static std::function<void()> &onAnnouncement()
    {
        static std::function<void()> action;
        return action;
    }

    static void setActive(bool active)
    {
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(active);
    }

    static void note(QAccessibleEvent *event)
    {
        heard().append(lineOf(event));
        if (onAnnouncement())
            onAnnouncement()();
    }

    static QString lineOf(QAccessibleEvent *event)
    {
        switch (event->type()) {
        case QAccessible::TextUpdated: {
            const auto *update = static_cast<QAccessibleTextUpdateEvent *>(event);
            return QStringLiteral("text %1 to %2 at %3")
                .arg(update->textRemoved(), update->textInserted())
                .arg(update->changePosition());
        }
        case QAccessible::TextInserted: {
            const auto *insertion = static_cast<QAccessibleTextInsertEvent *>(event);
            return QStringLiteral("inserted %1 at %2")
                .arg(insertion->textInserted())
                .arg(insertion->changePosition());
        }
        case QAccessible::TextRemoved: {
            const auto *removal = static_cast<QAccessibleTextRemoveEvent *>(event);
            return QStringLiteral("removed %1 at %2")
                .arg(removal->textRemoved())
                .arg(removal->changePosition());
        }
        case QAccessible::TextSelectionChanged: {
            const auto *selection = static_cast<QAccessibleTextSelectionEvent *>(event);
            return QStringLiteral("selected %1 to %2")
                .arg(selection->selectionStart())
                .arg(selection->selectionEnd());
        }
        case QAccessible::NameChanged:
            return QStringLiteral("name ") + event->accessibleInterface()->text(QAccessible::Name);
        case QAccessible::ValueChanged:
            return QStringLiteral("value ")
                + static_cast<QAccessibleValueChangeEvent *>(event)->value().toString();
        case QAccessible::TextCaretMoved:
            return QStringLiteral("cursor %1")
                .arg(static_cast<QAccessibleTextCursorEvent *>(event)->cursorPosition());
        case QAccessible::StateChanged:
            return static_cast<QAccessibleStateChangeEvent *>(event)->changedStates().readOnly
                ? QStringLiteral("read-only")
                : QStringLiteral("other state");
        default:
            return QStringLiteral("event %1").arg(int(event->type()));
        }
    }
};

/*! Counts, as long as it lives, how often an interface for screen readers is made for an object. */
class InterfaceRequests
{
public:
    InterfaceRequests()
    {
        requests() = 0;
        QAccessible::installFactory(note);
    }

    ~InterfaceRequests() { QAccessible::removeFactory(note); }

    InterfaceRequests(const InterfaceRequests &) = delete;
    InterfaceRequests &operator=(const InterfaceRequests &) = delete;

    static int count() { return requests(); }

private:
    static int &requests()
    {
        static int number = 0;
        return number;
    }

    // Asked for each class of the object until another one makes it.
    static QAccessibleInterface *note(const QString &, QObject *)
    {
        ++requests();
        return nullptr;
    }
};

#endif // ANNOUNCEMENTS_H
