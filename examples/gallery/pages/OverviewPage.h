// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef OVERVIEWPAGE_H
#define OVERVIEWPAGE_H

#include <QtWidgets/QWidget>

class QLabel;

/*! What the library is, at one look: each widget live, on a card that leads to its page. */
class OverviewPage : public QWidget
{
    Q_OBJECT

public:
    explicit OverviewPage(QWidget *parent = nullptr);

    /*! Draws the pictures anew for a scale of \a rate. */
    void setScale(double rate);

Q_SIGNALS:
    /*! Emitted when the page with this title is wanted. */
    void pageWanted(const QString &title);

private:
    QWidget *createCard(QWidget *sample, const QString &title, const QString &text);

    QLabel *m_logo;
    QLabel *m_palette;
};

#endif // OVERVIEWPAGE_H
