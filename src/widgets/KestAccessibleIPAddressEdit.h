// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTACCESSIBLEIPADDRESSEDIT_H
#define KESTACCESSIBLEIPADDRESSEDIT_H

#include <QtWidgets/QAccessibleWidget>

class KestIPAddressEdit;

/*!
    \class KestAccessibleIPAddressEdit
    \brief What assistive technology reads of an address edit, and how it moves in it.

    The text is the address with its dots, so that it is read aloud as one; an empty section is read
    as the 0 that it counts as. Offsets count the characters of that text.
*/
class KestAccessibleIPAddressEdit : public QAccessibleWidget,
                                    public QAccessibleTextInterface,
                                    public QAccessibleEditableTextInterface
{
public:
    explicit KestAccessibleIPAddressEdit(KestIPAddressEdit *edit);
    ~KestAccessibleIPAddressEdit() override;

    /*! Makes the accessibility framework ask this class for address edits. For each of them, since
        an application may be followed by another one. */
    static void install();
    /*! Tells assistive technology that the address of \a edit was \a before. */
    static void announceText(KestIPAddressEdit *edit, const QString &before);
    /*! Tells assistive technology, if there is any, where the cursor of \a edit is now. */
    static void announceCursor(KestIPAddressEdit *edit);
    /*! Tells assistive technology, if there is any, what is selected in \a edit now, where that is
        not what it was told last. */
    static void announceSelection(KestIPAddressEdit *edit);

    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString &text) override;
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    void selection(int index, int *start, int *end) const override;
    int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int offset) override;
    QString text(int start, int end) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint &point) const override;
    void scrollToSubstring(int start, int end) override;
    QString attributes(int offset, int *start, int *end) const override;

    void insertText(int offset, const QString &text) override;
    void deleteText(int start, int end) override;
    void replaceText(int start, int end, const QString &text) override;

private:
    KestIPAddressEdit *edit() const;
    int length(int section) const;
    int firstOffset(int section) const;
    int offsetOf(int position) const;
    int positionAt(int offset) const;
};

#endif // KESTACCESSIBLEIPADDRESSEDIT_H
