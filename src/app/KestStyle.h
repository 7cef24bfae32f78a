// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef KESTSTYLE_H
#define KESTSTYLE_H

#include <QtWidgets/QProxyStyle>

/*!
    \brief A proxy style that changes nothing yet: the place where the library's own standard
    pixmaps would come in.
*/
class KestStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /*! Wraps \a style, or the application's default style where it is null. */
    explicit KestStyle(QStyle *style = nullptr);

    QPixmap standardPixmap(StandardPixmap standardPixmap, const QStyleOption *option,
                           const QWidget *widget = nullptr) const override;
};

#endif // KESTSTYLE_H
