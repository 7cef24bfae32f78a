// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "ScreenReader.h"

#include <QtCore/QMetaEnum>
#include <QtCore/QPair>
#include <QtGui/private/qguiapplication_p.h>
#include <QtGui/qpa/qplatformaccessibility.h>
#include <QtGui/qpa/qplatformintegration.h>

#include <algorithm>

namespace {

ScreenReader *listening = nullptr;

// Through this Qt speaks to the system's screen readers, and to nobody unless it is active.
QPlatformAccessibility *platform()
{
    return QGuiApplicationPrivate::platformIntegration()->accessibility();
}

template <typename Enum>
QString nameOf(Enum value)
{
    return QString::fromLatin1(QMetaEnum::fromType<Enum>().valueToKey(int(value)));
}

QString statesOf(const QAccessible::State &state)
{
    const QPair<quint64, const char *> states[] = {
        { state.disabled, "disabled" },
        { state.focused, "focused" },
        { state.checkable, "checkable" },
        { state.checked, "checked" },
        { state.checkStateMixed, "partly checked" },
        { state.pressed, "pressed" },
        { state.selected, "selected" },
        { state.readOnly, "read-only" },
        { state.editable, "editable" },
        { state.expanded, "expanded" },
        { state.collapsed, "collapsed" },
        { state.hasPopup, "has a popup" },
        { state.defaultButton, "default" },
        { state.busy, "busy" },
        { state.modal, "modal" },
    };
    QStringList names;
    for (const auto &entry : states) {
        if (entry.first != 0)
            names.append(QLatin1String(entry.second));
    }
    return names.join(QStringLiteral(", "));
}

QString valueOf(QAccessibleInterface *iface)
{
    if (QAccessibleValueInterface *const value = iface->valueInterface())
        return value->currentValue().toString();
    return iface->text(QAccessible::Value);
}

QString labelOf(QAccessibleInterface *iface)
{
    const QString name = iface->text(QAccessible::Name);
    return QStringLiteral("%1 \"%2\"").arg(nameOf(iface->role()), name);
}

QString lineOf(QAccessibleEvent *event, QAccessibleInterface *iface)
{
    QString what = nameOf(event->type()) + QStringLiteral(": ") + labelOf(iface);
    switch (event->type()) {
    case QAccessible::ValueChanged:
        return QStringLiteral("%1 = %2").arg(
            what, static_cast<QAccessibleValueChangeEvent *>(event)->value().toString());
    case QAccessible::TextCaretMoved:
        return QStringLiteral("%1 at %2")
            .arg(what)
            .arg(static_cast<QAccessibleTextCursorEvent *>(event)->cursorPosition());
    case QAccessible::TextInserted:
        return QStringLiteral("%1 + %2").arg(
            what, static_cast<QAccessibleTextInsertEvent *>(event)->textInserted());
    case QAccessible::TextRemoved:
        return QStringLiteral("%1 - %2").arg(
            what, static_cast<QAccessibleTextRemoveEvent *>(event)->textRemoved());
    case QAccessible::TextUpdated: {
        const auto *const update = static_cast<QAccessibleTextUpdateEvent *>(event);
        return QStringLiteral("%1 - %2 + %3")
            .arg(what, update->textRemoved(), update->textInserted());
    }
    case QAccessible::TextSelectionChanged: {
        const auto *const selection = static_cast<QAccessibleTextSelectionEvent *>(event);
        return QStringLiteral("%1 from %2 to %3")
            .arg(what)
            .arg(selection->selectionStart())
            .arg(selection->selectionEnd());
    }
    case QAccessible::StateChanged:
        return QStringLiteral("%1: %2").arg(what, statesOf(iface->state()));
    default:
        return what;
    }
}

} // namespace

ScreenReader::ScreenReader(QObject *parent) : QObject(parent)
{ }

ScreenReader::~ScreenReader()
{
    setActive(false);
}

bool ScreenReader::isActive() const
{
    return listening == this;
}

void ScreenReader::setActive(bool active)
{
    if (active == isActive() || !platform())
        return;
    listening = active ? this : nullptr;
    if (active) {
        m_woken = !platform()->isActive();
        if (m_woken)
            platform()->setActive(true);
        QAccessible::installUpdateHandler(hear);
        return;
    }
    QAccessible::installUpdateHandler(nullptr);
    if (m_woken)
        platform()->setActive(false);
}

QStringList ScreenReader::questions()
{
    return { tr("Name"),        tr("Role"),    tr("Value"), tr("State"),
             tr("Description"), tr("Actions"), tr("Caret") };
}

QStringList ScreenReader::answersOf(QAccessibleInterface *iface)
{
    QAccessibleActionInterface *const actions = iface->actionInterface();
    QAccessibleTextInterface *const text = iface->textInterface();
    return { iface->text(QAccessible::Name),
             nameOf(iface->role()),
             valueOf(iface),
             statesOf(iface->state()),
             iface->text(QAccessible::Description),
             actions ? actions->actionNames().join(QStringLiteral(", ")) : QString(),
             text ? QString::number(text->cursorPosition()) : QString() };
}

void ScreenReader::hear(QAccessibleEvent *event)
{
    // The handler takes Qt's own place.
    platform()->notifyAccessibilityUpdate(event);
    if (listening)
        listening->announce(event);
}

void ScreenReader::announce(QAccessibleEvent *event)
{
    for (const QObject *object = event->object(); object; object = object->parent()) {
        if (m_ignored.contains(object))
            return;
    }
    // Those of widgets that appear, disappear or are laid out are too many to read.
    const QAccessible::Event told[] = {
        QAccessible::Focus,         QAccessible::ValueChanged,   QAccessible::StateChanged,
        QAccessible::NameChanged,   QAccessible::TextCaretMoved, QAccessible::TextInserted,
        QAccessible::TextRemoved,   QAccessible::TextUpdated,    QAccessible::TextSelectionChanged,
        QAccessible::Selection,     QAccessible::Alert,          QAccessible::DialogStart,
        QAccessible::PopupMenuStart
    };
    if (std::find(std::begin(told), std::end(told), event->type()) == std::end(told))
        return;
    QAccessibleInterface *const iface = event->accessibleInterface();
    if (iface && iface->isValid())
        Q_EMIT heard(lineOf(event, iface));
}
