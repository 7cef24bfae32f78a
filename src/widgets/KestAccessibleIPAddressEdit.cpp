// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestAccessibleIPAddressEdit.h"

#include "KestIPAddressEdit.h"
#include "KestIPAddressEdit_p.h"

#include <QtCore/QPointer>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

// Asked for every class in an object's ancestry in turn: a host's subclass is found by its base.
QAccessibleInterface *createEditInterface(const QString &className, QObject *object)
{
    if (className != QLatin1String(KestIPAddressEdit::staticMetaObject.className()))
        return nullptr;
    return new KestAccessibleIPAddressEdit(static_cast<KestIPAddressEdit *>(object));
}

} // namespace

KestAccessibleIPAddressEdit::KestAccessibleIPAddressEdit(KestIPAddressEdit *edit)
    : QAccessibleWidget(edit, QAccessible::EditableText)
{ }

KestAccessibleIPAddressEdit::~KestAccessibleIPAddressEdit() = default;

void KestAccessibleIPAddressEdit::install()
{
    // Qt takes each once, and forgets them with the application: a later one needs them anew.
    QAccessible::installFactory(createEditInterface);
}

void KestAccessibleIPAddressEdit::announceText(KestIPAddressEdit *edit, const QString &before)
{
    // Only what is different is read aloud. An empty section and one of a 0 read the same.
    const QString after = edit->ipAddress();
    const auto [removed, inserted] =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto [removedEnd, insertedEnd] =
        std::mismatch(before.rbegin(), std::make_reverse_iterator(removed), after.rbegin(),
                      std::make_reverse_iterator(inserted));
    const int offset = int(removed - before.begin());
    const QString gone(removed, int(removedEnd.base() - removed));
    const QString come(inserted, int(insertedEnd.base() - inserted));
    if (gone.isEmpty() && come.isEmpty())
        return;
    if (gone.isEmpty()) {
        QAccessibleTextInsertEvent event(edit, offset, come);
        QAccessible::updateAccessibility(&event);
    } else if (come.isEmpty()) {
        QAccessibleTextRemoveEvent event(edit, offset, gone);
        QAccessible::updateAccessibility(&event);
    } else {
        QAccessibleTextUpdateEvent event(edit, offset, gone, come);
        QAccessible::updateAccessibility(&event);
    }
}

void KestAccessibleIPAddressEdit::announceCursor(KestIPAddressEdit *edit)
{
    if (!QAccessible::isActive())
        return;
    const KestAccessibleIPAddressEdit reader(edit);
    QAccessibleTextCursorEvent event(edit, reader.cursorPosition());
    QAccessible::updateAccessibility(&event);
}

void KestAccessibleIPAddressEdit::announceSelection(KestIPAddressEdit *edit)
{
    if (!QAccessible::isActive())
        return;
    const KestAccessibleIPAddressEdit reader(edit);
    std::pair<int, int> selection;
    reader.selection(0, &selection.first, &selection.second);
    if (std::exchange(edit->d->announcedSelection, selection) == selection)
        return;
    QAccessibleTextSelectionEvent event(edit, selection.first, selection.second);
    QAccessible::updateAccessibility(&event);
}

QString KestAccessibleIPAddressEdit::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? edit()->ipAddress() : QAccessibleWidget::text(kind);
}

void KestAccessibleIPAddressEdit::setText(QAccessible::Text kind, const QString &text)
{
    if (kind != QAccessible::Value)
        QAccessibleWidget::setText(kind, text);
    else if (!edit()->isReadOnly())
        edit()->setIPAddress(text);
}

QAccessible::State KestAccessibleIPAddressEdit::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = edit()->isReadOnly();
    state.editable = !edit()->isReadOnly();
    state.selectableText = true;
    return state;
}

void *KestAccessibleIPAddressEdit::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface *>(this);
    if (type == QAccessible::EditableTextInterface)
        return static_cast<QAccessibleEditableTextInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

void KestAccessibleIPAddressEdit::selection(int index, int *start, int *end) const
{
    *start = 0;
    *end = 0;
    if (index < 0)
        return;
    for (int section = 0; section < SectionCount; ++section) {
        const auto &selection = edit()->d->selections.at(section);
        if (selection.isEmpty() || index-- > 0)
            continue;
        const QTextLayout::FormatRange &range = selection.first();
        *start = offsetOf(firstPosition(section) + range.start);
        *end = offsetOf(firstPosition(section) + range.start + range.length);
        return;
    }
}

int KestAccessibleIPAddressEdit::selectionCount() const
{
    const auto &selections = edit()->d->selections;
    return int(std::count_if(selections.cbegin(), selections.cend(),
                             [](const auto &selection) { return !selection.isEmpty(); }));
}

void KestAccessibleIPAddressEdit::addSelection(int start, int end)
{
    setSelection(0, start, end);
}

void KestAccessibleIPAddressEdit::removeSelection(int index)
{
    Q_UNUSED(index)
    edit()->clearSelection();
    edit()->update();
    announceSelection(edit());
}

// There is one selection, and it stays in the section that it starts in.
void KestAccessibleIPAddressEdit::setSelection(int index, int start, int end)
{
    Q_UNUSED(index)
    edit()->clearSelection();
    const int first = positionAt(start);
    const int section = edit()->sectionOfCursorPosition(first);
    const int last =
        std::max(first, std::min(positionAt(end), firstPosition(section) + length(section)));
    edit()->update();
    edit()->d->selectTo(last, first);
}

int KestAccessibleIPAddressEdit::cursorPosition() const
{
    return offsetOf(edit()->d->cursorPosition);
}

void KestAccessibleIPAddressEdit::setCursorPosition(int offset)
{
    edit()->clearSelection();
    edit()->update();
    edit()->d->setCursorPosition(positionAt(offset));
}

QString KestAccessibleIPAddressEdit::text(int start, int end) const
{
    const QString text = edit()->ipAddress();
    const int first = qBound(0, start, text.length());
    const int last = qBound(first, end, text.length());
    return text.mid(first, last - first);
}

int KestAccessibleIPAddressEdit::characterCount() const
{
    return edit()->ipAddress().length();
}

QRect KestAccessibleIPAddressEdit::characterRect(int offset) const
{
    const int position = positionAt(offset);
    const int section = edit()->sectionOfCursorPosition(position);
    const QPointer<QWidget> guard(edit());
    const QRect rectOfSection = edit()->rectOfIpSection(section);
    if (!guard)
        return QRect();
    const QRect bounds = edit()->boundRect(section, rectOfSection);
    const QTextLine line = edit()->textLayout(position).lineAt(0);
    const int index = positionInSection(position);
    QRect rect = bounds;
    rect.setLeft(bounds.left() + qRound(line.cursorToX(index)));
    rect.setRight(bounds.left() + qRound(line.cursorToX(index + 1)));
    return rect.translated(edit()->mapToGlobal(QPoint()));
}

int KestAccessibleIPAddressEdit::offsetAtPoint(const QPoint &point) const
{
    const QPoint local = edit()->mapFromGlobal(point);
    if (!edit()->rect().contains(local))
        return -1;
    const QPointer<QWidget> guard(edit());
    const int position = edit()->xToCursor(local.x());
    return guard ? offsetOf(position) : -1;
}

void KestAccessibleIPAddressEdit::scrollToSubstring(int start, int end)
{
    // All of it is in view.
    Q_UNUSED(start)
    Q_UNUSED(end)
}

QString KestAccessibleIPAddressEdit::attributes(int offset, int *start, int *end) const
{
    Q_UNUSED(offset)
    *start = 0;
    *end = characterCount();
    return QString();
}

void KestAccessibleIPAddressEdit::insertText(int offset, const QString &text)
{
    replaceText(offset, offset, text);
}

void KestAccessibleIPAddressEdit::deleteText(int start, int end)
{
    replaceText(start, end, QString());
}

// What would be no address is refused.
void KestAccessibleIPAddressEdit::replaceText(int start, int end, const QString &text)
{
    const int length = characterCount();
    const int first = qBound(0, start, length);
    const int last = qBound(first, end, length);
    setText(QAccessible::Value, edit()->ipAddress().replace(first, last - first, text));
}

KestIPAddressEdit *KestAccessibleIPAddressEdit::edit() const
{
    return static_cast<KestIPAddressEdit *>(widget());
}

int KestAccessibleIPAddressEdit::length(int section) const
{
    return edit()->d->text(section).length();
}

// Where a section begins in the text, in which an empty one is a 0.
int KestAccessibleIPAddressEdit::firstOffset(int section) const
{
    int offset = 0;
    for (int i = 0; i < section; ++i)
        offset += std::max(length(i), 1) + 1;
    return offset;
}

int KestAccessibleIPAddressEdit::offsetOf(int position) const
{
    const int section = edit()->sectionOfCursorPosition(position);
    return firstOffset(section) + std::min(positionInSection(position), length(section));
}

int KestAccessibleIPAddressEdit::positionAt(int offset) const
{
    int section = SectionCount - 1;
    while (section > 0 && firstOffset(section) > offset)
        --section;
    const int inSection = std::max(0, offset - firstOffset(section));
    return firstPosition(section) + std::min(inSection, length(section));
}
