// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTIPADDRESSEDIT_H
#define KESTIPADDRESSEDIT_H

#include "KestGlobal.h"

#include <QtGui/QTextLayout>
#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QPalette;
class QStyleOptionFrame;
QT_END_NAMESPACE

class KestIPAddressEditPrivate;

/*!
    \class KestIPAddressEdit
    \brief An input for an IPv4 address: four numbers from 0 to 255 with fixed dots between them.

    How does a user type an address without typing its dots, and without a way to get one that is
    none?

    \code
    auto *edit = new KestIPAddressEdit(this);
    edit->setAccessibleName(tr("Address of the server"));
    edit->setIPAddress("192.168.0.1");
    connect(edit, &KestIPAddressEdit::editingFinished, this,
            [=] { connectTo(QHostAddress(edit->ipAddress())); });
    \endcode

    Each of the four sections takes up to three digits. A third digit moves on to the next section,
    and so does a dot behind a number. A digit that would make a number greater than 255 is not
    taken. Left, right, up and down move the cursor, with Shift they select; a selection is made of
    one section's digits. A double click selects a section. Copy takes the first selection; paste
    takes a whole address at once, and anything else up to three characters into the section that
    the cursor is in, which is how something that is no number can get there.

    Sections stay as they are typed, leading zeros included; an empty one counts as 0. The
    cursor's way is the same in right-to-left layouts, since addresses are written from left to
    right everywhere. A read-only edit can be selected and copied from.

    Every key but those that move the focus is the edit's own, Escape and Return included.

    \image html kestipaddressedit.png width=269px
*/
class KEST_EXPORT KestIPAddressEdit : public QWidget
{
    Q_OBJECT
    /*! Whether the address can be selected and copied only; false by default. */
    Q_PROPERTY(bool readOnly READ isReadOnly WRITE setReadOnly)
    /*! The address. It notifies when a section is set, be it to the text that it had. */
    Q_PROPERTY(QString ipAddress READ ipAddress WRITE setIPAddress NOTIFY editChanged)

public:
    /*! Constructs an empty edit, with the given \a parent. */
    explicit KestIPAddressEdit(QWidget *parent = nullptr);
    /*! Destroys the edit. */
    ~KestIPAddressEdit() override;

    /*! Returns the four sections as they were typed, joined by dots; an empty one is "0". */
    QString ipAddress() const;
    /*!
        Sets all four sections from \a ip, each of which has to be a number from 0 to 255 of one to
        three characters. Anything else is ignored as a whole. Cursor and selection stay.
    */
    void setIPAddress(const QString &ip);

    /*! Returns whether the address can be selected and copied only; false by default. */
    bool isReadOnly() const;
    /*! Makes the address one that can only be selected and copied, if \a readOnly. */
    void setReadOnly(bool readOnly);

    /*! Returns minimumSizeHint(). */
    QSize sizeHint() const override;
    /*! Returns the size of a line edit that holds an address of twelve digits with some room. */
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /*! A section was set, be it to the text that it had; setIPAddress() sets four. */
    void editChanged();
    /*! Return or Enter was pressed, or the edit lost the focus. */
    void editingFinished();

protected:
    /*! Reimplemented: follows the font and the language, and keeps what is typed from shortcuts of
        the window. */
    bool event(QEvent *event) override;
    /*! Reimplemented: draws the frame as of a line edit, the sections, the dots and the cursor. */
    void paintEvent(QPaintEvent *event) override;
    /*! Reimplemented: edits, moves and selects as the class describes. */
    void keyPressEvent(QKeyEvent *event) override;
    /*! Reimplemented: puts the cursor below the pointer; with Shift, selects up to there. */
    void mousePressEvent(QMouseEvent *event) override;
    /*! Reimplemented: selects within the section that was pressed. */
    void mouseMoveEvent(QMouseEvent *event) override;
    /*! Reimplemented: ends selecting. */
    void mouseReleaseEvent(QMouseEvent *event) override;
    /*! Reimplemented: selects the section below the pointer. */
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    /*! Reimplemented: shows the cursor. */
    void focusInEvent(QFocusEvent *event) override;
    /*! Reimplemented: hides the cursor, drops the selection unless a menu took the focus, and emits
        editingFinished(). */
    void focusOutEvent(QFocusEvent *event) override;
    /*! Reimplemented: takes the event where the edit can be changed, but no text from it. */
    void inputMethodEvent(QInputMethodEvent *event) override;
    /*! Reimplemented: an edit of digits wants no input method. */
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

    /*! Initialises \a option with what the frame looks like now. */
    void initStyleOption(QStyleOptionFrame *option) const;

private Q_SLOTS:
    void updateTextLayout();
    void onCustomContextMenuRequested(const QPoint &pos);

private:
    Q_DISABLE_COPY(KestIPAddressEdit)
    friend class KestAccessibleIPAddressEdit;
    friend class KestIPAddressEditPrivate;

    void initActions();
    int sectionOfCursorPosition(int position) const;
    QTextLayout &textLayout(int position) const;
    bool setText(QTextLayout &layout, const QString &text);
    int redoTextLayout(QTextLayout &layout);
    bool hasSelection() const;
    void clearSelection();
    void deleteSelectedText();
    QRect rectOfIpSection(int section) const;
    QRect boundRect(int section, const QRect &rect) const;
    int xToCursor(int x) const;

    KestIPAddressEditPrivate *d;
};

/*!
    \relates KestIPAddressEdit
    Returns the range between the cursor positions \a a and \a b of one section, in the highlight
    colours of \a palette. Positions count 4 to a section; a range counts within its section.
*/
KEST_EXPORT QTextLayout::FormatRange createFormatRange(int a, int b, const QPalette &palette);

/*!
    \relates KestIPAddressEdit
    Moves the end of \a range that is at the cursor position \a from to the position \a to of the
    same section, and returns \a to within the section. The other end stays; an end that is moved
    across it changes sides. An empty range, or one with no end at \a from, becomes the one between
    the two positions.
*/
KEST_EXPORT int moveFormatRange(QTextLayout::FormatRange &range, int from, int to);

#endif // KESTIPADDRESSEDIT_H
