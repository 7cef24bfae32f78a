// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTMESSAGEBOX_H
#define KESTMESSAGEBOX_H

#include "KestDialog.h"

#include <QtWidgets/QDialogButtonBox>

QT_BEGIN_NAMESPACE
class QAbstractButton;
class QPixmap;
class QPushButton;
QT_END_NAMESPACE

class KestMessageBoxPrivate;

/*!
    \class KestMessageBox
    \brief A modal message with an icon, a text and buttons, in the library's frame.

    How does an application ask the user something?

    \code
    switch (KestMessageBox::question(&window, tr("Close"), tr("Save the changes?"),
                                     KestMessageBox::Yes | KestMessageBox::No
                                         | KestMessageBox::Cancel,
                                     KestMessageBox::Yes)) {
    case KestMessageBox::Yes:
        return save();
    case KestMessageBox::No:
        return true;
    default: // Cancel, Escape or the close button
        return false;
    }
    \endcode

    The interface is QMessageBox's. What it does otherwise, on purpose:

    - Only buttons that accept or reject close the box: one with the action, apply, reset, help or
      destructive role, such as Discard, is recorded as clicked and leaves the box open.
    - exec() returns QDialog::Accepted or QDialog::Rejected; ask clickedButton() or
      standardButton() for the button. The static functions return the button.
    - A box that is closed without a click reports its escape button: Cancel, else an only button,
      else the first with the reject role, else the first with the no role.
    - The default button is the one with the focus; its own default flag is not set.
    - The box fixes its size by its texts whenever it is shown. While it is open,
      setStandardButtons() fixes it anew; a new title, text, text format, icon or pixmap and
      buttons that are added or removed do not, until updateSize() is called.
    - The central widget is the box's own: it holds the icon, the text and the buttons. A host may
      put others below them into its layout. With another central widget, or none, the box has no
      text and no buttons any more: what is set is ignored, and what is asked for is empty,
      NoButton or null.

    A box that is to close on a button which would leave it open says so:

    \code
    KestMessageBox box(KestMessageBox::Question, tr("Close"), tr("Save the changes?"),
                       KestMessageBox::Save | KestMessageBox::Cancel, &window);
    QPushButton *const discard = box.addButton(KestMessageBox::Discard);
    connect(discard, &QPushButton::clicked, &box, &QDialog::accept);
    box.exec();
    const auto answer = box.standardButton(box.clickedButton());
    \endcode

    When the box opens, the focus is on the default button, or without one on the button that Enter
    presses; a focus that the host has set within the contents stays. A letter presses the button
    with that mnemonic, with or without Alt. Ctrl+C copies the title, the text and the buttons as
    plain text, in the form that message boxes on Windows have. Screen readers are alerted when the
    box opens.

    \image html kestmessagebox.png width=591px
*/
class KEST_EXPORT KestMessageBox : public KestDialog
{
    Q_OBJECT
    /*! The text. */
    Q_PROPERTY(QString text READ text WRITE setText)
    /*! The icon, NoIcon for a pixmap of one's own. */
    Q_PROPERTY(Icon icon READ icon WRITE setIcon)
    /*! The pixmap in place of an icon; it can only be written. */
    Q_PROPERTY(QPixmap iconPixmap WRITE setIconPixmap)
    /*! The format of the text; Qt::AutoText by default. */
    Q_PROPERTY(Qt::TextFormat textFormat READ textFormat WRITE setTextFormat)
    /*! The standard buttons of the box. */
    Q_PROPERTY(StandardButtons standardButtons READ standardButtons WRITE setStandardButtons)
    /*! What the user can do with the text. */
    Q_PROPERTY(Qt::TextInteractionFlags textInteractionFlags READ textInteractionFlags WRITE
                   setTextInteractionFlags)

public:
    /*! The icon beside the text. */
    enum Icon {
        NoIcon = 0, /*!< none, or a pixmap of one's own */
        Information = 1, /*!< an i: nothing is wrong */
        Warning = 2, /*!< an exclamation mark: something may be wrong */
        Critical = 3, /*!< a cross: something has failed */
        Question = 4 /*!< a question mark: the user shall decide */
    };
    Q_ENUM(Icon)

    /*! The roles of QDialogButtonBox. */
    enum ButtonRole {
        InvalidRole = QDialogButtonBox::InvalidRole, /*!< no button */
        AcceptRole = QDialogButtonBox::AcceptRole, /*!< accepts the box */
        RejectRole = QDialogButtonBox::RejectRole, /*!< rejects the box */
        DestructiveRole = QDialogButtonBox::DestructiveRole, /*!< Discard; leaves the box open */
        ActionRole = QDialogButtonBox::ActionRole, /*!< leaves the box open */
        HelpRole = QDialogButtonBox::HelpRole, /*!< asks for help; leaves the box open */
        YesRole = QDialogButtonBox::YesRole, /*!< says yes; accepts the box */
        NoRole = QDialogButtonBox::NoRole, /*!< says no; rejects the box */
        ResetRole = QDialogButtonBox::ResetRole, /*!< sets fields back; leaves the box open */
        ApplyRole = QDialogButtonBox::ApplyRole, /*!< applies changes; leaves the box open */
        NRoles = QDialogButtonBox::NRoles /*!< the number of roles; names none */
    };

    /*! The standard buttons of QDialogButtonBox. */
    enum StandardButton {
        NoButton = 0x00000000, /*!< none */
        Ok = 0x00000400, /*!< "OK", accepts */
        Save = 0x00000800, /*!< "Save", accepts */
        SaveAll = 0x00001000, /*!< "Save All", accepts */
        Open = 0x00002000, /*!< "Open", accepts */
        Yes = 0x00004000, /*!< "Yes", accepts */
        YesToAll = 0x00008000, /*!< "Yes to All", accepts */
        No = 0x00010000, /*!< "No", rejects */
        NoToAll = 0x00020000, /*!< "No to All", rejects */
        Abort = 0x00040000, /*!< "Abort", rejects */
        Retry = 0x00080000, /*!< "Retry", accepts */
        Ignore = 0x00100000, /*!< "Ignore", accepts */
        Close = 0x00200000, /*!< "Close", rejects */
        Cancel = 0x00400000, /*!< "Cancel", rejects */
        Discard = 0x00800000, /*!< "Discard" or what the platform says; leaves the box open */
        Help = 0x01000000, /*!< "Help", leaves the box open */
        Apply = 0x02000000, /*!< "Apply", leaves the box open */
        Reset = 0x04000000, /*!< "Reset", leaves the box open */
        RestoreDefaults = 0x08000000 /*!< "Restore Defaults", leaves the box open */
    };
    Q_ENUM(StandardButton)
    /*! A set of standard buttons. */
    Q_DECLARE_FLAGS(StandardButtons, StandardButton)
    Q_FLAG(StandardButtons)

    /*! Constructs a box without icon, text and buttons. */
    explicit KestMessageBox(QWidget *parent = nullptr);
    /*! Constructs a box with the given \a icon, \a title, \a text and \a buttons. It has no frame
        of the system's and a close button whatever the \a flags. */
    KestMessageBox(Icon icon, const QString &title, const QString &text,
                   StandardButtons buttons = NoButton, QWidget *parent = nullptr,
                   Qt::WindowFlags flags = Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
    /*! Destroys the box with its buttons. */
    ~KestMessageBox() override;

    /*! Returns the text. */
    QString text() const;
    /*! Sets the text to \a text. An open box keeps its size. */
    void setText(const QString &text);

    /*! Returns the format of the text. */
    Qt::TextFormat textFormat() const;
    /*! Sets the format of the text to \a format. */
    void setTextFormat(Qt::TextFormat format);

    /*! Returns what the user can do with the text. */
    Qt::TextInteractionFlags textInteractionFlags() const;
    /*! Sets what the user can do with the text to \a flags. */
    void setTextInteractionFlags(Qt::TextInteractionFlags flags);

    /*! Returns the icon; NoIcon by default and after setIconPixmap(). */
    Icon icon() const;
    /*! Shows the style's pixmap for \a icon. NoIcon leaves the pixmap that is shown. */
    void setIcon(Icon icon);
    /*! Shows \a pixmap in place of an icon. */
    void setIconPixmap(const QPixmap &pixmap);

    /*! Returns the standard buttons. */
    StandardButtons standardButtons() const;
    /*! Replaces the standard buttons by \a buttons. A default or escape button that goes with them
        is forgotten. */
    void setStandardButtons(StandardButtons buttons);

    /*! Adds \a button with \a role; the box owns it from now on. Null, or a button that the box
        holds already, is ignored. */
    void addButton(QAbstractButton *button, ButtonRole role);
    /*! Adds a new button with \a text and \a role, and returns it; null where the
        central widget was replaced. */
    QPushButton *addButton(const QString &text, ButtonRole role);
    /*! Adds the standard \a button and returns it; null for what is no single standard button, and
        where the central widget was replaced. */
    QPushButton *addButton(StandardButton button);
    /*! Takes \a button out of the box without deleting it. Null is ignored. */
    void removeButton(QAbstractButton *button);

    /*! Returns the standard button that has the focus first, or NoButton. */
    StandardButton defaultButton();
    /*! Gives the standard \a button the focus when the box is shown; one that the box does not hold
        is ignored. */
    void setDefaultButton(StandardButton button);

    /*! Returns the button that was clicked last, or null. A box that is shown again keeps it. */
    QAbstractButton *clickedButton() const;
    /*! Returns which standard button \a button is, or NoButton. Null stands for the escape
        button. */
    StandardButton standardButton(QAbstractButton *button) const;
    /*! Looks for the button that stands for closing the box without a click, where none was found
        before. */
    void detectEscapeButton() const;

    /*! Returns the least width of the contents, in pixels. */
    int layoutMinimumWidth();
    /*! Fixes the size of the box by its texts and the screen below the pointer; does nothing while
        the box is hidden. */
    void updateSize();

    /*! Shows an information box with \a title, \a text and \a buttons over \a parent and returns
        the button that was clicked, or the escape button. */
    static StandardButton information(QWidget *parent, const QString &title, const QString &text,
                                      StandardButtons buttons = Ok,
                                      StandardButton defaultButton = NoButton);
    /*! Shows a warning. \sa information() */
    static StandardButton warning(QWidget *parent, const QString &title, const QString &text,
                                  StandardButtons buttons = Ok,
                                  StandardButton defaultButton = NoButton);
    /*! Shows a critical message. \sa information() */
    static StandardButton critical(QWidget *parent, const QString &title, const QString &text,
                                   StandardButtons buttons = Ok,
                                   StandardButton defaultButton = NoButton);
    /*! Asks a question. \sa information() */
    static StandardButton question(QWidget *parent, const QString &title, const QString &text,
                                   StandardButtons buttons = StandardButtons(Yes | No),
                                   StandardButton defaultButton = NoButton);

    /*! Shows or hides the box; one that opens without a focus of the host's in its contents gives
       it to the button that Enter presses. */
    void setVisible(bool visible) override;

protected:
    /*! Reimplemented: fixes the size, centres the box on its parent and alerts screen readers. */
    void showEvent(QShowEvent *event) override;
    /*! Reimplemented: copies the message, and presses the button whose mnemonic was typed. */
    void keyPressEvent(QKeyEvent *event) override;

private:
    Q_DISABLE_COPY(KestMessageBox)
    KestMessageBoxPrivate *d;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(KestMessageBox::StandardButtons)

#endif // KESTMESSAGEBOX_H
