// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTCOMBOBOX_H
#define KESTCOMBOBOX_H

#include "KestGlobal.h"

#include <QtWidgets/QComboBox>

/*!
    \class KestComboBox
    \brief A combo box that announces its popup, and whose items follow the style sheets.

    How does a list of ports, devices or files come up fresh each time a user opens it?

    \code
    auto *ports = new KestComboBox(this);
    connect(ports, &KestComboBox::aboutToShowPopup, this, [ports] {
        ports->clear();
        ports->addItems(availablePorts());
    });
    \endcode

    Everything else is QComboBox. The list is a plain QListView, so that item rules of style sheets
    such as "QComboBox QListView::item" reach it; QComboBox's own list ignores them in styles
    that draw the popup as a menu.

    \image html kestcombobox.png width=504px
*/
class KEST_EXPORT KestComboBox : public QComboBox
{
    Q_OBJECT

public:
    /*! Constructs an empty combo box with the given \a parent. */
    explicit KestComboBox(QWidget *parent = nullptr);
    /*! Destroys the combo box and its list. */
    ~KestComboBox() override;

    /*! Emits aboutToShowPopup(), then shows the list, if there is an item to show by then. */
    void showPopup() override;

Q_SIGNALS:
    /*! Emitted each time the list is about to open, by a click, by a key or by showPopup(). What a
        directly connected slot changes in the model is in the list that opens. A slot that wants to
        be rid of the box takes deleteLater(): QComboBox goes on to handle a press of the mouse. */
    void aboutToShowPopup();
};

#endif // KESTCOMBOBOX_H
