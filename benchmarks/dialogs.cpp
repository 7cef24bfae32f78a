// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Contest.h"

#include "KestMessageBox.h"

#include <QtWidgets/QMessageBox>

#include <memory>

namespace {

template <class Box>
Work messageBox()
{
    return [] {
        Box box(Box::Question, QStringLiteral("Close"), QStringLiteral("Save the changes?"),
                Box::Yes | Box::No);
        showAndPaint(&box);
        box.close();
    };
}

} // namespace

QVector<Row> dialogRows()
{
    return { { "messageBox",
               15,
               { { "KestMessageBox", messageBox<KestMessageBox> },
                 { "QMessageBox", messageBox<QMessageBox> } } } };
}
