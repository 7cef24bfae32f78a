// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestComboBox.h"

#include <QtCore/QPointer>
#include <QtWidgets/QListView>

KestComboBox::KestComboBox(QWidget *parent) : QComboBox(parent)
{
    setView(new QListView(this));
}

KestComboBox::~KestComboBox() = default;

void KestComboBox::showPopup()
{
    const QPointer<KestComboBox> guard(this);
    Q_EMIT aboutToShowPopup();
    if (guard)
        QComboBox::showPopup();
}
