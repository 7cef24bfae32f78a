// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef IPADDRESSSTATE_H
#define IPADDRESSSTATE_H

#include "KestIPAddressEdit.h"
#include "KestIPAddressEdit_p.h"

#include <QtCore/QStringList>
#include <QtGui/QAccessible>
#include <QtGui/QKeyEvent>
#include <QtTest/QTest>

/*!
    \file
    What an address edit holds, as a line of text: the four sections joined by bars, the cursor
    position, and for each selection its section, start and end.

        192|1|| @5 1:0-1
*/

// The only way to a private member: an explicit instantiation may name one.
template <class Tag, typename Tag::Type Member>
struct MemberAccess
{
    friend typename Tag::Type memberOf(Tag) { return Member; }
};

struct EditRecord
{
    using Type = KestIPAddressEditPrivate *KestIPAddressEdit::*;
    friend Type memberOf(EditRecord);
};
template struct MemberAccess<EditRecord, &KestIPAddressEdit::d>;

inline KestIPAddressEditPrivate *recordOf(const KestIPAddressEdit *edit)
{
    return edit->*memberOf(EditRecord());
}

inline QString stateOf(const KestIPAddressEdit *edit)
{
    const KestIPAddressEditPrivate *d = recordOf(edit);
    QStringList texts;
    QString selections;
    for (int i = 0; i < SectionCount; ++i) {
        texts.append(d->text(i));
        for (const QTextLayout::FormatRange &range : d->selections.at(i)) {
            selections +=
                QStringLiteral(" %1:%2-%3").arg(i).arg(range.start).arg(range.start + range.length);
        }
    }
    return texts.join(QLatin1Char('|')) + QStringLiteral(" @%1").arg(d->cursorPosition)
        + selections;
}

/*! Puts \a edit into \a state, without a signal. */
inline void setState(KestIPAddressEdit *edit, const QString &state)
{
    KestIPAddressEditPrivate *d = recordOf(edit);
    QStringList parts = state.split(QLatin1Char(' '));
    const QStringList texts = parts.takeFirst().split(QLatin1Char('|'));
    for (int i = 0; i < SectionCount; ++i)
        d->layouts[size_t(i)].setText(texts.at(i));
    QMetaObject::invokeMethod(edit, "updateTextLayout");
    d->cursorPosition = parts.takeFirst().mid(1).toInt();
    for (auto &selection : d->selections)
        selection.clear();
    for (const QString &part : qAsConst(parts)) {
        const QStringList ends = part.mid(2).split(QLatin1Char('-'));
        const int section = part.at(0).digitValue();
        QTextLayout::FormatRange range = createFormatRange(0, 0, edit->palette());
        range.start = ends.at(0).toInt();
        range.length = ends.at(1).toInt() - range.start;
        d->selections[section].append(range);
    }
}

/*! Sends the key of the name \a key ("5", "Shift+Left", ".") to \a edit, with the text that a
    keyboard gives. */
inline void typeKey(KestIPAddressEdit *edit, const QString &key)
{
    const int code = QKeySequence::fromString(key, QKeySequence::PortableText)[0];
    QTest::keyClick(edit, Qt::Key(code & ~Qt::KeyboardModifierMask),
                    Qt::KeyboardModifiers(code & Qt::KeyboardModifierMask));
}

/*! Returns where a click has to be for the cursor position \a position, as far as the text of its
    section has it. */
inline QPoint pointOf(const KestIPAddressEdit *edit, int position)
{
    QAccessibleInterface *const reader =
        QAccessible::queryAccessibleInterface(const_cast<KestIPAddressEdit *>(edit));
    const KestIPAddressEditPrivate *d = recordOf(edit);
    int offset = 0;
    const int section = position / SectionPositions;
    for (int i = 0; i < section; ++i)
        offset += qMax(1, d->text(i).length()) + 1;
    offset += qMin(position % SectionPositions, d->text(section).length());
    const QRect rect = reader->textInterface()->characterRect(offset);
    return edit->mapFromGlobal(QPoint(rect.left(), rect.center().y()));
}

#endif // IPADDRESSSTATE_H
