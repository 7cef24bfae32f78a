// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// What the keyboard, the mouse and the clipboard do to an address. Each change is announced at
// once, and whoever hears of it may delete the edit: after that nothing of it is touched.

#include "KestIPAddressEdit.h"

#include "KestIPAddressEdit_p.h"

#include <QtCore/QPointer>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>

#include <algorithm>

namespace {

const int EndPosition = SectionCount * SectionPositions; // behind all of them

} // namespace

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
        if (!guard)
            return;
        setCursorPosition(firstPosition(section) + text.length());
    }
    clearSelection();
}

// Moves the cursor to a position of the same section and what is selected there along with it;
// where nothing is, what is between the anchor and the position becomes selected.
void KestIPAddressEdit::selectTo(int position, int anchor)
{
    auto &selection = d->selections[sectionOfCursorPosition(position)];
    if (selection.isEmpty())
        selection.append(createFormatRange(anchor, position, palette()));
    else
        moveFormatRange(selection.first(), d->cursorPosition, position);
    setCursorPosition(position);
}

void KestIPAddressEdit::copy() const
{
    // What is selected in further sections is not copied: a part of an address is no text to paste.
    for (int section = 0; section < SectionCount; ++section) {
        if (d->selections.at(section).isEmpty())
            continue;
        const QTextLayout::FormatRange &range = d->selections.at(section).first();
        QGuiApplication::clipboard()->setText(d->text(section).mid(range.start, range.length));
        return;
    }
}

void KestIPAddressEdit::paste()
{
    const QString pasted = QGuiApplication::clipboard()->text();
    if (d->readOnly || pasted.isEmpty())
        return;
    if (pasted.count(Dot) == SectionCount - 1) {
        setIPAddress(pasted);
        return;
    }

    const int section = sectionOfCursorPosition(d->cursorPosition);
    const int offset = positionInSection(d->cursorPosition);
    QString text = d->text(section);
    int after = offset + 1; // however much was pasted
    if (d->selections.at(section).isEmpty()) {
        text.insert(std::min(offset, text.length()), pasted);
    } else {
        const QTextLayout::FormatRange &range = d->selections.at(section).first();
        text.replace(range.start, range.length, pasted);
        after = range.start + range.length;
    }
    if (text.length() > SectionLength)
        return;
    const QPointer<KestIPAddressEdit> guard(this);
    setText(d->layouts[size_t(section)], text);
    if (!guard)
        return;
    setCursorPosition(firstPosition(section) + after);
    clearSelection();
    update();
}

void KestIPAddressEdit::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    const bool isDigit = key >= Qt::Key_0 && key <= Qt::Key_9;
    const bool isBackward = key == Qt::Key_Left || key == Qt::Key_Up;
    const bool isForward = key == Qt::Key_Right || key == Qt::Key_Down;
    const bool selecting = event->modifiers() & Qt::ShiftModifier;

    if (d->readOnly && (isDigit || key == Qt::Key_Backspace || key == Qt::Key_Delete))
        return;
    // A selection never leaves its section, but it may go past the last digit.
    const int offset = positionInSection(d->cursorPosition);
    if (selecting && ((isBackward && offset == 0) || (isForward && offset == SectionLength)))
        return;

    const QPointer<KestIPAddressEdit> guard(this);
    if (isDigit)
        insertDigit(event->text());
    else if (key == Qt::Key_Backspace)
        deleteBackward();
    else if (isBackward && selecting)
        selectTo(d->cursorPosition - 1, d->cursorPosition);
    else if (isBackward)
        moveBackward();
    else if (isForward && selecting)
        selectTo(d->cursorPosition + 1, d->cursorPosition);
    else if (isForward)
        moveForward();
    else if (key == Qt::Key_Delete)
        deleteForward();
    else if (event->text() == Dot)
        typeDot();
    else if (key == Qt::Key_Escape)
        clearSelection();
    if (!guard)
        return;
    update();

    // Comes last, since it may be the edit's end.
    if (event->text() != Dot && (key == Qt::Key_Return || key == Qt::Key_Enter))
        Q_EMIT editingFinished();
}

void KestIPAddressEdit::insertDigit(const QString &digit)
{
    const QPointer<KestIPAddressEdit> guard(this);
    if (hasSelection())
        deleteSelectedText();
    if (!guard)
        return;
    QTextLayout &layout = textLayout(d->cursorPosition);
    QString text = layout.text();
    if (text.length() >= SectionLength)
        return;
    const int offset = positionInSection(d->cursorPosition);
    const bool appended = offset >= text.length();
    text.insert(appended ? text.length() : offset, digit);
    if (!setText(layout, text) || !guard)
        return;
    int position = d->cursorPosition + 1;
    // From the end of a section that is full now to the next one.
    if (appended && text.length() == SectionLength && position < firstPosition(LastSection))
        ++position;
    setCursorPosition(position);
}

void KestIPAddressEdit::deleteBackward()
{
    if (hasSelection()) {
        deleteSelectedText();
        return;
    }
    const int section = sectionOfCursorPosition(d->cursorPosition);
    const int offset = positionInSection(d->cursorPosition);
    QString text = d->text(section);
    if (offset > 0 && !text.isEmpty()) {
        text.remove(offset - 1, 1);
        setCursorPosition(d->cursorPosition - 1);
        setText(d->layouts[size_t(section)], text);
    } else if (offset == 0 && section > 0) {
        // The dot can not be deleted: what is before it is.
        text = d->text(section - 1);
        text.chop(1);
        setCursorPosition(firstPosition(section - 1) + text.length());
        setText(d->layouts[size_t(section - 1)], text);
    }
}

void KestIPAddressEdit::deleteForward()
{
    if (hasSelection()) {
        deleteSelectedText();
        return;
    }
    QTextLayout &layout = textLayout(d->cursorPosition);
    const int offset = positionInSection(d->cursorPosition);
    QString text = layout.text();
    if (offset < text.length()) {
        text.remove(offset, 1);
        setText(layout, text);
    }
}

void KestIPAddressEdit::moveBackward()
{
    if (hasSelection()) {
        clearSelection();
        return;
    }
    if (d->cursorPosition == 0)
        return;
    const int position = d->cursorPosition - 1;
    const int section = sectionOfCursorPosition(position);
    const int length = d->text(section).length();
    setCursorPosition(positionInSection(position) > length ? firstPosition(section) + length
                                                           : position);
}

void KestIPAddressEdit::moveForward()
{
    if (hasSelection()) {
        clearSelection();
        return;
    }
    if (d->cursorPosition >= EndPosition)
        return;
    const int section = sectionOfCursorPosition(d->cursorPosition);
    if (positionInSection(d->cursorPosition) != d->text(section).length())
        setCursorPosition(d->cursorPosition + 1);
    else if (section < LastSection)
        setCursorPosition(firstPosition(section + 1));
}

void KestIPAddressEdit::typeDot()
{
    const int section = sectionOfCursorPosition(d->cursorPosition);
    const int length = d->text(section).length();
    if (section < LastSection && length > 0 && positionInSection(d->cursorPosition) == length)
        setCursorPosition(firstPosition(section + 1));
}

void KestIPAddressEdit::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const int position = xToCursor(qRound(event->localPos().x()));
    const int section = sectionOfCursorPosition(position);
    if (event->modifiers() == Qt::NoModifier) {
        clearSelection();
        setCursorPosition(position);
        d->mousePressed = true;
        d->pressPosition = position;
        d->pressSection = section;
    } else if (event->modifiers() & Qt::ShiftModifier
               && section == sectionOfCursorPosition(d->cursorPosition)) {
        selectTo(position, d->cursorPosition);
    }
    update();
}

void KestIPAddressEdit::mouseMoveEvent(QMouseEvent *event)
{
    if (!d->mousePressed || event->modifiers() != Qt::NoModifier)
        return;
    const int position = xToCursor(qRound(event->localPos().x()));
    if (sectionOfCursorPosition(position) == d->pressSection)
        selectTo(position, d->pressPosition);
    update();
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
    clearSelection();
    const int section = sectionOfCursorPosition(xToCursor(qRound(event->localPos().x())));
    const int length = d->text(section).length();
    d->selections[section].append(createFormatRange(0, length, palette()));
    setCursorPosition(firstPosition(section) + length);
    update();
}
