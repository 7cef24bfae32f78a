// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTIPADDRESSEDIT_P_H
#define KESTIPADDRESSEDIT_P_H

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QVector>
#include <QtGui/QFontMetrics>
#include <QtGui/QTextLayout>

#include <array>
#include <utility>

QT_BEGIN_NAMESPACE
class QAction;
QT_END_NAMESPACE

class KestIPAddressEdit;

/*!
    \file
    What an address edit and its accessible interface know of the address.
*/

/*! The sections of an address, and the positions that the cursor can take in each: before every
    digit, and behind the last. */
const int SectionCount = 4;
const int LastSection = SectionCount - 1;
const int SectionLength = 3; // digits
const int SectionPositions = SectionLength + 1;

/*! What is between two sections. */
const QChar Dot = QLatin1Char('.');

/*! Returns where in its section the cursor position \a position is. */
inline int positionInSection(int position)
{
    return position % SectionPositions;
}

/*! Returns the cursor position at the beginning of \a section. */
inline int firstPosition(int section)
{
    return section * SectionPositions;
}

class KestIPAddressEditPrivate
{
public:
    using Selection = QVector<QTextLayout::FormatRange>; // of one section; the first one counts

    // Of what does not change with the address.
    struct Widths
    {
        int section = 0;
        int dot = 0;
    };

    explicit KestIPAddressEditPrivate(KestIPAddressEdit *edit) : q(edit) { }

    QString text(int section) const { return layouts[size_t(section)].text(); }

    QRect cursorRect() const;
    Widths widths(const QFontMetrics &metrics) const;
    void paintDot(QPainter *painter, const QRectF &rect) const;
    void copy() const;
    void paste();
    void setCursorPosition(int position);
    void selectTo(int position, int anchor);
    void insertDigit(const QString &digit);
    void deleteBackward();
    void deleteForward();
    void moveBackward();
    void moveForward();
    void typeDot();
    void translateActions();

    KestIPAddressEdit *const q;
    int verticalMargin = 1; // pixels above and below the text
    int horizontalMargin = 2; // pixels beside it, which the templates of the size hint leave
    bool frame = true; // of a line edit
    bool readOnly = false;
    int cursorPosition = 0; // of the whole address
    int cursorAscentOffset = 0; // pixels from the font's ascent to the edited line's
    int pressSection = 0;
    int pressPosition = 0;
    bool mousePressed = false; // what follows is a drag
    std::array<QTextLayout, SectionCount> layouts;
    QTextLayout dotLayout = QTextLayout(QString(Dot));
    mutable Widths knownWidths; // by the metrics of the font; 0 until asked for
    mutable QFontMetrics measuredIn = QFontMetrics(QFont());
    QTimer blinkTimer;
    bool cursorVisible = false;
    QVector<Selection> selections = QVector<Selection>(SectionCount);
    std::pair<int, int> announcedSelection; // the last that a screen reader was told, as offsets
    // Weak, since they are among the actions of the edit, for hosts to delete.
    QPointer<QAction> copyAction;
    QPointer<QAction> pasteAction;
    QString copyText; // that the edit gave the actions
    QString pasteText;
};

#endif // KESTIPADDRESSEDIT_P_H
