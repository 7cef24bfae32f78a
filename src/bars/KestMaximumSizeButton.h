// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTMAXIMUMSIZEBUTTON_H
#define KESTMAXIMUMSIZEBUTTON_H

#include <QtWidgets/QPushButton>

/*! \brief A title bar's button whose look a style sheet can make depend on whether the window is
    maximised, by selecting on the property \c maximumsized. */
class KestMaximumSizeButton : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(bool maximumsized READ maximumSized WRITE setMaximumSized)

public:
    explicit KestMaximumSizeButton(QWidget *parent = nullptr);

    /*! Returns the stored state; false by default. */
    bool maximumSized() const;
    /*! Stores \a maximumSized and has the style evaluate its rules anew, also when nothing
        changed. */
    void setMaximumSized(bool maximumSized);

private:
    Q_DISABLE_COPY(KestMaximumSizeButton)
    bool m_maximumSized = false;
};

#endif // KESTMAXIMUMSIZEBUTTON_H
