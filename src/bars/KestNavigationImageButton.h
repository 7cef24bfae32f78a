// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTNAVIGATIONIMAGEBUTTON_H
#define KESTNAVIGATIONIMAGEBUTTON_H

#include "KestToolButton.h"

class KestNavigationImageButtonPrivate;

/*! \brief The navigation bar's logo: an image as high as its icon offers and the bar allows for,
    painted on the panel of a push button. */
class KestNavigationImageButton : public KestToolButton
{
    Q_OBJECT

public:
    explicit KestNavigationImageButton(QWidget *parent = nullptr);
    ~KestNavigationImageButton() override;

    /*! Returns the image's size and 20 pixels in each direction, or 5 x 5 without an image. */
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(KestNavigationImageButton)
    void updatePixmap(int height);

    KestNavigationImageButtonPrivate *d;
};

#endif // KESTNAVIGATIONIMAGEBUTTON_H
