// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// What the keyboard, the mouse and the clipboard do to an address. Each change is announced at
// once, and whoever hears of it may delete the edit: after that nothing of it is touched.

#include "KestIPAddressEdit.h"

#include "KestAccessibleIPAddressEdit.h"
#include "KestIPAddressEdit_p.h"

#include <QtCore/QPointer>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>

#include <algorithm>

namespace {

const int EndPosition = SectionCount * SectionPositions; // behind all of them

// An event that a program made up may be anywhere.
int columnOf(const QMouseEvent *event)
{
    return qRound(qBound<qreal>(-QWIDGETSIZE_MAX, event->localPos().x(), QWIDGETSIZE_MAX));
}

} // namespace

void KestIPAddressEditPrivate::copy() const
{
    // What is selected in further sections is not copied: a part of an address is no text to paste.
    for (int section = 0; section < SectionCount; ++section) {
        if (selections.at(section).isEmpty())
            continue;
        const QTextLayout::FormatRange &range = selections.at(section).first();
        QGuiApplication::clipboard()->setText(text(section).mid(range.start, range.length));
        return;
    }
}

void KestIPAddressEditPrivate::paste()
{
    if (readOnly)
        return;
    // The clipboard may ask the program for what it holds.
    const QPointer<KestIPAddressEdit> guard(q);
    const QString pasted = QGuiApplication::clipboard()->text();
    if (!guard || readOnly || pasted.isEmpty())
        return;
    if (pasted.count(Dot) == SectionCount - 1) {
        q->setIPAddress(pasted);
        return;
    }

    const int section = q->sectionOfCursorPosition(cursorPosition);
    const int offset = positionInSection(cursorPosition);
    QString digits = text(section);
    int after = offset + 1; // however much was pasted
    if (selections.at(section).isEmpty()) {
        digits.insert(std::min<int>(offset, digits.length()), pasted);
    } else {
        const QTextLayout::FormatRange &range = selections.at(section).first();
        digits.replace(range.start, range.length, pasted);
        after = range.start + range.length;
    }
    if (digits.length() > SectionLength)
        return;
    q->setText(layouts[size_t(section)], digits);
    if (!guard)
        return;
    q->clearSelection();
    q->update();
    setCursorPosition(firstPosition(section) + after);
}

void KestIPAddressEditPrivate::setCursorPosition(int position)
{
    cursorPosition = position;
    const QPointer<KestIPAddressEdit> guard(q);
    KestAccessibleIPAddressEdit::announceCursor(q);
    if (guard)
        KestAccessibleIPAddressEdit::announceSelection(q);
}

// Moves the cursor to a position of the same section and what is selected there along with it;
// where nothing is, what is between the anchor and the position becomes selected.
void KestIPAddressEditPrivate::selectTo(int position, int anchor)
{
    auto &selection = selections[q->sectionOfCursorPosition(position)];
    if (selection.isEmpty())
        selection.append(createFormatRange(anchor, position, q->palette()));
    else
        moveFormatRange(selection.first(), cursorPosition, position);
    setCursorPosition(position);
}

void KestIPAddressEditPrivate::insertDigit(const QString &digit)
{
    const QPointer<KestIPAddressEdit> guard(q);
    if (q->hasSelection())
        q->deleteSelectedText();
    if (!guard)
        return;
    QTextLayout &layout = q->textLayout(cursorPosition);
    QString digits = layout.text();
    // A dead key in front of a digit makes a text of two characters.
    if (digits.length() + std::max<int>(1, digit.length()) > SectionLength)
        return;
    const int offset = positionInSection(cursorPosition);
    const bool appended = offset >= digits.length();
    digits.insert(appended ? digits.length() : offset, digit);
    if (!q->setText(layout, digits) || !guard)
        return;
    int position = cursorPosition + 1;
    // From the end of a section that is full now to the next one.
    if (appended && digits.length() == SectionLength && position < firstPosition(LastSection))
        ++position;
    setCursorPosition(position);
}

void KestIPAddressEditPrivate::deleteBackward()
{
    const QPointer<KestIPAddressEdit> guard(q);
    const int section = q->sectionOfCursorPosition(cursorPosition);
    const int offset = positionInSection(cursorPosition);
    QString digits = text(section);
    if (offset > 0 && !digits.isEmpty()) {
        digits.remove(offset - 1, 1);
        setCursorPosition(cursorPosition - 1);
        if (guard)
            q->setText(layouts[size_t(section)], digits);
    } else if (offset == 0 && section > 0) {
        // The dot can not be deleted: what is before it is.
        digits = text(section - 1);
        digits.chop(1);
        setCursorPosition(firstPosition(section - 1) + digits.length());
        if (guard)
            q->setText(layouts[size_t(section - 1)], digits);
    }
}

void KestIPAddressEditPrivate::deleteForward()
{
    QTextLayout &layout = q->textLayout(cursorPosition);
    const int offset = positionInSection(cursorPosition);
    QString digits = layout.text();
    if (offset < digits.length()) {
        digits.remove(offset, 1);
        q->setText(layout, digits);
    }
}

void KestIPAddressEditPrivate::moveBackward()
{
    if (q->hasSelection()) {
        q->clearSelection();
        return;
    }
    if (cursorPosition == 0)
        return;
    const int position = cursorPosition - 1;
    const int section = q->sectionOfCursorPosition(position);
    const int length = text(section).length();
    setCursorPosition(positionInSection(position) > length ? firstPosition(section) + length
                                                           : position);
}

void KestIPAddressEditPrivate::moveForward()
{
    if (q->hasSelection()) {
        q->clearSelection();
        return;
    }
    if (cursorPosition >= EndPosition)
        return;
    const int section = q->sectionOfCursorPosition(cursorPosition);
    if (positionInSection(cursorPosition) != text(section).length())
        setCursorPosition(cursorPosition + 1);
    else if (section < LastSection)
        setCursorPosition(firstPosition(section + 1));
}

void KestIPAddressEditPrivate::typeDot()
{
    const int section = q->sectionOfCursorPosition(cursorPosition);
    const int length = text(section).length();
    if (section < LastSection && length > 0 && positionInSection(cursorPosition) == length)
        setCursorPosition(firstPosition(section + 1));
}

bool KestIPAddressEdit::hasSelection() const
{
    return std::any_of(d->selections.cbegin(), d->selections.cend(),
                       [](const auto &selection) { return !selection.isEmpty(); });
}

void KestIPAddressEdit::clearSelection()
{
    for (auto &selection : d->selections)
        selection.clear();
}

void KestIPAddressEdit::deleteSelectedText()
{
    const QPointer<KestIPAddressEdit> guard(this);
    for (int section = 0; section < SectionCount; ++section) {
        if (d->selections.at(section).isEmpty())
            continue;
        const QTextLayout::FormatRange range = d->selections.at(section).first();
        QString text = d->text(section);
        text.remove(range.start, range.length);
        setText(d->layouts[size_t(section)], text);
        if (guard)
            d->setCursorPosition(firstPosition(section) + text.length());
        if (!guard)
            return;
    }
    clearSelection();
}

void KestIPAddressEdit::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    const bool isDigit = key >= Qt::Key_0 && key <= Qt::Key_9;
    const bool isDeletion = key == Qt::Key_Backspace || key == Qt::Key_Delete;
    const bool isBackward = key == Qt::Key_Left || key == Qt::Key_Up;
    const bool isForward = key == Qt::Key_Right || key == Qt::Key_Down;
    const bool selecting = event->modifiers() & Qt::ShiftModifier;

    if (d->readOnly && (isDigit || isDeletion))
        return;
    // A selection never leaves its section, but it may go past the last digit.
    const int offset = positionInSection(d->cursorPosition);
    if (selecting && ((isBackward && offset == 0) || (isForward && offset == SectionLength)))
        return;

    const QPointer<KestIPAddressEdit> guard(this);
    if (isDigit)
        d->insertDigit(event->text());
    else if (isDeletion && hasSelection())
        deleteSelectedText();
    else if (key == Qt::Key_Backspace)
        d->deleteBackward();
    else if (isBackward && selecting)
        d->selectTo(d->cursorPosition - 1, d->cursorPosition);
    else if (isBackward)
        d->moveBackward();
    else if (isForward && selecting)
        d->selectTo(d->cursorPosition + 1, d->cursorPosition);
    else if (isForward)
        d->moveForward();
    else if (key == Qt::Key_Delete)
        d->deleteForward();
    else if (event->text() == Dot)
        d->typeDot();
    else if (key == Qt::Key_Escape)
        clearSelection();
    if (!guard)
        return;
    update();
    KestAccessibleIPAddressEdit::announceSelection(this);
    if (!guard)
        return;

    // Comes last, since it may be the edit's end.
    if (event->text() != Dot && (key == Qt::Key_Return || key == Qt::Key_Enter))
        Q_EMIT editingFinished();
}

void KestIPAddressEdit::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QPointer<KestIPAddressEdit> guard(this);
    const int position = xToCursor(columnOf(event));
    if (!guard)
        return;
    update();
    const int section = sectionOfCursorPosition(position);
    if (event->modifiers() == Qt::NoModifier) {
        clearSelection();
        d->mousePressed = true;
        d->pressPosition = position;
        d->pressSection = section;
        d->setCursorPosition(position);
    } else if (event->modifiers() & Qt::ShiftModifier
               && section == sectionOfCursorPosition(d->cursorPosition)) {
        d->selectTo(position, d->cursorPosition);
    }
}

void KestIPAddressEdit::mouseMoveEvent(QMouseEvent *event)
{
    if (!d->mousePressed || event->modifiers() != Qt::NoModifier)
        return;
    const QPointer<KestIPAddressEdit> guard(this);
    const int position = xToCursor(columnOf(event));
    if (!guard)
        return;
    update();
    if (sectionOfCursorPosition(position) == d->pressSection)
        d->selectTo(position, d->pressPosition);
}

void KestIPAddressEdit::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier)
        d->mousePressed = false;
}

void KestIPAddressEdit::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || event->modifiers() != Qt::NoModifier)
        return;
    const QPointer<KestIPAddressEdit> guard(this);
    const int position = xToCursor(columnOf(event));
    if (!guard)
        return;
    update();
    clearSelection();
    const int section = sectionOfCursorPosition(position);
    const int length = d->text(section).length();
    d->selections[section].append(createFormatRange(0, length, palette()));
    d->setCursorPosition(firstPosition(section) + length);
}
