// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "ColorsPage.h"

#include "KestColor.h"

#include <QtCore/QMetaEnum>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>

ColorsPage::ColorsPage(QWidget *parent) : QWidget(parent)
{
    setWindowTitle(tr("Colors"));
    const int Columns = 4;
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(24, 24, 24, 24);
    grid->setSpacing(10);

    const QMetaEnum colors = QMetaEnum::fromType<KestColor::Colors>();
    for (int i = 0; i < colors.keyCount(); ++i) {
        const QColor background = KestColor::generateBackgroundColor(i);
        const QColor text = KestColor::generateForegroundColor(background);
        auto *swatch = new QLabel(
            QStringLiteral("%1\n%2").arg(QLatin1String(colors.key(i)), background.name()));
        swatch->setAlignment(Qt::AlignCenter);
        swatch->setMinimumSize(120, 64);
        swatch->setStyleSheet(QStringLiteral("background: %1; color: %2; border-radius: 6px")
                                  .arg(background.name(), text.name()));
        grid->addWidget(swatch, i / Columns, i % Columns);
    }
}
